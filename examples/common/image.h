// An image in plain memory, as a file loader leaves it, and the way from there to a texture or a bitmap.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "common/handles.h"

namespace lacquer::examples {

/// What becomes of straight alpha when a file is read.
enum class Alpha {
    kPremultiplied,  // what every draw mode but the colour key expects
    kAsStored        // keeps the colour of pixels with alpha 0, by which a colour key finds them
};

/// Rows run top-down without padding. 32-bit pixels are the bytes blue, green, red, alpha; 24-bit pixels blue, green,
/// red; 8-bit pixels index the palette, or are greys when there is none.
struct Image {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 32;
    std::vector<std::uint8_t> pixels;
    std::vector<std::uint32_t> palette;  // 0xAARRGGBB

    std::size_t rowBytes() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel / 8);
    }

    /// The pixel at (x, y), which lies inside, as a word 0xAARRGGBB. An index beyond the palette gives 0.
    std::uint32_t word(int x, int y) const;
};

/// c * (A + 1) / 256 for each colour channel c of a straight word; A stays.
std::uint32_t PremultipliedWord(std::uint32_t straight);

/// The straight word with the smallest colour channels that PremultipliedWord turns back into `premultiplied`.
std::uint32_t StraightWord(std::uint32_t premultiplied);

/// Premultiplies what carries alpha: 32-bit pixels, or the palette.
void Premultiply(Image &image);

/// The same picture with three bytes per pixel; alpha is dropped.
Image WithoutAlpha(const Image &image);

/// The same picture with a palette of its words. Throws std::runtime_error when it has more than 256 of them.
Image WithPalette(const Image &image);

/// A texture of the image's depth with its pixels and palette. Throws std::runtime_error on failure.
Texture MakeTexture(const Image &image);

/// A bitmap with an image's 32-bit pixels. Throws std::runtime_error on failure, and for another depth.
Bitmap MakeBitmap(const Image &image);

}  // namespace lacquer::examples
