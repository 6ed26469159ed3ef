// The cubic weight tables: every bit of them, and the setting that picks them.

#include <gtest/gtest.h>

#include "pipeline/sample/bicubic.h"

namespace lacquer {
namespace {

/// FNV-1a of the weights, each as four bytes, lowest first.
uint32_t Digest(DWORD mode, WeightForm form) {
    uint32_t digest = 2166136261u;
    for (const int32_t entry : BuildStretchWeightTable(mode, form)) {
        const auto weight = static_cast<uint32_t>(form == WeightForm::Q8 ? entry : static_cast<int16_t>(entry));
        for (int shift = 0; shift < 32; shift += 8) digest = (digest ^ (weight >> shift & 255)) * 16777619u;
    }
    return digest;
}

/// Bicubic pictures depend on every bit of the tables. The digests come from a calculation outside this library that
/// rounds each operation to single precision.
TEST(WeightTables, EveryBit) {
    EXPECT_EQ(Digest(1, WeightForm::Q8), 0x7B8C4B55u);
    EXPECT_EQ(Digest(1, WeightForm::Q14), 0x72EF041Eu);
    for (const DWORD mode : {0u, 2u, 4u}) {
        EXPECT_EQ(Digest(mode, WeightForm::Q8), 0xBB16B618u) << mode;
        EXPECT_EQ(Digest(mode, WeightForm::Q14), 0xCAD6C769u) << mode;
    }
    // The faster tiers read a weight of 14 bits from either half of its entry.
    for (const int32_t entry : BuildStretchWeightTable(4, WeightForm::Q14)) EXPECT_EQ(entry >> 16, int16_t(entry));
}

TEST(WeightTables, TheSettingRebuildsOnlyWhenItChanges) {
    EXPECT_EQ(StretchWeightsMode(), 1u);
    const StretchWeightTable atLoad = CurrentStretchWeights(WeightForm::Q14);
    EXPECT_FALSE(RebuildStretchWeights(1));
    EXPECT_TRUE(RebuildStretchWeights(4));
    EXPECT_FALSE(RebuildStretchWeights(4));
    EXPECT_EQ(StretchWeightsMode(), 4u);
    EXPECT_EQ(CurrentStretchWeights(WeightForm::Q8), BuildStretchWeightTable(4, WeightForm::Q8));
    EXPECT_TRUE(RebuildStretchWeights(1));
    // What the compiler made for the load equals what the processor makes.
    EXPECT_EQ(CurrentStretchWeights(WeightForm::Q14), atLoad);
}

}  // namespace
}  // namespace lacquer
