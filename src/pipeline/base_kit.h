// The base tier's parts, by the names of the row list.
#pragma once

#include "pipeline/area.h"
#include "pipeline/bicubic.h"
#include "pipeline/bilinear.h"
#include "pipeline/combine.h"
#include "pipeline/nearest.h"
#include "pipeline/same_size.h"

namespace lacquer {

struct BaseKit {
    template <class Source>
    using SameSize = lacquer::SameSize<Source>;
    template <class Source>
    using Nearest = Stretched<NearestFetch<Source>>;
    template <class Source>
    using Bilinear = Stretched<BilinearFetch<Source>>;
    template <class Source>
    using Bicubic = Stretched<BicubicFetch<Source, WeightsQ8>>;
    template <class Source>
    using Area = AreaOr<AreaFetch<Source>, BicubicFetch<Source, WeightsQ8>>;

    using Copy = CopyCombine;
    using Over = PerPixel<OverRule>;
    using Behind = PerPixel<BehindRule>;
    using Modulate = PerPixel<ModulateRule>;
    using ColorKey = PerPixel<ColorKeyRule>;
    using ConstAlpha = PerPixel<ConstAlphaRule>;
};

}  // namespace lacquer
