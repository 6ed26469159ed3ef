// A build without faster tiers: the processor decides about the bicubic weights alone.

#include "pipeline/table/base_table.h"
#include "pipeline/table/tiers.h"

namespace lacquer {

void ApplyTiers(KernelTable &table, const CpuFeatures &features) {
    static constexpr KernelTable kFine = BaseTable<WeightsQ14>();
    if (WeightFormOf(features) == WeightForm::Q14) table = kFine;
}

void ApplyTiers(ImageTable & /*table*/, const CpuFeatures & /*features*/) {}

}  // namespace lacquer
