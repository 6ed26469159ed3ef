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

/// The table of the other tiers, of which narrow draws have more.
extern const KernelTable kSse2Kernels;

namespace avx2 {

/// Replaces what the other tiers have a form of, where registers of 32 bytes are faster.
void ApplyTier(KernelTable &table);
void ApplyTier(ImageTable &table);

}  // namespace avx2
}  // namespace lacquer
