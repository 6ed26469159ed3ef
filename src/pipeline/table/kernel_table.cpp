// Building the table: the base tier from the row list, the faster tiers over it; and the table of this process.

#include "pipeline/table/kernel_table.h"

#include "pipeline/fill_mix/fill.h"
#include "pipeline/fill_mix/mix.h"
#include "pipeline/table/kit.h"
#include "pipeline/table/make_row.h"
#include "pipeline/table/tiers.h"

namespace lacquer {
namespace {

KernelTable MakeBaseTable() {
    return {
        .rows =
            {
#define LACQUER_MAKE_ROW(name, sampler, combine, extent) \
    MakeRow<BaseKit, BaseKit::sampler, BaseKit::combine, Extent::extent>(),
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
    KernelTable table = MakeBaseTable();
    if (features.mmx) ApplyMmxTier(table);
    if (features.sse) ApplySseTier(table);
    if (features.sse2) ApplySse2Tier(table, features.mmx);
    return table;
}

int DrawNothing(const SurfaceView * /*dest*/, const SurfaceView * /*source*/, uint64_t /*third*/, uint64_t /*fourth*/,
                uint64_t /*fifth*/) {
    return 1;
}

const KernelTable &Kernels() { return processTable; }

}  // namespace lacquer
