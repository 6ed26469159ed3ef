// The faster tiers' parts, by the names of the lists of rows and single slots.
#pragma once

#include <type_traits>

#include "pipeline/combine/over_runs_simd.h"
#include "pipeline/combine/rules_simd.h"
#include "pipeline/combine/run_simd.h"
#include "pipeline/fill/fill_simd.h"
#include "pipeline/sample/area_simd.h"
#include "pipeline/sample/bicubic_simd.h"
#include "pipeline/sample/bilinear_simd.h"
#include "pipeline/sample/linear_simd.h"
#include "pipeline/sample/nearest_simd.h"
#include "pipeline/sample/same_size_simd.h"
#include "pipeline/sample/stretch_simd.h"

namespace lacquer::LACQUER_TIER {

template <class Source, class EnlargingFetch>
using AreaOr = StreamingStretched<BlockFetch<Source>, FootprintFetch<Source>, AreaFetch<Source>, EnlargingFetch>;

struct Kit : Rules {
    template <class Source>
    using SameSize = lacquer::SameSize<Source, SourceRuns>;
    template <class Source>
    using Nearest = Stretched<NearestFetch<Source>>;
    template <class Source>
    using Bilinear =
        StreamingStretched<ColumnBilinearFetch<Source>, PreparedBilinearFetch<Source>, DirectBilinearFetch<Source>>;
    template <class Source>
    using Bicubic = StreamingStretched<BicubicFetch<Source>>;
    template <class Source>
    using Area = AreaOr<Source, BicubicFetch<Source>>;
    template <class /*Source*/>
    using OneColour = LACQUER_TIER::OneColour;

    template <class Rule>
    using Combine = std::conditional_t<std::is_same_v<Rule, OverRule>, OverRuns, PerRegister<Rule>>;
};

/// For processors without the finer bicubic weights.
struct CoarseKit : Kit {
    template <class Source>
    using Area = AreaOr<Source, lacquer::BicubicFetch<Source, WeightsQ8>>;
};

}  // namespace lacquer::LACQUER_TIER
