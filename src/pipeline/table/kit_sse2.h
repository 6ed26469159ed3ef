// The faster tiers' parts, by the names of the row list.
#pragma once

#include "pipeline/combine/rules_sse2.h"
#include "pipeline/pixel/source_pixels_sse2.h"
#include "pipeline/sample/area_sse2.h"
#include "pipeline/sample/bicubic_sse2.h"
#include "pipeline/sample/bilinear_sse2.h"
#include "pipeline/sample/nearest_sse2.h"
#include "pipeline/table/kit.h"

namespace lacquer {

#ifndef LACQUER_SSE2
template <class Source>
using VectorBilinearFetch = BilinearFetch<Source>;
template <class Source>
using VectorBicubicFetch = BicubicFetch<Source, WeightsQ14>;
template <class Source>
using VectorAreaFetch = AreaFetch<Source>;
#endif

/// The MMX tier. Its averages are the base tier's.
struct MmxKit {
    template <class Source>
    using SameSize = lacquer::SameSize<Source, FetchFour>;
    template <class Source>
    using Nearest = Stretched<VectorNearestFetch<Source>>;
    template <class Source>
    using Bilinear = Stretched<VectorBilinearFetch<Source>>;
    template <class Source>
    using Bicubic = Stretched<VectorBicubicFetch<Source>>;
    template <class Source>
    using Area = AreaOr<AreaFetch<Source>, VectorBicubicFetch<Source>>;

    using Copy = CopyCombine;
    using Over = PerVector<VectorOver>;
    using Behind = PerVector<VectorBehind>;
    using Modulate = PerVector<VectorModulate>;
    using ColorKey = PerVector<VectorColorKey>;
    using ConstAlpha = PerVector<VectorConstAlpha>;
};

/// What the SSE2 tier adds. `EnlargingFetch`: the bicubic sampler of the tiers below.
template <template <class> class EnlargingFetch>
struct Sse2Kit {
    template <class Source>
    using Area = AreaOr<VectorAreaFetch<Source>, EnlargingFetch<Source>>;
    using Copy = CopyCombine;
    using Over = PerVector<VectorOver>;
};

}  // namespace lacquer
