// The samplers against the model over random geometry, and the known values of each.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "pipeline/sample/stretch.h"
#include "platform/cpuid.h"
#include "row_check.h"

namespace lacquer {
namespace {

constexpr int kLongest = 32767;

/// A length of a kind that matters: single pixels, a few, a block of columns and around it, many, the longest.
int RandomLength(Random &random, int longest) {
    const int kinds[] = {1,
                         2,
                         Between(random, 3, 20),
                         Between(random, 21, kBlockColumns - 1),
                         Between(random, kBlockColumns - 1, kBlockColumns + 2),
                         Between(random, kBlockColumns + 3, 1500),
                         kLongest};
    return std::min(kinds[Between(random, 0, 6)], longest);
}

/// A size with at most `pixels` pixels, either direction being the longer one.
SIZE RandomSize(Random &random, int pixels) {
    const int first = RandomLength(random, std::min(pixels, kLongest));
    const int second = RandomLength(random, std::max(1, pixels / first));
    return random() % 2 ? SIZE{first, second} : SIZE{second, first};
}

RowArguments RandomArguments(Random &random, const RowTraits &traits, const TestImage &source) {
    RowArguments arguments;
    if (traits.combine == CombineKind::ConstAlpha) arguments.parameter = static_cast<DWORD>(Between(random, 1, 254));
    if (traits.combine == CombineKind::ColorKey) {
        arguments.parameter =
            source.At(Between(random, 0, source.width() - 1), Between(random, 0, source.height() - 1));
    }
    return arguments;
}

/// A window of `shown` pixels in a larger length, at its beginning, its end or anywhere.
int RandomOffset(Random &random, int full, int shown) {
    const int kinds[] = {0, full - shown, Between(random, 0, full - shown)};
    return kinds[Between(random, 0, 2)];
}

class Sampling : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Rows, Sampling, testing::Range(0, kRowCount),
                         [](const auto &test) { return kRowTraits[static_cast<std::size_t>(test.param)].name; });

TEST_P(Sampling, MatchesTheModelForRandomGeometry) {
    const Row row = static_cast<Row>(GetParam());
    const RowTraits &traits = TraitsOf(row);
    const bool area = traits.sampler == SamplerKind::Area;
    for (int number = 0; number < 90 / kSlice; ++number) {
        Random random = CaseRandom(number);
        const int depth = kDepths[Between(random, 0, 2)];
        SIZE size = RandomSize(random, 70000), shown = RandomSize(random, 2500);
        if (traits.sampler == SamplerKind::SameSize) size = shown;
        // Two thirds of the area draws reduce, one of them by whole ratios; the others must be bicubic.
        const auto areaKind = area ? random() % 3 : 0;
        if (areaKind == 1) shown = {std::min(size.cx, shown.cx), std::min(size.cy, shown.cy)};
        if (areaKind == 2) {
            const SIZE ratio = {Between(random, 1, 17), Between(random, 1, 17)};
            shown = {std::max<LONG>(1, size.cx / ratio.cx), std::max<LONG>(1, size.cy / ratio.cy)};
            size = {shown.cx * ratio.cx, shown.cy * ratio.cy};
        }
        const TestImage source = RandomSource(random, size.cx, size.cy, depth, true);
        TestImage dest(shown.cx, shown.cy, 32, Between(random, 0, 9), Between(random, 0, 3));
        RowArguments arguments = RandomArguments(random, traits, source);
        if (traits.extent == Extent::Part) {
            // Up to the whole range of sizes: a window of a draw that nobody could hold.
            const auto enlarge = [&](int length) {
                const int kinds[] = {length, length + Between(random, 0, 3 * length),
                                     Between(random, length, INT32_MAX), INT32_MAX};
                return kinds[Between(random, 0, area ? 1 : 3)];
            };
            arguments.fullSize = {enlarge(shown.cx), enlarge(shown.cy)};
            arguments.visibleOffset = {RandomOffset(random, arguments.fullSize.cx, shown.cx),
                                       RandomOffset(random, arguments.fullSize.cy, shown.cy)};
        }
        for (const TableUnderTest &table : TablesUnderTest()) {
            if (!table.Replaces(row, depth)) continue;
            dest.Fill(random);
            ASSERT_TRUE(DrawsAsModel(table, row, dest, source, arguments))
                << "replay with --gtest_random_seed=" << CaseNumber(number);
        }
    }
}

TEST_P(Sampling, MatchesTheModelWithTheOtherCubic) {
    const Row row = static_cast<Row>(GetParam());
    if (TraitsOf(row).sampler != SamplerKind::Bicubic && TraitsOf(row).sampler != SamplerKind::Area) return;
    ASSERT_TRUE(RebuildStretchWeights(4));
    for (int number = 0; number < 30; ++number) {
        Random random = CaseRandom(number);
        const TestImage source =
            RandomSource(random, Between(random, 1, 12), Between(random, 1, 12), kDepths[Between(random, 0, 2)], true);
        TestImage dest(Between(random, 12, 30), Between(random, 12, 30));
        RowArguments arguments = RandomArguments(random, TraitsOf(row), source);
        arguments.fullSize = {dest.width() + 5, dest.height() + 6};
        arguments.visibleOffset = {2, 3};
        for (const TableUnderTest &table : TablesUnderTest()) {
            // The a = −1 cubic overshoots, which can lift colours above alphas; sums that exceed 255 then differ by
            // tier.
            dest.FillWith(0);
            EXPECT_TRUE(DrawsAsModel(table, row, dest, source, arguments))
                << "replay with --gtest_random_seed=" << CaseNumber(number);
        }
    }
    ASSERT_TRUE(RebuildStretchWeights(1));
}

/// Every channel is less than 1 from the exact sum, before it is cut to 0..255.
TEST(Bicubic, StaysWithinOneOfTheExactSum) {
    Random random = CaseRandom(0);
    TestImage source(40, 40), dest(150, 150);
    for (const DWORD mode : {1u, 0u, 4u}) {
        RebuildStretchWeights(mode);
        for (const TableUnderTest &table : TablesUnderTest()) {
            const double scale = table.form == WeightForm::Q8 ? 65536.0 : 268435456.0;
            source.Fill(random, false);
            for (int i = 0; i < 200; ++i)
                source.Set(Between(random, 0, 39), Between(random, 0, 39), random() % 2 ? 0xFFFFFFFF : 0);
            const SurfaceView destView = dest.View(), sourceView = source.View();
            CallRow(table.table, Row::BicubicCopyRow, &destView, &sourceView, {});
            for (int y = 0; y < dest.height(); ++y) {
                for (int x = 0; x < dest.width(); ++x) {
                    for (int channel = 0; channel < 4; ++channel) {
                        const double exact =
                            static_cast<double>(ExactBicubicSum(source, {150, 150}, x, y, table.form, channel)) / scale;
                        const double got = ChannelOf(dest.At(x, y), channel);
                        ASSERT_LT(std::abs(got - std::fmin(std::fmax(exact, 0.0), 255.0)), 1.0)
                            << "(" << x << ", " << y << ") channel " << channel << ", mode " << mode;
                    }
                }
            }
        }
    }
    RebuildStretchWeights(1);
}

/// MMX alone decides about the weights, whatever else the processor has.
TEST(Bicubic, WeightFormFollowsTheProcessor) {
    Random random = CaseRandom(0);
    TestImage source(9, 9), dest(40, 40);
    source.Fill(random);
    for (unsigned bits = 0; bits < 8; ++bits) {
        const bool mmx = (bits & 1) != 0;
        const CpuFeatures features = {.detected = true, .mmx = mmx, .sse = (bits & 2) != 0, .sse2 = (bits & 4) != 0};
        const TableUnderTest table = {"mixed", BuildKernelTable(features), WeightFormOf(features), nullptr};
        EXPECT_EQ(table.form == WeightForm::Q14, mmx || !kIsX86);
        for (const Row row : {Row::BicubicCopyRow, Row::AreaCopyRow}) {
            EXPECT_TRUE(DrawsAsModel(table, row, dest, source, {})) << "features " << bits;
        }
    }
}

/// Draws a row of words with kernel row `row` into `width` pixels.
std::vector<uint32_t> StretchLine(Row row, const std::vector<uint32_t> &words, int width, int height = 1) {
    TestImage source(static_cast<int>(words.size()), 1), dest(width, height);
    for (int x = 0; x < source.width(); ++x) source.Set(x, 0, words[static_cast<std::size_t>(x)]);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    CallRow(Kernels(), row, &destView, &sourceView, {});
    std::vector<uint32_t> line;
    for (int x = 0; x < width; ++x) line.push_back(dest.At(x, height - 1));
    return line;
}

TEST(Nearest, TakesThePixelUnderTheTopLeftCorner) {
    const uint32_t a = 0x11223344, b = 0x55667788;
    EXPECT_EQ(StretchLine(Row::StretchCopyRow, {a, b}, 3), (std::vector<uint32_t>{a, a, b}));
    EXPECT_EQ(StretchLine(Row::StretchCopyRow, {a, b}, 1), (std::vector<uint32_t>{a}));
}

TEST(Filters, OnePixelFillsEverything) {
    for (const Row row : {Row::FilterCopyRow, Row::StretchCopyRow}) {
        EXPECT_EQ(StretchLine(row, {0x80402010}, 300, 7), std::vector<uint32_t>(300, 0x80402010));
    }
    // From 49,153 destination pixels on, the rounded-up step carries the position to the source's width.
    EXPECT_EQ(StretchLine(Row::FilterCopyRow, {0x80402010}, 200000), std::vector<uint32_t>(200000, 0x80402010));
    // Weights of the cubic need not sum to exactly 1.
    for (const uint32_t word : StretchLine(Row::BicubicCopyRow, {0xFF804020}, 70000)) {
        for (int i = 0; i < 4; ++i)
            ASSERT_LE(std::abs(static_cast<int>(ChannelOf(word, i) - ChannelOf(0xFF804020, i))), 1);
    }
}

TEST(Filters, HardEdgesNeverLeaveTheByteRange) {
    // Monotone and inside 0..255: an overflow would show as a jump back.
    RebuildStretchWeights(4);
    const std::vector<uint32_t> line =
        StretchLine(Row::BicubicCopyRow, {0, 0, 0, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 240);
    RebuildStretchWeights(1);
    for (std::size_t x = 1; x < line.size(); ++x) ASSERT_GE(line[x], line[x - 1]) << x;
    EXPECT_EQ(line.front(), 0u);
    EXPECT_EQ(line.back(), 0xFFFFFFFFu);
}

TEST(Filters, TapsStayInsideTheView) {
    // A bright picture surrounded by poison: nothing of the poison gets into any sampler's result.
    TestImage sheet(30, 30), dest(100, 90);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 30; ++x) sheet.Set(x, y, x >= 10 && x < 20 && y >= 10 && y < 20 ? 0xFF00FF00 : 0xFFFF00FF);
    }
    const SurfaceView sourceView = sheet.View({10, 10, 20, 20});
    for (const SIZE size : {SIZE{100, 90}, SIZE{3, 90}, SIZE{100, 3}, SIZE{10, 10}, SIZE{7, 4}, SIZE{1, 1}}) {
        const SurfaceView destView = dest.View({0, 0, size.cx, size.cy});
        for (const Row row : {Row::StretchCopyRow, Row::FilterCopyRow, Row::BicubicCopyRow, Row::AreaCopyRow}) {
            for (const TableUnderTest &table : TablesUnderTest()) {
                CallRow(table.table, row, &destView, &sourceView, {});
                for (int y = 0; y < size.cy; ++y) {
                    for (int x = 0; x < size.cx; ++x) ASSERT_EQ(dest.At(x, y) & 0x00FF00FF, 0u) << TraitsOf(row).name;
                }
            }
        }
    }
}

TEST(Area, AveragesWholePixelsExactly) {
    // Four by four blocks of one colour each; then a pair of different ones.
    EXPECT_EQ(StretchLine(Row::AreaCopyRow, {0x40, 0x40, 0x80, 0x80}, 2), (std::vector<uint32_t>{0x40, 0x80}));
    EXPECT_EQ(StretchLine(Row::AreaCopyRow, {0x00FF0000, 0x00000003}, 1), (std::vector<uint32_t>{0x007F0001}));
    EXPECT_EQ(StretchLine(Row::AreaCopyRow, {1, 2, 3}, 3), (std::vector<uint32_t>{1, 2, 3}));
}

TEST(Area, MeansOfSixteenForEverySum) {
    // Column v and row k of the blocks have sums of 16 v + k per channel: of two neighbouring bytes, or of 0 and 255
    // and one between. Where the bytes stand decides how often a mean of two is rounded.
    TestImage source(4 * 256, 4 * 16), dest(256, 16);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    Random random(1);
    for (int round = 0; round < 20; ++round) {
        for (int block = 0; block < 256 * 16; ++block) {
            const int v = block % 256, k = block / 256;
            std::array<std::array<int, 16>, 4> channels;
            for (std::array<int, 16> &bytes : channels) {
                for (int i = 0, left = 16 * v + k; i < 16; ++i) {
                    const int most = round % 2 ? 255 : v + (i < k);
                    bytes[static_cast<std::size_t>(i)] = std::min({most, left, 255});
                    left -= std::min(most, left);
                }
                std::shuffle(bytes.begin(), bytes.end(), random);
            }
            for (int i = 0; i < 16; ++i) {
                const auto byte = [&](int c) {
                    return static_cast<uint32_t>(channels[static_cast<std::size_t>(c)][static_cast<std::size_t>(i)]);
                };
                source.Set(4 * v + i % 4, 4 * k + i / 4, WordOf(byte));
            }
        }
        CallRow(Kernels(), Row::AreaCopyRow, &destView, &sourceView, {});
        for (int y = 0; y < 16; ++y) {
            // Beyond 16 × 255 there are no sums: the last column's bytes are all 255.
            for (int x = 0; x < 256; ++x) ASSERT_EQ(dest.At(x, y), 0x01010101u * static_cast<uint32_t>(x)) << y;
        }
    }
}

TEST(Area, WideAndNarrowSumsMeet) {
    // White stays white on both sides of the ratio 16, and far beyond it, where 32 bits would not hold the sums.
    for (const int size : {4095, 4096, 4097, 32767}) {
        TestImage source(size, 40), dest(256, 2);
        source.FillWith(0xFFFFFFFF);
        const SurfaceView destView = dest.View(), sourceView = source.View();
        CallRow(Kernels(), Row::AreaCopyRow, &destView, &sourceView, {});
        for (int x = 0; x < 256; ++x) ASSERT_EQ(dest.At(x, 1), 0xFFFFFFFFu) << size;
    }
    TestImage large(3000, 3000, 8), dot(1, 1);
    for (int y = 0; y < 3000; ++y) {
        for (int x = 0; x < 3000; ++x) large.SetIndex(x, y, 255);
    }
    const SurfaceView destView = dot.View(), sourceView = large.View();
    CallRow(Kernels(), Row::AreaCopyRow, &destView, &sourceView, {});
    EXPECT_EQ(dot.At(0, 0), 0xFFFFFFFFu);
}

}  // namespace
}  // namespace lacquer
