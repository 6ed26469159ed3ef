// A face ready to draw with: its measures, its glyphs' outlines, and what is imitated. All canvases share it.
#pragma once

#include <hb.h>
#include <velgraphic/velgraphic.h>

#include <cstdint>
#include <memory>

#include "lock.h"
#include "outline.h"
#include "shared.h"
#include "system_font.h"

namespace lacquer::vel {

/// A horizontal bar of underlining or striking out.
struct Bar {
    double top = 0, thickness = 0;
};

/// Lengths are font units, y down from the baseline. Any thread may use it.
class FontFace : public Shared<FontFace> {
public:
    ~FontFace();

    /// `style`: font style bits, of which bold and italic count; what the face does not have by its design is imitated.
    /// None when there is no face at the place, and when memory is short.
    static Reference<FontFace> Open(const FontPlace &place, DWORD style);

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

    /// 0 for a character that the font lacks.
    WORD GlyphOf(char32_t character) const;
    double AdvanceOf(WORD glyph) const;
    /// What to shape text with, in font units.
    hb_font_t *Shaper() const { return shaper_; }
    /// Appends a glyph with its origin at `origin`, `scale` pixels per unit. A glyph that the font lacks appends
    /// nothing. False when memory is short.
    bool AppendGlyph(WORD glyph, Point origin, double scale, Outline &outline);
    /// The smallest rectangle around a glyph; all 0 when it draws nothing. False when memory is short.
    bool FindInk(WORD glyph, Bounds *out);

private:
    FontFace();
    bool ReadMeasures();
    /// Makes what text is shaped with. False when memory is short.
    bool MakeShaper();
    hb_blob_t *Table(hb_tag_t tag);
    struct CachedGlyph {
        int glyph = -1;
        Outline outline;
        bool hasInk = false;
        Bounds ink;
    };

    /// Null when the font lacks the glyph or memory is short. Valid until the next call.
    CachedGlyph *Cached(WORD glyph);
    bool AppendImitated(const Outline &glyph, Point origin, double scale, Outline &outline) const;
    bool Append(const Outline &glyph, Point origin, double scale, Outline &outline) const;

    static constexpr int kCachedGlyphs = 128;

    const uint64_t id_;
    Lock lock_;  ///< of the font and of the glyphs
    std::unique_ptr<SystemFont> font_;
    hb_font_t *shaper_ = nullptr;
    double unitsPerEm_ = 0, ascent_ = 0, descent_ = 0, lineGap_ = 0;
    Bar underline_, strikeOut_;
    Bounds glyphBounds_;
    int glyphCount_ = 0;
    bool imitatesBold_ = false, imitatesItalic_ = false;
    CachedGlyph glyphs_[kCachedGlyphs];
};

}  // namespace lacquer::vel
