// Building the table from the row list and a tier's kit, and the table of this process.

#include "pipeline/kernel_table.h"

#include <type_traits>

#include "pipeline/base_kit.h"
#include "pipeline/fill.h"
#include "pipeline/mix.h"
#include "pipeline/row_kernel.h"

namespace lacquer {
namespace {

int DrawNothing(const SurfaceView * /*dest*/, const SurfaceView * /*source*/, uint64_t /*third*/, uint64_t /*fourth*/,
                uint64_t /*fifth*/) {
    return 1;
}

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

template <class Kit>
KernelTable MakeTable() {
    return {
        .rows =
            {
#define LACQUER_MAKE_ROW(name, sampler, combine, extent) \
    MakeRow<Kit, Kit::template sampler, typename Kit::combine, Extent::extent>(),
                LACQUER_KERNEL_ROWS(LACQUER_MAKE_ROW)
#undef LACQUER_MAKE_ROW
            },
        .fillCopy = FillCopy,
        .fillOver = FillOver,
        .fillBehind = FillBehind,
        .fillModulate = FillModulate,
        .fillOr = FillOr,
        .fillGreyTint = FillGreyTint,
        .forceOpaque = ForceOpaque,
        .blendSame = BlendSame,
        .stretchOpaque = StretchOpaque,
        .blendStretch = BlendStretch,
        .mixSame = MixSame,
        .mixStretch = MixStretch,
        .mixColor = MixColor,
    };
}

const KernelTable processTable = BuildKernelTable(CachedCpuFeatures());

}  // namespace

KernelTable BuildKernelTable(const CpuFeatures &features) {
    return features.mmx ? MakeTable<BaseKit<WeightsQ14>>() : MakeTable<BaseKit<WeightsQ8>>();
}

const KernelTable &Kernels() { return processTable; }

int CallRow(const KernelTable &table, Row row, const SurfaceView *dest, const SurfaceView *source,
            const RowArguments &arguments) {
    const RowTraits &traits = TraitsOf(row);
    const KernelRow &kernels = table[row];
    const RowKernel kernel = kernels.slots[DepthSlot(source->bitsPerPixel)];
    uint64_t first = reinterpret_cast<uintptr_t>(&kernels), second = arguments.kernelMode;
    if (traits.extent == Extent::Part) {
        first = PackPair(arguments.fullSize.cx, arguments.fullSize.cy);
        second = PackPair(arguments.visibleOffset.x, arguments.visibleOffset.y);
    }
    if (traits.HasParameter()) return kernel(dest, source, arguments.parameter, first, second);
    return kernel(dest, source, first, second, 0);
}

}  // namespace lacquer
