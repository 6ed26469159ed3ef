// The cubic weight tables against the cubics in double precision, and the setting that picks them.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "pipeline/sample/bicubic.h"
#include "pipeline/sample/stretch_weights.h"

namespace lacquer {
namespace {

/// The uniform cubic B-spline, piece by piece.
double BSpline(double x) { return x < 1 ? (4 - 6 * x * x + 3 * x * x * x) / 6 : std::pow(2 - x, 3) / 6; }

/// Cubic convolution with the free parameter −1.
double Convolution(double x) {
    const double a = -1;
    if (x < 1) return (a + 2) * x * x * x - (a + 3) * x * x + 1;
    return a * x * x * x - 5 * a * x * x + 8 * a * x - 4 * a;
}

/// A half is added and the sum cut towards zero: right for positive weights, up to one and a half units too near to
/// zero for negative ones. Single precision costs a little more.
bool IsRounded(int32_t entry, double exact) {
    const double error = entry - exact, slack = 0.01;
    return exact >= 0 ? std::abs(error) <= 0.5 + slack : error >= -slack && error <= 1.5 + slack;
}

int32_t Half(int32_t entry) { return static_cast<int16_t>(entry & 0xFFFF); }

class Weights : public testing::TestWithParam<DWORD> {};
INSTANTIATE_TEST_SUITE_P(Modes, Weights, testing::Values(0u, 1u, 2u, 4u, 0xFFFFFFFFu));

TEST_P(Weights, AreTheCubicRounded) {
    const auto cubic = GetParam() == 1 ? BSpline : Convolution;
    const StretchWeightTable q8 = BuildStretchWeightTable(GetParam(), WeightForm::Q8);
    const StretchWeightTable q14 = BuildStretchWeightTable(GetParam(), WeightForm::Q14);
    for (std::size_t i = 0; i < 512; ++i) {
        const double weight = cubic(static_cast<double>(i) / 256);
        EXPECT_TRUE(IsRounded(q8[i], weight * 256)) << i << ": " << q8[i] << " for " << weight * 256;
        EXPECT_TRUE(IsRounded(Half(q14[i]), weight * 16384)) << i << ": " << Half(q14[i]) << " for " << weight * 16384;
        EXPECT_EQ(static_cast<uint32_t>(q14[i]) >> 16, static_cast<uint32_t>(q14[i]) & 0xFFFF) << i;
    }
    EXPECT_EQ(q8[512], 0);
    EXPECT_EQ(q14[512], 0);
}

/// How far the samples of an even area are from its value, over all positions and values.
template <class Form>
std::pair<int, int> DeviationOfEvenAreas(DWORD mode) {
    const StretchWeightTable table = BuildStretchWeightTable(mode, Form::kForm);
    const auto weights = [&](std::size_t f) {
        std::array<int32_t, 4> four{table[256 + f], table[f], table[256 - f], table[512 - f]};
        for (int32_t &weight : four) weight = Form::Unpack(weight);
        return four;
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

TEST(WeightTables, KnownEntries) {
    EXPECT_EQ(BuildStretchWeightTable(1, WeightForm::Q8)[0], 171);
    EXPECT_EQ(BuildStretchWeightTable(1, WeightForm::Q14)[0], 0x2AAB2AAB);
    EXPECT_EQ(BuildStretchWeightTable(1, WeightForm::Q8)[256], 43);
    for (const DWORD mode : {0u, 4u}) {
        const StretchWeightTable q8 = BuildStretchWeightTable(mode, WeightForm::Q8);
        EXPECT_EQ(q8[0], 256);
        EXPECT_EQ(BuildStretchWeightTable(mode, WeightForm::Q14)[0], 0x40004000);
        EXPECT_EQ(q8[128], 160);  // 1/8 − 1/2 + 1 = 5/8
        EXPECT_EQ(q8[384], -31);  // −1/8 is −32; a half less, cut towards zero
        for (std::size_t i = 256; i <= 512; ++i) EXPECT_LE(q8[i], 0) << mode << ", " << i;
    }
}

/// FNV-1a of the weights, each as four bytes, lowest first.
uint32_t Digest(const StretchWeightTable &table, WeightForm form) {
    uint32_t digest = 2166136261u;
    for (const int32_t entry : table) {
        const uint32_t weight = static_cast<uint32_t>(form == WeightForm::Q8 ? entry : Half(entry));
        for (int shift = 0; shift < 32; shift += 8) digest = (digest ^ (weight >> shift & 255)) * 16777619u;
    }
    return digest;
}

/// Bicubic pictures depend on every bit of the tables. The digests come from a calculation outside this library that
/// rounds each operation to single precision.
TEST(WeightTables, EveryBit) {
    const auto digest = [](DWORD mode, WeightForm form) { return Digest(BuildStretchWeightTable(mode, form), form); };
    EXPECT_EQ(digest(1, WeightForm::Q8), 0x7B8C4B55u);
    EXPECT_EQ(digest(1, WeightForm::Q14), 0x72EF041Eu);
    for (const DWORD mode : {0u, 2u, 4u}) {
        EXPECT_EQ(digest(mode, WeightForm::Q8), 0xBB16B618u) << mode;
        EXPECT_EQ(digest(mode, WeightForm::Q14), 0xCAD6C769u) << mode;
    }
}

TEST(WeightTables, TheSettingRebuildsOnlyWhenItChanges) {
    EXPECT_EQ(StretchWeightsMode(), 1u);
    const StretchWeightTable atLoad = CurrentStretchWeights(WeightForm::Q14);
    EXPECT_FALSE(RebuildStretchWeights(1));
    EXPECT_TRUE(RebuildStretchWeights(4));
    EXPECT_FALSE(RebuildStretchWeights(4));
    EXPECT_EQ(StretchWeightsMode(), 4u);
    EXPECT_EQ(CurrentStretchWeights(WeightForm::Q8), BuildStretchWeightTable(4, WeightForm::Q8));
    EXPECT_TRUE(RebuildStretchWeights(0));
    EXPECT_EQ(CurrentStretchWeights(WeightForm::Q14)[0], 0x40004000);
    EXPECT_TRUE(RebuildStretchWeights(1));
    // What the compiler made for the load equals what the processor makes.
    EXPECT_EQ(CurrentStretchWeights(WeightForm::Q14), atLoad);
}

TEST(WeightTables, ClampsCoverEveryIntermediateValue) {
    for (int value = -256; value < 512; ++value) {
        EXPECT_EQ(ByteClamps()[static_cast<std::size_t>(value + 256)], std::min(std::max(value, 0), 255));
    }
}

}  // namespace
}  // namespace lacquer
