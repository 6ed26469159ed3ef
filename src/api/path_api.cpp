// The exported functions of paths and gradients: objects of the companion library, passed through as they are.

#include <lacquer/lacquer.h>

velPath *PathCreate(void) { return velPathCreate(); }

int PathDestroy(velPath *path) { return velPathDestroy(path); }

int PathBegin(velPath *path) { return velPathBegin(path); }

int PathClose(velPath *path) { return velPathClose(path); }

int PathSetFillType(velPath *path, DWORD type) { return velPathSetFillType(path, type); }

int PathMoveTo(velPath *path, float x, float y) { return velPathMoveTo(path, x, y); }

int PathLineTo(velPath *path, float x, float y) { return velPathLineTo(path, x, y); }

int PathArcTo(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle,
              int forceMoveTo) {
    return velPathArcTo(path, x, y, width, height, startAngle, sweepAngle, forceMoveTo);
}

int PathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc, int clockwise,
                    float x, float y) {
    return velPathOvalCurveTo(path, radiusX, radiusY, xAxisRotation, largeArc, clockwise, x, y);
}

int PathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3) {
    return velPathBezierCurveTo(path, x1, y1, x2, y2, x3, y3);
}

int PathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2) {
    return velPathQuadraticCurveTo(path, x1, y1, x2, y2);
}

int PathAddArc(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle) {
    return velPathAddArc(path, x, y, width, height, startAngle, sweepAngle);
}

int PathAddRectangle(velPath *path, float x, float y, float width, float height) {
    return velPathAddRectangle(path, x, y, width, height);
}

int PathAddCircle(velPath *path, float centreX, float centreY, float radius) {
    return velPathAddCircle(path, centreX, centreY, radius);
}

int PathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY) {
    return velPathAddEllipse(path, centreX, centreY, radiusX, radiusY);
}

int PathGetBounds(velPath *path, velRectF *out) { return velPathGetBounds(path, out); }

velGradient *GradientCreateLinear(float x0, float y0, float x1, float y1) {
    return velGradientCreateLinear(x0, y0, x1, y1);
}

velGradient *GradientCreateRadial(float centreX, float centreY, float radius) {
    return velGradientCreateRadial(centreX, centreY, radius);
}

int GradientAddColorStop(velGradient *gradient, float offset, DWORD colour) {
    return velGradientAddColorStop(gradient, offset, colour);
}

int GradientDestroy(velGradient *gradient) { return velGradientDestroy(gradient); }
