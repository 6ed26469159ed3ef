// The one loop behind every transfer of pixels: visible destination pixels, their source pixels, and how both combine.
#pragma once

#include "platform/headless/pixel_view.h"
#include "platform/headless/stretch_axis.h"

namespace lacquer::headless {

/// What becomes of several source pixels that fall together on one destination pixel.
enum class Merge { PickOne, And, Or };

struct TransferMode {
    Merge merge = Merge::PickOne;
    /// On the way to one bit per pixel the source's value for white becomes 1 and every other 0; otherwise the nearest.
    bool whiteIsOne = false;
    bool blends = false;
    /// When blending: without per-pixel alpha the source counts as opaque, whatever its alpha bytes.
    bool hasPixelAlpha = false;
    uint32_t constantAlpha = 255;
};

/// Transfers pixels of `source` into the bitmap of `dest`, inside its clip region. The source may be that bitmap. False
/// when memory is short.
bool Transfer(const DeviceContext &dest, const StretchAxis &x, const StretchAxis &y, const PixelView &source,
              const TransferMode &mode);

/// Fills a device rectangle with all bits 0 or all bits 1, inside the clip region. False when memory is short.
bool FillBits(const DeviceContext &dest, const RECT &rect, bool ones);

}  // namespace lacquer::headless
