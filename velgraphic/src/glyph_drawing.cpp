// Drawing placed glyphs as outlines.

#include "glyph_drawing.h"

#include <algorithm>

#include "canvas.h"

namespace lacquer::vel {
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

/// Appends the glyphs that can be seen within `clip`, which is in logical coordinates. False when memory is short.
bool AppendGlyphs(std::span<const GlyphPlacement> glyphs, double size, const Clip &clip, Outline &outline) {
    for (const auto &[face, glyph, origin] : glyphs) {
        const double scale = size / face->UnitsPerEm();
        const auto [low, high] = face->GlyphBounds();
        const Clip box = PixelRect(origin + scale * low - Point{1, 1}, origin + scale * high + Point{1, 1});
        if (box.Intersected(clip).IsEmpty()) continue;
        if (!face->AppendGlyph(glyph, origin, scale, outline)) return false;
    }
    return true;
}

/// Appends bars. `reversed`: they go round the other way.
bool AppendBars(std::span<const BarPlacement> bars, bool reversed, Outline &outline) {
    for (const auto &[origin, right, bar] : bars) {
        const double top = origin.y + bar.top, bottom = top + bar.thickness;
        const bool isDone = reversed ? outline.Rectangle({origin.x, bottom}, {right - origin.x, top - bottom})
                                     : outline.Rectangle({origin.x, top}, {right - origin.x, bottom - top});
        if (!isDone) return false;
    }
    return true;
}

}  // namespace

bool DrawGlyphs(velCanvas &canvas, std::span<const GlyphPlacement> glyphs, std::span<const BarPlacement> bars) {
    if (!canvas.target.Bitmap()) return false;
    const State &state = canvas.state;
    const auto canBeDrawn = [&](Point origin) { return InRange(origin + state.translation); };
    if (!std::ranges::all_of(glyphs, canBeDrawn, &GlyphPlacement::origin)) return false;

    const Clip visible = canvas.target.Visible(state.clip);
    const Point low{visible.left - state.translation.x, visible.top - state.translation.y};
    const Point high{visible.right - state.translation.x, visible.bottom - state.translation.y};
    const Clip clip = visible.IsEmpty() ? visible : PixelRect(low - Point{1, 1}, high + Point{1, 1});
    Outline &outline = canvas.Scratch();
    if (!AppendGlyphs(glyphs, static_cast<double>(state.textSize), clip, outline)) return false;
    // Bars that go round like the glyphs join with them to one shape, and nothing is drawn twice.
    return AppendBars(bars, SignedArea(outline) < 0, outline) && canvas.Fill(outline, VEL_FILL_WINDING);
}

}  // namespace lacquer::vel
