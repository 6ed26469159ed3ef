// Cross-fades and mixes, four pixels at a time.

#include "pipeline/fill_mix/mix_sse2.h"

#include "pipeline/combine/rules_sse2.h"
#include "pipeline/fill_mix/mix_draw.h"
#include "pipeline/sample/nearest_sse2.h"
#include "pipeline/sample/same_size.h"

namespace lacquer {
namespace {

using OneToOne = SameSize<WordPixels>;
using NearestStretch = Stretched<VectorNearestFetch<WordPixels>>;

}  // namespace

int VectorBlendSame(const SurfaceView *dest, const SurfaceView *source, BYTE alpha) {
    return DrawWhole<OneToOne>(dest, source, PerVector<VectorCrossFade>(alpha));
}

int VectorBlendStretch(const SurfaceView *dest, const SurfaceView *source, BYTE alpha) {
    return DrawWhole<NearestStretch>(dest, source, PerVector<VectorCrossFade>(alpha));
}

int VectorMixSame(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return DrawMix<OneToOne, PerVector<VectorMix>>(dest, source, weight);
}

int VectorMixStretch(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return DrawMix<NearestStretch, PerVector<VectorMix>>(dest, source, weight);
}

}  // namespace lacquer
