// Painting parts of pixels: a row of cover bytes says how much of each pixel takes the new colour. The base forms are
// the definition; a faster tier gives the same bits.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>

#include "pipeline/table/cpu_features.h"

namespace lacquer {

/// The 256ths of a pixel that a cover of 0..255 stands for.
constexpr uint32_t WeightOf(BYTE cover) { return cover + (cover >> 7); }

/// Each channel becomes (d × (256 − wi − wb) + fill × wi + border × wb) >> 8, with the weights wi and wb of `inner` and
/// `outer`, which together are at most 255. `pixels` needs no alignment.
struct CoverKernels {
    /// With `fill` and `border` words for each pixel.
    void (*mix)(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner, const BYTE *outer,
                ptrdiff_t count);

    /// With premultiplied colours drawn over the pixel; 0 leaves it as it is.
    void (*over)(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer, ptrdiff_t count);

    /// The same with one colour and its cover.
    void (*overOne)(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count);

    /// The same with one cover for all pixels.
    void (*overEvenly)(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count);
};

/// The kernels for a processor. Depends on nothing else.
CoverKernels BuildCoverKernels(const CpuFeatures &features);

/// The kernels for this processor.
const CoverKernels &CoverKernelsInUse();

}  // namespace lacquer
