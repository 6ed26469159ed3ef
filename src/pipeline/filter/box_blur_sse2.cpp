// The box blur of the SSE2 tier: the inside of a row four pixels at a time.

#include "pipeline/filter/box_blur_sse2.h"

#include "pipeline/filter/box_blur.h"
#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer::sse2 {
namespace {

constexpr LONG kBlock = kRegisterPixels;

/// 16-bit sums down the columns of four neighbouring pixels, two pixels to a register.
struct ColumnSums {
    __m128i low, high;
};

ColumnSums SumBlock(const BoxRows &source, LONG x) {
    const __m128i zero = _mm_setzero_si128();
    ColumnSums sums{zero, zero};
    for (const BYTE *row : source.rows) {
        const __m128i pixels = LoadFour(row + ptrdiff_t{x} * kPixelBytes);
        sums.low = _mm_add_epi16(sums.low, _mm_unpacklo_epi8(pixels, zero));
        sums.high = _mm_add_epi16(sums.high, _mm_unpackhi_epi8(pixels, zero));
    }
    return sums;
}

/// The sums of one pixel, in both halves.
__m128i SumPixel(const BoxRows &source, LONG x) {
    const __m128i zero = _mm_setzero_si128();
    __m128i sum = zero;
    for (const BYTE *row : source.rows) {
        sum = _mm_add_epi16(sum, _mm_unpacklo_epi8(LoadOne(row + ptrdiff_t{x} * kPixelBytes), zero));
    }
    return _mm_unpacklo_epi64(sum, sum);
}

/// The second pixel of one pair and the first of the next.
__m128i Between(__m128i pair, __m128i next) {
    return _mm_castpd_si128(_mm_shuffle_pd(_mm_castsi128_pd(pair), _mm_castsi128_pd(next), 1));
}

/// `left`, `right`: the pairs that the neighbours of the block end and begin.
void StoreBlock(BYTE *out, LONG x, __m128i left, const ColumnSums &sums, __m128i right) {
    const __m128i ninth = EachLane(kNinth), inner = Between(sums.low, sums.high);
    const __m128i low = _mm_add_epi16(_mm_add_epi16(Between(left, sums.low), sums.low), inner);
    const __m128i high = _mm_add_epi16(_mm_add_epi16(inner, sums.high), Between(sums.high, right));
    StoreFour(out + ptrdiff_t{x} * kPixelBytes,
              _mm_packus_epi16(_mm_mulhi_epu16(low, ninth), _mm_mulhi_epu16(high, ninth)));
}

void BlurBlock(BYTE *out, const BoxRows &source, LONG x) {
    StoreBlock(out, x, SumPixel(source, x - 1), SumBlock(source, x), SumPixel(source, x + kBlock));
}

/// Blurs the columns from 1 up to `end`, which is at most the last column. Result: false when they are fewer than a
/// block.
bool BlurInside(BYTE *out, const BoxRows &source, LONG end) {
    LONG x = 1;
    if (end - x < kBlock) return false;
    __m128i left = SumPixel(source, 0);
    ColumnSums sums = SumBlock(source, x);
    for (; x + 2 * kBlock <= end; x += kBlock) {
        const ColumnSums next = SumBlock(source, x + kBlock);
        StoreBlock(out, x, left, sums, next.low);
        left = sums.high;
        sums = next;
    }
    StoreBlock(out, x, left, sums, SumPixel(source, x + kBlock));
    // The last block overlaps the one before.
    if (x + kBlock < end) BlurBlock(out, source, end - kBlock);
    return true;
}

}  // namespace

void BlurBoxes(const SurfaceView &dest, const SurfaceView &source) {
    const LONG columns = std::min(dest.width, source.width), rows = std::min(dest.height, source.height);
    const LONG inside = std::min(columns, source.width - 1);
    for (LONG y = 0; y < rows; ++y) {
        BYTE *const out = RowOf(dest, y);
        const BoxRows around(source, y);
        BlurPixel(out, around, source.width, 0);
        const LONG done = BlurInside(out, around, inside) ? inside : 1;
        for (LONG x = done; x < columns; ++x) BlurPixel(out, around, source.width, x);
    }
}

}  // namespace lacquer::sse2
