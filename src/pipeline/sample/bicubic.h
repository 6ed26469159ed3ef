// The bicubic sampler: 4 × 4 source pixels, each channel the sum of byte × horizontal weight × vertical weight. Rows of
// the 4 × 4 pixels are summed first, then their four sums; both weight forms do it in this order.
#pragma once

#include "pipeline/sample/stretch.h"
#include "pipeline/sample/stretch_weights.h"

namespace lacquer {

/// The four taps along one axis and their weights.
struct CubicTaps {
    int index[4];
    int32_t weight[4];
};

/// Weights × 256. The sums are exact; the result is their quotient by 65536, rounded down.
struct WeightsQ8 {
    static constexpr WeightForm kForm = WeightForm::Q8;
    static int32_t Unpack(int32_t entry) { return entry; }
    static int32_t FinishRow(int32_t sum) { return sum; }
    static uint32_t FinishChannel(int32_t sum, const BYTE *clamps) { return clamps[sum >> 16]; }
};

/// Weights × 16384. A row's sum is rounded to six fraction bits, which fit into 16 bits with their sign; the result is
/// rounded to the nearest. So it is less than 1 from the exact value, and 16-bit multiply-adds can compute it.
struct WeightsQ14 {
    static constexpr WeightForm kForm = WeightForm::Q14;
    static int32_t Unpack(int32_t entry) { return static_cast<int16_t>(entry & 0xFFFF); }
    static int32_t FinishRow(int32_t sum) { return (sum + (1 << 7)) >> 8; }
    static uint32_t FinishChannel(int32_t sum, const BYTE *clamps) { return clamps[(sum + (1 << 19)) >> 20]; }
};

/// The taps at a position of an axis with `size` pixels.
template <class Weights>
CubicTaps CubicTapsAt(int64_t position, int size) {
    const StretchWeightTable &table = CurrentStretchWeights(Weights::kForm);
    const Place place(position);
    const auto weight = [&](int distance) { return Weights::Unpack(table[static_cast<size_t>(distance)]); };
    CubicTaps taps;
    for (int i = 0; i < 4; ++i) taps.index[i] = ClampIndex(place.pixel + i - 1, size);
    taps.weight[0] = weight(256 + place.fraction);
    taps.weight[1] = weight(place.fraction);
    taps.weight[2] = weight(256 - place.fraction);
    taps.weight[3] = weight(512 - place.fraction);
    return taps;
}

template <class Source, class Weights>
class BicubicFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    BicubicFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CentredSteps(source.width, fullSize.cx)),
          down_(CentredSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        for (ptrdiff_t i = 0; i < count; ++i) columns_[i] = CubicTapsAt<Weights>(across_.At(first + i), source_.width);
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) const {
        const CubicTaps down = CubicTapsAt<Weights>(down_.At(row), source_.height);
        for (ptrdiff_t i = 0; i < count; ++i) StorePixel(buffer + i * kPixelBytes, Mix(columns_[i], down));
        return buffer;
    }

private:
    uint32_t Mix(const CubicTaps &across, const CubicTaps &down) const {
        const auto read = pixels_.GetReader();
        int32_t sums[4] = {};
        for (int row = 0; row < 4; ++row) {
            const BYTE *const pixels = RowOf(source_, down.index[row]);
            uint32_t words[4];
            for (int column = 0; column < 4; ++column) words[column] = read(pixels, across.index[column]);
            for (int channel = 0; channel < 4; ++channel) {
                int32_t sum = 0;
                for (int column = 0; column < 4; ++column) {
                    sum += static_cast<int32_t>(words[column] >> 8 * channel & 0xFF) * across.weight[column];
                }
                sums[channel] += Weights::FinishRow(sum) * down.weight[row];
            }
        }
        const BYTE *const clamps = ByteClamps().data() + 256;
        uint32_t word = Source::kIsOpaque ? kOpaque : 0;
        for (int channel = 0; channel < 4; ++channel) {
            word |= Weights::FinishChannel(sums[channel], clamps) << 8 * channel;
        }
        return word;
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    CubicTaps columns_[kBlockColumns];
};

}  // namespace lacquer
