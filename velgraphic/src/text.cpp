// The exports about text: glyphs of a string, measures of a font, and drawing glyph runs.

#include <cmath>

#include "canvas.h"

using lacquer::vel::AreFinite;
using lacquer::vel::Bar;
using lacquer::vel::Bounds;
using lacquer::vel::Clip;
using lacquer::vel::FontFace;
using lacquer::vel::Outline;
using lacquer::vel::PixelRect;
using lacquer::vel::Point;
using lacquer::vel::Verb;

namespace {

/// Twice the area that the control polygons enclose; its sign tells which way round the figures go.
double SignedArea(const Outline &outline) {
    double area = 0;
    Point from, start;
    const auto goTo = [&](Point to) {
        area += from.x * to.y - to.x * from.y;
        from = to;
    };
    const Point *next = outline.Points().begin();
    for (const Verb verb : outline.Verbs()) {
        if (verb == Verb::Close) goTo(start);
        if (verb == Verb::Move) from = start = *next;
        for (int i = PointsOf(verb); i > 0; --i) goTo(*next++);
    }
    return area;
}

/// Glyphs at their positions, as the canvas's font and size have them.
struct Run {
    FontFace &face;
    double scale;
    const WORD *glyphs;
    int count;
    const velPointF *positions;

    Point Origin(int i) const { return {positions[i].x, positions[i].y}; }

    /// Appends the glyphs that can be seen within `clip`, which is in logical coordinates. False when memory is short.
    bool AppendGlyphs(const Clip &clip, Outline &outline) const {
        const Bounds bounds = face.GlyphBounds();
        for (int i = 0; i < count; ++i) {
            const Clip box =
                PixelRect(Origin(i) + scale * bounds.low - Point{1, 1}, Origin(i) + scale * bounds.high + Point{1, 1});
            if (box.Intersected(clip).IsEmpty()) continue;
            if (!face.AppendGlyph(glyphs[i], Origin(i), scale, outline)) return false;
        }
        return true;
    }

    /// Appends a bar under or through the run, from each glyph to the next where they follow each other on one line.
    /// `reversed`: goes round the other way.
    bool AppendBar(const Bar &bar, bool reversed, Outline &outline) const {
        for (int i = 0; i < count; ++i) {
            const Point origin = Origin(i);
            double right = origin.x + scale * face.AdvanceOf(glyphs[i]);
            if (i + 1 < count && positions[i + 1].y == positions[i].y && positions[i + 1].x >= positions[i].x) {
                right = Origin(i + 1).x;
            }
            const double top = origin.y + scale * bar.top, bottom = top + scale * bar.thickness;
            const bool isDone = reversed ? outline.Rectangle({origin.x, bottom}, {right - origin.x, top - bottom})
                                         : outline.Rectangle({origin.x, top}, {right - origin.x, bottom - top});
            if (!isDone) return false;
        }
        return true;
    }
};

}  // namespace

int velCanvasDrawPosTextByGlyphs(velCanvas *canvas, const WORD *glyphs, int count, const velPointF *positions) {
    if (!canvas || !glyphs || !positions || count < 0 || !canvas->target.Bitmap()) return 0;
    const lacquer::vel::State &state = canvas->state;
    for (int i = 0; i < count; ++i) {
        if (!AreFinite(positions[i].x, positions[i].y) ||
            !InRange(Point{positions[i].x, positions[i].y} + state.translation)) {
            return 0;
        }
    }
    FontFace *face = canvas->fonts.Find(state.font);
    if (!face) return 0;

    const Run run{*face, static_cast<double>(state.textSize) / face->UnitsPerEm(), glyphs, count, positions};
    const Clip visible = canvas->target.Visible(state.clip);
    const Point low{visible.left - state.translation.x, visible.top - state.translation.y};
    const Point high{visible.right - state.translation.x, visible.bottom - state.translation.y};
    const Clip clip = visible.IsEmpty() ? visible : PixelRect(low - Point{1, 1}, high + Point{1, 1});
    Outline &outline = canvas->Scratch();
    if (!run.AppendGlyphs(clip, outline)) return 0;
    // Bars that go round like the glyphs join with them to one shape, and nothing is drawn twice.
    const bool reversed = SignedArea(outline) < 0;
    if ((state.font.style & VEL_FONT_UNDERLINE) && !run.AppendBar(face->Underline(), reversed, outline)) return 0;
    if ((state.font.style & VEL_FONT_STRIKE_OUT) && !run.AppendBar(face->StrikeOut(), reversed, outline)) return 0;
    return canvas->Fill(outline, VEL_FILL_WINDING);
}

int velCanvasGetGlyphs(velCanvas *canvas, const WCHAR *text, int length, WORD *glyphs, velPointF *advances) {
    if (!canvas || !text || length < 0 || !glyphs) return 0;
    const FontFace *face = canvas->fonts.Find(canvas->state.font);
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
    const FontFace *face = canvas->fonts.Find(canvas->state.font);
    if (!face) return 0;
    const double scale = static_cast<double>(canvas->state.textSize) / face->UnitsPerEm();
    if (ascent) *ascent = static_cast<float>(scale * face->Ascent());
    if (descent) *descent = static_cast<float>(scale * face->Descent());
    if (lineHeight) *lineHeight = static_cast<float>(scale * (face->Ascent() + face->Descent() + face->LineGap()));
    return 1;
}
