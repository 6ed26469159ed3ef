// Sampling 1:1 in the faster tiers.
#pragma once

#include "pipeline/memory/copy_rows_simd.h"
#include "pipeline/pixel/source_pixels_simd.h"
#include "pipeline/sample/same_size.h"

namespace lacquer::LACQUER_TIER {

struct SourceRuns {
    template <class Reader>
    static void Expand(BYTE *out, Reader read, const BYTE *pixels, ptrdiff_t count) {
        LACQUER_TIER::ExpandPixels(out, read, pixels, count);
    }
    static constexpr auto Copy = CopyRows;

    /// By its type: for the many short rows of a small draw it is not even a call.
    template <class Combine>
    static const Combine &Known(const Combine &combine) {
        return combine;
    }
};

}  // namespace lacquer::LACQUER_TIER
