// The base tier's parts, by the names of the row list.
#pragma once

#include "pipeline/combine/rules.h"
#include "pipeline/sample/area.h"
#include "pipeline/sample/bicubic.h"
#include "pipeline/sample/bilinear.h"
#include "pipeline/sample/nearest.h"
#include "pipeline/sample/same_size.h"

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
