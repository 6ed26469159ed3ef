// Fetching runs of 8- and 24-bit pixels without a loop over single ones.
#pragma once

#include <algorithm>
#include <type_traits>

#include "pipeline/source_pixels.h"
#include "pipeline/vector_pixels.h"

namespace lacquer {

struct FetchFour {
    /// As FetchEach::Fetch.
    template <class Reader>
    static void Fetch(BYTE *out, const Reader &read, const BYTE *row, ptrdiff_t first, ptrdiff_t count,
                      ptrdiff_t width) {
        ptrdiff_t i = 0;
#ifdef LACQUER_SSE2
        if constexpr (std::is_same_v<Reader, PackedPixels::Reader>) {
            // Four bytes are read for each pixel: all but the row's last have one more behind them.
            const BYTE *in = row + first * 3;
            const __m128i opaque = EachWord(kOpaque);
            const ptrdiff_t safe = std::min(count, width - 1 - first);
            for (; i + kVectorPixels <= safe; i += kVectorPixels, in += kVectorPixels * 3) {
                const __m128i words = FourWords(LoadPixel(in), LoadPixel(in + 3), LoadPixel(in + 6), LoadPixel(in + 9));
                StoreFour(out + i * kPixelBytes, _mm_or_si128(words, opaque));
            }
        } else {
            for (; i + kVectorPixels <= count; i += kVectorPixels) {
                const ptrdiff_t x = first + i;
                StoreFour(out + i * kPixelBytes,
                          FourWords(read(row, x), read(row, x + 1), read(row, x + 2), read(row, x + 3)));
            }
        }
#endif
        for (; i < count; ++i) StorePixel(out + i * kPixelBytes, read(row, first + i));
    }
};

}  // namespace lacquer
