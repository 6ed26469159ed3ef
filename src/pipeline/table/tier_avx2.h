// The tier of processors with registers of 32 bytes, for builds with LACQUER_WIDE. It goes on top of all others.
#pragma once

#include "pipeline/table/image_table.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

#if LACQUER_WIDE
inline constexpr bool kHasAvx2Tier = true;
#else
inline constexpr bool kHasAvx2Tier = false;
#endif

namespace avx2 {

/// Replaces every entry that the other tiers have a form of.
void ApplyTier(KernelTable &table);
void ApplyTier(ImageTable &table);

}  // namespace avx2
}  // namespace lacquer
