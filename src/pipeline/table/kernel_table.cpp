// Building the table: the base tier from the two lists, the faster tiers over it; and the table of this process.

#include "pipeline/table/kernel_table.h"

#include "pipeline/table/kit.h"
#include "pipeline/table/make_kernels.h"
#include "pipeline/table/tiers.h"
#include "platform/cpuid.h"

namespace lacquer {
namespace {

template <class Kit>
constexpr KernelTable kBaseTable = {.rows =
                                        {
#define LACQUER_BASE_ROW(name, sampler, combine, extent) \
    MakeRow<Kit, Kit::template sampler, typename Kit::combine, Extent::extent>(),
                                            LACQUER_KERNEL_ROWS(LACQUER_BASE_ROW)
#undef LACQUER_BASE_ROW
                                        },
#define LACQUER_BASE_SLOT(name, kind, sampler, rule, tiers) \
    .name = SlotKernels<BaseKit, BaseKit::sampler, BaseKit::rule>::kind,
                                    LACQUER_KERNEL_SLOTS(LACQUER_BASE_SLOT)
#undef LACQUER_BASE_SLOT
};

}  // namespace

KernelTable BaseKernels(WeightForm weights) {
    return weights == WeightForm::Q14 ? kBaseTable<BaseRowKit<WeightsQ14>> : kBaseTable<BaseRowKit<WeightsQ8>>;
}

KernelTable BuildKernelTable(const CpuFeatures &features) {
    KernelTable table = BaseKernels(WeightFormOf(features));
    ApplyTiers(table, features);
    return table;
}

WeightForm WeightFormOf(const CpuFeatures &features) {
    return features.mmx || !kIsX86 ? WeightForm::Q14 : WeightForm::Q8;
}

int DrawNothing(const SurfaceView * /*dest*/, const SurfaceView * /*source*/, uint64_t /*third*/, uint64_t /*fourth*/,
                uint64_t /*fifth*/) {
    return 1;
}

const KernelTable &Kernels() {
    static const KernelTable table = BuildKernelTable(CachedCpuFeatures());
    return table;
}

}  // namespace lacquer
