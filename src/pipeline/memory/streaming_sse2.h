// Stores past the caches, for results larger than these: a cached store reads each line before it writes it, and drives
// out what will be needed sooner.
#pragma once

#include <cstddef>
#include <cstdint>

#include "pipeline/memory/view_rows.h"
#include "platform/simd.h"

namespace lacquer {

/// Whether a result of so many bytes should go past the caches.
constexpr bool StreamingPays(int64_t bytes) { return bytes >= int64_t{8} << 20; }

/// Copies bytes that don't overlap, past the caches. Ends with FinishStreaming.
void StreamBytes(BYTE *dest, const BYTE *source, ptrdiff_t count);

#ifdef LACQUER_SSE2

/// `out` is a multiple of 16.
inline void StreamVector(BYTE *out, __m128i vector) { _mm_stream_si128(reinterpret_cast<__m128i *>(out), vector); }

/// Lets streamed stores be seen in order with those that follow.
inline void FinishStreaming() { _mm_sfence(); }

/// Whether every row begins at a multiple of so many bytes. Vectors need 16; stores that leave out parts of their
/// surroundings need whole cache lines, or each line goes to memory in pieces.
inline bool RowsAreAligned(const SurfaceView &view, LONG bytes) {
    return reinterpret_cast<uintptr_t>(view.bits) % static_cast<uintptr_t>(bytes) == 0 && view.stride % bytes == 0;
}

#endif

}  // namespace lacquer
