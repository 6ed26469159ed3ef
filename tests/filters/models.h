// What filters must do, worked out step by step: every single-precision step is made in double precision and rounded,
// which gives the same bits whatever a compiler fuses or keeps wider.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

#include "draw/painting.h"

namespace lacquer {

struct Deltas {
    float h, s, l;
};

/// A colour of hue, saturation and lightness, shifted; and a colour that is converted and converted back for it.
uint32_t ModelShifted(uint32_t ahsl, const Deltas &deltas);
uint32_t ModelColorized(uint32_t argb, const Deltas &deltas);

/// The whole of a source after the box blur, and after the two passes of the Gaussian blur.
Picture ModelBoxBlur(const Picture &source);
Picture ModelGaussianBlur(const Picture &source);

/// Any words at all, premultiplied or not.
Picture NoisePicture(LONG width, LONG height, uint32_t seed);

/// Objects of 32 bits per pixel with the pixels of a picture; a bitmap may be the system's.
OwnedTexture TextureOf(const Picture &picture);
OwnedBitmap BitmapOf(const Picture &picture, bool isSystem = false);

/// `part` replaces what `whole` has from (left, top) on.
void Paste(Picture &whole, LONG left, LONG top, const Picture &part);
Picture Cut(const Picture &whole, const RECT &rect);

/// Rectangles that lie in no surface of 1 to 1000 pixels a side.
constexpr RECT kOutside[] = {{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX},
                             {INT32_MAX, 0, INT32_MIN, 1},
                             {-1, 0, 1, 1},
                             {0, -1, 1, 1},
                             {1, 0, 0, 1},
                             {0, 0, 1001, 1}};

}  // namespace lacquer
