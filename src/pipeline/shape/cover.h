// Painting parts of pixels: a row of cover bytes says how much of each pixel takes the new colour.
//
// Each channel becomes (d × (256 − wi − wb) + fill × wi + border × wb) >> 8 with the weights of two covers, which
// together are at most 255. `pixels` needs no alignment.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>

namespace lacquer {

/// The 256ths of a pixel that a cover of 0..255 stands for.
constexpr uint32_t WeightOf(BYTE cover) { return cover + (cover >> 7); }

/// With a word of fill and of border for each pixel.
void MixParts(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
              ptrdiff_t count);

/// With premultiplied colours drawn over the pixel; 0 leaves it as it is.
void DrawParts(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count);

/// The same with one colour and its cover.
void DrawCovered(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count);

/// The same with one cover for all pixels.
void DrawEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count);

}  // namespace lacquer
