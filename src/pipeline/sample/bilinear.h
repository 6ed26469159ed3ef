// The bilinear sampler: the four source pixels around a position, with weights that sum to 256.
#pragma once

#include "pipeline/sample/stretch.h"

namespace lacquer {

/// The two taps along one axis.
struct LinearTaps {
    int nearIndex, farIndex, fraction;
};

/// The last pixel whose centre is not beyond the position, and the next one. Before the first centre (by half a pixel
/// at most) both are the first pixel, beyond the last centre both are the last.
inline LinearTaps LinearTapsAt(int64_t position, int size) {
    const Place place(position);
    return {ClampIndex(place.pixel, size), ClampIndex(place.pixel + 1, size), place.fraction};
}

/// The mean of four words weighted by the fractions, truncated per channel.
inline uint32_t MixFour(uint32_t p00, uint32_t p01, uint32_t p10, uint32_t p11, uint32_t fx, uint32_t fy) {
    const uint32_t w11 = fx * fy >> 8, w01 = fx - w11, w10 = fy - w11, w00 = 256 - (fx + fy - w11);
    const uint32_t blueRed = BlueRed(p00) * w00 + BlueRed(p01) * w01 + BlueRed(p10) * w10 + BlueRed(p11) * w11;
    const uint32_t greenAlpha =
        GreenAlpha(p00) * w00 + GreenAlpha(p01) * w01 + GreenAlpha(p10) * w10 + GreenAlpha(p11) * w11;
    return JoinUpper(blueRed, greenAlpha);
}

template <class Source>
class BilinearFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    BilinearFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CentredSteps(source.width, fullSize.cx)),
          down_(CentredSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        for (ptrdiff_t i = 0; i < count; ++i) columns_[i] = LinearTapsAt(across_.At(first + i), source_.width);
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) const {
        const auto read = pixels_.GetReader();
        const LinearTaps down = LinearTapsAt(down_.At(row), source_.height);
        const BYTE *const top = RowOf(source_, down.nearIndex);
        const BYTE *const bottom = RowOf(source_, down.farIndex);
        const auto fy = static_cast<uint32_t>(down.fraction);
        for (ptrdiff_t i = 0; i < count; ++i) {
            const LinearTaps taps = columns_[i];
            StorePixel(buffer + i * kPixelBytes,
                       MixFour(read(top, taps.nearIndex), read(top, taps.farIndex), read(bottom, taps.nearIndex),
                               read(bottom, taps.farIndex), static_cast<uint32_t>(taps.fraction), fy));
        }
        return buffer;
    }

private:
    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    LinearTaps columns_[kBlockColumns];
};

}  // namespace lacquer
