// The exported vector drawing functions.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "vector/companion.h"
#include "vector/shapes.h"

using namespace lacquer;

namespace {

/// Lets the companion draw with the canvas's clip and origins. Result: what `draw` gives, 0 when it can't be called.
template <class Function, class... Arguments>
int Drawn(HGCANVAS canvas, Function draw, Arguments... arguments) {
    Canvas *found = Find(canvas);
    return found ? DrawWith(*found, draw, arguments...) : 0;
}

}  // namespace

int DrawPoint(HGCANVAS canvas, float x, float y) { return Drawn(canvas, velCanvasDrawPoint, x, y); }

int DrawLine(HGCANVAS canvas, float x0, float y0, float x1, float y1) {
    return Drawn(canvas, velCanvasDrawLine, x0, y0, x1, y1);
}

int DrawRectangle(HGCANVAS canvas, float x, float y, float width, float height) {
    return Drawn(canvas, velCanvasDrawRectangle, x, y, width, height);
}

int DrawRoundRect(HGCANVAS canvas, float x, float y, float width, float height, float radiusX, float radiusY) {
    return Drawn(canvas, velCanvasDrawRoundRect, x, y, width, height, radiusX, radiusY);
}

int DrawCircle(HGCANVAS canvas, float centreX, float centreY, float radius) {
    return Drawn(canvas, velCanvasDrawCircle, centreX, centreY, radius);
}

int DrawArc(HGCANVAS canvas, float x, float y, float width, float height, float startAngle, float sweepAngle,
            int useCentre) {
    return Drawn(canvas, velCanvasDrawArc, x, y, width, height, startAngle, sweepAngle, useCentre);
}

int DrawEllipse(HGCANVAS canvas, float centreX, float centreY, float radiusX, float radiusY) {
    return Drawn(canvas, velCanvasDrawEllipse, centreX, centreY, radiusX, radiusY);
}

int DrawPolygon(HGCANVAS canvas, int count, const POINT *points) {
    return points && count > 0 ? Drawn(canvas, DrawPolygonWith, points, count) : 0;
}

int DrawColor(HGCANVAS canvas, DWORD colour) { return Drawn(canvas, velCanvasDrawColor, colour); }

int DrawBezier(HGCANVAS canvas, float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3) {
    const velPointF points[] = {{x0, y0}, {x1, y1}, {x2, y2}, {x3, y3}};
    return Drawn(canvas, [&](velCanvas *companion) { return DrawCurveWith(companion, points); });
}

int DrawPath(HGCANVAS canvas, velPath *path) { return Drawn(canvas, velCanvasDrawPath, path); }

int DrawLottie(HGCANVAS canvas, velLottie *lottie, float frame, float x, float y, float width, float height) {
    return Drawn(canvas, velLottieDraw, lottie, frame, x, y, width, height);
}

int DrawPosTextByGlyphs(HGCANVAS canvas, const WORD *glyphs, int count, const velPointF *positions) {
    return Drawn(canvas, velCanvasDrawPosTextByGlyphs, glyphs, count, positions);
}

int DrawTextRun(HGCANVAS canvas, const WCHAR *text, int length, float x, float y) {
    return Drawn(canvas, velCanvasDrawTextRun, text, length, x, y);
}
