// The faster tiers' loop over the words of a run.
#pragma once

#include "pipeline/pixel/pixel_sse2.h"

namespace lacquer::sse2 {

/// As the base tier's, for a formula that takes registers of four words. It may take eight words, too, where they share
/// work; both forms give the same words.
template <class Formula, class... Source>
inline void MapRun(BYTE *dest, ptrdiff_t count, Formula formula, const Source *...sources) {
    const auto mapEight = [&formula](const auto &...eight) -> EightWords {
        if constexpr (requires { formula(eight...); }) {
            return formula(eight...);
        } else {
            return {formula(eight.first...), formula(eight.second...)};
        }
    };
    const ptrdiff_t bytes = count * kPixelBytes;
    ptrdiff_t i = 0;
    for (; i + 2 * kRegisterBytes <= bytes; i += 2 * kRegisterBytes) {
        StoreEight(dest + i, mapEight(LoadEight(sources + i)..., LoadEight(dest + i)));
    }
    for (; i + kRegisterBytes <= bytes; i += kRegisterBytes) {
        StoreFour(dest + i, formula(LoadFour(sources + i)..., LoadFour(dest + i)));
    }
    if (bytes & kRegisterBytes / 2) {
        StoreTwo(dest + i, formula(LoadTwo(sources + i)..., LoadTwo(dest + i)));
        i += kRegisterBytes / 2;
    }
    if (bytes & kPixelBytes) StoreOne(dest + i, formula(LoadOne(sources + i)..., LoadOne(dest + i)));
}

/// A combine rule for runs of words.
template <class Rule>
struct PerFour : Rule {
    using Rule::Rule;
    explicit PerFour(const Rule &rule) : Rule(rule) {}

    static constexpr bool Copies() { return Rule::kCopies; }

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        const Rule rule = *this;
        sse2::MapRun(dest, count, rule, source);
    }
};

}  // namespace lacquer::sse2
