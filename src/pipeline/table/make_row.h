// Instantiating a row's kernels from the parts of a tier's kit.
#pragma once

#include <type_traits>

#include "pipeline/pixel/source_pixels.h"
#include "pipeline/table/row_kernel.h"

namespace lacquer {

/// The kernel of every row's reserved slot.
int DrawNothing(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth, uint64_t fifth);

/// An opaque source drawn over a destination is a copy, so both have one kernel.
template <class Kit, class Source, class CombineRule>
using CombineFor = std::conditional_t<Source::kIsOpaque && std::is_same_v<CombineRule, typename Kit::Over>,
                                      typename Kit::Copy, CombineRule>;

template <class Kit, template <class> class Sampling, class CombineRule, Extent extent>
constexpr KernelRow MakeRow() {
    return {{DrawByRow<Sampling<IndexedPixels>, CombineFor<Kit, IndexedPixels, CombineRule>, extent>,
             DrawByRow<Sampling<PackedPixels>, CombineFor<Kit, PackedPixels, CombineRule>, extent>,
             DrawByRow<Sampling<WordPixels>, CombineFor<Kit, WordPixels, CombineRule>, extent>, DrawNothing}};
}

}  // namespace lacquer
