// A run of text in glyphs: shaped, in visual order, from the font asked for and from others for what it lacks.
#pragma once

#include <hb.h>
#include <velgraphic/velgraphic.h>

#include <span>

#include "buffer.h"
#include "glyph_drawing.h"
#include "shared.h"
#include "state.h"

namespace lacquer::vel {

/// One line, placed on a baseline.
class TextRun {
public:
    /// The UTF-16 units that a run may have.
    static constexpr int kMaxLength = 0xFFFF;

    enum class Fonts { OneOnly, WithFallbacks };

    TextRun(const TextRun &) = delete;
    TextRun &operator=(const TextRun &) = delete;

    /// `state`: stays as long as the run and says the font, its size and how text is drawn.
    TextRun(const State &state, Point origin)
        : state_(state), size_(static_cast<double>(state.textSize)), origin_(origin) {}
    /// Once for each object. False when there is no such font and when memory is short.
    bool Shape(std::span<const WCHAR> text, Fonts fonts);

    /// The faces stay as long as the run.
    std::span<const GlyphPlacement> Glyphs() const { return {glyphs_.begin(), glyphs_.Size()}; }
    /// Drops glyphs that lie too far away to be drawn.
    void DropDistantGlyphs();
    /// Appends the bars of the font's style. False when memory is short.
    bool AppendBars(Buffer<BarPlacement> &bars) const;
    /// Fills in a record that is all 0. False when memory is short.
    bool Measure(velTextExtent *out) const;

private:
    struct Item;

    FontFace &Main() const { return *faces_[0]; }
    /// Puts a face among the run's own. Null when there are too many.
    FontFace *Keep(Reference<FontFace> face);
    FontFace *FaceFor(size_t begin, size_t end, uint32_t script, FontFace *before);
    bool FindItems(Buffer<Item> &items);
    bool AppendItem(const Item &item, hb_buffer_t *buffer);

    static constexpr int kMaxFaces = 32;

    Reference<FontFace> faces_[kMaxFaces];
    const State &state_;
    const double size_;
    const Point origin_;
    double advance_ = 0;
    Fonts fonts_ = Fonts::OneOnly;
    Buffer<uint32_t> characters_;
    Buffer<GlyphPlacement> glyphs_;
};

}  // namespace lacquer::vel
