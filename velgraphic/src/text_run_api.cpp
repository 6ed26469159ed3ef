// The exports that draw and measure text from a string.

#include "canvas.h"
#include "font_store.h"
#include "text_run.h"

using lacquer::vel::BarPlacement;
using lacquer::vel::Buffer;
using lacquer::vel::Point;
using lacquer::vel::TextRun;

namespace {

/// Finds out how many units a text has when `length` is -1. False when there is no text, and when it is too long.
bool FindLength(const WCHAR *text, int &length) {
    if (length == -1 && text) {
        while (++length <= TextRun::kMaxLength && text[length] != 0) {
        }
    }
    return length >= 0 && length <= TextRun::kMaxLength && (text || length == 0);
}

/// False for a text that is refused, too.
bool Shape(TextRun &run, const WCHAR *text, int length, TextRun::Fonts fonts) {
    return FindLength(text, length) && run.Shape({text, static_cast<size_t>(length)}, fonts);
}

}  // namespace

int velCanvasDrawTextRun(velCanvas *canvas, const WCHAR *text, int length, float x, float y) {
    const Point origin{x, y};
    if (!canvas || !canvas->target.Bitmap() || !lacquer::vel::AreFinite(x, y) ||
        !InRange(origin + canvas->state.translation)) {
        return 0;
    }
    TextRun run(canvas->state, origin);
    Buffer<BarPlacement> bars;
    if (!Shape(run, text, length, TextRun::Fonts::WithFallbacks) || !run.AppendBars(bars)) return 0;
    run.DropDistantGlyphs();
    return lacquer::vel::DrawGlyphs(*canvas, run.Glyphs(), {bars.begin(), bars.Size()});
}

int velCanvasMeasureTextRun(velCanvas *canvas, const WCHAR *text, int length, velTextExtent *out) {
    if (!canvas || !out) return 0;
    TextRun run(canvas->state, {});
    velTextExtent extent{};
    if (!Shape(run, text, length, TextRun::Fonts::WithFallbacks) || !run.Measure(&extent)) return 0;
    *out = extent;
    return 1;
}

int velCanvasGetTextGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs, velPointF *positions,
                           int capacity) {
    if (!canvas || capacity < 0 || (capacity > 0 && (!glyphs || !positions))) return 0;
    TextRun run(canvas->state, {});
    if (!Shape(run, text, length, TextRun::Fonts::OneOnly)) return 0;
    for (const auto &[face, glyph, origin] : run.Glyphs()) {
        if (capacity-- == 0) break;
        *glyphs++ = glyph;
        *positions++ = {static_cast<float>(origin.x), static_cast<float>(origin.y)};
    }
    return static_cast<int>(run.Glyphs().size());
}
