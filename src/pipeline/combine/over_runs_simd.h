// Source over for runs of words: in pictures of a user interface most of the pixels are opaque or empty.
#pragma once

#include <iterator>

#include "pipeline/combine/rules_simd.h"
#include "pipeline/combine/run_simd.h"

namespace lacquer::LACQUER_TIER {

/// Looks at a piece of the source, and then does the least for it. Where a piece was mixed, it looks at every fourth
/// piece only: pictures of which none is alike lose next to nothing.
struct OverRuns : PerRegister<OverRule> {
    using PerRegister::PerRegister;

    using Plain = PerRegister<OverRule>;

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        while (count >= kMixed) {
            const ptrdiff_t done = RunFlat(dest, source) ? kPiece : RunMixed(dest, source);
            dest += done * kPixelBytes;
            source += done * kPixelBytes;
            count -= done;
        }
        PerRegister::Run(dest, source, count);
    }

private:
    static constexpr ptrdiff_t kPiece = 16, kMixed = 4 * kPiece;

    /// Its length is known here. Result: the pixels done.
    ptrdiff_t RunMixed(BYTE *dest, const BYTE *source) const {
        PerRegister::Run(dest, source, kMixed);
        return kMixed;
    }

    /// Does a piece that is opaque or empty. Result: whether it is.
    static bool RunFlat(BYTE *dest, const BYTE *source) {
        Widest words[kPiece / kPixelsOf<Widest>];
        Widest all = words[0] = Load<Widest>(source), any = all;
        for (size_t i = 1; i < std::size(words); ++i) {
            words[i] = Load<Widest>(source + static_cast<ptrdiff_t>(i) * kBytesOf<Widest>);
            all = And(all, words[i]);
            any = Or(any, words[i]);
        }
        const Widest opaque = EachWord<Widest>(kOpaque);
        if (!AreAll(AreWordsEqual(And(all, opaque), opaque))) return AreAll(AreWordsEqual(any, EachWord<Widest>(0)));
        for (const Widest &four : words) {
            Store(dest, four);
            dest += kBytesOf<Widest>;
        }
        return true;
    }
};

}  // namespace lacquer::LACQUER_TIER
