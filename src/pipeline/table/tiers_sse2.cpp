// Which entries the tiers of an x86 processor replace. Their code may use SSE2 whatever feature selects it.

#include "pipeline/filter/box_blur_sse2.h"
#include "pipeline/filter/pixel_rules_sse2.h"
#include "pipeline/memory/copy_rows_sse2.h"
#include "pipeline/shape/cover_sse2.h"
#include "pipeline/shape/shadow_sse2.h"
#include "pipeline/table/kit_sse2.h"
#include "pipeline/table/make_kernels.h"
#include "pipeline/table/tiers.h"
#include "pipeline/transform/turn_sse2.h"

namespace lacquer {
namespace sse2 {
namespace {

/// The rows of which the tier has the rule; the averaging ones alone, or all.
template <class TierKit, bool kAveraging>
void SetRows(KernelTable &table) {
#define LACQUER_SET_ROW(name, sampler, combine, extent)                                                   \
    if constexpr (!kAveraging || SamplerKind::sampler == SamplerKind::Area) {                             \
        if constexpr (requires { typename TierKit::combine; })                                            \
            table[Row::name] =                                                                            \
                MakeRow<TierKit, TierKit::template sampler, typename TierKit::combine, Extent::extent>(); \
    }
    LACQUER_KERNEL_ROWS(LACQUER_SET_ROW)
#undef LACQUER_SET_ROW
}

template <class TierKit, unsigned kTier>
void SetSlots(KernelTable &table) {
#define LACQUER_SET_SLOT(name, kind, sampler, rule, tiers) \
    if constexpr ((kTier & (tiers)) != 0)                  \
        table.name = SlotKernels<TierKit, TierKit::template sampler, typename TierKit::rule>::kind;
    LACQUER_KERNEL_SLOTS(LACQUER_SET_SLOT)
#undef LACQUER_SET_SLOT
}

/// The copy of words, which two tiers have.
void SetCopy(KernelTable &table) {
    constexpr int kWords = DepthSlot(32);
    table[Row::CopyRow].slots[kWords] = MakeRow<Kit, Kit::SameSize, CopyRule, Extent::Whole>().slots[kWords];
}

/// The averages, too, as they enlarge with the finer bicubic weights.
void ApplyMmxTier(KernelTable &table) {
    SetRows<Kit, false>(table);
    SetSlots<Kit, kMmxTier>(table);
}

void ApplySseTier(KernelTable &table) {
    SetCopy(table);
    SetSlots<Kit, kSseTier>(table);
}

void ApplySse2Tier(KernelTable &table, WeightForm weights) {
    SetCopy(table);
    weights == WeightForm::Q14 ? SetRows<Kit, true>(table) : SetRows<CoarseKit, true>(table);
}

void ApplySse2Tier(ImageTable &table) {
#define LACQUER_SET_KERNEL(type, name, function) table.name = function;
    LACQUER_IMAGE_KERNELS(LACQUER_SET_KERNEL)
#undef LACQUER_SET_KERNEL
}

}  // namespace
}  // namespace sse2

void ApplyTiers(KernelTable &table, const CpuFeatures &features) {
    if (features.mmx) sse2::ApplyMmxTier(table);
    if (features.sse) sse2::ApplySseTier(table);
    if (features.sse2) sse2::ApplySse2Tier(table, WeightFormOf(features));
}

void ApplyTiers(ImageTable &table, const CpuFeatures &features) {
    if (features.sse2) sse2::ApplySse2Tier(table);
}

}  // namespace lacquer
