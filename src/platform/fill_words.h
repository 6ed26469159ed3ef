// The processor's string store, which fills long runs of memory faster than a loop of register stores.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(_MSC_VER) && defined(_M_X64)
#include <intrin.h>
#endif

namespace lacquer {

/// Writes `pair` to `count` places of eight bytes from `out` on. Some processors take twice as long where these are no
/// multiples of eight, or for smaller places.
#if defined(__GNUC__) && defined(__x86_64__)
inline void FillPairs(void *out, uint64_t pair, std::size_t count) {
    __asm__ volatile("rep stosq" : "+D"(out), "+c"(count) : "a"(pair) : "memory");
}
#elif defined(_MSC_VER) && defined(_M_X64)
inline void FillPairs(void *out, uint64_t pair, std::size_t count) {
    __stosq(static_cast<unsigned long long *>(out), pair, count);
}
#else
inline void FillPairs(void *out, uint64_t pair, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) std::memcpy(static_cast<char *>(out) + i * sizeof pair, &pair, sizeof pair);
}
#endif

/// Writes `word` to `count` places of four bytes from `out` on, which needs no alignment.
inline void FillWords(void *out, uint32_t word, std::size_t count) {
    auto *bytes = static_cast<char *>(out);
    if (reinterpret_cast<uintptr_t>(bytes) % 8 != 0 && count > 0) {
        std::memcpy(bytes, &word, sizeof word);
        bytes += sizeof word;
        --count;
    }
    FillPairs(bytes, uint64_t{word} << 32 | word, count / 2);
    if (count % 2 != 0) std::memcpy(bytes + (count - 1) * sizeof word, &word, sizeof word);
}

}  // namespace lacquer
