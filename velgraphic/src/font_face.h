// A face ready to draw with: its measures, its glyphs' outlines, and what is imitated.
#pragma once

#include <velgraphic/velgraphic.h>

#include <cstdint>
#include <memory>

#include "outline.h"
#include "system_font.h"

namespace lacquer::vel {

/// A horizontal bar of underlining or striking out.
struct Bar {
    double top = 0, thickness = 0;
};

/// Lengths are font units, y down from the baseline.
class FontFace {
public:
    /// Null when there is no such family or memory is short. `style`: font style bits, of which bold and italic count.
    static std::unique_ptr<FontFace> Open(const WCHAR *family, DWORD style);

    /// No other face of the process has this number, also when this one is gone.
    uint64_t Id() const { return id_; }
    double UnitsPerEm() const { return unitsPerEm_; }
    double Ascent() const { return ascent_; }
    double Descent() const { return descent_; }
    double LineGap() const { return lineGap_; }
    Bar Underline() const { return underline_; }
    Bar StrikeOut() const { return strikeOut_; }
    /// A rectangle around any glyph, imitations included.
    Bounds GlyphBounds() const { return glyphBounds_; }

    WORD GlyphOf(WCHAR unit) const { return font_->GlyphOf(unit); }
    double AdvanceOf(WORD glyph) const;
    /// Null when the font lacks the glyph or memory is short. Valid until the next call.
    const Outline *OutlineOf(WORD glyph);
    /// Appends a glyph with its origin at `origin`, `scale` pixels per unit. A glyph that the font lacks appends
    /// nothing. False when memory is short.
    bool AppendGlyph(WORD glyph, Point origin, double scale, Outline &outline);

private:
    FontFace();
    bool ReadMeasures();
    bool Append(const Outline &glyph, Point origin, double scale, Outline &outline) const;

    struct CachedGlyph {
        int glyph = -1;
        Outline outline;
    };
    static constexpr int kCachedGlyphs = 128;

    const uint64_t id_;
    std::unique_ptr<SystemFont> font_;
    double unitsPerEm_ = 0, ascent_ = 0, descent_ = 0, lineGap_ = 0;
    Bar underline_, strikeOut_;
    Bounds glyphBounds_;
    int glyphCount_ = 0, advanceCount_ = 0;
    bool imitatesBold_ = false, imitatesItalic_ = false;
    CachedGlyph glyphs_[kCachedGlyphs];
};

}  // namespace lacquer::vel
