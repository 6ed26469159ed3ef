// The exports about text: glyphs of a string, measures of a font, and drawing glyph runs.

#include "canvas.h"
#include "font_store.h"
#include "glyph_drawing.h"

using lacquer::vel::Bar;
using lacquer::vel::BarPlacement;
using lacquer::vel::Buffer;
using lacquer::vel::FontFace;
using lacquer::vel::Fonts;
using lacquer::vel::GlyphPlacement;
using lacquer::vel::Point;
using lacquer::vel::Reference;

namespace {

/// Appends a bar under or through glyphs of one face, from each glyph to the next where they follow each other on one
/// line. False when memory is short.
bool AppendBars(const Buffer<GlyphPlacement> &glyphs, double scale, const Bar &bar, Buffer<BarPlacement> &bars) {
    for (size_t i = 0; i < glyphs.Size(); ++i) {
        const auto &[face, glyph, origin] = glyphs[i];
        double right = origin.x + scale * face->AdvanceOf(glyph);
        if (i + 1 < glyphs.Size()) {
            const Point next = glyphs[i + 1].origin;
            if (next.y == origin.y && next.x >= origin.x) right = next.x;
        }
        if (!bars.Append({origin, right, {scale * bar.top, scale * bar.thickness}})) return false;
    }
    return true;
}

}  // namespace

int velCanvasDrawPosTextByGlyphs(velCanvas *canvas, const WORD *glyphs, int count, const velPointF *positions) {
    if (!canvas || !glyphs || !positions || count < 0) return 0;
    const lacquer::vel::State &state = canvas->state;
    const Reference<FontFace> face = Fonts().Find(state.font);
    if (!face) return 0;
    Buffer<GlyphPlacement> placed;
    if (!placed.Reserve(static_cast<size_t>(count))) return 0;
    for (int i = 0; i < count; ++i) placed.Append({face.Get(), glyphs[i], {positions[i].x, positions[i].y}});
    Buffer<BarPlacement> bars;
    const double scale = static_cast<double>(state.textSize) / face->UnitsPerEm();
    if ((state.font.style & VEL_FONT_UNDERLINE) && !AppendBars(placed, scale, face->Underline(), bars)) return 0;
    if ((state.font.style & VEL_FONT_STRIKE_OUT) && !AppendBars(placed, scale, face->StrikeOut(), bars)) return 0;
    return lacquer::vel::DrawGlyphs(*canvas, {placed.begin(), placed.Size()}, {bars.begin(), bars.Size()});
}

int velCanvasGetGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs, velPointF *advances) {
    if (!canvas || !text || length < 0 || !glyphs) return 0;
    const Reference<FontFace> face = Fonts().Find(canvas->state.font);
    if (!face) return 0;
    const double scale = static_cast<double>(canvas->state.textSize) / face->UnitsPerEm();
    for (int i = 0; i < length; ++i) {
        const bool isSurrogate = text[i] >= 0xD800 && text[i] < 0xE000;
        glyphs[i] = isSurrogate ? WORD{0} : face->GlyphOf(text[i]);
        if (advances) advances[i] = {static_cast<float>(scale * face->AdvanceOf(glyphs[i])), 0};
    }
    return 1;
}

int velCanvasGetFontMetrics(velCanvas *canvas, float *ascent, float *descent, float *lineHeight) {
    if (!canvas) return 0;
    const Reference<FontFace> face = Fonts().Find(canvas->state.font);
    if (!face) return 0;
    const double scale = static_cast<double>(canvas->state.textSize) / face->UnitsPerEm();
    if (ascent) *ascent = static_cast<float>(scale * face->Ascent());
    if (descent) *descent = static_cast<float>(scale * face->Descent());
    if (lineHeight) *lineHeight = static_cast<float>(scale * (face->Ascent() + face->Descent() + face->LineGap()));
    return 1;
}
