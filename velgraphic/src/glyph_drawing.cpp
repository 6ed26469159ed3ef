// Drawing placed glyphs: through masks as far as they suit, and otherwise as outlines.

#include "glyph_drawing.h"

#include <algorithm>
#include <optional>

#include "canvas.h"
#include "glyph_mask.h"
#include "text_pieces.h"

namespace lacquer::vel {
namespace {

/// The largest text, pixels, that stands on whole rows and quarters of columns, and so can be drawn through masks.
constexpr float kLargestOnPixels = 256;

/// The bytes of coverage that are added up before they are painted: as many as stay in a processor's nearer memory.
constexpr int64_t kMaxCoverage = 1 << 16;

bool StandsOnPixels(const State &state) { return state.smooth && state.textSize <= kLargestOnPixels; }

/// Where text of such a size stands that has its origin at a position.
struct Spot {
    int x, y, quarter;  ///< a column, a row, and quarters of a column to the right

    /// The nearest one; halves go right and down.
    static Spot NearestTo(Point p) {
        // Numbers above 0 are rounded down by a cast.
        constexpr int kAbove0 = 1 << 21;
        static_assert(kAbove0 > kMaxCoordinate + 1);
        const int quarters = static_cast<int>((p.x + kAbove0) * 4 + 0.5);
        return {quarters / 4 - kAbove0, static_cast<int>(p.y + kAbove0 + 0.5) - kAbove0, quarters % 4};
    }
    Point Origin() const { return {x + quarter / 4.0, static_cast<double>(y)}; }
};

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

/// Text that is to be drawn, on the pixels.
class Text {
public:
    Text(velCanvas &canvas, std::span<const GlyphPlacement> glyphs, std::span<const BarPlacement> bars)
        : canvas_(canvas),
          state_(canvas.state),
          visible_(canvas.target.Visible(state_.clip)),
          glyphs_(glyphs),
          bars_(bars) {}

    bool Draw() {
        if (visible_.IsEmpty()) return true;
        if (StandsOnPixels(state_)) {
            if (const auto result = DrawThroughMasks()) return *result;
        }
        return DrawOutlines();
    }

private:
    std::optional<bool> DrawThroughMasks();
    bool DrawOutlines();

    Point OnPixels(Point origin) const { return origin + state_.translation; }
    Bounds OnPixels(const BarPlacement &placement) const {
        const auto &[origin, right, bar] = placement;
        const Point low = OnPixels(origin);
        // A bar goes with its glyphs to the nearest row.
        const double y = PlaceOnPixels(state_, low).y + bar.top;
        return {{low.x, y}, {right + state_.translation.x, y + bar.thickness}};
    }

    /// Calls `handle` with each glyph that may be seen, its origin on the pixels, and its face's scale. False as soon
    /// as `handle` gives false.
    template <class Handle>
    bool ForEachSeen(Handle handle) const;
    /// Gives false when memory is short.
    bool PlaceBars(Buffer<Bounds> &bars) const;

    velCanvas &canvas_;
    const State &state_;
    const Clip visible_;
    const std::span<const GlyphPlacement> glyphs_;
    const std::span<const BarPlacement> bars_;
};

template <class Handle>
bool Text::ForEachSeen(Handle handle) const {
    const FontFace *face = nullptr;
    double scale = 0;
    Bounds reach;  // how far any glyph of the face goes, and two pixels more
    for (const GlyphPlacement &placement : glyphs_) {
        if (placement.face != face) {
            face = placement.face;
            scale = static_cast<double>(state_.textSize) / face->UnitsPerEm();
            const auto [low, high] = face->GlyphBounds();
            reach = {scale * low - Point{2, 2}, scale * high + Point{2, 2}};
        }
        const Point origin = OnPixels(placement.origin);
        const Point low = origin + reach.low, high = origin + reach.high;
        if (high.x < visible_.left || low.x > visible_.right || high.y < visible_.top || low.y > visible_.bottom)
            continue;
        if (!handle(placement, origin, scale)) return false;
    }
    return true;
}

/// No result when masks do not suit: a glyph is too large after all, or there are too many new ones.
std::optional<bool> Text::DrawThroughMasks() {
    // Glyphs of all kinds and sizes could fill the memory while the call uses them.
    constexpr size_t kMaxNewBytes = size_t{32} << 20;
    Buffer<PlacedMask> masks;
    if (!masks.Reserve(glyphs_.size())) return false;
    size_t newBytes = 0;
    MaskResult result = MaskResult::Made;

    GlyphCache::Reader reader(ProcessGlyphCache());
    const bool areFound = ForEachSeen([&](const GlyphPlacement &placement, Point origin, double) {
        const Spot spot = Spot::NearestTo(origin);
        const GlyphKey key{placement.face->Id(), state_.textSize, placement.glyph, static_cast<uint16_t>(spot.quarter)};
        const GlyphMask *mask = reader.Find(key, [&](GlyphMask &made) {
            result = newBytes > kMaxNewBytes ? MaskResult::TooLarge
                                             : MakeGlyphMask(*placement.face, key, canvas_.Scratch(), made);
            newBytes += made.Bytes();
            return result == MaskResult::Made;
        });
        if (!mask) return false;
        const PlacedMask placed{mask, spot.x, spot.y};
        return BoxOf(placed).Intersected(visible_).IsEmpty() || masks.Append(placed);
    });
    reader.Unlock();
    if (result == MaskResult::TooLarge) return std::nullopt;
    if (!areFound) return false;
    Buffer<Bounds> bars;
    if (!PlaceBars(bars)) return false;
    const TextPieces pieces{{masks.Data(), masks.Size()}, {bars.Data(), bars.Size()}};
    Clip box = pieces.BoxIn(visible_);
    // Text that is scattered over a large bitmap is painted in parts and costs no more than those. Modes that change
    // what is not covered have to see all of it at once.
    const bool isWhole = state_.ChangesWhatIsNotCovered();
    if (box.IsEmpty() && !isWhole) return true;
    if (box.IsEmpty()) box = {visible_.left, visible_.top, visible_.left + 1, visible_.top + 1};
    const int64_t bytes = Coverage::BytesOf(box);
    Coverage coverage;
    if (!coverage.Reserve(isWhole ? bytes : std::min(bytes, kMaxCoverage))) return false;
    cairo_t *context = canvas_.BeginMasks(box);
    if (!context) return false;
    Paint(context, pieces, box, coverage);
    return canvas_.target.End();
}

bool Text::PlaceBars(Buffer<Bounds> &bars) const {
    for (const BarPlacement &placement : bars_) {
        const Bounds bar = OnPixels(placement);
        // Glyphs that follow each other have one bar.
        Bounds *last = bars.Size() > 0 ? bars.Data() + bars.Size() - 1 : nullptr;
        if (last && last->low.y == bar.low.y && last->high == Point{bar.low.x, bar.high.y}) {
            last->high.x = bar.high.x;
        } else if (!BoxOf(bar).Intersected(visible_).IsEmpty() && !bars.Append(bar)) {
            return false;
        }
    }
    return true;
}

bool Text::DrawOutlines() {
    Outline &outline = canvas_.Scratch();
    const bool areAppended = ForEachSeen([&](const GlyphPlacement &placement, Point origin, double scale) {
        const auto &[face, glyph, logical] = placement;
        const Point place = StandsOnPixels(state_) ? PlaceOnPixels(state_, origin) - state_.translation : logical;
        return face->AppendGlyph(glyph, place, scale, outline) && !outline.IsTooLong();
    });
    if (!areAppended) return false;
    // Bars that go round like the glyphs join with them to one shape, and nothing is drawn twice.
    const bool isReversed = SignedArea(outline) < 0;
    for (const BarPlacement &placement : bars_) {
        const auto [low, high] = OnPixels(placement);
        const Point corner = low - state_.translation, size = high - low;
        if (!(isReversed ? outline.Rectangle({corner.x, corner.y + size.y}, {size.x, -size.y})
                         : outline.Rectangle(corner, size))) {
            return false;
        }
    }
    return canvas_.Fill(outline, VEL_FILL_WINDING);
}

}  // namespace

Point PlaceOnPixels(const State &state, Point origin) {
    return StandsOnPixels(state) ? Spot::NearestTo(origin).Origin() : origin;
}

bool DrawGlyphs(velCanvas &canvas, std::span<const GlyphPlacement> glyphs, std::span<const BarPlacement> bars) {
    const auto canBeDrawn = [&](Point origin) { return InRange(origin + canvas.state.translation); };
    return canvas.CanDraw() && std::ranges::all_of(glyphs, canBeDrawn, &GlyphPlacement::origin) &&
           std::ranges::all_of(bars, canBeDrawn, &BarPlacement::origin) && Text(canvas, glyphs, bars).Draw();
}

}  // namespace lacquer::vel
