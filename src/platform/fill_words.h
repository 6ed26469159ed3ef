// The processor's string store, which fills long runs of memory faster than a loop of register stores.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(_MSC_VER) && defined(_M_X64)
#include <intrin.h>
#endif

namespace lacquer {

/// Writes `word` to `count` places of four bytes from `out` on, which needs no alignment.
#if defined(__GNUC__) && defined(__x86_64__)
inline void FillWords(void *out, uint32_t word, std::size_t count) {
    __asm__ volatile("rep stosl" : "+D"(out), "+c"(count) : "a"(word) : "memory");
}
#elif defined(_MSC_VER) && defined(_M_X64)
inline void FillWords(void *out, uint32_t word, std::size_t count) {
    __stosd(static_cast<unsigned long *>(out), word, count);
}
#else
inline void FillWords(void *out, uint32_t word, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) std::memcpy(static_cast<char *>(out) + i * sizeof word, &word, sizeof word);
}
#endif

}  // namespace lacquer
