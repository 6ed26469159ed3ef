// Modulation: per-channel coverage for opaque colours, scaled colour over the canvas for translucent ones. Division by
// 256 truncates; sums are modulo 256.

#include "draw/modulation.h"

#include <algorithm>

#include "core/geometry.h"
#include "core/locked.h"
#include "core/surface_view.h"

namespace lacquer {
namespace {

enum Channel { kBlue, kGreen, kRed, kAlpha, kChannels };

struct OpaqueRule {
    unsigned colour[kChannels];

    /// Alpha: a = (((mB + mR + 2 mG) / 4 + 1) * 255) / 256, then d * (256 - a) / 256 + a.
    /// Colour channels: d * (255 - m) / 256 + c * m / 256.
    void operator()(BYTE *d, const BYTE *m) const {
        const unsigned mean = (m[kBlue] + m[kRed] + 2u * m[kGreen]) >> 2;
        const unsigned a = (mean + 1) * colour[kAlpha] >> 8;
        d[kAlpha] = static_cast<BYTE>((d[kAlpha] * (256 - a) >> 8) + a);
        for (int i = kBlue; i < kAlpha; ++i) {
            d[i] = static_cast<BYTE>((d[i] * (255u - m[i]) >> 8) + (colour[i] * m[i] >> 8));
        }
    }
};

struct TranslucentRule {
    unsigned colour[kChannels];

    /// s = (m + 1) * c / 256 per channel, then d * (256 - sA) / 256 + s.
    void operator()(BYTE *d, const BYTE *m) const {
        const unsigned keep = 256 - ((m[kAlpha] + 1u) * colour[kAlpha] >> 8);
        for (int i = kBlue; i < kChannels; ++i) {
            d[i] = static_cast<BYTE>((d[i] * keep >> 8) + ((m[i] + 1u) * colour[i] >> 8));
        }
    }
};

template <class Rule>
void WalkPixels(const SurfaceView &dest, const SurfaceView &mask, const Rule &rule) {
    const LONG columns = std::min({dest.width, WordsPerRow(dest), WordsPerRow(mask)});
    const LONG rows = std::min(dest.height, mask.height);
    for (LONG y = 0; y < rows; ++y) {
        auto *d = RowOf(dest, y);
        const auto *m = RowOf(mask, y);
        for (ptrdiff_t x = 0; x < columns; ++x) rule(d + x * kChannels, m + x * kChannels);
    }
}

}  // namespace

void DrawThroughMask(Canvas &canvas, int x, int y, PixelSurface &mask, const RECT *source, DWORD colour) {
    const RECT whole{0, 0, mask.Width(), mask.Height()};
    const RECT from = source ? *source : whole;
    const RECT dest{x, y, ClampToLong(x + WidthOf(from)), ClampToLong(y + HeightOf(from))};
    RECT visible{};
    if (!canvas.FindVisible(dest, &visible)) return;
    const RECT covered = Moved(visible, static_cast<int64_t>(from.left) - x, static_cast<int64_t>(from.top) - y);
    const LockedCanvas target(canvas, &visible);
    if (!target.View()) return;
    const LockedSurface coverage(mask, &covered);
    if (!coverage.View()) return;
    const unsigned channels[] = {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF, colour >> 24};
    if (channels[kAlpha] == 0xFF) {
        WalkPixels(*target.View(), *coverage.View(), OpaqueRule{{channels[0], channels[1], channels[2], channels[3]}});
    } else {
        WalkPixels(*target.View(), *coverage.View(),
                   TranslucentRule{{channels[0], channels[1], channels[2], channels[3]}});
    }
}

}  // namespace lacquer
