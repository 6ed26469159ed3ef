// Canvas onto canvas where both have pixels: which rule BlendCanvas picks, the mixes, and scrolling.

#include "rounds.h"

namespace lacquer {
namespace {

TEST(BlendCanvas, PicksItsRuleByFiltersAlphaSizesAndVisibility) {
    int partlyStretched = 0;
    ForRounds(1, 4000, [&](Round &round) {
        // Canvases without pixels of their own leave it to GDI.
        SIZE size{};
        if (!GetCanvasSize(round.canvas, &size)) return;
        Random &random = round.random;
        const TestCanvas source(random.Of({CanvasKind::Memory, CanvasKind::System}), 25, 22, random.Word());
        const auto sourceFilter = random.Of<DWORD>({0, kOver, 0x03FFFFFF}),
                   destFilter = random.Of<DWORD>({0, kOver, 0x02000001});
        SetCanvasFilter(source, sourceFilter);
        SetCanvasFilter(round.canvas, destFilter);
        SetWindowOrg(source, -6, 13, nullptr);
        const auto alpha = random.Of<BYTE>({0, 1, 128, 254, 255, 255});
        const RECT from = round.Partner(), &dest = round.dest, &clip = round.clip;

        const bool sameSize = WidthOf(dest) == WidthOf(from) && HeightOf(dest) == HeightOf(from);
        const bool whole =
            dest.left >= clip.left && dest.top >= clip.top && dest.right <= clip.right && dest.bottom <= clip.bottom;
        const bool fades = (alpha < 255 || destFilter == kOver) && (whole || sameSize);
        partlyStretched += !whole && !sameSize;
        const CombineKind rule = sourceFilter == kOver ? CombineKind::Over
                                 : fades               ? CombineKind::CrossFade
                                                       : CombineKind::Copy;
        const RECT logicalDest = round.Logical(dest), logicalFrom = Moved(from, -6, 13);
        EXPECT_EQ(1, BlendCanvas(round.canvas, &logicalDest, source, &logicalFrom, alpha));
        round.Expect(source.Pixels(), from, clip,
                     [&](uint32_t s, uint32_t d) { return ModelCombine(rule, s, d, alpha); });
    });
    EXPECT_GT(partlyStretched, 200);
}

TEST(MixCanvas, MixesEveryChannelWithoutClipping) {
    ForRounds(2, 800, [](Round &round) {
        const TestCanvas source(round.random.Of(kCanvasKinds), 25, 22, round.random.Word());
        const auto weight = round.random.Of<BYTE>({0, 1, 100, 254, 255});
        const RECT from = round.Partner(), dest = round.Logical(round.dest);
        SIZE size{};
        const bool ownsPixels = GetCanvasSize(round.canvas, &size);
        EXPECT_EQ(1, MixCanvas(round.canvas, &dest, source, &from, weight));
        // What reaches beyond the canvas can't be locked where the canvas has its own pixels.
        const RECT &to = round.dest;
        const bool isInside = to.left >= 0 && to.top >= 0 && to.right <= kCanvas.right && to.bottom <= kCanvas.bottom;
        round.Expect(source.Pixels(), from, ownsPixels ? (isInside ? kCanvas : RECT{}) : round.clip,
                     [&](uint32_t s, uint32_t d) { return ModelCombine(CombineKind::Mix, s, d, weight); });
    });
}

TEST(MixCanvas, DrawsNothingFromWhatCannotBeLocked) {
    const TestCanvas dest(CanvasKind::Memory, 40, 36, 1), source(CanvasKind::Memory, 25, 22, 2),
        foreign(CanvasKind::FromDC, 25, 22, 4);
    const Picture before = dest.Pixels();
    const RECT part{3, 3, 20, 20}, away{40, 0, 50, 10};
    for (const RECT &outside : {RECT{-1, 0, 10, 10}, RECT{0, 0, 26, 10}, RECT{9, 9, 2, 2}}) {
        EXPECT_EQ(1, BlendCanvas(dest, &part, source, &outside, 255));
        EXPECT_EQ(1, MixCanvas(dest, &part, source, &outside, 128));
    }
    EXPECT_EQ(1, BlendCanvas(dest, &away, source, &part, 255));
    EXPECT_EQ(1, MixCanvas(dest, nullptr, foreign, nullptr, 77)) << "it has no whole to lock";
    EXPECT_TRUE(Same(before, dest.Pixels()));
}

TEST(MixCanvasWithColor, AddsAColourThatIsWeightedAlready) {
    const RECT part{4, 3, 30, 33};
    for (const DWORD value : {0u, 1u, 128u, 255u, 0x180u, 0xFFFFFF00u}) {
        const TestCanvas canvas(CanvasKind::Memory, 40, 36, value);
        Picture expected = canvas.Pixels();
        DrawNearest(expected, kCanvas, part, expected, kCanvas, [&](uint32_t, uint32_t d) {
            return ModelCombine(CombineKind::AddWeighted, 0x7F20FF81, d, value & 255);
        });
        EXPECT_EQ(1, MixCanvasWithColor(canvas, &part, 0x7F20FF81, value));
        EXPECT_TRUE(Same(expected, canvas.Pixels())) << std::hex << value;
    }
}

TEST(CanvasScroll, MovesRowsAndKeepsTheOnesLeftBehind) {
    const RECT clip{0, 0, 1, 1};
    for (const CanvasKind kind : {CanvasKind::Memory, CanvasKind::System}) {
        for (const int dy : {5, -5, 0, 1, -1, 99, -99, 100, -100, 101, INT32_MAX, int(INT32_MIN)}) {
            const TestCanvas canvas(kind, 3, 100, 1);
            SetCanvasClipRect(canvas, &clip);
            SetViewportOrg(canvas, 50, 50, nullptr);
            const Picture before = canvas.Pixels();
            Picture expected = before;
            ForEachPixel(before, [&](LONG x, LONG y) {
                const int64_t from = int64_t{y} - dy;
                if (from >= 0 && from < 100) expected.At(x, y) = before.At(x, from);
            });
            EXPECT_EQ(std::abs(int64_t{dy}) < 100, CanvasScroll(canvas, 0, dy)) << dy;
            EXPECT_EQ(0, CanvasScroll(canvas, 1, 0));
            EXPECT_EQ(0, CanvasScroll(canvas, INT32_MIN, 5));
            EXPECT_TRUE(Same(expected, canvas.Pixels())) << dy;
        }
    }
    EXPECT_EQ(0, CanvasScroll(TestCanvas(CanvasKind::FromDC, 3, 100, 1), 0, 5));
}

}  // namespace
}  // namespace lacquer
