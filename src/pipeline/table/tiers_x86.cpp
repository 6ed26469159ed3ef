// Which entries the tiers of an x86 processor replace. Their code may use SSE2 whatever feature selects it.

#include "pipeline/table/base_table.h"
#include "pipeline/table/tier_avx2.h"
#include "pipeline/table/tier_simd.h"
#include "pipeline/table/tiers.h"

namespace lacquer {
namespace sse2 {
namespace {

/// The averages, too, as they enlarge with the finer bicubic weights.
constexpr void ApplyMmxTier(KernelTable &table) {
    SetRows<Kit, false>(table);
    SetSlots<Kit, kMmxTier>(table);
}

constexpr void ApplySseTier(KernelTable &table) {
    SetCopy(table);
    SetSlots<Kit, kSseTier>(table);
}

constexpr void ApplySse2Tier(KernelTable &table, WeightForm weights) {
    SetCopy(table);
    weights == WeightForm::Q14 ? SetRows<Kit, true>(table) : SetRows<CoarseKit, true>(table);
}

#if LACQUER_WIDE
constexpr KernelTable TableOfAllTiers() {
    KernelTable table = BaseTable<WeightsQ14>();
    ApplyMmxTier(table);
    ApplySseTier(table);
    ApplySse2Tier(table, WeightForm::Q14);
    return table;
}
#endif

}  // namespace
}  // namespace sse2

#if LACQUER_WIDE
constinit const KernelTable kSse2Kernels = sse2::TableOfAllTiers();
#endif

void ApplyTiers(KernelTable &table, const CpuFeatures &features) {
    if (features.mmx) sse2::ApplyMmxTier(table);
    if (features.sse) sse2::ApplySseTier(table);
    if (features.sse2) sse2::ApplySse2Tier(table, WeightFormOf(features));
    if constexpr (kHasAvx2Tier) {
        if (features.HasAllTiers()) avx2::ApplyTier(table);
    }
}

void ApplyTiers(ImageTable &table, const CpuFeatures &features) {
    if (features.sse2) sse2::SetImageKernels(table);
    if constexpr (kHasAvx2Tier) {
        if (features.HasAllTiers()) avx2::ApplyTier(table);
    }
}

}  // namespace lacquer
