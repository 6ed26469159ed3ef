// Plain divisions and comparisons, pixel by pixel; nothing here is shared with the kernels but the weight tables.

#include "model.h"

#include <algorithm>

namespace lacquer {
namespace {

int64_t Clamp(int64_t value, int64_t low, int64_t high) { return value < low ? low : value > high ? high : value; }

/// Position of a pixel for the bilinear and bicubic samplers.
int64_t CentredPosition(int64_t index, int64_t size, int64_t fullSize) {
    const int64_t step = size * 65536 / fullSize + 1;
    return step / 2 - 32768 + index * step;
}

int64_t FloorDivide(int64_t value, int64_t divisor) { return value / divisor - (value % divisor < 0 ? 1 : 0); }

int64_t FractionOf(int64_t position) { return (position - FloorDivide(position, 65536) * 65536) / 256; }

uint32_t ModelBilinear(const TestImage &source, SIZE full, int64_t x, int64_t y) {
    struct Axis {
        int64_t nearTap, farTap, fraction;
        Axis(int64_t index, int64_t size, int64_t fullSize) {
            const int64_t position = CentredPosition(index, size, fullSize), whole = FloorDivide(position, 65536);
            nearTap = Clamp(whole, 0, size - 1);
            farTap = whole < 0 ? 0 : std::min(whole + 1, size - 1);
            fraction = FractionOf(position);
        }
    };
    const Axis h(x, source.width(), full.cx), v(y, source.height(), full.cy);
    const int64_t both = h.fraction * v.fraction / 256, right = h.fraction - both, below = v.fraction - both;
    const int64_t here = 256 - both - right - below;
    return WordOf([&](int i) {
        return (ChannelOf(source.At(h.nearTap, v.nearTap), i) * here +
                ChannelOf(source.At(h.farTap, v.nearTap), i) * right +
                ChannelOf(source.At(h.nearTap, v.farTap), i) * below +
                ChannelOf(source.At(h.farTap, v.farTap), i) * both) /
               256;
    });
}

struct CubicAxis {
    int64_t tap[4], weight[4];

    CubicAxis(int64_t index, int64_t size, int64_t fullSize, WeightForm form) {
        const int64_t position = CentredPosition(index, size, fullSize), whole = FloorDivide(position, 65536);
        const int64_t fraction = FractionOf(position);
        const int64_t distance[4] = {256 + fraction, fraction, 256 - fraction, 512 - fraction};
        for (int i = 0; i < 4; ++i) {
            tap[i] = Clamp(whole - 1 + i, 0, size - 1);
            const int32_t entry = CurrentStretchWeights(form)[static_cast<std::size_t>(distance[i])];
            weight[i] = form == WeightForm::Q8 ? entry : static_cast<int16_t>(entry);
        }
    }
};

uint32_t ModelBicubic(const TestImage &source, SIZE full, int64_t x, int64_t y, WeightForm form, bool opaque) {
    const CubicAxis h(x, source.width(), full.cx, form), v(y, source.height(), full.cy, form);
    return WordOf([&](int channel) -> int64_t {
        if (opaque && channel == 3) return 255;
        int64_t sum = 0;
        for (int row = 0; row < 4; ++row) {
            int64_t rowSum = 0;
            for (int column = 0; column < 4; ++column) {
                rowSum += ChannelOf(source.At(h.tap[column], v.tap[row]), channel) * h.weight[column];
            }
            // The finer weights round each row's sum to 1/64 before it is weighted.
            if (form == WeightForm::Q14) rowSum = FloorDivide(rowSum + 128, 256);
            sum += rowSum * v.weight[row];
        }
        const int64_t value = form == WeightForm::Q8 ? FloorDivide(sum, 65536) : FloorDivide(sum + (1 << 19), 1 << 20);
        return Clamp(value, 0, 255);
    });
}

uint32_t ModelArea(const TestImage &source, SIZE full, int64_t x, int64_t y) {
    const int64_t stepX = source.width() * int64_t{65536} / full.cx, stepY = source.height() * int64_t{65536} / full.cy;
    const int64_t left = x * stepX, right = left + stepX / 2 * 2, top = y * stepY, bottom = top + stepY / 2 * 2;
    const auto overlap = [](int64_t begin, int64_t end, int64_t pixel) {
        return std::max<int64_t>(0, std::min(end, (pixel + 1) * 65536) - std::max(begin, pixel * 65536));
    };
    uint64_t sums[4] = {}, total = 0;
    for (int64_t v = top / 65536; v < source.height() && v * 65536 < bottom; ++v) {
        for (int64_t u = left / 65536; u < source.width() && u * 65536 < right; ++u) {
            const uint64_t weight = static_cast<uint64_t>(overlap(left, right, u) * overlap(top, bottom, v)) / 65536;
            for (int i = 0; i < 4; ++i) sums[i] += ChannelOf(source.At(u, v), i) * weight;
            total += weight;
        }
    }
    return WordOf([&](int i) { return sums[i] / total; });
}

}  // namespace

uint32_t ModelSample(SamplerKind sampler, const TestImage &source, SIZE full, int64_t x, int64_t y, WeightForm form) {
    const bool opaque = source.View().bitsPerPixel == 24;
    switch (sampler) {
        case SamplerKind::SameSize: return source.At(x, y);
        case SamplerKind::Nearest:
            return source.At(x * (source.width() * int64_t{65536} / full.cx) / 65536,
                             y * (source.height() * int64_t{65536} / full.cy) / 65536);
        case SamplerKind::Bilinear: return ModelBilinear(source, full, x, y);
        case SamplerKind::Bicubic: return ModelBicubic(source, full, x, y, form, opaque);
        case SamplerKind::Area:
            if (source.width() < full.cx || source.height() < full.cy) {
                return ModelBicubic(source, full, x, y, form, opaque);
            }
            return ModelArea(source, full, x, y);
    }
    return 0;
}

}  // namespace lacquer
