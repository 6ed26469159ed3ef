// The second table: every kernel of the faster tier gives what the base kernel gives.

#include "pipeline/table/image_table.h"
#include "pipeline/transform/turn.h"
#include "row_check.h"

namespace lacquer {
namespace {

const ImageTable &Base() {
    static const ImageTable table = BuildImageTable({});
    return table;
}
const ImageTable &Fast() {
    static const ImageTable table = BuildImageTable({.mmx = true, .sse = true, .sse2 = true});
    return table;
}

TEST(ImageTable, TheTierReplacesEveryKernel) {
#define LACQUER_COMPARE(type, name, function) \
    EXPECT_NE(Base().name, nullptr) << #name; \
    EXPECT_EQ(Base().name != Fast().name, kHasTiers) << #name;
    LACQUER_IMAGE_KERNELS(LACQUER_COMPARE)
#undef LACQUER_COMPARE
}

/// Success when drawing by both tables gives the same destination.
template <class Draw>
testing::AssertionResult AreEqual(const TestImage &ground, const Draw &draw) {
    TestImage wanted = ground.Copy(), got = ground.Copy();
    draw(Base(), wanted.View());
    draw(Fast(), got.View());
    if (got == wanted && got.GuardsAreIntact()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << ground.width() << " x " << ground.height();
}

TEST(ImageTable, TurnsAndBlursAndCopiesAreThoseOfTheBase) {
    for (int number = 0; number < 300 / kSlice; ++number) {
        Random random = CaseRandom(number);
        const int width = Between(random, 1, 70), height = Between(random, 1, number % 10 ? 70 : 300);
        for (const int depth : {8, 32}) {
            const TestImage source = RandomSource(random, width, height, depth, false);
            for (DWORD code = LACQUER_ROTATE_90; code <= LACQUER_TRANSVERSE; ++code) {
                const SIZE size = SwapsSides(code) ? SIZE{height, width} : SIZE{width, height};
                const TestImage ground(size.cx, size.cy, depth, Between(random, 0, 3), Between(random, 0, 3));
                ASSERT_TRUE(
                    AreEqual(ground, [&](const ImageTable &table,
                                         const SurfaceView &view) { TurnView(table, view, source.View(), code); }))
                    << "code " << code << ", replay with --gtest_random_seed=" << CaseNumber(number);
            }
        }
        const TestImage source = RandomSource(random, width, height, 32, false);
        const TestImage ground(Between(random, 1, 70), Between(random, 1, 70), 32, Between(random, 0, 3));
        ASSERT_TRUE(AreEqual(
            ground, [&](const ImageTable &table, const SurfaceView &view) { table.boxBlur(view, source.View()); }))
            << width << " x " << height << ", replay with --gtest_random_seed=" << CaseNumber(number);
        ASSERT_TRUE(AreEqual(ground, [&](const ImageTable &table, const SurfaceView &view) {
            table.copyRows(view, source.View(), std::min<ptrdiff_t>(view.width, width) * 4,
                           std::min<ptrdiff_t>(view.height, height));
        }));
    }
}

/// Every alpha with every value of each colour, in every lane of a register and of what is left over.
TEST(ImageTable, PixelFiltersAreThoseOfTheBaseForEveryAlphaAndValue) {
    for (const FilterKernel ImageTable::*filter :
         {&ImageTable::makeGrey, &ImageTable::premultiply, &ImageTable::invert, &ImageTable::colourToAlpha}) {
        for (int first = 0; first < 8; ++first) {
            TestImage ground(256 - first, 256);
            for (int y = 0; y < ground.height(); ++y) {
                for (int x = 0; x < ground.width(); ++x) {
                    const auto value = static_cast<uint32_t>(x + first), alpha = static_cast<uint32_t>(y);
                    ground.Set(x, y,
                               alpha << 24 | ((value * 11 + 1) & 255) << 16 | ((value * 5 + 3) & 255) << 8 | value);
                }
            }
            ASSERT_TRUE(AreEqual(ground, [&](const ImageTable &table, const SurfaceView &view) {
                for (LONG y = 0; y < view.height; ++y) (table.*filter)(RowOf(view, y), view.width);
            }));
        }
    }
}

}  // namespace
}  // namespace lacquer
