// Asking for memory before its turn comes, in the words of each compiler.
#pragma once

#if !defined(__GNUC__) && defined(_M_X64)
#include <xmmintrin.h>
#endif

namespace lacquer {

inline constexpr int kCacheLineBytes = 64;

/// Asks for the cache line of a byte that will soon be read or written. Touches nothing: any address does no harm.
#if defined(__GNUC__)
inline void PrefetchLine(const void *byte) { __builtin_prefetch(byte); }
#elif defined(_M_X64)
inline void PrefetchLine(const void *byte) { _mm_prefetch(static_cast<const char *>(byte), _MM_HINT_T0); }
#else
inline void PrefetchLine(const void *) {}
#endif

}  // namespace lacquer
