// The box blur: the mean of each pixel's neighbourhood of 3 x 3 pixels, of which each has its place in the source or is
// the nearest one in it.
#pragma once

#include <algorithm>

#include "pipeline/memory/view_rows.h"
#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// Writes the blurred source into the common part of two 32-bit views that don't overlap. Each of the four channels is
/// floor(sum / 9).
void BlurBoxes(const SurfaceView &dest, const SurfaceView &source);

inline constexpr int kBoxSide = 3;

/// floor(sum / 9) = sum × kNinth >> 16 for every sum of nine bytes.
inline constexpr uint32_t kNinth = 7282;

/// The source rows above, at and below a row, clamped into the source.
struct BoxRows {
    const BYTE *rows[kBoxSide];

    BoxRows(const SurfaceView &source, LONG y) {
        for (int i = 0; i < kBoxSide; ++i) {
            rows[i] = RowOf(source, std::clamp(y + i - 1, LONG{0}, source.height - 1));
        }
    }
};

/// Writes pixel `x` of a row; the source is `width` pixels wide.
inline void BlurPixel(BYTE *out, const BoxRows &source, LONG width, LONG x) {
    const ptrdiff_t columns[kBoxSide] = {std::max(x - 1, LONG{0}), x, std::min(x + 1, width - 1)};
    for (int channel = 0; channel < kPixelBytes; ++channel) {
        uint32_t sum = 0;
        for (const BYTE *row : source.rows) {
            for (const ptrdiff_t column : columns) sum += row[column * kPixelBytes + channel];
        }
        out[ptrdiff_t{x} * kPixelBytes + channel] = static_cast<BYTE>(sum * kNinth >> 16);
    }
}

}  // namespace lacquer
