// What kernels touch: no byte outside the views, no destination that they only write, no heap.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "allocation_count.h"
#include "pipeline/table/blit_dispatch.h"
#include "row_check.h"

namespace lacquer {
namespace {

Row RowAt(int index) { return static_cast<Row>(index); }

/// Every width up to two vectors and more, and every alignment of both pixels, for all rows and depths. The images are
/// exact blocks with guards between the rows.
TEST(Memory, EveryWidthAndAlignmentStaysInsideTheRows) {
    Random random = CaseRandom(0);
    for (int index = 0; index < kRowCount; ++index) {
        const RowTraits &traits = TraitsOf(RowAt(index));
        for (const int depth : kDepths) {
            for (int width = 1; width <= 20; ++width) {
                for (int alignment = 0; alignment < 4; ++alignment) {
                    const bool same = traits.sampler == SamplerKind::SameSize;
                    const int sourceWidth = same ? width : Between(random, 1, 40),
                              sourceHeight = same ? 3 : Between(random, 1, 9);
                    TestImage source(sourceWidth, sourceHeight, depth, Between(random, 0, 3), alignment);
                    source.Fill(random);
                    TestImage dest(width, 3, 32, width % 3, (alignment + width) % 4);
                    dest.Fill(random);
                    RowArguments arguments;
                    arguments.parameter = traits.combine == CombineKind::ConstAlpha ? 77 : source.At(0, 0);
                    arguments.fullSize = {width + 3, 5};
                    arguments.visibleOffset = {3, 2};
                    ASSERT_TRUE(DrawsAsModel(TablesUnderTest().back(), RowAt(index), dest, source, arguments));
                }
            }
        }
    }
}

/// Images that are drawn in pieces, with the caches filled beforehand; neither side is a multiple of a piece.
TEST(Memory, LargeImagesAreDrawnAsSmallOnes) {
    Random random = CaseRandom(2);
    constexpr int kWidth = 523, kHeight = 257;
    for (int index = 0; index < kRowCount; ++index) {
        const RowTraits &traits = TraitsOf(RowAt(index));
        if (traits.sampler != SamplerKind::SameSize) continue;
        for (const int depth : kDepths) {
            const TestImage source = RandomSource(random, kWidth, kHeight, depth, true);
            TestImage dest(kWidth, kHeight, 32, 8);
            dest.Fill(random);
            const DWORD parameter = traits.combine == CombineKind::ConstAlpha ? 77 : source.At(0, 0);
            ASSERT_TRUE(DrawsAsModel(TablesUnderTest().back(), RowAt(index), dest, source, {.parameter = parameter}));
        }
    }
    TestImage whole(kWidth, kHeight, 32, 8);
    whole.Fill(random);
    const TestImage byRow = whole.Copy();
    for (const FillKernel fill : {Kernels().fillOver, Kernels().fillModulate, Kernels().fillBehind}) {
        const SurfaceView view = whole.View();
        fill(&view, 0x80402010);
        for (int y = 0; y < kHeight; ++y) {
            const SurfaceView row = byRow.View({0, y, kWidth, y + 1});
            fill(&row, 0x80402010);
        }
        ASSERT_EQ(whole, byRow);
    }
}

/// Copies that go past the caches, at any alignment and with any gap between the rows; where the two sides overlap, as
/// if the whole source had been read first.
TEST(Memory, HugeCopiesAreWhole) {
    constexpr LONG kWidth = 1453, kHeight = 1459;
    Random random = CaseRandom(3);
    std::vector<BYTE> bytes((kWidth + 9) * kHeight * 8);
    for (BYTE &byte : bytes) byte = static_cast<BYTE>(random());
    struct Case {
        LONG gap;                ///< bytes between rows
        ptrdiff_t source, dest;  ///< where the views begin
    };
    const ptrdiff_t half = static_cast<ptrdiff_t>(bytes.size() / 2);
    for (const Case &c : {Case{0, 3, half + 1}, Case{4, 0, half}, Case{0, 4000, 0}, Case{0, 0, 4001}, Case{4, 0, 70000},
                          Case{4, 70000, 4}, Case{4, 4, 8}}) {
        const std::vector<BYTE> before = bytes;
        std::vector<BYTE> expected = bytes;
        SurfaceView view{};
        view.width = kWidth;
        view.height = kHeight;
        view.stride = kWidth * 4 + c.gap;
        view.bitsPerPixel = 32;
        SurfaceView source = view, dest = view;
        source.bits = bytes.data() + c.source;
        dest.bits = bytes.data() + c.dest;
        for (LONG y = 0; y < kHeight; ++y) {
            const ptrdiff_t row = ptrdiff_t{y} * view.stride;
            std::memcpy(expected.data() + c.dest + row, before.data() + c.source + row, size_t{kWidth} * 4);
        }
        CallRow(Kernels(), Row::CopyRow, &dest, &source, {});
        ASSERT_TRUE(bytes == expected) << c.gap << ' ' << c.source << ' ' << c.dest;
    }
}

/// Draws on two destinations of different pixels; a kernel that only writes leaves both the same.
template <class Draw>
testing::AssertionResult OnlyWrites(int width, int height, const Draw &draw) {
    TestImage first(width, height), second(width, height);
    first.FillWith(0);
    second.FillWith(0xFEEDF00D);
    const SurfaceView firstView = first.View(), secondView = second.View();
    draw(&firstView);
    draw(&secondView);
    if (first == second) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the result depends on the destination";
}

TEST(Memory, CopiesNeverReadTheDestination) {
    Random random = CaseRandom(1);
    for (int index = 0; index < kRowCount; ++index) {
        if (TraitsOf(RowAt(index)).combine != CombineKind::Copy) continue;
        for (const int depth : kDepths) {
            const TestImage source = RandomSource(random, 40, 30, depth, true);
            const SurfaceView sourceView = source.View();
            for (const SIZE size : {SIZE{40, 30}, SIZE{31, 17}, SIZE{50, 9}}) {
                if (TraitsOf(RowAt(index)).sampler == SamplerKind::SameSize && size.cx != 40) continue;
                EXPECT_TRUE(OnlyWrites(size.cx, size.cy, [&](const SurfaceView *dest) {
                    CallRow(Kernels(), RowAt(index), dest, &sourceView, {.fullSize = size});
                })) << TraitsOf(RowAt(index)).name;
            }
        }
    }
    const TestImage source = RandomSource(random, 20, 20, 32, true);
    const SurfaceView sourceView = source.View();
    const KernelTable &kernels = Kernels();
    EXPECT_TRUE(OnlyWrites(20, 20, [&](const SurfaceView *dest) { kernels.fillCopy(dest, 0x01020304); }));
    EXPECT_TRUE(OnlyWrites(20, 20, [&](const SurfaceView *dest) { kernels.mixColor(dest, 0x01020304, 255); }));
    EXPECT_TRUE(OnlyWrites(20, 20, [&](const SurfaceView *dest) { kernels.forceOpaque(dest, &sourceView); }));
    EXPECT_TRUE(OnlyWrites(9, 33, [&](const SurfaceView *dest) { kernels.stretchOpaque(dest, &sourceView); }));
    EXPECT_TRUE(OnlyWrites(20, 20, [&](const SurfaceView *dest) { kernels.mixSame(dest, &sourceView, 255); }));
    EXPECT_TRUE(OnlyWrites(9, 33, [&](const SurfaceView *dest) { kernels.mixStretch(dest, &sourceView, 255); }));
}

TEST(Memory, SingleSlotsLeaveTheBytesBetweenRowsAlone) {
    Random random = CaseRandom(2);
    const KernelTable &kernels = Kernels();
    for (int width = 1; width <= 20; ++width) {
        TestImage source(width, 4, 32, 1, width % 4), dest(width, 4, 32, 5, (width + 1) % 4);
        source.Fill(random);
        dest.Fill(random);
        const SurfaceView destView = dest.View(), sourceView = source.View();
        ForEachSlot([&](const char *, auto member, CombineKind) {
            EXPECT_EQ(CallSlot(kernels.*member, destView, sourceView, 0x80706050, 100), 1);
        });
        EXPECT_TRUE(dest.GuardsAreIntact()) << width;
    }
}

TEST(Memory, ShortAndMissingPalettes) {
    // One colour in an exact block, and an index far beyond it: 0, in every mode and sampler.
    TestImage source(1, 1, 8);
    source.SetIndex(0, 0, 255);
    source.SetPalette({0xFFFFFFFF});
    SurfaceView sourceView = source.View();
    for (int index = 0; index < kRowCount; ++index) {
        TestImage dest(2, 2);
        dest.FillWith(0x55443322);
        const SurfaceView destView = dest.View({0, 0, 1, 1});
        CallRow(Kernels(), RowAt(index), &destView, &sourceView, {.parameter = 200, .fullSize = {2, 2}});
        const uint32_t wanted = ModelCombine(TraitsOf(RowAt(index)).combine, 0, 0x55443322, 200, Overflow::Carries);
        EXPECT_EQ(dest.At(0, 0), wanted) << TraitsOf(RowAt(index)).name;
        EXPECT_EQ(dest.At(1, 1), 0x55443322u);
    }
    TestImage dest(1, 1);
    sourceView.palette = nullptr;
    for (const DWORD count : {0u, 1u, 256u}) {
        sourceView.paletteCount = count;
        ConvertCopy(dest.View(), sourceView);
        EXPECT_EQ(dest.At(0, 0), 0xFFFFFFFFu) << "grey of index 255";
    }
}

/// Any two rectangles of one image. Copies at 1:1, whole rows among them, give what a second image would have given;
/// other draws leave what lies around alone.
TEST(Memory, OneSurfaceMayBeBothSourceAndDestination) {
    Random random = CaseRandom(3);
    const auto part = [&random](int size) {
        const int first = Between(random, 0, size - 1), second = Between(random, 0, size - 1);
        return std::minmax({first, second});
    };
    for (const TableUnderTest &tier : TablesUnderTest()) {
        for (int round = 0; round < 20000 / kSlice; ++round) {
            const int width = Between(random, 1, 40), height = Between(random, 1, 12);
            TestImage image(width, height, 32, Between(random, 0, 1) * 4, round % 4);
            image.Fill(random);
            const TestImage before = image.Copy();
            const auto [left, right] = part(width);
            const auto [top, bottom] = part(height);
            RECT dest{left, top, right + 1, bottom + 1};
            if (Between(random, 0, 3) == 0) dest = {0, top, width, bottom + 1};
            const int x = Between(random, 0, width - (dest.right - dest.left)),
                      y = Between(random, 0, height - (dest.bottom - dest.top));
            const RECT source{x, y, x + dest.right - dest.left, y + dest.bottom - dest.top};
            const SurfaceView to = image.View(dest), from = image.View(source);
            const int index = Between(random, 0, 2 * kRowCount);
            const bool copies = index >= kRowCount;
            const Row row = copies ? Row::CopyRow : RowAt(index);
            if (index == 2 * kRowCount) {
                tier.table.mixSame(&to, &from, 255);
            } else {
                CallRow(tier.table, row, &to, &from, {.parameter = 99, .fullSize = {to.width, to.height}});
            }
            for (int line = 0; line < height; ++line) {
                for (int column = 0; column < width; ++column) {
                    const bool inside =
                        column >= dest.left && column < dest.right && line >= dest.top && line < dest.bottom;
                    if (inside && !copies) continue;
                    const uint32_t expected =
                        inside ? before.At(column - dest.left + x, line - dest.top + y) : before.At(column, line);
                    ASSERT_EQ(image.At(column, line), expected) << tier.name << " round " << round << " row " << index;
                }
            }
            ASSERT_TRUE(image.GuardsAreIntact());
        }
    }
}

TEST(Memory, NoDrawAsksForHeap) {
    Random random = CaseRandom(4);
    for (const int depth : kDepths) {
        const TestImage source = RandomSource(random, 700, 300, depth, true);
        TestImage dest(600, 50), same(700, 300);
        dest.Fill(random);
        same.Fill(random);
        const SurfaceView destView = dest.View(), sameView = same.View(), sourceView = source.View();
        for (int index = 0; index < kRowCount; ++index) {
            const bool sameSize = TraitsOf(RowAt(index)).sampler == SamplerKind::SameSize;
            const long before = AllocationCount();
            CallRow(Kernels(), RowAt(index), sameSize ? &sameView : &destView, &sourceView,
                    {.parameter = 99, .fullSize = {900, 90}});
            EXPECT_EQ(AllocationCount(), before) << TraitsOf(RowAt(index)).name;
        }
    }
    const TestImage source = RandomSource(random, 300, 300, 32, true);
    TestImage dest(600, 50);
    dest.Fill(random);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    const long before = AllocationCount();
    ForEachSlot([&](const char *, auto member, CombineKind) {
        CallSlot(Kernels().*member, destView, sourceView, 0x80402010, 100);
    });
    BlitSubRect(&destView, &sourceView, {9000, 900}, {70, 70}, 0, 5, 255);
    EXPECT_EQ(AllocationCount(), before);
    // The counter does count.
    operator delete(operator new(7));
    EXPECT_GT(AllocationCount(), before);
}

}  // namespace
}  // namespace lacquer
