// Reading a face's measures from its tables, and placing its glyphs.

#include "font_face.h"

#include <algorithm>
#include <atomic>
#include <new>

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

std::unique_ptr<SystemFont> OpenSystemFont(const WCHAR *family, DWORD style) {
    return std::unique_ptr<SystemFont>(
        SystemFont::Open(family, (style & VEL_FONT_BOLD) != 0, (style & VEL_FONT_ITALIC) != 0));
}

std::atomic<uint64_t> lastId{0};

}  // namespace

FontFace::FontFace() : id_(++lastId) {}

std::unique_ptr<FontFace> FontFace::Open(const WCHAR *family, DWORD style) {
    std::unique_ptr<FontFace> face(new (std::nothrow) FontFace);
    if (!face) return nullptr;
    face->font_ = OpenSystemFont(family, style);
    if (!face->font_) return nullptr;
    const DWORD design = DesignOf(*face->font_) & style;
    if (design != style) {
        // Systems imitate what is missing, each in its own way. Ask for what is there, and imitate in ours.
        face->font_ = OpenSystemFont(family, design);
        if (!face->font_) return nullptr;
        face->imitatesBold_ = (style & ~design & VEL_FONT_BOLD) != 0;
        face->imitatesItalic_ = (style & ~design & VEL_FONT_ITALIC) != 0;
    }
    if (!face->ReadMeasures()) return nullptr;
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
    advanceCount_ = horizontal.Unsigned(34);
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

double FontFace::AdvanceOf(WORD glyph) const {
    if (advanceCount_ == 0 || glyph >= glyphCount_) return 0;
    // The glyphs at the end of a font share the last advance of the table.
    const auto index = static_cast<uint32_t>(std::min<int>(glyph, advanceCount_ - 1));
    uint8_t bytes[2];
    return font_->ReadTable(Tag("hmtx"), index * 4, bytes, 2) ? bytes[0] << 8 | bytes[1] : 0;
}

const Outline *FontFace::OutlineOf(WORD glyph) {
    if (glyph >= glyphCount_) return nullptr;
    CachedGlyph &cached = glyphs_[glyph % kCachedGlyphs];
    if (cached.glyph != glyph) {
        cached.glyph = -1;
        cached.outline.Clear();
        if (!font_->AppendGlyph(glyph, cached.outline)) return nullptr;
        cached.glyph = glyph;
    }
    return &cached.outline;
}

bool FontFace::AppendGlyph(WORD glyph, Point origin, double scale, Outline &outline) {
    const Outline *shape = OutlineOf(glyph);
    if (!shape) return true;
    if (!imitatesBold_) return Append(*shape, origin, scale, outline);
    const Point aside{kBoldOffset / 2 * unitsPerEm_ * scale, 0};
    return Append(*shape, origin - aside, scale, outline) && Append(*shape, origin + aside, scale, outline);
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
