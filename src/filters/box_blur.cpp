// The box blur: one pixel by definition, and the inside of a row four pixels at a time.

#include "filters/box_blur.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "core/surface_view.h"
#include "pipeline/pixel/pixel.h"
#include "platform/simd.h"

namespace lacquer {

namespace {

constexpr int kTaps = 3;
constexpr uint32_t kLargestSum = kTaps * kTaps * 255;

/// floor(sum / 9) = sum * kNinth / 2^16 for every sum of nine bytes.
constexpr uint32_t kNinth = 7282;

constexpr bool NinthIsExact() {
    for (uint32_t sum = 0; sum <= kLargestSum; ++sum) {
        if (sum * kNinth >> 16 != sum / 9) return false;
    }
    return true;
}
static_assert(NinthIsExact());

/// The source rows above, at and below a row, clamped into the source.
struct Neighbours {
    const BYTE *rows[kTaps];
};

void BlurPixel(BYTE *out, const Neighbours &source, LONG width, LONG x) {
    const ptrdiff_t columns[kTaps] = {std::max(x - 1, LONG{0}), x, std::min(x + 1, width - 1)};
    for (int channel = 0; channel < kPixelBytes; ++channel) {
        uint32_t sum = 0;
        for (const BYTE *row : source.rows) {
            for (const ptrdiff_t column : columns) sum += row[column * kPixelBytes + channel];
        }
        out[static_cast<ptrdiff_t>(x) * kPixelBytes + channel] = static_cast<BYTE>(sum * kNinth >> 16);
    }
}

#ifdef LACQUER_SSE2

constexpr LONG kBlock = 4;

/// 16-bit sums down the columns of four neighbouring pixels, two pixels to a register.
struct ColumnSums {
    __m128i low, high;
};

ColumnSums SumBlock(const Neighbours &source, LONG x) {
    const __m128i zero = _mm_setzero_si128();
    ColumnSums sums{zero, zero};
    for (const BYTE *row : source.rows) {
        const __m128i pixels =
            _mm_loadu_si128(reinterpret_cast<const __m128i *>(row + static_cast<ptrdiff_t>(x) * kPixelBytes));
        sums.low = _mm_add_epi16(sums.low, _mm_unpacklo_epi8(pixels, zero));
        sums.high = _mm_add_epi16(sums.high, _mm_unpackhi_epi8(pixels, zero));
    }
    return sums;
}

/// The sums of one pixel, in both halves.
__m128i SumPixel(const Neighbours &source, LONG x) {
    const __m128i zero = _mm_setzero_si128();
    __m128i sum = zero;
    for (const BYTE *row : source.rows) {
        const uint32_t pixel = LoadPixel(row + static_cast<ptrdiff_t>(x) * kPixelBytes);
        sum = _mm_add_epi16(sum, _mm_unpacklo_epi8(_mm_cvtsi32_si128(static_cast<int>(pixel)), zero));
    }
    return _mm_unpacklo_epi64(sum, sum);
}

/// The second pixel of one pair and the first of the next.
__m128i Between(__m128i pair, __m128i next) {
    return _mm_castpd_si128(_mm_shuffle_pd(_mm_castsi128_pd(pair), _mm_castsi128_pd(next), 1));
}

/// `left`, `right`: the pairs that the neighbours of the block end and begin.
void StoreBlock(BYTE *out, LONG x, __m128i left, const ColumnSums &sums, __m128i right) {
    const __m128i ninth = _mm_set1_epi16(kNinth), inner = Between(sums.low, sums.high);
    const __m128i low = _mm_add_epi16(_mm_add_epi16(Between(left, sums.low), sums.low), inner);
    const __m128i high = _mm_add_epi16(_mm_add_epi16(inner, sums.high), Between(sums.high, right));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(out + static_cast<ptrdiff_t>(x) * kPixelBytes),
                     _mm_packus_epi16(_mm_mulhi_epu16(low, ninth), _mm_mulhi_epu16(high, ninth)));
}

void BlurBlock(BYTE *out, const Neighbours &source, LONG x) {
    StoreBlock(out, x, SumPixel(source, x - 1), SumBlock(source, x), SumPixel(source, x + kBlock));
}

/// Blurs the columns from 1 up to `end`, which is at most the last column. Result: false when they are fewer than a
/// block.
bool BlurInside(BYTE *out, const Neighbours &source, LONG end) {
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

#else

bool BlurInside(BYTE *, const Neighbours &, LONG) { return false; }

#endif

}  // namespace

void BoxBlur(const SurfaceView &dest, const SurfaceView &source) {
    if (dest.bitsPerPixel != 32 || source.bitsPerPixel != 32) return;
    const LONG columns = std::min(dest.width, source.width), rows = std::min(dest.height, source.height);
    const LONG inside = std::min(columns, source.width - 1);
    for (LONG y = 0; y < rows; ++y) {
        auto *out = RowOf(dest, y);
        Neighbours neighbours;
        for (int i = 0; i < kTaps; ++i) {
            const LONG row = std::clamp(y + i - 1, LONG{0}, source.height - 1);
            neighbours.rows[i] = RowOf(source, row);
        }
        BlurPixel(out, neighbours, source.width, 0);
        const LONG done = BlurInside(out, neighbours, inside) ? inside : 1;
        for (LONG x = done; x < columns; ++x) BlurPixel(out, neighbours, source.width, x);
    }
}

}  // namespace lacquer
