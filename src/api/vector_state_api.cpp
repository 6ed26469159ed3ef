// The exported functions of the vector state, which the canvas's companion keeps.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "vector/companion.h"

using namespace lacquer;

namespace {

/// Asks or tells the companion. Result: what `function` gives, `fallback` when there is no companion.
template <class Result, class... Parameters, class... Arguments>
Result Forwarded(HGCANVAS canvas, Result fallback, Result (*function)(velCanvas *, Parameters...),
                 Arguments... arguments) {
    Canvas *found = Find(canvas);
    velCanvas *companion = found ? CompanionOf(*found) : nullptr;
    return companion ? function(companion, arguments...) : fallback;
}

}  // namespace

int SetDrawStyle(HGCANVAS canvas, DWORD style) { return Forwarded(canvas, 0, velCanvasSetDrawStyle, style); }

int SetColor(HGCANVAS canvas, DWORD colour) { return Forwarded(canvas, 0, velCanvasSetColor, colour); }

int Save(HGCANVAS canvas) { return Forwarded(canvas, 0, velCanvasSave); }

int Restore(HGCANVAS canvas) { return Forwarded(canvas, 0, velCanvasRestore); }

int SetSmooth(HGCANVAS canvas, int on) { return Forwarded(canvas, 0, velCanvasSetSmooth, on); }

int SetBlendMode(HGCANVAS canvas, DWORD mode) { return Forwarded(canvas, 0, velCanvasSetBlendMode, mode); }

DWORD GetBlendMode(HGCANVAS canvas) { return Forwarded(canvas, DWORD{0xFFFFFFFF}, velCanvasGetBlendMode); }

int SetBlendValue(HGCANVAS canvas, DWORD value) { return Forwarded(canvas, 0, velCanvasSetBlendValue, value); }

DWORD GetBlendValue(HGCANVAS canvas) { return Forwarded(canvas, DWORD{255}, velCanvasGetBlendValue); }

int SetStrokeCap(HGCANVAS canvas, DWORD cap) { return Forwarded(canvas, 0, velCanvasSetStrokeCap, cap); }

int SetStrokeJoin(HGCANVAS canvas, DWORD join) { return Forwarded(canvas, 0, velCanvasSetStrokeJoin, join); }

int SetGradient(HGCANVAS canvas, velGradient *gradient) { return Forwarded(canvas, 0, velCanvasSetGradient, gradient); }

int SetStrokeWidth(HGCANVAS canvas, float width) { return Forwarded(canvas, 0, velCanvasSetStrokeWidth, width); }

float GetStrokeWidth(HGCANVAS canvas) { return Forwarded(canvas, 1.0f, velCanvasGetStrokeWidth); }

int SetDashStyle(HGCANVAS canvas, DWORD style) { return Forwarded(canvas, 0, velCanvasSetDashStyle, style); }

int SetDashPattern(HGCANVAS canvas, const float *lengths, int count, float offset) {
    return Forwarded(canvas, 0, velCanvasSetDashPattern, lengths, count, offset);
}

int SetFontFaceName(HGCANVAS canvas, const WCHAR *name) { return Forwarded(canvas, 0, velCanvasSetFontFaceName, name); }

int SetFontStyle(HGCANVAS canvas, DWORD bits) { return Forwarded(canvas, 0, velCanvasSetFontStyle, bits); }

int SetTextSize(HGCANVAS canvas, float pixels) { return Forwarded(canvas, 0, velCanvasSetTextSize, pixels); }
