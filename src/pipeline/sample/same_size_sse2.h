// Sampling 1:1 in the faster tiers.
#pragma once

#include "pipeline/memory/copy_rows_sse2.h"
#include "pipeline/pixel/source_pixels_sse2.h"
#include "pipeline/sample/same_size.h"

namespace lacquer::sse2 {

struct SourceRuns {
    template <class... Arguments>
    static void Expand(Arguments... arguments) {
        sse2::ExpandPixels(arguments...);
    }
    static constexpr auto Copy = CopyRows;
};

}  // namespace lacquer::sse2
