// Every kernel against the model over random geometry, and the sums of the area sampler that random pixels don't reach.

#include <algorithm>

#include "kernel_check.h"
#include "pipeline/sample/stretch.h"

namespace lacquer {
namespace {

constexpr int kLongest = 32767;

/// A length of a kind that matters: single pixels, a few, a block of columns and around it, many, the longest.
int RandomLength(Random &random, int longest) {
    const int kind = random.Of({1, 2, random.Between(3, 20), random.Between(21, kBlockColumns - 1),
                                random.Between(kBlockColumns - 1, kBlockColumns + 2),
                                random.Between(kBlockColumns + 3, 1500), kLongest});
    return std::min(kind, longest);
}

/// A size with at most `pixels` pixels, either direction being the longer one.
SIZE RandomSize(Random &random, int pixels) {
    const int first = RandomLength(random, std::min(pixels, kLongest));
    const int second = RandomLength(random, std::max(1, pixels / first));
    return random.Coin() ? SIZE{first, second} : SIZE{second, first};
}

/// The size of a draw of which `shown` pixels are visible: up to the whole range of sizes, of which nobody could hold
/// the pixels. And the place of these, at its beginning, its end or anywhere.
std::pair<int, int> RandomWindow(Random &random, int shown, bool isArea) {
    const int moderate = random.Of({shown, shown + random.Between(0, 3 * shown)});
    const int full = isArea || random.Coin() ? moderate : random.Of({random.Between(shown, INT32_MAX), INT32_MAX});
    const int offset = random.Of({0, full - shown, random.Between(0, std::min(full - shown, INT32_MAX - 1))});
    return {full, offset};
}

class Sampling : public testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(Kernels, Sampling, testing::Range(std::size_t{0}, AllKernels().size()), [](const auto &test) {
    const Kernel &kernel = AllKernels()[test.param];
    return kernel.name + std::to_string(kernel.depth);
});

TEST_P(Sampling, MatchesTheModelForRandomGeometry) {
    const Kernel &kernel = AllKernels()[GetParam()];
    const bool isArea = kernel.sampler == SamplerKind::Area;
    for (int number = 0; number < 35 / kSlice; ++number) {
        SCOPED_TRACE(testing::Message() << "case " << number);
        Random random = CaseRandom(number);
        SIZE size = RandomSize(random, 70000), shown = RandomSize(random, 2500);
        if (kernel.IsSameSize() && random.Coin()) size = shown;
        // Two thirds of the area draws reduce, one of them by whole ratios; the others must be bicubic.
        const int areaKind = isArea ? random.Between(0, 2) : 0;
        if (areaKind == 1) shown = {std::min(size.cx, shown.cx), std::min(size.cy, shown.cy)};
        if (areaKind == 2) {
            const SIZE ratio = {random.Between(1, 17), random.Between(1, 17)};
            shown = {std::max<LONG>(1, size.cx / ratio.cx), std::max<LONG>(1, size.cy / ratio.cy)};
            size = {shown.cx * ratio.cx, shown.cy * ratio.cy};
        }
        const TestImage source = RandomSource(random, size.cx, size.cy, kernel.depth);
        TestImage dest = RandomGround(random, shown.cx, shown.cy);
        SetAnyLimits(random);
        RowArguments arguments{.parameter = RandomParameter(random, kernel.combine, source)};
        const auto [width, left] = RandomWindow(random, shown.cx, isArea);
        const auto [height, top] = RandomWindow(random, shown.cy, isArea);
        arguments.fullSize = {width, height};
        arguments.visibleOffset = {left, top};
        // The sharper cubic in one case of four.
        RebuildStretchWeights(number % 4 == 3 ? 4 : 1);
        for (const TableUnderTest &table : TablesUnderTest()) {
            if (!table.Replaces(kernel)) continue;
            dest.Fill(random);
            ASSERT_TRUE(DrawsAsModel(table, kernel, dest, source, arguments));
        }
    }
    RebuildStretchWeights(1);
}

/// Draws by the area sampler of this processor.
TestImage Averaged(const TestImage &source, int width, int height) {
    TestImage dest(width, height);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    EXPECT_EQ(1, CallRow(Kernels(), Row::AreaCopyRow, &destView, &sourceView, {}));
    return dest;
}

TEST(Area, MeansOfSixteenForEverySum) {
    // Column v and row k of the blocks have sums of 16 v + k per channel: of two neighbouring bytes, or of 0 and 255
    // and one between. Where the bytes stand decides how often a mean of two is rounded.
    TestImage source(4 * 256, 4 * 16);
    Random random(1);
    for (int round = 0; round < 20; ++round) {
        for (int block = 0; block < 256 * 16; ++block) {
            const int v = block % 256, k = block / 256;
            uint32_t words[16] = {};
            for (int channel = 0; channel < 4; ++channel) {
                // Each byte gets its share of the sum in an order of its own, that of a step that 16 has no part of.
                const int first = random.Between(0, 15), step = random.Of({1, 3, 5, 7});
                for (int i = 0, left = 16 * v + k; i < 16; ++i) {
                    const int most = round % 2 ? 255 : v + (i < k), byte = std::min({most, left, 255});
                    words[(first + i * step) % 16] |= static_cast<uint32_t>(byte) << 8 * channel;
                    left -= std::min(most, left);
                }
            }
            for (int i = 0; i < 16; ++i) source.Set(4 * v + i % 4, 4 * k + i / 4, words[i]);
        }
        const TestImage dest = Averaged(source, 256, 16);
        for (int y = 0; y < 16; ++y) {
            // Beyond 16 × 255 there are no sums: the last column's bytes are all 255.
            for (int x = 0; x < 256; ++x) ASSERT_EQ(dest.At(x, y), 0x01010101u * static_cast<uint32_t>(x)) << y;
        }
    }
}

TEST(Area, WideAndNarrowSumsMeet) {
    // White stays white on both sides of the ratio 16, and far beyond it, where 32 bits would not hold the sums.
    for (const auto &[width, height, columns] :
         {std::array{4095, 40, 256}, {4096, 40, 256}, {4097, 40, 256}, {kLongest, 40, 256}, {3000, 3000, 1}}) {
        TestImage source(width, height, 8);
        source.FillWith(255);
        const TestImage dest = Averaged(source, columns, 2);
        for (int x = 0; x < columns; ++x) ASSERT_EQ(dest.At(x, 1), 0xFFFFFFFFu) << width;
    }
}

}  // namespace
}  // namespace lacquer
