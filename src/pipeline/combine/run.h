// The base tier's loop over the words of a run.
#pragma once

#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// Each of `count` words at `dest` becomes formula(words of `sources` at the same place ..., the word itself). A source
/// may be `dest` itself.
template <class Formula, class... Source>
inline void MapRun(BYTE *dest, ptrdiff_t count, Formula formula, const Source *...sources) {
    for (ptrdiff_t i = 0; i < count * kPixelBytes; i += kPixelBytes) {
        StorePixel(dest + i, formula(LoadPixel(sources + i)..., LoadPixel(dest + i)));
    }
}

/// A combine rule for runs of words.
template <class Rule>
struct PerPixel : Rule {
    using Rule::Rule;
    explicit PerPixel(const Rule &rule) : Rule(rule) {}

    /// Whether the destination's words don't matter, and whether the source's need only be written there.
    static constexpr bool Copies() { return Rule::kCopies; }
    static constexpr bool IsInPlace() { return Rule::kCopies; }

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        const Rule rule = *this;
        MapRun(dest, count, rule, source);
    }
};

}  // namespace lacquer
