// Stores past the caches, for results larger than these: a cached store reads each line before it writes it, and drives
// out what will be needed sooner.
#pragma once

#include <algorithm>
#include <cstring>

#include "pipeline/memory/limits.h"
#include "pipeline/memory/view_rows.h"
#include "pipeline/pixel/pixel_simd.h"
#include "platform/prefetch.h"

namespace lacquer::LACQUER_TIER {

/// `out` is a multiple of the register's size.
inline void Stream(BYTE *out, __m128i words) { _mm_stream_si128(reinterpret_cast<__m128i *>(out), words); }
#ifdef LACQUER_WIDE_REGISTERS
inline void Stream(BYTE *out, __m256i words) { _mm256_stream_si256(reinterpret_cast<__m256i *>(out), words); }
#endif

/// Lets streamed stores be seen in order with those that follow.
inline void FinishStreaming() { _mm_sfence(); }

/// Copies words to a multiple of the register's size, past the caches but for the last ones. FinishStreaming is the
/// caller's.
inline void StreamWords(BYTE *dest, const BYTE *source, ptrdiff_t count) {
    const ptrdiff_t bytes = count * kPixelBytes, whole = bytes - bytes % kBytesOf<Widest>;
    for (ptrdiff_t i = 0; i < whole; i += kBytesOf<Widest>) Stream(dest + i, Load<Widest>(source + i));
    std::memcpy(dest + whole, source + whole, static_cast<size_t>(bytes - whole));
}

/// Copies bytes past the caches, and ends with FinishStreaming; bytes that overlap are moved as usual.
inline void StreamBytes(BYTE *dest, const BYTE *source, ptrdiff_t count) {
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
        for (ptrdiff_t at = i; at < i + kLine; at += kRegisterBytes) Stream(dest + at, LoadFour(source + at));
    }
    FinishStreaming();
    std::memcpy(dest + i, source + i, static_cast<size_t>(count - i));
}

/// Whether every row begins at a multiple of so many bytes. Registers need their size; stores that leave out parts of
/// their surroundings need whole cache lines, or each line goes to memory in pieces.
inline bool RowsAreAligned(const SurfaceView &view, ptrdiff_t bytes) {
    return reinterpret_cast<uintptr_t>(view.bits) % static_cast<uintptr_t>(bytes) == 0 && view.stride % bytes == 0;
}

}  // namespace lacquer::LACQUER_TIER
