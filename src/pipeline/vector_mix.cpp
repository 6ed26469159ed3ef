// Cross-fades and mixes, four pixels at a time.

#include "pipeline/vector_mix.h"

#include "pipeline/mix_draw.h"
#include "pipeline/same_size.h"
#include "pipeline/vector_nearest.h"
#include "pipeline/vector_rules.h"

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
