// PNG files through the library for pictures.
#include "common/png_file.h"

#include <lacquer/image.hpp>

namespace lacquer::examples {

namespace {

[[noreturn]] void Refuse(const std::string &path) { throw std::runtime_error(path + ": " + ImageLastError()); }

ImageLoadOptions OptionsFor(Alpha alpha, DWORD flags) {
    return {flags | (alpha == Alpha::kAsStored ? DWORD{LACQUER_IMAGE_STRAIGHT} : 0), 0, 0};
}

Image MakeImage(const Bitmap &bitmap, const std::string &name) {
    if (!bitmap) Refuse(name);
    const auto pixels = Locked(bitmap);
    Image image{.width = static_cast<int>(pixels.Width()),
                .height = static_cast<int>(pixels.Height()),
                .bitsPerPixel = pixels.BitsPerPixel(),
                .pixels = {},
                .palette = {pixels.Palette().begin(), pixels.Palette().end()}};
    for (int y = 0; y < image.height; ++y) {
        const auto *row = static_cast<const BYTE *>(pixels.View().bits) + std::ptrdiff_t{y} * pixels.Stride();
        image.pixels.insert(image.pixels.end(), row, row + image.rowBytes());
    }
    return image;
}

}  // namespace

Image ReadPng(const std::string &path, Alpha alpha) {
    return MakeImage(lq::LoadBitmapOf(path.c_str(), OptionsFor(alpha, LACQUER_IMAGE_KEEP_DEPTH)), path);
}

Image ReadPng(lq::Span<const BYTE> file, const std::string &name, Alpha alpha) {
    return MakeImage(lq::LoadBitmapOf(file, OptionsFor(alpha, 0)), name);
}

void WritePng(const std::string &path, HGCANVAS canvas, PngKind kind) {
    if (!lq::SavePng(canvas, path.c_str(), kind == PngKind::kOpaque ? DWORD{LACQUER_PNG_OPAQUE} : 0)) Refuse(path);
}

}  // namespace lacquer::examples
