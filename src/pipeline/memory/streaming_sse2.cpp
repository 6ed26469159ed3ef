// The copy past the caches.

#include "pipeline/memory/streaming_sse2.h"

#include <algorithm>
#include <cstring>

#include "platform/prefetch.h"

namespace lacquer::sse2 {

void StreamBytes(BYTE *dest, const BYTE *source, ptrdiff_t count) {
    if (dest < source + count && source < dest + count) {
        std::memmove(dest, source, static_cast<size_t>(count));
        return;
    }
    constexpr ptrdiff_t kLine = kCacheLineBytes, kAhead = 16 * kLine;
    const auto unaligned = static_cast<ptrdiff_t>(-reinterpret_cast<uintptr_t>(dest) % uintptr_t{kRegisterBytes});
    const ptrdiff_t head = std::min(unaligned, count);
    std::memcpy(dest, source, static_cast<size_t>(head));
    ptrdiff_t i = head;
    for (; i + kLine <= count; i += kLine) {
        PrefetchLine(source + i + kAhead);
        for (ptrdiff_t at = i; at < i + kLine; at += kRegisterBytes) StreamFour(dest + at, LoadFour(source + at));
    }
    FinishStreaming();
    std::memcpy(dest + i, source + i, static_cast<size_t>(count - i));
}

}  // namespace lacquer::sse2
