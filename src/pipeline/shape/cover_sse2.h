// Painting parts of pixels in the SSE2 tier.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>

namespace lacquer::sse2 {

/// As the base tier's.
void MixParts(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
              ptrdiff_t count);
void DrawParts(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count);
void DrawCovered(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count);
void DrawEvenly(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count);

}  // namespace lacquer::sse2
