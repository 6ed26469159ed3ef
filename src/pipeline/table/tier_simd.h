// Putting a faster tier's kernels into the tables.
#pragma once

#include "pipeline/filter/box_blur_simd.h"
#include "pipeline/filter/gaussian_simd.h"
#include "pipeline/filter/pixel_rules_simd.h"
#include "pipeline/memory/copy_rows_simd.h"
#include "pipeline/shape/cover_simd.h"
#include "pipeline/shape/shadow_simd.h"
#include "pipeline/table/image_table.h"
#include "pipeline/table/kernel_slots.h"
#include "pipeline/table/kit_simd.h"
#include "pipeline/table/make_kernels.h"
#include "pipeline/transform/turn_simd.h"

namespace lacquer::LACQUER_TIER {

/// The rows of which the tier has the rule; the averaging ones alone, or all.
template <class TierKit, bool kAveraging>
constexpr void SetRows(KernelTable &table) {
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
constexpr void SetSlots(KernelTable &table) {
#define LACQUER_SET_SLOT(name, kind, sampler, rule, tiers) \
    if constexpr ((kTier & (tiers)) != 0)                  \
        table.name = SlotKernels<TierKit, TierKit::template sampler, typename TierKit::rule>::kind;
    LACQUER_KERNEL_SLOTS(LACQUER_SET_SLOT)
#undef LACQUER_SET_SLOT
}

/// The copy of words, which two tiers have.
constexpr void SetCopy(KernelTable &table) {
    constexpr int kWords = DepthSlot(32);
    table[Row::CopyRow].slots[kWords] = MakeRow<Kit, Kit::SameSize, CopyRule, Extent::Whole>().slots[kWords];
}

inline void SetImageKernels(ImageTable &table) {
#define LACQUER_SET_KERNEL(type, name, function) table.name = function;
    LACQUER_IMAGE_KERNELS(LACQUER_SET_KERNEL)
#undef LACQUER_SET_KERNEL
}

}  // namespace lacquer::LACQUER_TIER
