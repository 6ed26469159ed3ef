// The fills of the faster tiers.
#pragma once

#include "pipeline/combine/run_sse2.h"
#include "pipeline/memory/walk.h"
#include "platform/fill_words.h"

namespace lacquer::sse2 {

/// A rule as a formula of the destination alone.
template <class Rule>
struct Coloured {
    __m128i colours;
    Rule rule;

    __m128i operator()(__m128i d) const { return rule(colours, d); }
    EightWords operator()(const EightWords &d) const requires requires { rule(d, d); }
    { return rule(EightWords{colours, colours}, d); }
};

/// Shorter runs cost less than the start of a string store.
inline constexpr ptrdiff_t kStringRun = 512;

/// Runs from here on are worth finding a register's boundary.
inline constexpr ptrdiff_t kAlignedRun = 64;

/// Four registers to a turn, from a register's boundary on: fewer, or some across two lines of the cache, take longer.
/// The first and the last register may overlap others. At least four words.
inline void FillAligned(BYTE *dest, ptrdiff_t count, __m128i colours) {
    BYTE *const end = dest + count * kPixelBytes;
    StoreFour(dest, colours);
    // Words stay where they are, also in rows that begin within a word.
    const auto beyond = static_cast<ptrdiff_t>(reinterpret_cast<uintptr_t>(dest) % kRegisterBytes);
    dest += (kRegisterBytes - beyond) / kPixelBytes * kPixelBytes;
    for (; end - dest >= 4 * kRegisterBytes; dest += 4 * kRegisterBytes) {
        StoreEight(dest, {colours, colours});
        StoreEight(dest + 2 * kRegisterBytes, {colours, colours});
    }
    for (; end - dest >= kRegisterBytes; dest += kRegisterBytes) StoreFour(dest, colours);
    StoreFour(end - kRegisterBytes, colours);
}

struct OneColour {
    template <class Rule>
    static void Draw(const SurfaceView &dest, uint32_t colour, const Rule &rule) {
        const __m128i colours = EachWord(colour);
        WalkWords(dest, RunsOf(dest, IsContiguous(dest)), !Rule::kCopies, [&](BYTE *words, ptrdiff_t count) {
            if (Rule::kCopies && count >= kStringRun) return FillWords(words, colour, static_cast<size_t>(count));
            if (Rule::kCopies && count >= kAlignedRun) return FillAligned(words, count, colours);
            sse2::MapRun(words, count, Coloured<Rule>{colours, rule});
        });
    }
};

}  // namespace lacquer::sse2
