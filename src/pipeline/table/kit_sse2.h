// The faster tiers' parts, by the names of the lists of rows and single slots.
#pragma once

#include "pipeline/combine/rules_sse2.h"
#include "pipeline/combine/run_sse2.h"
#include "pipeline/fill/fill_sse2.h"
#include "pipeline/sample/area_sse2.h"
#include "pipeline/sample/bicubic_sse2.h"
#include "pipeline/sample/bilinear_sse2.h"
#include "pipeline/sample/nearest_sse2.h"
#include "pipeline/sample/same_size_sse2.h"

namespace lacquer::sse2 {

template <class Source, class EnlargingFetch>
using AreaOr = Stretched<BlockFetch<Source>, FootprintFetch<Source>, AreaFetch<Source>, EnlargingFetch>;

struct Kit : Rules {
    template <class Source>
    using SameSize = lacquer::SameSize<Source, SourceRuns>;
    template <class Source>
    using Nearest = Stretched<NearestFetch<Source>>;
    template <class Source>
    using Bilinear = Stretched<PreparedBilinearFetch<Source>, DirectBilinearFetch<Source>>;
    template <class Source>
    using Bicubic = Stretched<BicubicFetch<Source>>;
    template <class Source>
    using Area = AreaOr<Source, BicubicFetch<Source>>;
    template <class /*Source*/>
    using OneColour = sse2::OneColour;

    template <class Rule>
    using Combine = PerFour<Rule>;
};

/// For processors without the finer bicubic weights.
struct CoarseKit : Kit {
    template <class Source>
    using Area = AreaOr<Source, lacquer::BicubicFetch<Source, WeightsQ8>>;
};

}  // namespace lacquer::sse2
