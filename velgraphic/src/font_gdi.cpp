// Faces through GDI.

#include <windows.h>

#include <memory>
#include <new>

#include "gdi_fonts.h"
#include "system_font.h"

namespace lacquer::vel {
namespace {

constexpr uint32_t kHead = 0x68656164;

/// A device context for one call, with a font selected. GDI's end with the thread that makes them, faces do not.
class Context {
public:
    explicit Context(HFONT font) : dc_(CreateCompatibleDC(nullptr)) {
        if (dc_) before_ = SelectObject(dc_, font);
    }
    ~Context() {
        if (before_) SelectObject(dc_, before_);
        if (dc_) DeleteDC(dc_);
    }
    Context(const Context &) = delete;
    Context &operator=(const Context &) = delete;

    /// Null when GDI has no more.
    HDC Get() const { return before_ ? dc_ : nullptr; }

private:
    HDC dc_;
    HGDIOBJ before_ = nullptr;
};

/// GDI has the first character of a tag lowest.
constexpr DWORD Reversed(uint32_t tag) { return tag >> 24 | (tag >> 8 & 0xFF00) | (tag & 0xFF00) << 8 | tag << 24; }

/// A number of 16.16 bits.
double FromFixed(const FIXED &number) { return number.value + number.fract / 65536.0; }
Point FromFixed(const POINTFX &p) { return {FromFixed(p.x), -FromFixed(p.y)}; }

/// The lines and curves of one record; quadratic curves share their ends, which lie halfway between control points.
bool AppendCurve(const TTPOLYCURVE &curve, Outline &outline) {
    const POINTFX *points = curve.apfx;
    const int count = curve.cpfx;
    switch (curve.wType) {
        case TT_PRIM_LINE:
            for (int i = 0; i < count; ++i) {
                if (!outline.LineTo(FromFixed(points[i]))) return false;
            }
            return true;
        case TT_PRIM_QSPLINE:
            for (int i = 0; i + 1 < count; ++i) {
                const Point control = FromFixed(points[i]), next = FromFixed(points[i + 1]);
                const Point end = i + 2 < count ? 0.5 * (control + next) : next;
                if (!outline.QuadraticTo(control, end)) return false;
            }
            return true;
        case TT_PRIM_CSPLINE:
            for (int i = 0; i + 2 < count; i += 3) {
                if (!outline.CurveTo(FromFixed(points[i]), FromFixed(points[i + 1]), FromFixed(points[i + 2]))) {
                    return false;
                }
            }
            return true;
        default: return false;
    }
}

}  // namespace

struct SystemFont::Handle {
    HFONT font = nullptr;
    LOGFONTW description{};

    bool Make() {
        HFONT made = CreateFontIndirectW(&description);
        if (!made) return false;
        if (font) DeleteObject(font);
        font = made;
        return true;
    }
};

SystemFont *SystemFont::Open(const FontPlace &place) {
    FontName name = NameAt(place);
    auto *handle = new (std::nothrow) Handle;
    if (!handle) return nullptr;
    auto *font = new (std::nothrow) SystemFont(handle);
    if (!font) {
        delete handle;
        return nullptr;
    }
    constexpr LONG kAnySize = 1000;
    handle->description = Describe(name, kAnySize);
    uint8_t styles[2];
    bool isRight = handle->Make() && font->ReadTable(kHead, 44, styles, 2);
    if (isRight && (name.style & ~DWORD{styles[1]}) != 0) {
        // GDI would imitate what the family does not have. Ask for what is there.
        name.style &= styles[1];
        handle->description = Describe(name, kAnySize);
        isRight = handle->Make();
    }
    if (isRight) return font;
    delete font;
    return nullptr;
}

SystemFont::~SystemFont() {
    if (handle_->font) DeleteObject(handle_->font);
    delete handle_;
}

uint32_t SystemFont::TableSize(uint32_t tag) const {
    const Context context(handle_->font);
    const DWORD size = context.Get() ? GetFontData(context.Get(), Reversed(tag), 0, nullptr, 0) : GDI_ERROR;
    return size == GDI_ERROR ? 0 : size;
}

bool SystemFont::ReadTable(uint32_t tag, uint32_t offset, uint8_t *out, uint32_t size) const {
    const Context context(handle_->font);
    return context.Get() && GetFontData(context.Get(), Reversed(tag), offset, out, size) == size;
}

bool SystemFont::SetUnitsPerEm(int units) {
    handle_->description.lfHeight = -units;
    return handle_->Make();
}

int SystemFont::Variations(int *, int) const { return 0; }

bool SystemFont::AppendGlyph(WORD glyph, Outline &outline) const {
    constexpr UINT kFormat = GGO_NATIVE | GGO_GLYPH_INDEX | GGO_UNHINTED;
    const MAT2 identity{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    GLYPHMETRICS metrics;
    const Context context(handle_->font);
    if (!context.Get()) return false;
    const DWORD size = GetGlyphOutlineW(context.Get(), glyph, kFormat, &metrics, 0, nullptr, &identity);
    if (size == GDI_ERROR) return false;
    if (size == 0) return true;
    // Words, because the records that GDI writes are made of them.
    const std::unique_ptr<DWORD[]> buffer(new (std::nothrow) DWORD[size / sizeof(DWORD) + 1]);
    if (!buffer ||
        GetGlyphOutlineW(context.Get(), glyph, kFormat, &metrics, size, buffer.get(), &identity) == GDI_ERROR) {
        return false;
    }
    const auto *const bytes = reinterpret_cast<const BYTE *>(buffer.get());
    for (DWORD at = 0; at + sizeof(TTPOLYGONHEADER) <= size;) {
        const auto &figure = *reinterpret_cast<const TTPOLYGONHEADER *>(bytes + at);
        if (figure.cb < sizeof figure || figure.cb > size - at || !outline.MoveTo(FromFixed(figure.pfxStart)))
            return false;
        const DWORD end = at + figure.cb;
        constexpr DWORD kCurveHead = offsetof(TTPOLYCURVE, apfx);
        for (at += sizeof figure; at + kCurveHead <= end;) {
            const auto &curve = *reinterpret_cast<const TTPOLYCURVE *>(bytes + at);
            const DWORD length = kCurveHead + curve.cpfx * static_cast<DWORD>(sizeof(POINTFX));
            if (length > end - at || !AppendCurve(curve, outline)) return false;
            at += length;
        }
        if (!outline.Close()) return false;
        at = end;
    }
    return true;
}

}  // namespace lacquer::vel
