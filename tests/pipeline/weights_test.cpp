// The cubic weight tables: every bit of them, what they do to even areas, and the setting that picks them.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "pipeline/sample/bicubic.h"

namespace lacquer {
namespace {

/// How far the samples of an even area are from its value, over all positions and values.
template <class Form>
std::pair<int, int> DeviationOfEvenAreas(DWORD mode) {
    const StretchWeightTable table = BuildStretchWeightTable(mode, Form::kForm);
    const auto weights = [&](std::size_t f) {
        return std::array{Form::Unpack(table[256 + f]), Form::Unpack(table[f]), Form::Unpack(table[256 - f]),
                          Form::Unpack(table[512 - f])};
    };
    std::pair<int, int> range{0, 0};
    for (std::size_t fx = 0; fx < 256; ++fx) {
        const auto across = weights(fx);
        const int32_t sumAcross = std::accumulate(across.begin(), across.end(), 0);
        for (std::size_t fy = 0; fy < 256; ++fy) {
            const auto down = weights(fy);
            for (int value = 0; value < 256; ++value) {
                int32_t sum = 0;
                for (const int32_t weight : down) sum += Form::FinishRow(value * sumAcross) * weight;
                const int error = static_cast<int>(Form::FinishChannel(sum, ByteClamps().data() + 256)) - value;
                range = {std::min(range.first, error), std::max(range.second, error)};
            }
        }
    }
    return range;
}

TEST(WeightTables, EvenAreasKeepTheirValue) {
    for (const DWORD mode : {0u, 1u, 4u}) EXPECT_EQ(DeviationOfEvenAreas<WeightsQ14>(mode), std::pair(0, 0)) << mode;
    EXPECT_EQ(DeviationOfEvenAreas<WeightsQ8>(1), std::pair(-2, 1));
    for (const DWORD mode : {0u, 4u}) EXPECT_EQ(DeviationOfEvenAreas<WeightsQ8>(mode), std::pair(0, 3)) << mode;
}

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
/// rounds each operation to single precision. Some entries can be read: those at the distances 0, 1/2, 1 and 3/2.
TEST(WeightTables, EveryBit) {
    EXPECT_EQ(Digest(1, WeightForm::Q8), 0x7B8C4B55u);
    EXPECT_EQ(Digest(1, WeightForm::Q14), 0x72EF041Eu);
    const StretchWeightTable spline = BuildStretchWeightTable(1, WeightForm::Q8);
    EXPECT_EQ(spline[0], 171);   // 2/3
    EXPECT_EQ(spline[256], 43);  // 1/6
    for (const DWORD mode : {0u, 2u, 4u}) {
        EXPECT_EQ(Digest(mode, WeightForm::Q8), 0xBB16B618u) << mode;
        EXPECT_EQ(Digest(mode, WeightForm::Q14), 0xCAD6C769u) << mode;
        const StretchWeightTable convolution = BuildStretchWeightTable(mode, WeightForm::Q8);
        EXPECT_EQ(convolution[0], 256);
        EXPECT_EQ(convolution[128], 160);  // 5/8
        EXPECT_EQ(convolution[384], -31);  // −1/8 is −32; a half more, cut towards zero
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
