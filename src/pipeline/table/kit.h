// The base tier's parts, by the names of the lists of rows and single slots.
#pragma once

#include "pipeline/combine/rules.h"
#include "pipeline/combine/run.h"
#include "pipeline/fill/fill.h"
#include "pipeline/sample/area.h"
#include "pipeline/sample/bicubic.h"
#include "pipeline/sample/bilinear.h"
#include "pipeline/sample/nearest.h"
#include "pipeline/sample/same_size.h"

namespace lacquer {

struct BaseKit : BaseRules {
    template <class Source>
    using SameSize = lacquer::SameSize<Source>;
    template <class Source>
    using Nearest = Stretched<NearestFetch<Source>>;
    template <class Source>
    using Bilinear = Stretched<BilinearFetch<Source>>;
    template <class /*Source*/>
    using OneColour = lacquer::OneColour;

    template <class Rule>
    using Combine = PerPixel<Rule>;
};

/// What depends on the bicubic weights.
template <class Weights>
struct BaseRowKit : BaseKit {
    template <class Source>
    using Bicubic = Stretched<BicubicFetch<Source, Weights>>;
    template <class Source>
    using Area = Stretched<AreaFetch<Source>, BicubicFetch<Source, Weights>>;
};

}  // namespace lacquer
