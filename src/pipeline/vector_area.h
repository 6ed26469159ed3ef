// The area sampler of the SSE2 tier: where every destination pixel covers whole source pixels, their bytes are summed
// in 16-bit lanes.
#pragma once

#include "pipeline/area.h"
#include "pipeline/vector_pixels.h"

#ifdef LACQUER_SSE2

namespace lacquer {

template <class Source>
class VectorAreaFetch {
public:
    using Pixels = Source;

    VectorAreaFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          general_(source, fullSize),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)) {
        const int64_t columns = across_.step >> 16, rows = down_.step >> 16;
        const bool isWhole = across_.step == columns << 16 && down_.step == rows << 16;
        if (!isWhole || columns > kLongest || rows > kLongest) return;
        const int count = static_cast<int>(columns * rows);
        // floor(sum / count) = sum × inverse >> 16 for every sum of so many bytes, as long as the inverse's error, less
        // than count / 65536 of it, stays below one part of the count.
        const int inverse = (65535 + count) / count, error = inverse * count - 65536;
        if (count < 2 || 255 * count * error >= 65536) return;
        columnsPerPixel_ = static_cast<int>(columns);
        rowsPerPixel_ = static_cast<int>(rows);
        inverse_ = static_cast<uint32_t>(inverse);
    }

    void SetColumns(int64_t first, int count) {
        firstColumn_ = first;
        if (rowsPerPixel_ == 0) general_.SetColumns(first, count);
    }

    void SetRow(int64_t row) {
        row_ = row;
        if (rowsPerPixel_ == 0) general_.SetRow(row);
    }

    void Read(BYTE *out, int count) const {
        if (rowsPerPixel_ == 0) return general_.Read(out, count);
        int i = 0;
        if constexpr (Source::kBitsPerPixel == 32) {
            if (columnsPerPixel_ % kVectorPixels == 0) {
                for (; i + kVectorPixels <= count; i += kVectorPixels) StoreFour(out + i * kPixelBytes, FourMeans(i));
            }
        }
        for (; i < count; ++i) StorePixel(out + i * kPixelBytes, MeanAt(i));
    }

private:
    static constexpr int kLongest = 16;

    const BYTE *FirstPixelOf(int i) const {
        return RowOf(source_, row_ * rowsPerPixel_) +
               (firstColumn_ + i) * columnsPerPixel_ * (Source::kBitsPerPixel / 8);
    }

    uint32_t MeanAt(int i) const {
        const __m128i means = _mm_mulhi_epu16(SumAt(i), EachLane(inverse_));
        return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(means, means)));
    }

    /// Sums of lanes and of their upper bytes; that of the lower bytes follows from them, modulo 2^16.
    struct LaneSums {
        __m128i lanes, upper;
    };

    static void Add(LaneSums &sums, const BYTE *pixels) {
        const __m128i words = LoadFour(pixels);
        sums.lanes = _mm_add_epi16(sums.lanes, words);
        sums.upper = _mm_add_epi16(sums.upper, UpperBytes(words));
    }

    /// One register whose words are the sums of each register's words, lane by lane.
    static __m128i SumsOfWords(__m128i a, __m128i b, __m128i c, __m128i d) {
        const __m128i ab = _mm_add_epi16(_mm_unpacklo_epi32(a, b), _mm_unpackhi_epi32(a, b));
        const __m128i cd = _mm_add_epi16(_mm_unpacklo_epi32(c, d), _mm_unpackhi_epi32(c, d));
        return _mm_add_epi16(_mm_unpacklo_epi64(ab, cd), _mm_unpackhi_epi64(ab, cd));
    }

    __m128i FourMeans(int i) const {
        const BYTE *row = FirstPixelOf(i);
        const ptrdiff_t step = ptrdiff_t{columnsPerPixel_} * kPixelBytes, stride = source_.stride;
        constexpr ptrdiff_t kVector = kVectorPixels * kPixelBytes;
        const __m128i zero = _mm_setzero_si128();
        LaneSums a = {zero, zero}, b = a, c = a, d = a;
        for (int y = rowsPerPixel_; y > 0; --y, row += stride) {
            const BYTE *pixels = row;
            do {
                Add(a, pixels);
                Add(b, pixels + step);
                Add(c, pixels + 2 * step);
                Add(d, pixels + 3 * step);
                pixels += kVector;
            } while (pixels != row + step);
        }
        const __m128i upper = SumsOfWords(a.upper, b.upper, c.upper, d.upper);
        const __m128i lanes = SumsOfWords(a.lanes, b.lanes, c.lanes, d.lanes);
        const __m128i lower = _mm_sub_epi16(lanes, _mm_slli_epi16(upper, 8)), inverse = EachLane(inverse_);
        return _mm_or_si128(_mm_mulhi_epu16(lower, inverse), _mm_slli_epi16(_mm_mulhi_epu16(upper, inverse), 8));
    }

    /// The channels' sums of one destination pixel, in the lower half.
    __m128i SumAt(int i) const {
        const __m128i zero = _mm_setzero_si128();
        const auto read = pixels_.GetReader();
        const BYTE *pixels = FirstPixelOf(i);
        __m128i sums = zero;
        for (int y = 0; y < rowsPerPixel_; ++y, pixels += source_.stride) {
            int x = 0;
            if constexpr (Source::kBitsPerPixel == 32) {
                for (; x + kVectorPixels <= columnsPerPixel_; x += kVectorPixels) {
                    const __m128i words = LoadFour(pixels + x * kPixelBytes);
                    sums = _mm_add_epi16(sums,
                                         _mm_add_epi16(_mm_unpacklo_epi8(words, zero), _mm_unpackhi_epi8(words, zero)));
                }
            }
            for (; x < columnsPerPixel_; ++x) {
                sums = _mm_add_epi16(sums, _mm_unpacklo_epi8(OneWord(read(pixels, x)), zero));
            }
        }
        return _mm_add_epi16(sums, _mm_unpackhi_epi64(sums, sums));
    }

    const SurfaceView &source_;
    Source pixels_;
    AreaFetch<Source> general_;
    Steps across_, down_;
    int columnsPerPixel_ = 0, rowsPerPixel_ = 0;  ///< 0 where the general sampler has to do it
    uint32_t inverse_ = 0;
    int64_t firstColumn_ = 0, row_ = 0;
};

}  // namespace lacquer

#endif
