// The copy past the caches.

#include "pipeline/memory/streaming_sse2.h"

#include <algorithm>
#include <cstring>

#include "pipeline/memory/lookahead.h"

namespace lacquer {

void StreamBytes(BYTE *dest, const BYTE *source, ptrdiff_t count) {
#ifdef LACQUER_SSE2
    constexpr ptrdiff_t kVector = 16, kLine = kCacheLineBytes, kAhead = 16 * kLine;
    const auto unaligned = static_cast<ptrdiff_t>(-reinterpret_cast<uintptr_t>(dest) % kVector);
    const ptrdiff_t head = std::min(unaligned, count);
    std::memcpy(dest, source, static_cast<size_t>(head));
    ptrdiff_t i = head;
    for (; i + kLine <= count; i += kLine) {
        PrefetchLine(source + i + kAhead);
        for (ptrdiff_t at = i; at < i + kLine; at += kVector) {
            StreamVector(dest + at, _mm_loadu_si128(reinterpret_cast<const __m128i *>(source + at)));
        }
    }
    FinishStreaming();
    std::memcpy(dest + i, source + i, static_cast<size_t>(count - i));
#else
    std::memcpy(dest, source, static_cast<size_t>(count));
#endif
}

}  // namespace lacquer
