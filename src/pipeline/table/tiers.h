// The faster tiers. Each replaces its own entries of a table; a later one wins where two replace the same.
#pragma once

#include "pipeline/table/kernel_table.h"

namespace lacquer {

/// All rows, and the fills and mixes that have a faster form. Of the averaging rows only the enlarging draws change:
/// they have the finer bicubic weights.
void ApplyMmxTier(KernelTable &table);

/// The 32-bit copy, plain and OR fills, cross-fades.
void ApplySseTier(KernelTable &table);

/// The 32-bit copy again, and the averaging rows; `hasMmx` tells which bicubic sampler these enlarge with.
void ApplySse2Tier(KernelTable &table, bool hasMmx);

}  // namespace lacquer
