// The box blur of the faster tiers: the inside of a row a register of pixels at a time.
#pragma once

#include "pipeline/filter/box_blur.h"
#include "pipeline/pixel/pixel_simd.h"

namespace lacquer::LACQUER_TIER {

/// 16-bit sums down the columns of neighbouring pixels: of each four in a register, the first two and the last two.
template <Register V>
Pair<V> SumColumns(const BoxRows &source, LONG x) {
    const V zero = EachWord<V>(0);
    Pair<V> sums{zero, zero};
    for (const BYTE *row : source.rows) {
        const V pixels = Load<V>(row + ptrdiff_t{x} * kPixelBytes);
        sums.first = AddLanes(sums.first, BytesLow(pixels, zero));
        sums.second = AddLanes(sums.second, BytesHigh(pixels, zero));
    }
    return sums;
}

/// The sums of one pixel, in every half of 16 bytes.
template <Register V>
V SumPixel(const BoxRows &source, LONG x) {
    const __m128i zero = EachWord(0);
    __m128i sum = zero;
    for (const BYTE *row : source.rows) {
        sum = AddLanes(sum, BytesLow(LoadOne(row + ptrdiff_t{x} * kPixelBytes), zero));
    }
    return EachSixteen<V>(_mm_unpacklo_epi64(sum, sum));
}

/// `left`, `right`: the pairs that the neighbours of the block end and begin.
template <Register V>
void StoreBlurred(BYTE *out, LONG x, V left, const Pair<V> &sums, V right) {
    const V ninth = EachLane<V>(kNinth), inner = Between(sums.first, sums.second);
    const V before = Between(Preceding(left, sums.second), sums.first);
    const V behind = Between(sums.second, Following(sums.first, right));
    const V low = AddLanes(AddLanes(before, sums.first), inner);
    const V high = AddLanes(AddLanes(inner, sums.second), behind);
    Store(out + ptrdiff_t{x} * kPixelBytes, PackLanes(MultiplyLanesHigh(low, ninth), MultiplyLanesHigh(high, ninth)));
}

/// Blurs the columns from 1 up to `end`, which is at most the last column. Result: false when they are fewer than a
/// register's.
template <Register V>
bool BlurInside(BYTE *out, const BoxRows &source, LONG end) {
    constexpr LONG kPixels = kPixelsOf<V>;
    LONG x = 1;
    if (end - x < kPixels) return false;
    V left = SumPixel<V>(source, 0);
    Pair<V> sums = SumColumns<V>(source, x);
    for (; x + 2 * kPixels <= end; x += kPixels) {
        const Pair<V> next = SumColumns<V>(source, x + kPixels);
        StoreBlurred(out, x, left, sums, next.first);
        left = sums.second;
        sums = next;
    }
    StoreBlurred(out, x, left, sums, SumPixel<V>(source, x + kPixels));
    if (x + kPixels == end) return true;
    // The last block overlaps the one before.
    x = end - kPixels;
    StoreBlurred(out, x, SumPixel<V>(source, x - 1), SumColumns<V>(source, x), SumPixel<V>(source, end));
    return true;
}

/// As the base tier's.
inline void BlurBoxes(const SurfaceView &dest, const SurfaceView &source) {
    const LONG columns = std::min(dest.width, source.width), rows = std::min(dest.height, source.height);
    const LONG inside = std::min(columns, source.width - 1);
    for (LONG y = 0; y < rows; ++y) {
        BYTE *const out = RowOf(dest, y);
        const BoxRows around(source, y);
        BlurPixel(out, around, source.width, 0);
        bool isDone = BlurInside<Widest>(out, around, inside);
        if constexpr (!std::is_same_v<Widest, __m128i>) isDone = isDone || BlurInside<__m128i>(out, around, inside);
        for (LONG x = isDone ? inside : 1; x < columns; ++x) BlurPixel(out, around, source.width, x);
    }
}

}  // namespace lacquer::LACQUER_TIER
