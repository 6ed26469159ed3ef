// The faster tiers' loop over the words of a run.
#pragma once

#include "pipeline/pixel/pixel_simd.h"
#include "platform/inline.h"

namespace lacquer::LACQUER_TIER {

/// As the base tier's, for a formula that takes registers of any width. It may take pairs of them, too, where they
/// share work; both forms give the same words.
template <class Formula, class... Source>
LACQUER_INLINE void MapRun(BYTE *dest, ptrdiff_t count, Formula formula, const Source *...sources) {
    const auto mapPair = [&formula](const auto &...pair) -> Pair<Widest> {
        if constexpr (requires { formula(pair...); }) {
            return formula(pair...);
        } else {
            return {formula(pair.first...), formula(pair.second...)};
        }
    };
    const ptrdiff_t bytes = count * kPixelBytes;
    ptrdiff_t i = 0;
    for (; i + 2 * kBytesOf<Widest> <= bytes; i += 2 * kBytesOf<Widest>) {
        StorePair(dest + i, mapPair(LoadPair<Widest>(sources + i)..., LoadPair<Widest>(dest + i)));
    }
    for (; i + kBytesOf<Widest> <= bytes; i += kBytesOf<Widest>) {
        Store(dest + i, formula(Load<Widest>(sources + i)..., Load<Widest>(dest + i)));
    }
    if (kBytesOf < Widest >> kRegisterBytes && (bytes & kRegisterBytes)) {
        StoreFour(dest + i, formula(LoadFour(sources + i)..., LoadFour(dest + i)));
        i += kRegisterBytes;
    }
    if (bytes & kRegisterBytes / 2) {
        StoreTwo(dest + i, formula(LoadTwo(sources + i)..., LoadTwo(dest + i)));
        i += kRegisterBytes / 2;
    }
    if (bytes & kPixelBytes) StoreOne(dest + i, formula(LoadOne(sources + i)..., LoadOne(dest + i)));
}

/// A combine rule for runs of words.
template <class Rule>
struct PerRegister : Rule {
    using Rule::Rule;
    explicit PerRegister(const Rule &rule) : Rule(rule) {}

    /// Whether the destination's words don't matter, and whether the source's need only be written there.
    static constexpr bool Copies() { return Rule::kCopies; }
    static constexpr bool IsInPlace() { return Rule::kCopies; }

    LACQUER_INLINE void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        const Rule rule = *this;
        LACQUER_TIER::MapRun(dest, count, rule, source);
    }
};

}  // namespace lacquer::LACQUER_TIER
