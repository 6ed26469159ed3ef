// Bitmaps: DIB sections, device bitmaps and their description.
#include <cstdlib>
#include <cstring>
#include <new>

#include "platform/headless/dib_layout.h"
#include "platform/headless/gdi_objects.h"

namespace lacquer::headless {
namespace {

/// BITMAPINFOHEADER::biCompression of 16 bits per pixel in a DIBSECTION, whose channel masks follow.
constexpr DWORD kBitFields = 3;

/// The bytes of a device bitmap's row as a caller sees it: padded to two.
LONG DeviceStride(const Bitmap &bitmap) {
    return static_cast<LONG>((int64_t{bitmap.width} * bitmap.bitsPerPixel + 15) / 16 * 2);
}

LONG Magnitude(int value) { return Clamped(value < 0 ? -int64_t{value} : value); }

BITMAP Describe(const Bitmap &bitmap) {
    return BITMAP{0,
                  bitmap.width,
                  bitmap.height,
                  bitmap.isSection ? bitmap.stride : DeviceStride(bitmap),
                  1,
                  bitmap.bitsPerPixel,
                  bitmap.isSection ? bitmap.bits.get() : nullptr};
}

DIBSECTION DescribeSection(const Bitmap &bitmap) {
    DIBSECTION section{};
    section.dsBm = Describe(bitmap);
    BITMAPINFOHEADER &header = section.dsBmih;
    header.biSize = sizeof(header);
    header.biWidth = bitmap.width;
    header.biHeight = bitmap.height;
    header.biPlanes = 1;
    header.biBitCount = bitmap.bitsPerPixel;
    header.biSizeImage = static_cast<DWORD>(int64_t{bitmap.stride} * bitmap.height);
    if (bitmap.bitsPerPixel == 8) header.biClrUsed = 256;
    if (bitmap.bitsPerPixel == 16) {
        header.biCompression = kBitFields;
        section.dsBitfields[0] = 0x7C00;
        section.dsBitfields[1] = 0x03E0;
        section.dsBitfields[2] = 0x001F;
    }
    return section;
}

}  // namespace

std::unique_ptr<Bitmap> NewBitmap(LONG width, LONG height, WORD bitsPerPixel) {
    const int64_t stride = (int64_t{width} * bitsPerPixel + 31) / 32 * 4;
    if (width <= 0 || height <= 0 || stride > INT32_MAX || stride * height > UINT32_MAX) return nullptr;
    std::unique_ptr<Bitmap> bitmap(new (std::nothrow) Bitmap);
    if (!bitmap) return nullptr;
    bitmap->width = width;
    bitmap->height = height;
    bitmap->stride = static_cast<LONG>(stride);
    bitmap->bitsPerPixel = bitsPerPixel;
    bitmap->bits.reset(static_cast<uint8_t *>(std::calloc(static_cast<size_t>(height), static_cast<size_t>(stride))));
    if (!bitmap->bits) return nullptr;
    if (bitsPerPixel <= 8) {
        bitmap->colours.reset(static_cast<RGBQUAD *>(std::calloc(size_t{1} << bitsPerPixel, sizeof(RGBQUAD))));
        if (!bitmap->colours) return nullptr;
    }
    if (bitsPerPixel == 1) bitmap->colours.get()[1] = RGBQUAD{0xFF, 0xFF, 0xFF, 0};
    return bitmap;
}

}  // namespace lacquer::headless

using namespace lacquer::headless;

HBITMAP CreateDIBSection(HDC, const BITMAPINFO *info, UINT usage, void **bits, HANDLE section, DWORD) {
    if (bits) *bits = nullptr;
    DibLayout layout;
    if (usage != DIB_RGB_COLORS || section || !ReadDibLayout(info, layout)) return nullptr;
    std::unique_ptr<Bitmap> bitmap = NewBitmap(layout.width, layout.height, layout.bitsPerPixel);
    if (!bitmap) return nullptr;
    bitmap->topDown = layout.topDown;
    bitmap->isSection = true;
    if (layout.colourCount > 0) {
        std::memcpy(bitmap->colours.get(), layout.colours, layout.colourCount * sizeof(RGBQUAD));
    }
    void *pixels = bitmap->bits.get();
    GdiLock lock;
    const HBITMAP handle = AddBitmap(std::move(bitmap));
    if (handle && bits) *bits = pixels;
    return handle;
}

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void *bits) {
    GdiLock lock;
    if (width == 0 || height == 0) return DefaultBitmap();
    if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) return nullptr;
    std::unique_ptr<Bitmap> bitmap = NewBitmap(Magnitude(width), Magnitude(height), static_cast<WORD>(bitsPerPixel));
    if (!bitmap) return nullptr;
    if (bits) {
        const auto *source = static_cast<const uint8_t *>(bits);
        const auto rowBytes = static_cast<size_t>(DeviceStride(*bitmap));
        const auto stride = static_cast<size_t>(bitmap->stride);
        for (size_t y = 0; y < static_cast<size_t>(bitmap->height); ++y) {
            std::memcpy(bitmap->bits.get() + y * stride, source + y * rowBytes, rowBytes);
        }
    }
    return AddBitmap(std::move(bitmap));
}

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
    GdiLock lock;
    const DeviceContext *context = FindDC(dc);
    if (!context) return nullptr;
    if (width == 0 || height == 0) return DefaultBitmap();
    const Bitmap &model = *context->bitmap;
    // The sign of a width has no meaning for a DIB section.
    if (model.isSection && width < 0) return nullptr;
    std::unique_ptr<Bitmap> bitmap = NewBitmap(Magnitude(width), Magnitude(height), model.bitsPerPixel);
    if (!bitmap) return nullptr;
    bitmap->isSection = model.isSection;
    bitmap->topDown = !model.isSection || height < 0;
    if (model.colours) {
        std::memcpy(bitmap->colours.get(), model.colours.get(), sizeof(RGBQUAD) << model.bitsPerPixel);
    }
    return AddBitmap(std::move(bitmap));
}

int GetObjectW(HGDIOBJ object, int size, void *out) {
    GdiLock lock;
    const Bitmap *bitmap = FindBitmap(object);
    if (!bitmap) return 0;
    if (!out) return sizeof(BITMAP);
    if (bitmap->isSection && size >= static_cast<int>(sizeof(DIBSECTION))) {
        const DIBSECTION section = DescribeSection(*bitmap);
        std::memcpy(out, &section, sizeof(section));
        return sizeof(section);
    }
    if (size < static_cast<int>(sizeof(BITMAP))) return 0;
    const BITMAP description = Describe(*bitmap);
    std::memcpy(out, &description, sizeof(description));
    return sizeof(description);
}
