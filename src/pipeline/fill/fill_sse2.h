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

struct OneColour {
    template <class Rule>
    static void Draw(const SurfaceView &dest, uint32_t colour, const Rule &rule) {
        const Coloured<Rule> formula{EachWord(colour), rule};
        WalkWords(dest, RunsOf(dest, IsContiguous(dest)), !Rule::kCopies, [&](BYTE *words, ptrdiff_t count) {
            if (Rule::kCopies && count >= kStringRun) return FillWords(words, colour, static_cast<size_t>(count));
            sse2::MapRun(words, count, formula);
        });
    }
};

}  // namespace lacquer::sse2
