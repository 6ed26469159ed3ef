// What the cross-fades and mixes of all tiers share: a sampler and a rule put together on whole 32-bit views.
#pragma once

#include "pipeline/combine/rules.h"
#include "pipeline/memory/draw_area.h"

namespace lacquer {

/// Result: 1, whether or not the views could be drawn.
template <class Sampling, class CombineRule>
int DrawWhole(const SurfaceView *dest, const SurfaceView *source, const CombineRule &combine) {
    const DrawArea area = WholeArea(*dest);
    if (CanDraw(*dest, *source, 32, area)) Sampling::Draw(*dest, *source, area, combine);
    return 1;
}

/// Weight 0 does nothing, 255 copies.
template <class Sampling, class CombineRule>
int DrawMix(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    if (weight == 0) return 1;
    if (weight == 255) return DrawWhole<Sampling>(dest, source, CopyCombine(0));
    return DrawWhole<Sampling>(dest, source, CombineRule(weight));
}

}  // namespace lacquer
