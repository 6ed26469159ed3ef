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
template <Register V>
struct LaneSums {
    V lanes, upper;

    explicit LaneSums(V words) : lanes(words), upper(UpperBytes(words)) {}

    void Add(V words) {
        lanes = AddLanes(lanes, words);
        upper = AddLanes(upper, UpperBytes(words));
    }
};

/// The means of as many blocks as a register has words, each the sum of its words.
template <Register V>
V MeansOf(V lanes, V upper, V inverse) {
    const V lower = SubtractLanes(lanes, ShiftLanesUp<8>(upper));
    return Or(MultiplyLanesHigh(lower, inverse), ShiftLanesUp<8>(MultiplyLanesHigh(upper, inverse)));
}

/// Of two registers: the sums of neighbouring words.
template <Register V>
V SumsOfPairs(V a, V b) {
    return AddLanes(PickWords<0, 2>(a, b), PickWords<1, 3>(a, b));
}

/// Blocks that are two pixels wide.
template <Register V>
V MeansOfTwoColumns(const BYTE *pixels, const WordRows &source, const WholeRatio &ratio) {
    LaneSums<V> a(Load<V>(pixels)), b(Load<V>(pixels + kBytesOf<V>));
    for (int y = 1; y < ratio.rows; ++y) {
        pixels += source.stride;
        a.Add(Load<V>(pixels));
        b.Add(Load<V>(pixels + kBytesOf<V>));
    }
    return Reorder(MeansOf(SumsOfPairs(a.lanes, b.lanes), SumsOfPairs(a.upper, b.upper), EachLane<V>(ratio.inverse)));
}

/// 16 bytes of a block, and of each fourth block behind it that a register has room for.
template <Register V>
V LoadEachFourth(const BYTE *pixels, ptrdiff_t blockBytes) {
    return BySixteens<V>([=](ptrdiff_t k) { return LoadFour(pixels + k * kRegisterPixels * blockBytes); });
}

/// Blocks whose width is a multiple of 4 pixels.
template <Register V>
V MeansOfRegisters(const BYTE *pixels, const WordRows &source, const WholeRatio &ratio) {
    const ptrdiff_t width = ptrdiff_t{ratio.columns} * kPixelBytes;
    const auto load = [&](ptrdiff_t at) { return LoadEachFourth<V>(pixels + at, width); };
    LaneSums<V> a(load(0)), b(load(width)), c(load(2 * width)), d(load(3 * width));
    const auto addRow = [&](ptrdiff_t first) {
        for (ptrdiff_t x = first; x < width; x += kRegisterBytes) {
            a.Add(load(x));
            b.Add(load(x + width));
            c.Add(load(x + 2 * width));
            d.Add(load(x + 3 * width));
        }
    };
    addRow(kRegisterBytes);
    for (int y = 1; y < ratio.rows; ++y) {
        pixels += source.stride;
        addRow(0);
    }
    const auto sums = [&](V ofA, V ofB, V ofC, V ofD) {
        return SumsOfPairs(SumsOfPairs(ofA, ofB), SumsOfPairs(ofC, ofD));
    };
    return MeansOf(sums(a.lanes, b.lanes, c.lanes, d.lanes), sums(a.upper, b.upper, c.upper, d.upper),
                   EachLane<V>(ratio.inverse));
}

/// Bytes of several registers: their means, rounded up at each of the steps that made them, and their sums modulo 256.
template <Register V>
struct RoundedMeans {
    V means, sums;
};

template <Register V>
RoundedMeans<V> MeansOfBoth(V a, V b) {
    return {MeansOfBytes(a, b), AddBytes(a, b)};
}

template <Register V>
RoundedMeans<V> MeansOfBoth(const RoundedMeans<V> &a, const RoundedMeans<V> &b) {
    return {MeansOfBytes(a.means, b.means), AddBytes(a.sums, b.sums)};
}

/// Of two groups: neighbouring words.
template <Register V>
RoundedMeans<V> MeansOfPairs(const RoundedMeans<V> &a, const RoundedMeans<V> &b) {
    return {MeansOfBytes(PickWords<0, 2>(a.means, b.means), PickWords<1, 3>(a.means, b.means)),
            AddBytes(PickWords<0, 2>(a.sums, b.sums), PickWords<1, 3>(a.sums, b.sums))};
}

/// Blocks of 4 × 4 pixels, byte by byte. Four roundings make the mean up to 2 larger than floor(sum / 16), of which the
/// sum's upper half byte is the lower one: it tells how much.
template <Register V>
V MeansOfSixteen(const BYTE *pixels, const WordRows &source, const WholeRatio &) {
    const auto columnMeans = [&](ptrdiff_t block) {
        const auto row = [&](ptrdiff_t y) {
            return LoadEachFourth<V>(pixels + block * kRegisterBytes + y * source.stride, kRegisterBytes);
        };
        return MeansOfBoth(MeansOfBoth(row(0), row(1)), MeansOfBoth(row(2), row(3)));
    };
    const RoundedMeans<V> all =
        MeansOfPairs(MeansOfPairs(columnMeans(0), columnMeans(1)), MeansOfPairs(columnMeans(2), columnMeans(3)));
    const V excess = SubtractBytes(all.means, ShiftLanesDown<4>(all.sums));
    return SubtractBytes(all.means, And(excess, EachLane<V>(0x0F0F)));
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
    const auto forEach = [&]<Register V>(V, const auto &means) {
        for (; count >= kPixelsOf<V>; count -= kPixelsOf<V>, pixels += kPixelsOf<V> * width, out += kBytesOf<V>) {
            Store(out, means.template operator()<V>(pixels, source, ratio));
        }
    };
    const auto forEachRegister = [&](const auto &means) {
        forEach(Widest(), means);
        if constexpr (!std::is_same_v<Widest, __m128i>) forEach(__m128i(), means);
    };
    if (ratio.columns == 2) {
        forEachRegister([]<Register V>(const auto &...of) { return MeansOfTwoColumns<V>(of...); });
    } else if (ratio.columns == 4 && ratio.rows == 4) {
        forEachRegister([]<Register V>(const auto &...of) { return MeansOfSixteen<V>(of...); });
    } else if (ratio.columns % kRegisterPixels == 0) {
        forEachRegister([]<Register V>(const auto &...of) { return MeansOfRegisters<V>(of...); });
    }
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
