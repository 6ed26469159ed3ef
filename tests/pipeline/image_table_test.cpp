// The second table: every kernel of the faster tier gives what the base kernel gives.

#include "pipeline/table/image_table.h"
#include "kernel_check.h"
#include "pipeline/transform/turn.h"

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
        const int width = random.Between(1, 70), height = random.Between(1, number % 10 ? 70 : 300);
        for (const int depth : {8, 32}) {
            const TestImage source = RandomSource(random, width, height, depth, false);
            for (DWORD code = LACQUER_ROTATE_90; code <= LACQUER_TRANSVERSE; ++code) {
                const SIZE size = SwapsSides(code) ? SIZE{height, width} : SIZE{width, height};
                const TestImage ground(size.cx, size.cy, depth, random.Between(0, 3), random.Between(0, 3));
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

/// Every alpha with every value of each colour, in every lane of a register and of what is left over.
TEST(ImageTable, PixelFiltersAreThoseOfTheBaseForEveryAlphaAndValue) {
    for (const FilterKernel ImageTable::*filter :
         {&ImageTable::makeGrey, &ImageTable::premultiply, &ImageTable::invert, &ImageTable::colourToAlpha}) {
        for (int first = 0; first < 8; ++first) {
            TestImage ground(256 - first, 256);
            ground.FillBy([&](int x, int alpha) {
                return WordOf([=](int i) { return i == 3 ? alpha : (x + first) * (i * 5 + 1) + i; });
            });
            ASSERT_TRUE(AreEqual(ground, [&](const ImageTable &table, const SurfaceView &view) {
                for (LONG y = 0; y < view.height; ++y) (table.*filter)(RowOf(view, y), view.width);
            }));
        }
    }
}

}  // namespace
}  // namespace lacquer
