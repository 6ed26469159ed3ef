// A build without faster tiers: the base tier is the table.

#include "pipeline/table/tiers.h"

namespace lacquer {

void ApplyTiers(KernelTable & /*table*/, const CpuFeatures & /*features*/) {}
void ApplyTiers(ImageTable & /*table*/, const CpuFeatures & /*features*/) {}

}  // namespace lacquer
