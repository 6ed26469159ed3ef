// The area sampler: the mean of the source pixels under a destination pixel, weighted by how much of each it covers.
// Only for draws that don't enlarge in either direction.
#pragma once

#include "pipeline/sample/stretch.h"

namespace lacquer {

/// The source pixels that one destination index covers along one axis. The first and the last may be covered in part;
/// all between them count whole.
struct Footprint {
    int first, last;
    uint32_t firstPart, lastPart;  ///< covered lengths, 16.16; for a footprint of one pixel only firstPart counts

    /// Covered length of pixel `index`.
    uint32_t PartOf(int index) const { return index == first ? firstPart : index == last ? lastPart : 65536; }
};

/// Index j covers j × step .. j × step + (step with its lowest bit cleared).
inline Footprint FootprintOf(const Steps &steps, int64_t index) {
    const int64_t begin = steps.At(index), end = begin + (steps.step & ~int64_t{1});
    const int64_t first = begin >> 16, last = (end - 1) >> 16;
    const int64_t firstEnd = std::min(end, (first + 1) << 16);
    return {static_cast<int>(first), static_cast<int>(last), static_cast<uint32_t>(firstEnd - begin),
            static_cast<uint32_t>(end - (last << 16))};
}

/// Sums of one destination pixel.
class AreaSums {
public:
    void Add(uint32_t word, uint64_t weight) {
        blue_ += (word & 0xFF) * weight;
        green_ += (word >> 8 & 0xFF) * weight;
        red_ += (word >> 16 & 0xFF) * weight;
        alpha_ += (word >> 24) * weight;
        weight_ += weight;
    }

    /// Adds `count` pixels of the same weight, of which the pairs are summed already.
    void AddPairs(uint32_t blueRed, uint32_t greenAlpha, uint64_t count, uint64_t weight) {
        blue_ += (blueRed & 0xFFFF) * weight;
        green_ += (greenAlpha & 0xFFFF) * weight;
        red_ += (blueRed >> 16) * weight;
        alpha_ += (greenAlpha >> 16) * weight;
        weight_ += count * weight;
    }

    uint32_t Mean() const {
        const auto channel = [this](uint64_t sum) { return static_cast<uint32_t>(sum / weight_); };
        return channel(alpha_) << 24 | channel(red_) << 16 | channel(green_) << 8 | channel(blue_);
    }

private:
    uint64_t blue_ = 0, green_ = 0, red_ = 0, alpha_ = 0, weight_ = 0;
};

template <class Source>
class AreaFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    static bool Suits(const SurfaceView &source, SIZE fullSize) {
        return source.width >= fullSize.cx && source.height >= fullSize.cy;
    }

    AreaFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        for (ptrdiff_t i = 0; i < count; ++i) columns_[i] = FootprintOf(across_, first + i);
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) const {
        const Footprint rows = FootprintOf(down_, row);
        for (ptrdiff_t i = 0; i < count; ++i) StorePixel(buffer + i * kPixelBytes, Mean(columns_[i], rows));
        return buffer;
    }

private:
    uint32_t Mean(const Footprint &columns, const Footprint &rows) const {
        const auto read = pixels_.GetReader();
        AreaSums sums;
        const auto addPart = [&](uint32_t word, uint32_t ox, uint32_t oy) { sums.Add(word, uint64_t{ox} * oy >> 16); };
        for (int64_t y = rows.first; y <= rows.last; ++y) {
            const BYTE *const row = RowOf(source_, y);
            const uint32_t oy = rows.PartOf(static_cast<int>(y));
            addPart(read(row, columns.first), columns.firstPart, oy);
            if (columns.last == columns.first) continue;
            // A pixel that is covered from side to side weighs oy itself. 256 bytes fit into a 16-bit lane.
            for (int64_t x = int64_t{columns.first} + 1; x < columns.last; x += 256) {
                const int64_t end = std::min<int64_t>(x + 256, columns.last);
                uint32_t blueRed = 0, greenAlpha = 0;
                for (int64_t i = x; i < end; ++i) {
                    const uint32_t word = read(row, i);
                    blueRed += BlueRed(word);
                    greenAlpha += GreenAlpha(word);
                }
                sums.AddPairs(blueRed, greenAlpha, static_cast<uint64_t>(end - x), oy);
            }
            addPart(read(row, columns.last), columns.lastPart, oy);
        }
        return sums.Mean();
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    Footprint columns_[kBlockColumns];
};

}  // namespace lacquer
