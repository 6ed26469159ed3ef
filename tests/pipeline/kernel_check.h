// All kernels of the table in one list, and a draw of one of them compared with the model, pixel by pixel.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "model.h"
#include "pipeline/rules.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

#if LACQUER_TIERS
inline constexpr bool kHasTiers = true;
#else
inline constexpr bool kHasTiers = false;
#endif

/// A row's kernel for a depth, or a single slot's.
struct Kernel {
    const char *name;
    std::optional<Row> row;
    int depth;  ///< of the source
    SamplerKind sampler;
    CombineKind combine;
    Extent extent;
    bool takesColour;  ///< a fill: its colour is the source's first pixel
    /// The argument word of the rule is `arguments.parameter`.
    std::function<int(const KernelTable &, const SurfaceView *dest, const SurfaceView *source, const RowArguments &)>
        call;
    std::function<void (*(const KernelTable &))()> address;

    bool IsSameSize() const { return sampler == SamplerKind::SameSize; }
};

const std::vector<Kernel> &AllKernels();

inline constexpr int kDepths[] = {8, 24, 32};

/// The base tier.
const KernelTable &BaseKernels(WeightForm form);

/// A table and what its processor means for the results.
struct TableUnderTest {
    const char *name;
    KernelTable table;
    WeightForm form;
    int below;  ///< which table's kernels it replaces; -1 for the first

    /// Whether it has a kernel of its own; what it takes from below is tested there.
    bool Replaces(const Kernel &kernel) const;

    /// What a kernel's sums do: those of a base kernel carry, the others saturate.
    Overflow OverflowOf(const Kernel &kernel) const;
};

/// The base tables of both weight forms, and those of processors with SSE2 alone, with MMX, SSE on top, SSE2 on top,
/// and AVX2 on top where this build and this processor have it.
const std::vector<TableUnderTest> &TablesUnderTest();

/// What a draw must do.
struct Expected {
    SamplerKind sampler;
    CombineKind combine;
    WeightForm form;
    Overflow overflow;
    SIZE fullSize;
    POINT visibleOffset;
    uint32_t parameter;
    bool takesColour = false;
};

/// Success when `draw(dest, source)` gives 1 and the model's pixels, and leaves the bytes around them alone. `dest`
/// keeps the result.
testing::AssertionResult DrawsAs(const Expected &expected, TestImage &dest, const TestImage &source,
                                 const std::function<int(const SurfaceView *, const SurfaceView *)> &draw);

/// The same for a kernel. For whole draws the full size is the destination's.
testing::AssertionResult DrawsAsModel(const TableUnderTest &table, const Kernel &kernel, TestImage &dest,
                                      const TestImage &source, const RowArguments &arguments);

/// The random numbers of a test case; with --gtest_random_seed=N case N runs first.
Random CaseRandom(int number);

/// A source of random pixels, row padding and alignment; half of the 8-bit sources have a palette that is too short, or
/// none.
TestImage RandomSource(Random &random, int width, int height, int bitsPerPixel, bool premultiplied = true);

/// A parameter for a kernel's rule.
uint32_t RandomParameter(Random &random, CombineKind combine, const TestImage &source);

/// An image to draw into, every other one with rows at lines of the cache.
TestImage RandomGround(Random &random, int width, int height, int bitsPerPixel = 32);

/// From now on images of any size may take any of the ways through memory that large ones take.
void SetAnyLimits(Random &random);

/// How many times shorter the largest loops are: 1, but under a sanitizer or an emulator.
inline constexpr int kSlice = LACQUER_TEST_SLICE;

}  // namespace lacquer
