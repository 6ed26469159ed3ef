// PNG through libpng.

#include <csetjmp>
#include <cstring>

#include "codec.h"
#include "png_session.h"

namespace lacquer::image {
namespace {

constexpr size_t kSignatureSize = 8;

struct Reader : PngSession {
    Reader(Bytes file, Fault &reportTo) : PngSession(reportTo), rest(file) {
        png = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, static_cast<PngSession *>(this), OnPngError, OnPngWarning,
                                       static_cast<PngSession *>(this), AllocateForPng, FreeForPng);
        if (png) info = png_create_info_struct(png);
        if (!info) Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short.");
    }
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    Bytes rest;
};

void OnRead(png_structp png, png_bytep to, size_t count) {
    Reader &reader = *static_cast<Reader *>(png_get_io_ptr(png));
    if (count > reader.rest.size) {
        RefuseEarlyEnd(reader.fault);
        png_error(png, "");
    }
    std::memcpy(to, reader.rest.data, count);
    reader.rest.data += count;
    reader.rest.size -= count;
}

bool Matches(Bytes file) { return file.size >= kSignatureSize && png_sig_cmp(file.data, 0, kSignatureSize) == 0; }

/// Everything before the pixels.
bool ReadInfo(Reader &reader) {
    png_structp png = reader.png;
    if (!reader.info || setjmp(png_jmpbuf(png)) != 0) return false;
    // The caller compares the size with limits of its own before anything of that size is allocated.
    png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_crc_action(png, PNG_CRC_ERROR_QUIT, PNG_CRC_ERROR_QUIT);
    // Texts, profiles and the like are skipped; nothing in them takes memory.
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_set_read_fn(png, &reader, OnRead);
    png_read_info(png, reader.info);
    return true;
}

bool HasPalette(const Reader &reader) { return png_get_color_type(reader.png, reader.info) == PNG_COLOR_TYPE_PALETTE; }

bool ReadHeader(Bytes file, Header &header, Fault &fault) {
    Reader reader(file, fault);
    if (!ReadInfo(reader)) return false;
    const int type = png_get_color_type(reader.png, reader.info);
    header.format = LACQUER_IMAGE_PNG;
    header.width = png_get_image_width(reader.png, reader.info);
    header.height = png_get_image_height(reader.png, reader.info);
    header.hasAlpha =
        (type & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(reader.png, reader.info, PNG_INFO_tRNS) != 0 ? 1 : 0;
    if (HasPalette(reader)) {
        png_colorp colours = nullptr;
        int count = 0;
        png_get_PLTE(reader.png, reader.info, &colours, &count);
        header.paletteCount = static_cast<DWORD>(count);
        header.bitsPerPixel = 8;
    } else {
        header.bitsPerPixel = header.hasAlpha ? 32 : (type & PNG_COLOR_MASK_COLOR) != 0 ? 24 : 8;
    }
    return true;
}

/// Asks for pixels of the view's depth; those with a palette come as indices, whatever the depth.
void ChooseLayout(Reader &reader, const SurfaceView &to) {
    png_structp png = reader.png;
    png_set_scale_16(png);
    if (HasPalette(reader)) {
        png_set_packing(png);
    } else if (to.bitsPerPixel == 8) {
        png_set_expand_gray_1_2_4_to_8(png);
    } else {
        png_set_bgr(png);
        if (to.bitsPerPixel == 32) {
            png_set_expand(png);
            png_set_gray_to_rgb(png);
            png_set_add_alpha(png, 255, PNG_FILLER_AFTER);
        }
    }
}

bool ReadRows(Reader &reader, const SurfaceView &to) {
    png_structp png = reader.png;
    if (setjmp(png_jmpbuf(png)) != 0) return false;
    ChooseLayout(reader, to);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, reader.info);
    const size_t expected = HasPalette(reader) ? static_cast<size_t>(to.width) : RowBytes(to);
    if (png_get_rowbytes(png, reader.info) != expected) png_error(png, "unexpected layout of pixels");
    for (int pass = 0; pass < passes; ++pass)
        for (LONG y = 0; y < to.height; ++y) png_read_row(png, RowOf(to, y), nullptr);
    png_read_end(png, nullptr);
    return true;
}

/// Writes `count` words, 0xAARRGGBB.
void ReadPalette(const Reader &reader, DWORD *palette, int count) {
    png_colorp colours = nullptr;
    png_bytep alphas = nullptr;
    int colourCount = 0, alphaCount = 0;
    png_get_PLTE(reader.png, reader.info, &colours, &colourCount);
    png_get_tRNS(reader.png, reader.info, &alphas, &alphaCount, nullptr);
    for (int i = 0; i < count; ++i) {
        const DWORD alpha = i < alphaCount ? alphas[i] : 255;
        palette[i] = alpha << 24 | DWORD{colours[i].red} << 16 | DWORD{colours[i].green} << 8 | colours[i].blue;
    }
}

/// Looks the indices up, which stand at the beginning of each row. Result: false when one is beyond the palette.
bool ResolveIndices(const SurfaceView &to, const DWORD *palette, DWORD count) {
    const bool isIndexed = to.bitsPerPixel == 8;
    for (LONG y = 0; y < to.height; ++y) {
        uint8_t *row = RowOf(to, y);
        for (LONG x = to.width; x-- > 0;) {  // from the end, because words overwrite indices
            if (row[x] >= count) return false;
            if (!isIndexed) std::memcpy(row + static_cast<ptrdiff_t>(x) * 4, &palette[row[x]], 4);
        }
    }
    return true;
}

bool Decode(Bytes file, const Header &header, const SurfaceView &to, Fault &fault) {
    Reader reader(file, fault);
    if (!ReadInfo(reader)) return false;
    DWORD palette[256];
    if (HasPalette(reader)) ReadPalette(reader, palette, static_cast<int>(header.paletteCount));
    if (!ReadRows(reader, to)) return false;
    if (!HasPalette(reader)) return true;
    if (!ResolveIndices(to, palette, header.paletteCount))
        return Refuse(fault, LACQUER_IMAGE_DAMAGED, "The PNG file has a pixel beyond its palette.");
    if (to.bitsPerPixel == 8) std::memcpy(to.palette, palette, header.paletteCount * sizeof(DWORD));
    return true;
}

}  // namespace

const Codec kPng{Matches, ReadHeader, Decode};

}  // namespace lacquer::image
