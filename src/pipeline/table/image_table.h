// The second table: every pixel loop that has a faster form but combines nothing, that is copies of rows, turns and
// filters. Like the kernel table it is written once and read by any number of threads afterwards.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>

#include "pipeline/table/cpu_features.h"

namespace lacquer {

struct PixelWalk;

using CopyRowsKernel = void (*)(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows);
using TurnKernel = void (*)(const SurfaceView &dest, const PixelWalk &walk);
using BlurKernel = void (*)(const SurfaceView &dest, const SurfaceView &source);
using FilterKernel = void (*)(BYTE *words, ptrdiff_t count);

/// The kernels in one list: type, name, and what each tier's function is called. Fields, tiers and tests are made from
/// it. The base function's declaration tells what a kernel does.
#define LACQUER_IMAGE_KERNELS(KERNEL)                             \
    KERNEL(CopyRowsKernel, copyRows, CopyRows)                    \
    KERNEL(TurnKernel, turnBytes, TurnBytes)                      \
    KERNEL(TurnKernel, turnWords, TurnWords)                      \
    KERNEL(BlurKernel, boxBlur, BlurBoxes)                        \
    KERNEL(FilterKernel, makeGrey, FilterRun<GreyRule>)           \
    KERNEL(FilterKernel, premultiply, FilterRun<PremultiplyRule>) \
    KERNEL(FilterKernel, invert, FilterRun<InvertRule>)           \
    KERNEL(FilterKernel, colourToAlpha, FilterRun<ColourToAlphaRule>)

struct ImageTable {
#define LACQUER_IMAGE_FIELD(type, name, function) type name;
    LACQUER_IMAGE_KERNELS(LACQUER_IMAGE_FIELD)
#undef LACQUER_IMAGE_FIELD
};

/// The table for a processor. Depends on nothing else.
ImageTable BuildImageTable(const CpuFeatures &features);

/// The table for this processor.
const ImageTable &ImageKernels();

}  // namespace lacquer
