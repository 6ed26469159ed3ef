// Fonts through GDI.

#include <windows.h>

#include <memory>
#include <new>

#include "system_font.h"

namespace lacquer::vel {
namespace {

/// `em`: the height of the em square in device units.
LOGFONTW Describe(const WCHAR *family, LONG em, bool bold, bool italic) {
    LOGFONTW font{};
    font.lfHeight = -em;
    font.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    font.lfItalic = italic;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfOutPrecision = OUT_OUTLINE_PRECIS;
    font.lfQuality = ANTIALIASED_QUALITY;
    for (int i = 0; family[i] != 0 && i < LF_FACESIZE - 1; ++i) font.lfFaceName[i] = family[i];
    return font;
}

/// GDI takes another family for one that is missing; the enumeration does not.
bool IsInstalled(HDC dc, const WCHAR *family) {
    LOGFONTW wanted = Describe(family, 0, false, false);
    int found = 0;
    EnumFontFamiliesExW(
        dc, &wanted,
        [](const LOGFONTW *, const TEXTMETRICW *, DWORD, LPARAM result) -> int {
            *reinterpret_cast<int *>(result) = 1;
            return 0;
        },
        reinterpret_cast<LPARAM>(&found), 0);
    return found != 0;
}

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
    HDC dc = nullptr;
    HFONT font = nullptr;
    HGDIOBJ fontBefore = nullptr;
    LOGFONTW description{};

    bool Select() {
        HFONT created = CreateFontIndirectW(&description);
        if (!created) return false;
        HGDIOBJ previous = SelectObject(dc, created);
        if (!previous) {
            DeleteObject(created);
            return false;
        }
        if (font) {
            DeleteObject(font);
        } else {
            fontBefore = previous;
        }
        font = created;
        return true;
    }
};

SystemFont *SystemFont::Open(const WCHAR *family, bool bold, bool italic) {
    auto *handle = new (std::nothrow) Handle;
    if (!handle) return nullptr;
    auto *font = new (std::nothrow) SystemFont(handle);
    if (!font) {
        delete handle;
        return nullptr;
    }
    constexpr LONG kAnySize = 1000;
    handle->dc = CreateCompatibleDC(nullptr);
    handle->description = Describe(family, kAnySize, bold, italic);
    if (!handle->dc || !IsInstalled(handle->dc, family) || !handle->Select()) {
        delete font;
        return nullptr;
    }
    return font;
}

SystemFont::~SystemFont() {
    if (handle_->font) {
        SelectObject(handle_->dc, handle_->fontBefore);
        DeleteObject(handle_->font);
    }
    if (handle_->dc) DeleteDC(handle_->dc);
    delete handle_;
}

bool SystemFont::ReadTable(uint32_t tag, uint32_t offset, uint8_t *out, uint32_t size) const {
    // GDI has the first character lowest.
    const DWORD reversed = tag >> 24 | (tag >> 8 & 0xFF00) | (tag & 0xFF00) << 8 | tag << 24;
    return GetFontData(handle_->dc, reversed, offset, out, size) == size;
}

bool SystemFont::SetUnitsPerEm(int units) {
    handle_->description.lfHeight = -units;
    return handle_->Select();
}

WORD SystemFont::GlyphOf(WCHAR unit) const {
    constexpr WORD kMissing = 0xFFFF;
    WORD glyph = kMissing;
    if (GetGlyphIndicesW(handle_->dc, &unit, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS) != 1 || glyph == kMissing)
        return 0;
    return glyph;
}

bool SystemFont::AppendGlyph(WORD glyph, Outline &outline) const {
    constexpr UINT kFormat = GGO_NATIVE | GGO_GLYPH_INDEX | GGO_UNHINTED;
    const MAT2 identity{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    GLYPHMETRICS metrics;
    const DWORD size = GetGlyphOutlineW(handle_->dc, glyph, kFormat, &metrics, 0, nullptr, &identity);
    if (size == GDI_ERROR) return false;
    if (size == 0) return true;
    // Words, because the records that GDI writes are made of them.
    const std::unique_ptr<DWORD[]> buffer(new (std::nothrow) DWORD[size / sizeof(DWORD) + 1]);
    if (!buffer ||
        GetGlyphOutlineW(handle_->dc, glyph, kFormat, &metrics, size, buffer.get(), &identity) == GDI_ERROR) {
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
