// The single slots of the kernel table, in one list: name, kind of kernel, sampler, combine rule, and the tiers beyond
// the base one that have a form of their own. Fields, tiers and tests are made from it.
//
// The kinds: Fill takes a colour, Convert a source view; MixColor and Mix take a weight byte as well.
#pragma once

namespace lacquer {

/// Bits of the tiers column. The base tier has every slot.
inline constexpr unsigned kBaseOnly = 0, kMmxTier = 1, kSseTier = 2;

#define LACQUER_KERNEL_SLOTS(SLOT)                             \
    SLOT(fillCopy, Fill, OneColour, Copy, kMmxTier | kSseTier) \
    SLOT(fillOver, Fill, OneColour, Over, kMmxTier)            \
    SLOT(fillBehind, Fill, OneColour, Behind, kMmxTier)        \
    SLOT(fillModulate, Fill, OneColour, Modulate, kMmxTier)    \
    SLOT(fillOr, Fill, OneColour, Or, kMmxTier | kSseTier)     \
    SLOT(fillGreyTint, Fill, OneColour, GreyTint, kBaseOnly)   \
    SLOT(forceOpaque, Convert, SameSize, Opaque, kBaseOnly)    \
    SLOT(blendSame, Mix, SameSize, CrossFade, kSseTier)        \
    SLOT(stretchOpaque, Convert, Nearest, Opaque, kBaseOnly)   \
    SLOT(blendStretch, Mix, Nearest, CrossFade, kSseTier)      \
    SLOT(mixSame, Mix, SameSize, Mix, kMmxTier)                \
    SLOT(mixStretch, Mix, Nearest, Mix, kMmxTier)              \
    SLOT(mixColor, MixColor, OneColour, AddWeighted, kMmxTier)

}  // namespace lacquer
