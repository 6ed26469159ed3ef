// Means of rectangles of words.
#pragma once

#include "pipeline/pixel/pixel_simd.h"
#include "pipeline/sample/area.h"

namespace lacquer::LACQUER_TIER {

/// What has a faster form: footprints of up to this many pixels across and down.
inline constexpr int64_t kLongestFootprint = 16;

/// The words of the source that one row of means is made of.
struct WordRows {
    const BYTE *pixels;  ///< first row, column `firstColumn`
    ptrdiff_t stride, firstColumn;
};

/// The blocks of whole pixels that a draw divides its source into.
struct WholeRatio {
    int columns = 0, rows = 0;  ///< 0 where it doesn't, or where the means have no such formula
    uint32_t inverse = 0;       ///< sum × inverse >> 16 is a block's mean

    WholeRatio(const SurfaceView &source, SIZE fullSize);
};

/// Sums of lanes and of their upper bytes; that of the lower bytes follows from them, modulo 2^16.
struct LaneSums {
    __m128i lanes, upper;

    explicit LaneSums(const BYTE *pixels) : lanes(LoadFour(pixels)), upper(UpperBytes(lanes)) {}

    void Add(const BYTE *pixels) {
        const __m128i words = LoadFour(pixels);
        lanes = _mm_add_epi16(lanes, words);
        upper = _mm_add_epi16(upper, UpperBytes(words));
    }
};

/// The means of four blocks whose words' sums stand in a word each.
inline __m128i MeansOf(__m128i lanes, __m128i upper, __m128i inverse) {
    const __m128i lower = _mm_sub_epi16(lanes, _mm_slli_epi16(upper, 8));
    return _mm_or_si128(_mm_mulhi_epu16(lower, inverse), _mm_slli_epi16(_mm_mulhi_epu16(upper, inverse), 8));
}

/// Of two registers: the sums of neighbouring words.
inline __m128i SumsOfPairs(__m128i a, __m128i b) { return _mm_add_epi16(PickWords<0, 2>(a, b), PickWords<1, 3>(a, b)); }

/// Four blocks that are two pixels wide.
inline __m128i MeansOfTwoColumns(const BYTE *pixels, const WordRows &source, const WholeRatio &ratio) {
    LaneSums a(pixels), b(pixels + kRegisterBytes);
    for (int y = 1; y < ratio.rows; ++y) {
        pixels += source.stride;
        a.Add(pixels);
        b.Add(pixels + kRegisterBytes);
    }
    return MeansOf(SumsOfPairs(a.lanes, b.lanes), SumsOfPairs(a.upper, b.upper), EachLane(ratio.inverse));
}

/// Four blocks whose width is a multiple of 4 pixels.
inline __m128i MeansOfRegisters(const BYTE *pixels, const WordRows &source, const WholeRatio &ratio) {
    const ptrdiff_t width = ptrdiff_t{ratio.columns} * kPixelBytes;
    LaneSums a(pixels), b(pixels + width), c(pixels + 2 * width), d(pixels + 3 * width);
    const auto addRow = [&](ptrdiff_t first) {
        for (ptrdiff_t x = first; x < width; x += kRegisterBytes) {
            a.Add(pixels + x);
            b.Add(pixels + x + width);
            c.Add(pixels + x + 2 * width);
            d.Add(pixels + x + 3 * width);
        }
    };
    addRow(kRegisterBytes);
    for (int y = 1; y < ratio.rows; ++y) {
        pixels += source.stride;
        addRow(0);
    }
    const auto sums = [](__m128i ofA, __m128i ofB, __m128i ofC, __m128i ofD) {
        return SumsOfPairs(SumsOfPairs(ofA, ofB), SumsOfPairs(ofC, ofD));
    };
    return MeansOf(sums(a.lanes, b.lanes, c.lanes, d.lanes), sums(a.upper, b.upper, c.upper, d.upper),
                   EachLane(ratio.inverse));
}

/// Bytes of several registers: their means, rounded up at each of the steps that made them, and their sums modulo 256.
struct RoundedMeans {
    __m128i means, sums;
};

inline RoundedMeans MeansOfBoth(__m128i a, __m128i b) { return {_mm_avg_epu8(a, b), _mm_add_epi8(a, b)}; }

inline RoundedMeans MeansOfBoth(const RoundedMeans &a, const RoundedMeans &b) {
    return {_mm_avg_epu8(a.means, b.means), _mm_add_epi8(a.sums, b.sums)};
}

/// Of two groups: neighbouring words.
inline RoundedMeans MeansOfPairs(const RoundedMeans &a, const RoundedMeans &b) {
    return {_mm_avg_epu8(PickWords<0, 2>(a.means, b.means), PickWords<1, 3>(a.means, b.means)),
            _mm_add_epi8(PickWords<0, 2>(a.sums, b.sums), PickWords<1, 3>(a.sums, b.sums))};
}

/// Four blocks of 4 × 4 pixels, byte by byte. Four roundings make the mean up to 2 larger than floor(sum / 16), of
/// which the sum's upper half byte is the lower one: it tells how much.
inline __m128i MeansOfSixteen(const BYTE *pixels, const WordRows &source, const WholeRatio &) {
    const auto columnMeans = [&](const BYTE *top) {
        const auto row = [&](ptrdiff_t y) { return LoadFour(top + y * source.stride); };
        return MeansOfBoth(MeansOfBoth(row(0), row(1)), MeansOfBoth(row(2), row(3)));
    };
    const RoundedMeans a = columnMeans(pixels), b = columnMeans(pixels + kRegisterBytes);
    const RoundedMeans c = columnMeans(pixels + 2 * kRegisterBytes), d = columnMeans(pixels + 3 * kRegisterBytes);
    const RoundedMeans all = MeansOfPairs(MeansOfPairs(a, b), MeansOfPairs(c, d));
    const __m128i excess = _mm_sub_epi8(all.means, _mm_srli_epi16(all.sums, 4));
    return _mm_sub_epi8(all.means, _mm_and_si128(excess, _mm_set1_epi8(15)));
}

/// The channels of one word in the lower four lanes.
inline __m128i LanesOf(const BYTE *pixel) { return _mm_unpacklo_epi8(OneWord(LoadPixel(pixel)), _mm_setzero_si128()); }

inline uint32_t MeanOfBlock(const BYTE *pixels, const WordRows &source, const WholeRatio &ratio) {
    const __m128i zero = _mm_setzero_si128();
    const ptrdiff_t width = ptrdiff_t{ratio.columns} * kPixelBytes;
    __m128i sums = zero;
    for (int y = 0; y < ratio.rows; ++y, pixels += source.stride) {
        ptrdiff_t x = 0;
        for (; x + kRegisterBytes <= width; x += kRegisterBytes) {
            const __m128i words = LoadFour(pixels + x);
            sums = _mm_add_epi16(sums, _mm_add_epi16(_mm_unpacklo_epi8(words, zero), _mm_unpackhi_epi8(words, zero)));
        }
        for (; x < width; x += kPixelBytes) sums = _mm_add_epi16(sums, LanesOf(pixels + x));
    }
    const __m128i means = _mm_mulhi_epu16(_mm_add_epi16(sums, _mm_unpackhi_epi64(sums, sums)), EachLane(ratio.inverse));
    return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(means, means)));
}

/// Two weights of 0 to 65536, for multiply-adds of lanes: in each 32 bits of a register the upper bits of both, and the
/// lower eight.
struct WeightPair {
    __m128i upper, lower;

    WeightPair(uint32_t a, uint32_t b)
        : upper(EachWord(a >> 8 | b >> 8 << 16)), lower(EachWord((a & 0xFF) | (b & 0xFF) << 16)) {}
};

/// Rows of a footprint that weigh the same.
struct RowGroup {
    int first, count;
    uint32_t part;  ///< covered length, 16.16
    WeightPair parts;

    RowGroup(int row, int rows, uint32_t coveredLength)
        : first(row), count(rows), part(coveredLength), parts(coveredLength, coveredLength) {}
};

/// The weighted sum of a footprint's channels, in 32 bits.
class WeightedSum {
public:
    /// The sums of up to 15 × 15 pixels fit into the lanes, as the even and the odd columns between the first and the
    /// last have their own.
    void Add(const WordRows &source, const Footprint &columns, const RowGroup &rows) {
        const __m128i zero = _mm_setzero_si128();
        const BYTE *row = source.pixels + rows.first * source.stride;
        const ptrdiff_t begin = (columns.first - source.firstColumn) * kPixelBytes;
        const ptrdiff_t end = (columns.last - source.firstColumn) * kPixelBytes;
        __m128i first = zero, between = zero, last = zero;
        for (int y = 0; y < rows.count; ++y, row += source.stride) {
            first = _mm_add_epi16(first, LanesOf(row + begin));
            last = _mm_add_epi16(last, LanesOf(row + end));
            ptrdiff_t x = begin + kPixelBytes;
            for (; x + kPixelBytes < end; x += ptrdiff_t{2} * kPixelBytes) {
                const __m128i two = _mm_loadl_epi64(reinterpret_cast<const __m128i *>(row + x));
                between = _mm_add_epi16(between, _mm_unpacklo_epi8(two, zero));
            }
            if (x < end) between = _mm_add_epi16(between, LanesOf(row + x));
        }
        // A footprint of one column has no last one.
        const auto weightOf = [&](uint32_t part) { return static_cast<uint32_t>(uint64_t{part} * rows.part >> 16); };
        const uint32_t firstWeight = weightOf(columns.firstPart),
                       lastWeight = begin < end ? weightOf(columns.lastPart) : 0;
        AddPair(_mm_unpacklo_epi16(first, last), {firstWeight, lastWeight});
        AddPair(_mm_unpacklo_epi16(between, _mm_unpackhi_epi64(between, between)), rows.parts);
        const uint32_t columnsBetween = begin < end ? static_cast<uint32_t>(columns.last - columns.first - 1) : 0;
        weight_ += (firstWeight + columnsBetween * rows.part + lastWeight) * static_cast<uint32_t>(rows.count);
    }

    /// floor(sum / weight). The quotient of sum + ½ is at least 1 / (2 weight), not below 2^−25, away from a whole
    /// number, and double precision errs by less.
    uint32_t Mean() const {
        const __m128i sums = _mm_add_epi32(_mm_slli_epi32(upper_, 8), lower_);
        const __m128i biased = _mm_xor_si128(sums, EachWord(0x80000000));  // the conversion is one of signed words
        const __m128d inverse = _mm_set1_pd(1.0 / weight_), bias = _mm_set1_pd(2147483648.5);
        const auto quotients = [&](__m128i two) {
            return _mm_cvttpd_epi32(_mm_mul_pd(_mm_add_pd(_mm_cvtepi32_pd(two), bias), inverse));
        };
        const __m128i words = _mm_unpacklo_epi64(quotients(biased), quotients(_mm_unpackhi_epi64(biased, biased)));
        const __m128i lanes = _mm_packs_epi32(words, words);
        return static_cast<uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(lanes, lanes)));
    }

private:
    void AddPair(__m128i lanes, const WeightPair &weights) {
        upper_ = _mm_add_epi32(upper_, _mm_madd_epi16(lanes, weights.upper));
        lower_ = _mm_add_epi32(lower_, _mm_madd_epi16(lanes, weights.lower));
    }

    __m128i upper_ = _mm_setzero_si128(), lower_ = _mm_setzero_si128();  ///< the sum is 256 upper + lower
    uint32_t weight_ = 0;
};

inline WholeRatio::WholeRatio(const SurfaceView &source, SIZE fullSize) {
    const Steps across = CornerSteps(source.width, fullSize.cx), down = CornerSteps(source.height, fullSize.cy);
    const int64_t wholeColumns = across.step >> 16, wholeRows = down.step >> 16;
    const bool isWhole = across.step == wholeColumns << 16 && down.step == wholeRows << 16;
    if (!isWhole || wholeColumns > kLongestFootprint || wholeRows > kLongestFootprint) return;
    const int count = static_cast<int>(wholeColumns * wholeRows);
    // floor(sum / count) = sum × inverse >> 16 for every sum of so many bytes, as long as the inverse's error, less
    // than count / 65536 of it, stays below one part of the count.
    const int rounded = (65535 + count) / count, error = rounded * count - 65536;
    if (count < 2 || 255 * count * error >= 65536) return;
    columns = static_cast<int>(wholeColumns);
    rows = static_cast<int>(wholeRows);
    inverse = static_cast<uint32_t>(rounded);
}

/// The means of `count` blocks side by side, from the first column on.
inline void MeansOfBlocks(BYTE *out, ptrdiff_t count, const WordRows &source, const WholeRatio &ratio) {
    const ptrdiff_t width = ptrdiff_t{ratio.columns} * kPixelBytes;
    const BYTE *pixels = source.pixels;
    const auto forEachFour = [&](const auto &means) {
        for (; count >= kRegisterPixels;
             count -= kRegisterPixels, pixels += kRegisterPixels * width, out += kRegisterBytes) {
            StoreFour(out, means(pixels, source, ratio));
        }
    };
    if (ratio.columns == 2) forEachFour(MeansOfTwoColumns);
    if (ratio.columns == 4 && ratio.rows == 4) forEachFour(MeansOfSixteen);
    if (ratio.columns % kRegisterPixels == 0) forEachFour(MeansOfRegisters);
    for (; count > 0; --count, pixels += width, out += kPixelBytes) StorePixel(out, MeanOfBlock(pixels, source, ratio));
}

/// The means of `count` footprints in a row.
inline void MeansOfFootprints(BYTE *out, ptrdiff_t count, const WordRows &source, const Footprint *columns,
                              const Footprint &rows) {
    const int height = rows.last - rows.first + 1;
    const RowGroup first(0, 1, rows.firstPart), between(1, height - 2, 65536), last(height - 1, 1, rows.lastPart);
    for (ptrdiff_t i = 0; i < count; ++i) {
        WeightedSum sum;
        sum.Add(source, columns[i], first);
        if (height > 2) sum.Add(source, columns[i], between);
        if (height > 1) sum.Add(source, columns[i], last);
        StorePixel(out + i * kPixelBytes, sum.Mean());
    }
}

}  // namespace lacquer::LACQUER_TIER
