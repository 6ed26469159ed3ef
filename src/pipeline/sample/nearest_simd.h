// The nearest sampler of the faster tiers: addresses are ready for use, and a source row that several destination rows
// share is fetched once.
#pragma once

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/sample/stretch.h"

namespace lacquer::LACQUER_TIER {

/// Most screens are no wider.
inline constexpr int kRowColumns = 4096;

template <class Source>
class NearestFetch : public StretchFetch<kRowColumns> {
public:
    using Pixels = Source;

    NearestFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)),
          looksAhead_(Lookahead::Pays(source) && across_.step * kSourceBytes <= int64_t{kCacheLineBytes} << 16) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        int64_t position = across_.At(first);
        for (ptrdiff_t i = 0; i < count; ++i, position += across_.step)
            columns_[i] = static_cast<uint32_t>(position >> 16);
        // Four bytes are read for each 24-bit pixel: all but the row's last have one more behind them.
        const int64_t end = Source::kBitsPerPixel == 24 ? source_.width - 1 : source_.width;
        inside_ = count;
        while (inside_ > 0 && columns_[inside_ - 1] >= end) --inside_;
        last_ = nullptr;
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) {
        const BYTE *const pixels = RowOf(source_, down_.At(row) >> 16);
        if (last_ && pixels == row_) return last_;
        row_ = pixels;
        last_ = buffer;
        const auto read = pixels_.GetReader();
        if (looksAhead_) {
            const BYTE *const next = RowOf(source_, std::min(down_.At(row + 1) >> 16, int64_t{source_.height} - 1));
            const ptrdiff_t begin = ptrdiff_t{columns_[0]} * kSourceBytes;
            PrefetchBytes(next + begin, ptrdiff_t{columns_[count - 1]} * kSourceBytes - begin);
        }
        ptrdiff_t i = 0;
        // The words are read again as whole registers, which must not wait for the halves of one.
        for (; i + kPixelsOf<Widest> <= inside_; i += kPixelsOf<Widest>) {
            const auto four = [&](ptrdiff_t k) { return FourAt(pixels, i + k * kRegisterPixels); };
            Store(buffer + i * kPixelBytes, BySixteens<Widest>(four));
        }
        for (; i + kRegisterPixels <= inside_; i += kRegisterPixels)
            StoreFour(buffer + i * kPixelBytes, FourAt(pixels, i));
        for (; i < count; ++i) StorePixel(buffer + i * kPixelBytes, read(pixels, columns_[i]));
        return buffer;
    }

private:
    static constexpr ptrdiff_t kSourceBytes = Source::kBitsPerPixel / 8;

    /// The four columns from i on, all of them inside.
    __m128i FourAt(const BYTE *row, ptrdiff_t i) const {
        const auto four = [&](const auto &read) {
            return FourWords(read(columns_[i]), read(columns_[i + 1]), read(columns_[i + 2]), read(columns_[i + 3]));
        };
        if constexpr (Source::kBitsPerPixel == 24) {
            const auto readFour = [row](ptrdiff_t column) { return LoadPixel(row + column * 3); };
            return _mm_or_si128(four(readFour), EachWord(kOpaque));
        } else {
            return four([row, read = pixels_.GetReader()](ptrdiff_t column) { return read(row, column); });
        }
    }

    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    bool looksAhead_;             ///< not where most lines of a row hold none of the columns
    ptrdiff_t inside_ = 0;        ///< the leading columns that FourAt may read
    const BYTE *row_ = nullptr;   ///< the source row read last
    const BYTE *last_ = nullptr;  ///< where it was written
    uint32_t columns_[kRowColumns];
};

}  // namespace lacquer::LACQUER_TIER
