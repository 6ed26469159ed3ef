// Pixels as a PNG file in memory, through libpng.

#include "png_encoder.h"

#include <algorithm>
#include <csetjmp>
#include <cstring>
#include <memory>
#include <new>

#include "png_session.h"

namespace lacquer::image {
namespace {

struct Writer : PngSession {
    Writer(Content &to, Fault &reportTo) : PngSession(reportTo), content(to) {
        png = png_create_write_struct_2(PNG_LIBPNG_VER_STRING, static_cast<PngSession *>(this), OnPngError,
                                        OnPngWarning, static_cast<PngSession *>(this), AllocateForPng, FreeForPng);
        if (png) info = png_create_info_struct(png);
    }
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;
    ~Writer() { png_destroy_write_struct(&png, &info); }

    Content &content;
};

void OnWrite(png_structp png, png_bytep bytes, size_t count) {
    Writer &writer = *static_cast<Writer *>(png_get_io_ptr(png));
    if (writer.content.Append(bytes, count)) return;
    writer.memoryIsShort = true;
    png_error(png, "");
}

void OnFlush(png_structp /*png*/) {}

/// The pixel at `x` of a row, 0xAARRGGBB.
DWORD WordAt(const SurfaceView &view, const uint8_t *row, LONG x) {
    const uint8_t *pixel = row + static_cast<ptrdiff_t>(x) * (view.bitsPerPixel / 8);
    if (view.bitsPerPixel == 8) return *pixel < view.paletteCount ? view.palette[*pixel] : 0;
    const DWORD alpha = view.bitsPerPixel == 32 ? pixel[3] : 255;
    return alpha << 24 | DWORD{pixel[2]} << 16 | DWORD{pixel[1]} << 8 | pixel[0];
}

bool IsOpaque(const SurfaceView &view) {
    for (LONG y = 0; y < view.height; ++y) {
        const uint8_t *row = RowOf(view, y);
        for (LONG x = 0; x < view.width; ++x)
            if (WordAt(view, row, x) < 0xFF000000) return false;
    }
    return true;
}

/// The straight channel nearest to c * 255 / a of those that c * (a + 1) / 256 turns into the premultiplied one again.
uint8_t Straight(DWORD premultiplied, DWORD alpha) {
    if (alpha == 0) return 0;
    const DWORD factor = alpha + 1;
    const DWORD least = (premultiplied * 256 + factor - 1) / factor;
    const DWORD most = ((premultiplied + 1) * 256 - 1) / factor;
    const DWORD nearest = (premultiplied * 255 + alpha / 2) / alpha;
    return static_cast<uint8_t>(std::min<DWORD>(std::clamp(nearest, least, most), 255));
}

/// Red, green, blue and, with four channels, alpha; with three the colours are written as they are.
void WriteRow(const SurfaceView &view, LONG y, int channels, uint8_t *to) {
    const uint8_t *row = RowOf(view, y);
    for (LONG x = 0; x < view.width; ++x, to += channels) {
        const DWORD word = WordAt(view, row, x), alpha = channels == 4 ? word >> 24 : 255;
        for (int c = 0; c < 3; ++c) to[c] = Straight(word >> (16 - 8 * c) & 255, alpha);
        if (channels == 4) to[3] = static_cast<uint8_t>(alpha);
    }
}

bool Encode(Writer &writer, const SurfaceView &view, int channels, uint8_t *row) {
    png_structp png = writer.png;
    if (setjmp(png_jmpbuf(png)) != 0) return false;
    png_set_write_fn(png, &writer, OnWrite, OnFlush);
    png_set_IHDR(png, writer.info, static_cast<png_uint_32>(view.width), static_cast<png_uint_32>(view.height), 8,
                 channels == 4 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, writer.info);
    for (LONG y = 0; y < view.height; ++y) {
        WriteRow(view, y, channels, row);
        png_write_row(png, row);
    }
    png_write_end(png, nullptr);
    return true;
}

}  // namespace

bool EncodePng(const SurfaceView &view, bool opaque, Content &content, Fault &fault) {
    const int channels = opaque || IsOpaque(view) ? 3 : 4;
    Writer writer(content, fault);
    const std::unique_ptr<uint8_t[]> row(new (std::nothrow)
                                             uint8_t[static_cast<size_t>(view.width) * static_cast<size_t>(channels)]);
    if (!writer.info || !row) return Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short.");
    return Encode(writer, view, channels, row.get());
}

}  // namespace lacquer::image
