// Polygons and curves as temporary paths.

#include "vector/shapes.h"

#include <memory>

namespace lacquer {
namespace {

using OwnedPath = std::unique_ptr<velPath, int (*)(velPath *)>;

OwnedPath NewPath() {
    OwnedPath path(velPathCreate(), velPathDestroy);
    if (path) velPathBegin(path.get());
    return path;
}

float ToFloat(LONG coordinate) { return static_cast<float>(coordinate); }

}  // namespace

int DrawPolygonWith(velCanvas *companion, const POINT *points, int count) {
    const OwnedPath path = NewPath();
    if (!path || !velPathMoveTo(path.get(), ToFloat(points[0].x), ToFloat(points[0].y))) return 0;
    for (int i = 1; i < count; ++i) {
        if (!velPathLineTo(path.get(), ToFloat(points[i].x), ToFloat(points[i].y))) return 0;
    }
    return velPathClose(path.get()) ? velCanvasDrawPath(companion, path.get()) : 0;
}

int DrawCurveWith(velCanvas *companion, const velPointF (&points)[4]) {
    const auto &[start, control1, control2, end] = points;
    const OwnedPath path = NewPath();
    const bool built = path && velPathMoveTo(path.get(), start.x, start.y) &&
                       velPathBezierCurveTo(path.get(), control1.x, control1.y, control2.x, control2.y, end.x, end.y);
    return built ? velCanvasDrawPath(companion, path.get()) : 0;
}

}  // namespace lacquer
