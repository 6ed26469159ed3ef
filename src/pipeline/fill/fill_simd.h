// The fills of the faster tiers.
#pragma once

#include "pipeline/combine/run_simd.h"
#include "pipeline/memory/walk.h"
#include "platform/fill_words.h"

namespace lacquer::LACQUER_TIER {

/// A rule as a formula of the destination alone.
template <class Rule>
struct Coloured {
    uint32_t colour;
    Rule rule;

    template <Register V>
    V operator()(V d) const {
        return rule(EachWord<V>(colour), d);
    }
    template <Register V>
    Pair<V> operator()(const Pair<V> &d) const requires requires {
        rule(d, d);
    }
    {
        const V colours = EachWord<V>(colour);
        return rule(Pair<V>{colours, colours}, d);
    }
};

/// Shorter runs cost less than the start of a string store. Registers of 32 bytes are faster than it in the caches.
inline bool StringPays(ptrdiff_t count) {
    constexpr int64_t kStartBytes = 2048;
    return count * kPixelBytes >= (kBytesOf<Widest> > kRegisterBytes ? memoryLimits.secondLevelBytes : kStartBytes);
}

/// Runs from here on are worth finding a register's boundary.
inline constexpr ptrdiff_t kAlignedRun = 64;

/// Four registers to a turn, from a register's boundary on: fewer, or some across two lines of the cache, take longer.
/// The first and the last register may overlap others. At least one register of words.
inline void FillAligned(BYTE *dest, ptrdiff_t count, uint32_t colour) {
    constexpr ptrdiff_t kBytes = kBytesOf<Widest>;
    const Widest colours = EachWord<Widest>(colour);
    BYTE *const end = dest + count * kPixelBytes;
    Store(dest, colours);
    // Words stay where they are, also in rows that begin within a word.
    const auto beyond = static_cast<ptrdiff_t>(reinterpret_cast<uintptr_t>(dest) % kBytes);
    dest += (kBytes - beyond) / kPixelBytes * kPixelBytes;
    for (; end - dest >= 4 * kBytes; dest += 4 * kBytes) {
        StorePair<Widest>(dest, {colours, colours});
        StorePair<Widest>(dest + 2 * kBytes, {colours, colours});
    }
    for (; end - dest >= kBytes; dest += kBytes) Store(dest, colours);
    Store(end - kBytes, colours);
}

struct OneColour {
    template <class Rule>
    static void Draw(const SurfaceView &dest, uint32_t colour, const Rule &rule) {
        WalkWords(dest, RunsOf(dest, IsContiguous(dest)), !Rule::kCopies, [&](BYTE *words, ptrdiff_t count) {
            if (Rule::kCopies && StringPays(count)) return FillWords(words, colour, static_cast<size_t>(count));
            if (Rule::kCopies && count >= kAlignedRun) return FillAligned(words, count, colour);
            LACQUER_TIER::MapRun(words, count, Coloured<Rule>{colour, rule});
        });
    }
};

}  // namespace lacquer::LACQUER_TIER
