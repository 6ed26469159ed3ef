// Building the table, and the table of this process.

#include "pipeline/table/kernel_table.h"

#include "pipeline/table/base_table.h"
#include "pipeline/table/tiers.h"
#include "platform/cpuid.h"

namespace lacquer {

KernelTable BuildKernelTable(const CpuFeatures &features) {
    static constexpr KernelTable kBase = BaseTable<WeightsQ8>();
    KernelTable table = kBase;
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
