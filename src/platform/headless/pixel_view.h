// Rows of pixels in any of the depths that GDI keeps, and single pixels in them: raw values as they are stored, and
// colours 0xAARRGGBB (alpha 0 below 32 bits per pixel).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/headless/gdi_objects.h"

namespace lacquer::headless {

struct PixelView {
    /// The row `firstRow`; the row below it lies `step` bytes further.
    uint8_t *origin;
    ptrdiff_t step;
    LONG firstRow;
    LONG width, height;
    WORD bitsPerPixel;
    /// For 1 and 8 bits per pixel: 2 and 256 colours.
    const RGBQUAD *colours;

    uint8_t *Row(LONG y) const { return origin + step * (y - firstRow); }
};

/// A bitmap's pixels, row 0 at the top.
PixelView ViewOf(const Bitmap &bitmap);

/// Whether raw values mean the same in both.
bool HaveSameFormat(const PixelView &first, const PixelView &second);

uint32_t LoadRaw(const PixelView &view, const uint8_t *row, LONG x);
void StoreRaw(const PixelView &view, uint8_t *row, LONG x, uint32_t raw);

/// The colour that a raw value stands for.
uint32_t ColourOf(const PixelView &view, uint32_t raw);

/// The raw value closest to a colour: channels cut to 16 bits per pixel, the nearest entry of a colour table.
uint32_t RawOf(const PixelView &view, uint32_t colour);

/// The same for what transfers compute from more than 8 bits per pixel: on the way to a table of 256 colours each
/// channel counts as the middle of the eight values that share its upper five bits.
uint32_t RawOfTrueColour(const PixelView &view, uint32_t colour);

constexpr uint32_t SwapRedAndBlue(uint32_t colour) {
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

}  // namespace lacquer::headless
