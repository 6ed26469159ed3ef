// A run of text in glyphs: shaped, in visual order, from the font asked for and from others for what it lacks.
#pragma once

#include <hb.h>
#include <velgraphic/velgraphic.h>

#include <span>

#include "buffer.h"
#include "font_name.h"
#include "glyph_drawing.h"
#include "shared.h"

namespace lacquer::vel {

/// One line, placed on a baseline.
class TextRun {
public:
    /// The UTF-16 units that a run may have.
    static constexpr int kMaxLength = 0xFFFF;

    enum class Fonts { OneOnly, WithFallbacks };

    TextRun() = default;
    TextRun(const TextRun &) = delete;
    TextRun &operator=(const TextRun &) = delete;

    /// Once for each object. `size`: of the em square, pixels. False when there is no such font and when memory is
    /// short.
    bool Shape(std::span<const WCHAR> text, const FontName &name, double size, Point origin, Fonts fonts);

    /// The faces stay as long as the run.
    std::span<const GlyphPlacement> Glyphs() const { return {glyphs_.begin(), glyphs_.Size()}; }
    /// Pixels.
    double Advance() const { return advance_; }
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
    FontName name_;
    double size_ = 0, advance_ = 0;
    Point origin_;
    Fonts fonts_ = Fonts::OneOnly;
    Buffer<uint32_t> characters_;
    Buffer<GlyphPlacement> glyphs_;
};

}  // namespace lacquer::vel
