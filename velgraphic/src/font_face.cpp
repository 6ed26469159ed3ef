// Reading a face's measures from its tables, and placing its glyphs.

#include "font_face.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

#include "memory_proof.h"

namespace lacquer::vel {
namespace {

constexpr double kSlant = 0.2;            // of an imitated italic, per unit of height
constexpr double kBoldOffset = 1.0 / 24;  // between the two copies that imitate a bold glyph, em

constexpr uint32_t Tag(const char (&name)[5]) {
    uint32_t tag = 0;
    for (int i = 0; i < 4; ++i) tag = tag << 8 | static_cast<uint8_t>(name[i]);
    return tag;
}

/// The first bytes of a table; big-endian numbers at byte offsets.
template <int size>
class TableHead {
public:
    bool Read(const SystemFont &font, const char (&name)[5]) { return font.ReadTable(Tag(name), 0, bytes_, size); }
    int Unsigned(int offset) const { return bytes_[offset] << 8 | bytes_[offset + 1]; }
    int Signed(int offset) const { return static_cast<int16_t>(Unsigned(offset)); }

private:
    uint8_t bytes_[size] = {};
};

/// Which of bold and italic the face is by its design.
DWORD DesignOf(const SystemFont &font) {
    TableHead<46> head;
    return head.Read(font, "head") ? static_cast<DWORD>(head.Unsigned(44)) & (VEL_FONT_BOLD | VEL_FONT_ITALIC) : 0;
}

std::atomic<uint64_t> lastId{0};

}  // namespace

FontFace::FontFace() : id_(++lastId) {}

FontFace::~FontFace() { hb_font_destroy(shaper_); }

Reference<FontFace> FontFace::Open(const FontPlace &place, DWORD style) {
    auto face = Reference<FontFace>::Adopt(new (std::nothrow) FontFace);
    if (!face) return {};
    face->font_.reset(SystemFont::Open(place));
    if (!face->font_) return {};
    // Systems imitate what is missing, each in its own way; here it is always done in ours.
    const DWORD missing = style & ~DesignOf(*face->font_);
    face->imitatesBold_ = (missing & VEL_FONT_BOLD) != 0;
    face->imitatesItalic_ = (missing & VEL_FONT_ITALIC) != 0;
    if (!face->ReadMeasures() || !face->MakeShaper()) return {};
    return face;
}

bool FontFace::ReadMeasures() {
    TableHead<46> head;
    TableHead<36> horizontal;
    TableHead<6> most;
    if (!head.Read(*font_, "head") || !horizontal.Read(*font_, "hhea") || !most.Read(*font_, "maxp")) return false;
    const int units = head.Unsigned(18);
    if (units == 0 || !font_->SetUnitsPerEm(units)) return false;
    unitsPerEm_ = units;
    ascent_ = horizontal.Signed(4);
    descent_ = -horizontal.Signed(6);
    lineGap_ = std::max(0, horizontal.Signed(8));
    glyphCount_ = most.Unsigned(4);
    const double widening = imitatesBold_ ? kBoldOffset * unitsPerEm_ : 0;
    glyphBounds_ = {{head.Signed(36) - widening, -static_cast<double>(head.Signed(42))},
                    {head.Signed(40) + widening, -static_cast<double>(head.Signed(38))}};
    if (imitatesItalic_) {
        glyphBounds_.low.x -= kSlant * std::fabs(glyphBounds_.high.y);
        glyphBounds_.high.x += kSlant * std::fabs(glyphBounds_.low.y);
    }

    TableHead<12> naming;
    underline_ = naming.Read(*font_, "post") ? Bar{-1.0 * naming.Signed(8), 1.0 * naming.Signed(10)} : Bar{};
    if (underline_.thickness <= 0) underline_ = {unitsPerEm_ * 0.1, unitsPerEm_ * 0.05};
    TableHead<30> windows;
    strikeOut_ = windows.Read(*font_, "OS/2") ? Bar{-1.0 * windows.Signed(28), 1.0 * windows.Signed(26)} : Bar{};
    if (strikeOut_.thickness <= 0) strikeOut_ = {unitsPerEm_ * -0.3, unitsPerEm_ * 0.05};
    return true;
}

bool FontFace::MakeShaper() {
    // What the shaper cannot get when it looks for it first counts as missing for ever.
    size_t bytes = size_t{1} << 20;
    for (const uint32_t tag : {Tag("GSUB"), Tag("GPOS"), Tag("GDEF"), Tag("cmap"), Tag("hmtx"), Tag("kern"),
                               Tag("morx"), Tag("kerx"), Tag("HVAR")}) {
        bytes += font_->TableSize(tag);
    }
    if (!MemoryCanBeHad(bytes)) return false;
    hb_face_t *face = hb_face_create_for_tables(
        [](hb_face_t *, hb_tag_t tag, void *self) { return static_cast<FontFace *>(self)->Table(tag); }, this, nullptr);
    shaper_ = hb_font_create(face);
    hb_face_destroy(face);
    constexpr int kAxes = 64;
    int places[kAxes];
    const int count = font_->Variations(places, kAxes);
    if (count > 0) hb_font_set_var_coords_normalized(shaper_, places, static_cast<unsigned>(count));
    hb_font_make_immutable(shaper_);

    hb_buffer_t *buffer = hb_buffer_create();
    hb_buffer_add_latin1(buffer, reinterpret_cast<const uint8_t *>("x"), 1, 0, 1);
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, HB_SCRIPT_LATIN);
    const bool isReady = shaper_ != hb_font_get_empty() && hb_shape_full(shaper_, buffer, nullptr, 0, nullptr);
    hb_buffer_destroy(buffer);
    return isReady;
}

hb_blob_t *FontFace::Table(hb_tag_t tag) {
    const Guard guard(lock_);
    const uint32_t size = tag == HB_TAG_NONE ? 0 : font_->TableSize(tag);
    if (size == 0) return nullptr;
    auto *bytes = static_cast<uint8_t *>(std::malloc(size));
    if (!bytes || !font_->ReadTable(tag, 0, bytes, size)) {
        std::free(bytes);
        return nullptr;
    }
    return hb_blob_create(reinterpret_cast<const char *>(bytes), size, HB_MEMORY_MODE_WRITABLE, bytes, std::free);
}

WORD FontFace::GlyphOf(char32_t character) const {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(shaper_, character, &glyph) && glyph <= 0xFFFF ? static_cast<WORD>(glyph)
                                                                                    : WORD{0};
}

double FontFace::AdvanceOf(WORD glyph) const {
    return glyph < glyphCount_ ? hb_font_get_glyph_h_advance(shaper_, glyph) : 0;
}

FontFace::CachedGlyph *FontFace::Cached(WORD glyph) {
    if (glyph >= glyphCount_) return nullptr;
    CachedGlyph &cached = glyphs_[glyph % kCachedGlyphs];
    if (cached.glyph != glyph) {
        cached.glyph = -1;
        cached.hasInk = false;
        cached.outline.Clear();
        if (!font_->AppendGlyph(glyph, cached.outline)) return nullptr;
        cached.glyph = glyph;
    }
    return &cached;
}

bool FontFace::AppendGlyph(WORD glyph, Point origin, double scale, Outline &outline) {
    const Guard guard(lock_);
    const CachedGlyph *cached = Cached(glyph);
    return !cached || AppendImitated(cached->outline, origin, scale, outline);
}

bool FontFace::FindInk(WORD glyph, Bounds *out) {
    const Guard guard(lock_);
    CachedGlyph *cached = Cached(glyph);
    *out = {};
    if (!cached) return true;
    if (!cached->hasInk) {
        Outline drawn;
        if (!AppendImitated(cached->outline, {}, 1, drawn)) return false;
        cached->ink = drawn.Extents();
        cached->hasInk = true;
    }
    *out = cached->ink;
    return true;
}

bool FontFace::AppendImitated(const Outline &glyph, Point origin, double scale, Outline &outline) const {
    if (!imitatesBold_) return Append(glyph, origin, scale, outline);
    const Point aside{kBoldOffset / 2 * unitsPerEm_ * scale, 0};
    return Append(glyph, origin - aside, scale, outline) && Append(glyph, origin + aside, scale, outline);
}

bool FontFace::Append(const Outline &glyph, Point origin, double scale, Outline &outline) const {
    const double slant = imitatesItalic_ ? kSlant : 0;
    const auto place = [=](Point p) { return origin + scale * Point{p.x - slant * p.y, p.y}; };
    const Point *p = glyph.Points().begin();
    for (const Verb verb : glyph.Verbs()) {
        bool isDone = false;
        switch (verb) {
            case Verb::Move: isDone = outline.MoveTo(place(p[0])); break;
            case Verb::Line: isDone = outline.LineTo(place(p[0])); break;
            case Verb::Curve: isDone = outline.CurveTo(place(p[0]), place(p[1]), place(p[2])); break;
            case Verb::Close: isDone = outline.Close(); break;
        }
        if (!isDone) return false;
        p += PointsOf(verb);
    }
    return true;
}

}  // namespace lacquer::vel
