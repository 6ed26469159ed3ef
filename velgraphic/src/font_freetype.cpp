// Fonts through fontconfig and FreeType.

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <memory>
#include <new>

#include "system_font.h"

namespace lacquer::vel {
namespace {

struct DestroyPattern {
    void operator()(FcPattern *pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, DestroyPattern>;

/// A family's name as UTF-8; what is no character becomes U+FFFD.
struct Utf8Name {
    FcChar8 bytes[128] = {};

    explicit Utf8Name(const WCHAR *name) {
        FcChar8 *out = bytes;
        // 31 units, at most three bytes each.
        for (int i = 0; name[i] != 0 && i < 31; ++i) {
            uint32_t code = name[i];
            const bool isHigh = code >= 0xD800 && code < 0xDC00;
            if (isHigh && name[i + 1] >= 0xDC00 && name[i + 1] < 0xE000) {
                code = 0x10000 + ((code - 0xD800) << 10) + (uint32_t{name[++i]} - 0xDC00);
            } else if (code >= 0xD800 && code < 0xE000) {
                code = 0xFFFD;
            }
            const int following = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
            constexpr uint8_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
            *out++ = static_cast<FcChar8>(kLead[following] | code >> 6 * following);
            for (int k = following - 1; k >= 0; --k) *out++ = static_cast<FcChar8>(0x80 | (code >> 6 * k & 0x3F));
        }
    }
};

/// The installed face that comes nearest, if it is of this family.
Pattern Match(const FcChar8 *family, bool bold, bool italic) {
    const Pattern wanted(FcPatternCreate());
    if (!wanted || !FcPatternAddString(wanted.get(), FC_FAMILY, family) ||
        !FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR) ||
        !FcPatternAddInteger(wanted.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN) ||
        !FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue) ||
        !FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern)) {
        return {};
    }
    FcDefaultSubstitute(wanted.get());
    FcResult result;
    Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8 *name = nullptr;
    for (int i = 0; found && FcPatternGetString(found.get(), FC_FAMILY, i, &name) == FcResultMatch; ++i) {
        if (FcStrCmpIgnoreCase(name, family) == 0) return found;
    }
    return {};
}

struct Decomposition {
    Outline &outline;
    bool isOpen = false;

    bool Close() { return !isOpen || outline.Close(); }
};

Point FromFixed(const FT_Vector &v) { return {static_cast<double>(v.x) / 64, -static_cast<double>(v.y) / 64}; }

}  // namespace

struct SystemFont::Handle {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
};

SystemFont *SystemFont::Open(const WCHAR *family, bool bold, bool italic) {
    const Utf8Name name(family);
    const Pattern found = Match(name.bytes, bold, italic);
    FcChar8 *file = nullptr;
    int index = 0;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch ||
        FcPatternGetInteger(found.get(), FC_INDEX, 0, &index) != FcResultMatch) {
        return nullptr;
    }
    auto *handle = new (std::nothrow) Handle;
    if (!handle) return nullptr;
    auto *font = new (std::nothrow) SystemFont(handle);
    if (!font) {
        delete handle;
        return nullptr;
    }
    if (FT_Init_FreeType(&handle->library) != 0 ||
        FT_New_Face(handle->library, reinterpret_cast<const char *>(file), index, &handle->face) != 0 ||
        !FT_IS_SCALABLE(handle->face)) {
        delete font;
        return nullptr;
    }
    return font;
}

SystemFont::~SystemFont() {
    if (handle_->face) FT_Done_Face(handle_->face);
    if (handle_->library) FT_Done_FreeType(handle_->library);
    delete handle_;
}

bool SystemFont::ReadTable(uint32_t tag, uint32_t offset, uint8_t *out, uint32_t size) const {
    FT_ULong length = 0;
    if (FT_Load_Sfnt_Table(handle_->face, tag, 0, nullptr, &length) != 0 || length < FT_ULong{offset} + size)
        return false;
    length = size;
    return FT_Load_Sfnt_Table(handle_->face, tag, static_cast<FT_Long>(offset), out, &length) == 0;
}

bool SystemFont::SetUnitsPerEm(int units) {
    return FT_Set_Pixel_Sizes(handle_->face, 0, static_cast<FT_UInt>(units)) == 0;
}

WORD SystemFont::GlyphOf(WCHAR unit) const {
    const FT_UInt glyph = FT_Get_Char_Index(handle_->face, unit);
    return glyph <= 0xFFFF ? static_cast<WORD>(glyph) : WORD{0};
}

bool SystemFont::AppendGlyph(WORD glyph, Outline &outline) const {
    constexpr FT_Int32 kFlags = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;
    if (FT_Load_Glyph(handle_->face, glyph, kFlags) != 0 || handle_->face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
        return false;
    }
    FT_Outline_Funcs functions{};
    functions.move_to = [](const FT_Vector *to, void *user) -> int {
        auto &into = *static_cast<Decomposition *>(user);
        if (!into.Close() || !into.outline.MoveTo(FromFixed(*to))) return 1;
        into.isOpen = true;
        return 0;
    };
    functions.line_to = [](const FT_Vector *to, void *user) -> int {
        return !static_cast<Decomposition *>(user)->outline.LineTo(FromFixed(*to));
    };
    functions.conic_to = [](const FT_Vector *control, const FT_Vector *to, void *user) -> int {
        return !static_cast<Decomposition *>(user)->outline.QuadraticTo(FromFixed(*control), FromFixed(*to));
    };
    functions.cubic_to = [](const FT_Vector *control1, const FT_Vector *control2, const FT_Vector *to,
                            void *user) -> int {
        return !static_cast<Decomposition *>(user)->outline.CurveTo(FromFixed(*control1), FromFixed(*control2),
                                                                    FromFixed(*to));
    };
    Decomposition into{outline};
    return FT_Outline_Decompose(&handle_->face->glyph->outline, &functions, &into) == 0 && into.Close();
}

}  // namespace lacquer::vel
