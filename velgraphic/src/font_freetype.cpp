// Faces through FreeType.

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MULTIPLE_MASTERS_H
#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <new>

#include "system_font.h"

namespace lacquer::vel {
namespace {

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

SystemFont *SystemFont::Open(const FontPlace &place) {
    auto *handle = new (std::nothrow) Handle;
    if (!handle) return nullptr;
    auto *font = new (std::nothrow) SystemFont(handle);
    if (!font) {
        delete handle;
        return nullptr;
    }
    if (FT_Init_FreeType(&handle->library) != 0 ||
        FT_New_Face(handle->library, place.name, place.index, &handle->face) != 0 || !FT_IS_SCALABLE(handle->face)) {
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

uint32_t SystemFont::TableSize(uint32_t tag) const {
    FT_ULong length = 0;
    return FT_Load_Sfnt_Table(handle_->face, tag, 0, nullptr, &length) == 0 ? static_cast<uint32_t>(length) : 0;
}

bool SystemFont::ReadTable(uint32_t tag, uint32_t offset, uint8_t *out, uint32_t size) const {
    if (TableSize(tag) < uint64_t{offset} + size) return false;
    FT_ULong length = size;
    return FT_Load_Sfnt_Table(handle_->face, tag, static_cast<FT_Long>(offset), out, &length) == 0;
}

bool SystemFont::SetUnitsPerEm(int units) {
    return FT_Set_Pixel_Sizes(handle_->face, 0, static_cast<FT_UInt>(units)) == 0;
}

int SystemFont::Variations(int *out, int capacity) const {
    FT_MM_Var *axes = nullptr;
    if (!FT_IS_VARIATION(handle_->face) || FT_Get_MM_Var(handle_->face, &axes) != 0) return 0;
    const FT_UInt count = axes->num_axis;
    FT_Done_MM_Var(handle_->library, axes);
    constexpr FT_UInt kMost = 64;
    FT_Fixed places[kMost];
    if (count > kMost || count > static_cast<FT_UInt>(capacity) ||
        FT_Get_Var_Blend_Coordinates(handle_->face, count, places) != 0) {
        return 0;
    }
    for (FT_UInt i = 0; i < count; ++i) out[i] = static_cast<int>(places[i] >> 2);
    return static_cast<int>(count);
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
