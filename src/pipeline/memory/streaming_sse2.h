// Stores past the caches, for results larger than these: a cached store reads each line before it writes it, and drives
// out what will be needed sooner.
#pragma once

#include "pipeline/memory/view_rows.h"
#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer::sse2 {

/// Whether a result of so many bytes should go past the caches.
constexpr bool StreamingPays(int64_t bytes) { return bytes >= int64_t{8} << 20; }

/// Copies bytes past the caches, and ends with FinishStreaming; bytes that overlap are moved as usual.
void StreamBytes(BYTE *dest, const BYTE *source, ptrdiff_t count);

/// `out` is a multiple of 16.
inline void StreamFour(BYTE *out, __m128i words) { _mm_stream_si128(reinterpret_cast<__m128i *>(out), words); }

/// Lets streamed stores be seen in order with those that follow.
inline void FinishStreaming() { _mm_sfence(); }

/// Whether every row begins at a multiple of so many bytes. Registers need 16; stores that leave out parts of their
/// surroundings need whole cache lines, or each line goes to memory in pieces.
inline bool RowsAreAligned(const SurfaceView &view, LONG bytes) {
    return reinterpret_cast<uintptr_t>(view.bits) % static_cast<uintptr_t>(bytes) == 0 && view.stride % bytes == 0;
}

}  // namespace lacquer::sse2
