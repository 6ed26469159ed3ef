// The second table: every kernel of the faster tier gives what the base kernel gives.

#include <cstring>

#include "kernel_check.h"
#include "pipeline/filter/gaussian.h"
#include "pipeline/shape/shadow.h"
#include "pipeline/table/image_table.h"
#include "pipeline/transform/turn.h"

namespace lacquer {
namespace {

const ImageTable &Base() {
    static const ImageTable table = BuildImageTable({});
    return table;
}
const ImageTable &Fast() {
    static const ImageTable table =
        BuildImageTable({.mmx = true, .sse = true, .sse2 = true, .avx2 = CachedCpuFeatures().avx2});
    return table;
}

TEST(ImageTable, TheTierReplacesEveryKernel) {
#define LACQUER_COMPARE(type, name, function) \
    EXPECT_NE(Base().name, nullptr) << #name; \
    EXPECT_EQ(Base().name != Fast().name, kHasTiers) << #name;
    LACQUER_IMAGE_KERNELS(LACQUER_COMPARE)
#undef LACQUER_COMPARE
}

/// Success when draw(table, view) by both tables gives the same destination.
template <class Draw>
testing::AssertionResult AreEqual(const TestImage &ground, const Draw &draw) {
    const TestImage wanted = ground, got = ground;
    draw(Base(), wanted.View());
    draw(Fast(), got.View());
    if (got == wanted) return testing::AssertionSuccess();
    return testing::AssertionFailure() << ground.width() << " x " << ground.height();
}

TEST(ImageTable, TurnsAndBlursAndCopiesAreThoseOfTheBase) {
    for (int number = 0; number < 300 / kSlice; ++number) {
        SCOPED_TRACE(testing::Message() << "case " << number);
        Random random = CaseRandom(number);
        SetAnyLimits(random);
        const int width = random.Between(1, 70), height = random.Between(1, number % 10 ? 70 : 300);
        for (const int depth : {8, 32}) {
            const TestImage source = RandomSource(random, width, height, depth, false);
            for (DWORD code = LACQUER_ROTATE_90; code <= LACQUER_TRANSVERSE; ++code) {
                const SIZE size = SwapsSides(code) ? SIZE{height, width} : SIZE{width, height};
                const TestImage ground = RandomGround(random, size.cx, size.cy, depth);
                ASSERT_TRUE(
                    AreEqual(ground, [&](const ImageTable &table,
                                         const SurfaceView &view) { TurnView(table, view, source.View(), code); }))
                    << "code " << code;
            }
        }
        const TestImage source = RandomSource(random, width, height, 32, false);
        const TestImage ground(random.Between(1, 70), random.Between(1, 70), 32, random.Between(0, 3));
        ASSERT_TRUE(AreEqual(
            ground, [&](const ImageTable &table, const SurfaceView &view) { table.boxBlur(view, source.View()); }))
            << width << " x " << height;
        ASSERT_TRUE(AreEqual(ground, [&](const ImageTable &table, const SurfaceView &view) {
            table.copyRows(view, source.View(), std::min<ptrdiff_t>(view.width, width) * 4,
                           std::min<ptrdiff_t>(view.height, height));
        }));
    }
}

/// What kernels of runs take beside the run: for each pixel covers that are 255 together at most, words, and shares
/// from a little below none to a little above all.
struct RunInput {
    std::vector<BYTE> inner, outer;
    std::vector<DWORD> fills, borders;
    std::vector<int32_t> shares;
    std::vector<int16_t> lines, weights;

    RunInput(Random &random, int count, int cover) {
        for (int i = 0; i < count; ++i) {
            inner.push_back(static_cast<BYTE>(cover < 256 ? cover : random.Between(0, 255)));
            outer.push_back(static_cast<BYTE>(random.Between(0, 255 - inner.back())));
            fills.push_back(random.PremultipliedWord());
            borders.push_back(random.PremultipliedWord());
            shares.push_back(random.Between(-5000000, kFullShadow + 5000000));
        }
        // The weights of a row add up to 2^14 at most.
        for (int i = random.Between(1, 9); i > 0; --i) weights.push_back(static_cast<int16_t>(random.Between(0, 1820)));
        for (size_t i = 0; i < weights.size() * kLinePixels; ++i) {
            lines.push_back(static_cast<int16_t>(random.Between(-8192, 8192)));
        }
    }
};

/// Calls a kernel of a run with what it takes of these; those of whole views are tested above.
template <class Kernel>
void CallRun(Kernel, const RunInput &, BYTE *, ptrdiff_t) {}
void CallRun(FilterKernel kernel, const RunInput &, BYTE *run, ptrdiff_t count) { kernel(run, count); }
void CallRun(WidenKernel kernel, const RunInput &, BYTE *run, ptrdiff_t count) {
    std::vector<float> floats(static_cast<size_t>(count) * 4, -1);
    kernel(floats.data(), run, count / 4 * 4);
    for (ptrdiff_t i = 0; i < count / 4 * 4; ++i) run[i] = static_cast<BYTE>(floats[static_cast<size_t>(i)] == run[i]);
}
/// Taps of any floats: their order shows in the last bit.
void CallRun(SumTapsKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t count) {
    std::vector<float> floats;
    for (const int32_t share : in.shares) floats.push_back(static_cast<float>(std::abs(share) >> 2) * 0x1p-18f);
    floats.resize(floats.size() + kGaussianTaps);
    const float *taps[kGaussianTaps];
    for (int k = 0; k < kGaussianTaps; ++k) taps[k] = floats.data() + k;
    kernel(run, taps, count / 4 * 4);
}
void CallRun(MixPartsKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t count) {
    kernel(run, in.fills.data(), in.borders.data(), in.inner.data(), in.outer.data(), count);
}
void CallRun(DrawPartsKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t count) {
    kernel(run, in.fills[0], in.borders[0], in.inner.data(), in.outer.data(), count);
}
void CallRun(DrawCoveredKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t count) {
    kernel(run, in.fills[0], in.inner.data(), count);
}
void CallRun(DrawEvenlyKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t count) {
    kernel(run, in.fills[0], in.inner[0], count);
}
void CallRun(AddLinesKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t) {
    int32_t sums[kLinePixels] = {};
    const int from = in.inner[0] / 2, to = from + in.outer[0] * (kLinePixels - from) / 255;
    kernel(sums, in.lines.data(), in.weights.data(), static_cast<int>(in.weights.size()), from, to);
    std::memcpy(run, sums + from, static_cast<size_t>(to - from) * sizeof *sums);
}
void CallRun(CoverSharesKernel kernel, const RunInput &in, BYTE *run, ptrdiff_t count) {
    kernel(in.shares.data(), static_cast<int>(count), in.inner[0] & 1, run);
}

/// Every alpha with every value of each colour, and every cover, in every lane of a register and of what is left over.
TEST(ImageTable, RunsAreThoseOfTheBaseForEveryAlphaValueAndCover) {
    for (int first = 0; first < 8; ++first) {
        Random random = CaseRandom(first);
        TestImage ground(256 - first, 256);
        std::vector<RunInput> inputs;
        for (int y = 0; y < ground.height(); ++y) {
            inputs.emplace_back(random, ground.width(), first % 2 == 0 ? y : 256);
        }
        ground.FillBy([&](int x, int alpha) {
            return WordOf([=](int i) { return i == 3 ? alpha : (x + first) * (i * 5 + 1) + i; });
        });
        const auto areEqual = [&](const auto &kernel) {
            return AreEqual(ground, [&](const ImageTable &table, const SurfaceView &view) {
                for (LONG y = 0; y < view.height; ++y) {
                    CallRun(table.*kernel, inputs[static_cast<size_t>(y)], RowOf(view, y), view.width);
                }
            });
        };
#define LACQUER_COMPARE(type, name, function) EXPECT_TRUE(areEqual(&ImageTable::name)) << #name << " " << first;
        LACQUER_IMAGE_KERNELS(LACQUER_COMPARE)
#undef LACQUER_COMPARE
    }
}

}  // namespace
}  // namespace lacquer
