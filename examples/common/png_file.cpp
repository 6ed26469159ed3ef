// PNG files through the library for pictures.
#include "common/png_file.h"

#include <lacquer/image.hpp>

namespace lacquer::examples {

namespace {

[[noreturn]] void Refuse(const std::string &path) { throw std::runtime_error(path + ": " + ImageLastError()); }

}  // namespace

Image ReadPng(const std::string &path, Alpha alpha) {
    const DWORD flags = LACQUER_IMAGE_KEEP_DEPTH | (alpha == Alpha::kAsStored ? LACQUER_IMAGE_STRAIGHT : 0);
    const Bitmap bitmap = lq::LoadBitmapOf(path.c_str(), {flags, 0, 0});
    if (!bitmap) Refuse(path);
    const auto pixels = Locked(bitmap);
    Image image{.width = pixels.Width(),
                .height = pixels.Height(),
                .bitsPerPixel = pixels.BitsPerPixel(),
                .pixels = {},
                .palette = {pixels.Palette().begin(), pixels.Palette().end()}};
    for (int y = 0; y < image.height; ++y) {
        const auto *row = static_cast<const BYTE *>(pixels.View().bits) + std::ptrdiff_t{y} * pixels.Stride();
        image.pixels.insert(image.pixels.end(), row, row + image.rowBytes());
    }
    return image;
}

void WritePng(const std::string &path, HGCANVAS canvas, PngKind kind) {
    if (!lq::SavePng(canvas, path.c_str(), kind == PngKind::kOpaque ? DWORD{LACQUER_PNG_OPAQUE} : 0)) Refuse(path);
}

}  // namespace lacquer::examples
