// The layout of device-independent pixels, as a caller's BITMAPINFO describes it.
#pragma once

#include <lacquer/headless_gdi.h>

namespace lacquer::headless {

struct DibLayout {
    LONG width, height;
    WORD bitsPerPixel;
    bool topDown;
    /// The caller's colour table; `colourCount` is 0 above 8 bits per pixel.
    const RGBQUAD *colours;
    DWORD colourCount;
};

/// Reads `info`. False for a layout that is not supported and for sizes that are not positive.
bool ReadDibLayout(const BITMAPINFO *info, DibLayout &out);

}  // namespace lacquer::headless
