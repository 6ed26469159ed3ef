// The exports that draw shapes and paths.

#include <cmath>

#include "canvas.h"
#include "path.h"

using lacquer::vel::AreFinite;
using lacquer::vel::Outline;
using lacquer::vel::Point;

namespace {

/// Draws what `build` appends to an outline, by the style.
template <class Build>
int DrawShape(velCanvas *canvas, Build build) {
    if (!canvas) return 0;
    Outline &outline = canvas->Scratch();
    return build(outline) && canvas->Draw(outline, VEL_FILL_WINDING);
}

}  // namespace

int velCanvasDrawPoint(velCanvas *canvas, float x, float y) {
    if (!canvas || !AreFinite(x, y)) return 0;
    const double half = static_cast<double>(canvas->state.strokeWidth) / 2;
    Outline &outline = canvas->Scratch();
    const bool isBuilt = canvas->state.cap == VEL_CAP_ROUND
                             ? outline.Ellipse({x, y}, {half, half})
                             : outline.Rectangle({x - half, y - half}, {2 * half, 2 * half});
    return isBuilt && canvas->Fill(outline, VEL_FILL_WINDING);
}

int velCanvasDrawLine(velCanvas *canvas, float x0, float y0, float x1, float y1) {
    if (!canvas || !AreFinite(x0, y0, x1, y1)) return 0;
    Outline &outline = canvas->Scratch();
    return outline.MoveTo({x0, y0}) && outline.LineTo({x1, y1}) && canvas->Stroke(outline);
}

int velCanvasDrawRectangle(velCanvas *canvas, float x, float y, float width, float height) {
    if (!AreFinite(x, y, width, height) || width < 0 || height < 0) return 0;
    return DrawShape(canvas, [&](Outline &outline) { return outline.Rectangle({x, y}, {width, height}); });
}

int velCanvasDrawRoundRect(velCanvas *canvas, float x, float y, float width, float height, float radiusX,
                           float radiusY) {
    if (!AreFinite(x, y, width, height, radiusX, radiusY) || width < 0 || height < 0 || radiusX < 0 || radiusY < 0) {
        return 0;
    }
    return DrawShape(canvas, [&](Outline &outline) {
        return outline.RoundRectangle({x, y}, {width, height}, {radiusX, radiusY});
    });
}

int velCanvasDrawCircle(velCanvas *canvas, float centreX, float centreY, float radius) {
    return velCanvasDrawEllipse(canvas, centreX, centreY, radius, radius);
}

int velCanvasDrawArc(velCanvas *canvas, float x, float y, float width, float height, float startAngle, float sweepAngle,
                     int useCentre) {
    if (!AreFinite(x, y, width, height, startAngle, sweepAngle) || width < 0 || height < 0) return 0;
    const Point radii{width / 2.0, height / 2.0}, centre = Point{x, y} + radii;
    return DrawShape(canvas, [&](Outline &outline) {
        if (std::fabs(sweepAngle) >= 360)
            return outline.Arc(centre, radii, startAngle, sweepAngle, true) && outline.Close();
        if (!useCentre) return outline.Arc(centre, radii, startAngle, sweepAngle, true);
        return outline.MoveTo(centre) && outline.Arc(centre, radii, startAngle, sweepAngle, false) && outline.Close();
    });
}

int velCanvasDrawEllipse(velCanvas *canvas, float centreX, float centreY, float radiusX, float radiusY) {
    if (!AreFinite(centreX, centreY, radiusX, radiusY) || radiusX < 0 || radiusY < 0) return 0;
    return DrawShape(canvas, [&](Outline &outline) { return outline.Ellipse({centreX, centreY}, {radiusX, radiusY}); });
}

int velCanvasDrawColor(velCanvas *canvas, DWORD colour) { return canvas && canvas->Cover(colour); }

int velCanvasDrawPath(velCanvas *canvas, velPath *path) {
    return canvas && path && canvas->Draw(path->outline, path->fillType);
}
