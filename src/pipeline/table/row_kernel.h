// A row kernel is a way of sampling and a combine rule, put together by the compiler; this is the one function that
// they all are instances of.
#pragma once

#include "pipeline/memory/draw_area.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

/// A RowKernel. `Sampling` has `Draw(dest, source, area, combine)` and `Pixels`, the kind of source pixel it reads.
template <class Sampling, class CombineRule, Extent extent>
int DrawByRow(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth, uint64_t fifth) {
    const CombineRule combine(static_cast<uint32_t>(third));
    DrawArea area = WholeArea(*dest);
    if constexpr (extent == Extent::Part) {
        const uint64_t size = CombineRule::kHasParameter ? fourth : third;
        const uint64_t offset = CombineRule::kHasParameter ? fifth : fourth;
        area = {{FirstOfPair(size), SecondOfPair(size)}, {FirstOfPair(offset), SecondOfPair(offset)}};
    }
    if (CanDraw(*dest, *source, Sampling::Pixels::kBitsPerPixel, area)) Sampling::Draw(*dest, *source, area, combine);
    return 1;
}

}  // namespace lacquer
