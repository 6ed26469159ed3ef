// The exports that build and measure paths.

#include "path.h"

#include <algorithm>
#include <cfloat>
#include <new>

using lacquer::vel::AreFinite;
using lacquer::vel::Bounds;
using lacquer::vel::Outline;
using lacquer::vel::Point;

namespace {

/// Lets `append` add to the path's outline; what it added is taken back when memory runs short.
template <class Append>
int Extend(velPath *path, Append append) {
    if (!path) return 0;
    const Outline::Position before = path->outline.Mark();
    if (append(path->outline)) return 1;
    path->outline.GoBackTo(before);
    return 0;
}

int AddArc(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle,
           bool newFigure) {
    if (!AreFinite(x, y, width, height, startAngle, sweepAngle) || width < 0 || height < 0) return 0;
    const Point radii{width / 2.0, height / 2.0};
    return Extend(path, [&](Outline &outline) {
        return outline.Arc(Point{x, y} + radii, radii, startAngle, sweepAngle, newFigure);
    });
}

/// Sums of large numbers can leave the range of a float.
float Single(double value) {
    constexpr double kMost = double{FLT_MAX};
    return static_cast<float>(std::clamp(value, -kMost, kMost));
}

}  // namespace

velPath *velPathCreate() { return new (std::nothrow) velPath; }

int velPathDestroy(velPath *path) {
    delete path;
    return path != nullptr;
}

int velPathBegin(velPath *path) {
    if (!path) return 0;
    path->outline.Clear();
    return 1;
}

int velPathClose(velPath *path) { return path && path->outline.HasPresentPoint() && path->outline.Close(); }

int velPathSetFillType(velPath *path, DWORD type) {
    if (!path || type > VEL_FILL_EVEN_ODD) return 0;
    path->fillType = type;
    return 1;
}

int velPathMoveTo(velPath *path, float x, float y) { return path && AreFinite(x, y) && path->outline.MoveTo({x, y}); }

int velPathLineTo(velPath *path, float x, float y) { return path && AreFinite(x, y) && path->outline.LineTo({x, y}); }

int velPathArcTo(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle,
                 int forceMoveTo) {
    return AddArc(path, x, y, width, height, startAngle, sweepAngle, forceMoveTo != 0);
}

int velPathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc, int clockwise,
                       float x, float y) {
    if (!AreFinite(radiusX, radiusY, xAxisRotation, x, y) || radiusX < 0 || radiusY < 0) return 0;
    return Extend(path, [&](Outline &outline) {
        if (!outline.HasPresentPoint()) return outline.MoveTo({x, y});
        return outline.EndpointArc({radiusX, radiusY}, xAxisRotation, largeArc != 0, clockwise != 0, {x, y});
    });
}

int velPathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3) {
    if (!AreFinite(x1, y1, x2, y2, x3, y3)) return 0;
    return Extend(path, [&](Outline &outline) { return outline.CurveTo({x1, y1}, {x2, y2}, {x3, y3}); });
}

int velPathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2) {
    if (!AreFinite(x1, y1, x2, y2)) return 0;
    return Extend(path, [&](Outline &outline) { return outline.QuadraticTo({x1, y1}, {x2, y2}); });
}

int velPathAddArc(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle) {
    return AddArc(path, x, y, width, height, startAngle, sweepAngle, true);
}

int velPathAddRectangle(velPath *path, float x, float y, float width, float height) {
    if (!AreFinite(x, y, width, height) || width < 0 || height < 0) return 0;
    return Extend(path, [&](Outline &outline) { return outline.Rectangle({x, y}, {width, height}); });
}

int velPathAddCircle(velPath *path, float centreX, float centreY, float radius) {
    return velPathAddEllipse(path, centreX, centreY, radius, radius);
}

int velPathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY) {
    if (!AreFinite(centreX, centreY, radiusX, radiusY) || radiusX < 0 || radiusY < 0) return 0;
    return Extend(path, [&](Outline &outline) { return outline.Ellipse({centreX, centreY}, {radiusX, radiusY}); });
}

int velPathGetBounds(velPath *path, velRectF *out) {
    if (!path || !out) return 0;
    const Bounds bounds = path->outline.Extents();
    *out = {Single(bounds.low.x), Single(bounds.low.y), Single(bounds.high.x), Single(bounds.high.y)};
    return 1;
}
