// The exported functions of the vector state, which the canvas's companion keeps, and of what text measures by it.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "vector/companion.h"

using namespace lacquer;

namespace {

/// Asks or tells the companion, which answers for a null canvas, too. Result: what `function` gives.
template <class Function, class... Arguments>
auto Forwarded(HGCANVAS canvas, Function function, Arguments... arguments) {
    Canvas *found = Find(canvas);
    return function(found ? CompanionOf(*found) : nullptr, arguments...);
}

}  // namespace

int SetDrawStyle(HGCANVAS canvas, DWORD style) { return Forwarded(canvas, velCanvasSetDrawStyle, style); }

int SetColor(HGCANVAS canvas, DWORD colour) { return Forwarded(canvas, velCanvasSetColor, colour); }

int Save(HGCANVAS canvas) { return Forwarded(canvas, velCanvasSave); }

int Restore(HGCANVAS canvas) { return Forwarded(canvas, velCanvasRestore); }

int SetSmooth(HGCANVAS canvas, int on) { return Forwarded(canvas, velCanvasSetSmooth, on); }

int SetBlendMode(HGCANVAS canvas, DWORD mode) { return Forwarded(canvas, velCanvasSetBlendMode, mode); }

DWORD GetBlendMode(HGCANVAS canvas) { return Forwarded(canvas, velCanvasGetBlendMode); }

int SetBlendValue(HGCANVAS canvas, DWORD value) { return Forwarded(canvas, velCanvasSetBlendValue, value); }

DWORD GetBlendValue(HGCANVAS canvas) { return Forwarded(canvas, velCanvasGetBlendValue); }

int SetStrokeCap(HGCANVAS canvas, DWORD cap) { return Forwarded(canvas, velCanvasSetStrokeCap, cap); }

int SetStrokeJoin(HGCANVAS canvas, DWORD join) { return Forwarded(canvas, velCanvasSetStrokeJoin, join); }

int SetGradient(HGCANVAS canvas, velGradient *gradient) { return Forwarded(canvas, velCanvasSetGradient, gradient); }

int SetStrokeWidth(HGCANVAS canvas, float width) { return Forwarded(canvas, velCanvasSetStrokeWidth, width); }

float GetStrokeWidth(HGCANVAS canvas) { return Forwarded(canvas, velCanvasGetStrokeWidth); }

int SetDashStyle(HGCANVAS canvas, DWORD style) { return Forwarded(canvas, velCanvasSetDashStyle, style); }

int SetDashPattern(HGCANVAS canvas, const float *lengths, int count, float offset) {
    return Forwarded(canvas, velCanvasSetDashPattern, lengths, count, offset);
}

int SetFontFaceName(HGCANVAS canvas, const WCHAR *name) { return Forwarded(canvas, velCanvasSetFontFaceName, name); }

int SetFontStyle(HGCANVAS canvas, DWORD bits) { return Forwarded(canvas, velCanvasSetFontStyle, bits); }

int SetTextSize(HGCANVAS canvas, float pixels) { return Forwarded(canvas, velCanvasSetTextSize, pixels); }

int MeasureTextRun(HGCANVAS canvas, const WCHAR *text, int length, velTextExtent *out) {
    return Forwarded(canvas, velCanvasMeasureTextRun, text, length, out);
}

int GetTextGlyphs(HGCANVAS canvas, const WCHAR *text, int length, WORD *glyphs, velPointF *positions, int capacity) {
    return Forwarded(canvas, velCanvasGetTextGlyphs, text, length, glyphs, positions, capacity);
}

int GetFontMetrics(HGCANVAS canvas, float *ascent, float *descent, float *lineHeight) {
    return Forwarded(canvas, velCanvasGetFontMetrics, ascent, descent, lineHeight);
}
