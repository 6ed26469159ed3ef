// Fills: a combine rule whose source is one colour.
#pragma once

#include "pipeline/combine/run.h"
#include "pipeline/memory/walk.h"

namespace lacquer {

struct OneColour {
    /// Each word d of the view becomes rule(colour, d).
    template <class Rule>
    static void Draw(const SurfaceView &dest, uint32_t colour, const Rule &rule) {
        const auto formula = [colour, rule](uint32_t d) { return rule(colour, d); };
        WalkWords(dest, RunsOf(dest, IsContiguous(dest)), !Rule::kCopies,
                  [&](BYTE *words, ptrdiff_t count) { MapRun(words, count, formula); });
    }
};

}  // namespace lacquer
