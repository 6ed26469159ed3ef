// The copy past the caches.

#include "pipeline/memory/copy_rows_sse2.h"

#include <algorithm>
#include <cstring>

#include "pipeline/memory/copy_rows.h"
#include "pipeline/memory/streaming_sse2.h"
#include "platform/prefetch.h"

namespace lacquer::sse2 {

namespace {

/// Bytes that don't overlap.
void StreamBytes(BYTE *dest, const BYTE *source, ptrdiff_t count) {
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

}  // namespace

void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows) {
    if (!StreamingPays(int64_t{bytes} * rows)) return lacquer::CopyRows(dest, source, bytes, rows);
    for (ptrdiff_t y = 0; y < rows; ++y) {
        BYTE *const out = RowOf(dest, y);
        const BYTE *const in = RowOf(source, y);
        if (out < in + bytes && in < out + bytes) {
            std::memmove(out, in, static_cast<size_t>(bytes));
        } else {
            StreamBytes(out, in, bytes);
        }
    }
}

}  // namespace lacquer::sse2
