// The faster tiers. Each replaces its own entries of a table; a later one wins where two replace the same. A build
// without tiers has none.
#pragma once

#include "pipeline/table/image_table.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

/// Sets the entries of the tiers that the processor has.
void ApplyTiers(KernelTable &table, const CpuFeatures &features);
void ApplyTiers(ImageTable &table, const CpuFeatures &features);

}  // namespace lacquer
