// Words, palettes, and objects from images.
#include "common/image.h"

#include <algorithm>
#include <cstring>

namespace lacquer::examples {

namespace {

template <typename Convert>
std::uint32_t MapColourChannels(std::uint32_t word, Convert convert) {
    std::uint32_t result = word & 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8) result |= convert(word >> shift & 255) << shift;
    return result;
}

void CopyRows(const SurfaceView &view, const Image &image) {
    auto *row = static_cast<BYTE *>(view.bits);
    for (int y = 0; y < image.height; ++y, row += view.stride)
        std::memcpy(row, image.pixels.data() + static_cast<std::size_t>(y) * image.rowBytes(), image.rowBytes());
}

}  // namespace

std::uint32_t PremultipliedWord(std::uint32_t straight) {
    const std::uint32_t factor = (straight >> 24) + 1;
    return MapColourChannels(straight, [=](std::uint32_t c) { return c * factor >> 8; });
}

std::uint32_t StraightWord(std::uint32_t premultiplied) {
    const std::uint32_t factor = (premultiplied >> 24) + 1;
    return MapColourChannels(
        premultiplied, [=](std::uint32_t c) { return std::min((c * 256 + factor - 1) / factor, std::uint32_t{255}); });
}

std::uint32_t Image::word(int x, int y) const {
    const std::uint8_t *pixel = pixels.data() + static_cast<std::size_t>(y) * rowBytes() +
                                static_cast<std::size_t>(x) * static_cast<std::size_t>(bitsPerPixel / 8);
    if (bitsPerPixel == 8) {
        if (palette.empty()) return 0xFF000000 | *pixel * 0x010101u;
        return *pixel < palette.size() ? palette[*pixel] : 0;
    }
    const std::uint32_t alpha = bitsPerPixel == 32 ? pixel[3] : 255;
    return alpha << 24 | std::uint32_t{pixel[2]} << 16 | std::uint32_t{pixel[1]} << 8 | pixel[0];
}

void Premultiply(Image &image) {
    for (std::uint32_t &word : image.palette) word = PremultipliedWord(word);
    if (image.bitsPerPixel != 32) return;
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) {
        const unsigned factor = image.pixels[i + 3] + 1u;
        for (std::size_t c = i; c < i + 3; ++c)
            image.pixels[c] = static_cast<std::uint8_t>(image.pixels[c] * factor >> 8);
    }
}

Image WithoutAlpha(const Image &image) {
    Image result{.width = image.width, .height = image.height, .bitsPerPixel = 24, .pixels = {}, .palette = {}};
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const std::uint32_t word = image.word(x, y);
            for (int shift = 0; shift < 24; shift += 8)
                result.pixels.push_back(static_cast<std::uint8_t>(word >> shift & 255));
        }
    }
    return result;
}

Image WithPalette(const Image &image) {
    Image result{.width = image.width, .height = image.height, .bitsPerPixel = 8, .pixels = {}, .palette = {}};
    for (int y = 0; y < image.height; ++y) {
        for (int x = 0; x < image.width; ++x) {
            const std::uint32_t word = image.word(x, y);
            const auto entry = std::find(result.palette.begin(), result.palette.end(), word);
            const auto index = entry - result.palette.begin();
            if (entry == result.palette.end()) {
                if (index == 256) throw std::runtime_error("an image has more than 256 colours");
                result.palette.push_back(word);
            }
            result.pixels.push_back(static_cast<std::uint8_t>(index));
        }
    }
    return result;
}

Texture MakeTexture(const Image &image) {
    Texture texture =
        Need(Texture::Create(static_cast<DWORD>(image.width), static_cast<DWORD>(image.height),
                             static_cast<DWORD>(image.bitsPerPixel), static_cast<DWORD>(image.palette.size())),
             "CreateTextureEx");
    const auto pixels = Locked(texture);
    CopyRows(pixels.View(), image);
    // Only entries of its own are copied: those of the shared palette of greys must not be written.
    std::copy(image.palette.begin(), image.palette.end(), pixels.Palette().begin());
    return texture;
}

Bitmap MakeBitmap(const Image &image) {
    if (image.bitsPerPixel != 32) throw std::runtime_error("a bitmap needs an image with alpha");
    Bitmap bitmap =
        Need(Bitmap::Create(static_cast<DWORD>(image.width), static_cast<DWORD>(image.height)), "CreateMemBitmap");
    CopyRows(Locked(bitmap).View(), image);
    return bitmap;
}

}  // namespace lacquer::examples
