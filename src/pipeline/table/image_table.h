// The second table: every loop that has a faster form but is no row or slot of the kernel table, that is copies of
// rows, turns, filters and what shapes are painted with. Like the kernel table it is written once and read by any
// number of threads afterwards.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>

#include "pipeline/table/cpu_features.h"

namespace lacquer {

struct PixelWalk;

using CopyRowsKernel = void (*)(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows);
using TurnKernel = void (*)(const SurfaceView &dest, const PixelWalk &walk);
using BlurKernel = void (*)(const SurfaceView &dest, const SurfaceView &source);
using WidenKernel = void (*)(float *floats, const BYTE *bytes, ptrdiff_t count);
using SumTapsKernel = void (*)(BYTE *out, const float *const *taps, ptrdiff_t count);
using FilterKernel = void (*)(BYTE *words, ptrdiff_t count);
using MixPartsKernel = void (*)(BYTE *pixels, const DWORD *fill, const DWORD *border, const BYTE *inner,
                                const BYTE *outer, ptrdiff_t count);
using DrawPartsKernel = void (*)(BYTE *pixels, DWORD fill, DWORD border, const BYTE *inner, const BYTE *outer,
                                 ptrdiff_t count);
using DrawCoveredKernel = void (*)(BYTE *pixels, DWORD colour, const BYTE *cover, ptrdiff_t count);
using DrawEvenlyKernel = void (*)(BYTE *pixels, DWORD colour, BYTE cover, ptrdiff_t count);
using AddLinesKernel = void (*)(int32_t *sums, const int16_t *lines, const int16_t *weights, int count, int from,
                                int to);
using CoverSharesKernel = void (*)(const int32_t *shares, int count, bool ofRest, BYTE *out);

/// The kernels in one list: type, name, and what each tier's function is called. Fields, tiers and tests are made from
/// it. The base function's declaration tells what a kernel does.
#define LACQUER_IMAGE_KERNELS(KERNEL)                                 \
    KERNEL(CopyRowsKernel, copyRows, CopyRows)                        \
    KERNEL(TurnKernel, turnBytes, TurnBytes)                          \
    KERNEL(TurnKernel, turnWords, TurnWords)                          \
    KERNEL(BlurKernel, boxBlur, BlurBoxes)                            \
    KERNEL(WidenKernel, widenBytes, WidenBytes)                       \
    KERNEL(SumTapsKernel, sumTaps, SumTaps)                           \
    KERNEL(FilterKernel, makeGrey, FilterRun<GreyRule>)               \
    KERNEL(FilterKernel, premultiply, FilterRun<PremultiplyRule>)     \
    KERNEL(FilterKernel, invert, FilterRun<InvertRule>)               \
    KERNEL(FilterKernel, colourToAlpha, FilterRun<ColourToAlphaRule>) \
    KERNEL(MixPartsKernel, mixParts, MixParts)                        \
    KERNEL(DrawPartsKernel, drawParts, DrawParts)                     \
    KERNEL(DrawCoveredKernel, drawCovered, DrawCovered)               \
    KERNEL(DrawEvenlyKernel, drawEvenly, DrawEvenly)                  \
    KERNEL(AddLinesKernel, addLines, AddLines)                        \
    KERNEL(CoverSharesKernel, coverShares, CoverShares)

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
