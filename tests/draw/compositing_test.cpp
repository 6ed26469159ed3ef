// Canvas onto canvas where both have pixels: which rule BlendCanvas picks, the mixes, and scrolling.

#include "draw_rules.h"
#include "painting.h"

namespace lacquer {
namespace {

constexpr RECT kCanvas{0, 0, 40, 36}, kSource{0, 0, 25, 22};

bool SameSize(const RECT &a, const RECT &b) { return WidthOf(a) == WidthOf(b) && HeightOf(a) == HeightOf(b); }

/// A rectangle of the source, often of the same size.
RECT Partner(Random &random, const RECT &rect) {
    const LONG width = rect.right - rect.left, height = rect.bottom - rect.top;
    if (random.Coin() || width > kSource.right || height > kSource.bottom) return random.Inside(kSource);
    const int left = random.Between(0, kSource.right - width), top = random.Between(0, kSource.bottom - height);
    return {left, top, left + width, top + height};
}

TEST(BlendCanvas, PicksItsRuleByFiltersAlphaSizesAndVisibility) {
    Random random(1);
    int partlyStretched = 0;
    for (int round = 0; round < 2500; ++round) {
        const TestCanvas dest(random.Of({CanvasKind::Memory, CanvasKind::System}), 40, 36, random.Word());
        const TestCanvas source(random.Of({CanvasKind::Memory, CanvasKind::System}), 25, 22, random.Word());
        const auto sourceFilter = random.Of<DWORD>({0, kOver, 0x03FFFFFF}),
                   destFilter = random.Of<DWORD>({0, kOver, 0x02000001});
        SetCanvasFilter(source, sourceFilter);
        SetCanvasFilter(dest, destFilter);
        const auto alpha = random.Of<BYTE>({0, 1, 128, 254, 255, 255});
        const RECT destRect = random.Coin() ? random.Inside(kCanvas) : random.Inside({-20, -20, 60, 56});
        const RECT sourceRect = Partner(random, destRect), clip = random.Coin() ? kCanvas : random.Inside(kCanvas);

        const bool sameSize = SameSize(destRect, sourceRect);
        const bool whole = destRect.left >= clip.left && destRect.top >= clip.top && destRect.right <= clip.right &&
                           destRect.bottom <= clip.bottom;
        const bool fades = (alpha < 255 || destFilter == kOver) && (whole || sameSize);
        partlyStretched += !whole && !sameSize;
        const CombineKind rule = sourceFilter == kOver ? CombineKind::Over
                                 : fades               ? CombineKind::CrossFade
                                                       : CombineKind::Copy;
        Picture expected = dest.Pixels();
        DrawNearest(expected, clip, destRect, source.Pixels(), sourceRect,
                    [&](uint32_t s, uint32_t d) { return ModelCombine(rule, s, d, alpha); });

        // Both canvases with origins of their own.
        SetViewportOrg(dest, 9, -4, nullptr);
        SetWindowOrg(source, -6, 13, nullptr);
        const RECT logicalClip = Moved(clip, -9, 4), logicalDest = Moved(destRect, -9, 4);
        const RECT logicalSource = Moved(sourceRect, -6, 13);
        SetCanvasClipRect(dest, &logicalClip);
        EXPECT_EQ(1, BlendCanvas(dest, &logicalDest, source, &logicalSource, alpha));
        ASSERT_TRUE(Same(expected, dest.Pixels()))
            << "round " << round << " filters " << std::hex << sourceFilter << " " << destFilter << " alpha "
            << int{alpha} << (sameSize ? " same size" : " stretched") << (whole ? " whole" : " partly visible");
    }
    EXPECT_GT(partlyStretched, 200);
}

TEST(MixCanvas, MixesEveryChannelWithoutClipping) {
    Random random(2);
    const RECT clip{10, 10, 12, 12};
    for (int round = 0; round < 800; ++round) {
        const TestCanvas dest(random.Of(kCanvasKinds), 40, 36, random.Word());
        const TestCanvas source(random.Of(kCanvasKinds), 25, 22, random.Word());
        const auto weight = random.Of<BYTE>({0, 1, 100, 254, 255});
        // Null stands for all pixels of a canvas that has its own.
        SIZE size{};
        const bool isWhole = GetCanvasSize(dest, &size) && GetCanvasSize(source, &size) && random.Coin();
        const RECT destRect = isWhole ? kCanvas : random.Inside(kCanvas),
                   sourceRect = isWhole ? kSource : Partner(random, destRect);
        Picture expected = dest.Pixels();
        DrawNearest(expected, kCanvas, destRect, source.Pixels(), sourceRect,
                    [&](uint32_t s, uint32_t d) { return ModelCombine(CombineKind::Mix, s, d, weight); });
        SetViewportOrg(dest, 3, 5, nullptr);
        const RECT logicalDest = Moved(destRect, -3, -5);
        if (GetCanvasSize(dest, &size)) SetCanvasClipRect(dest, &clip);
        EXPECT_EQ(1,
                  MixCanvas(dest, isWhole ? nullptr : &logicalDest, source, isWhole ? nullptr : &sourceRect, weight));
        ASSERT_TRUE(Same(expected, dest.Pixels())) << "round " << round << " weight " << int{weight};
    }
}

TEST(MixCanvas, DrawsNothingFromWhatCannotBeLocked) {
    const TestCanvas dest(CanvasKind::Memory, 40, 36, 1), source(CanvasKind::Memory, 25, 22, 2),
        foreign(CanvasKind::FromDC, 25, 22, 4);
    const Picture before = dest.Pixels();
    const RECT part{3, 3, 20, 20}, away{40, 0, 50, 10};
    for (const RECT &outside : {RECT{-1, 0, 10, 10}, RECT{0, 0, 26, 10}, RECT{5, 5, 5, 9}, RECT{9, 9, 2, 2}}) {
        EXPECT_EQ(1, BlendCanvas(dest, &part, source, &outside, 255));
        EXPECT_EQ(1, MixCanvas(dest, &part, source, &outside, 128));
    }
    EXPECT_EQ(1, BlendCanvas(dest, &away, source, &part, 255));
    EXPECT_EQ(1, MixCanvas(dest, &away, source, &part, 128));
    EXPECT_EQ(1, MixCanvas(dest, nullptr, foreign, nullptr, 77)) << "it has no whole to lock";
    EXPECT_TRUE(Same(before, dest.Pixels()));
}

TEST(MixCanvasWithColor, AddsAColourThatIsWeightedAlready) {
    const RECT part{4, 3, 30, 33};
    for (const DWORD value : {0u, 1u, 128u, 254u, 255u, 0x180u, 0xFFFFFF00u}) {
        for (const RECT *rect : {&part, static_cast<const RECT *>(nullptr)}) {
            const TestCanvas canvas(CanvasKind::Memory, 40, 36, value);
            Picture expected = canvas.Pixels();
            DrawNearest(expected, kCanvas, rect ? *rect : kCanvas, expected, kCanvas, [&](uint32_t, uint32_t d) {
                return ModelCombine(CombineKind::AddWeighted, 0x7F20FF81, d, value & 255);
            });
            EXPECT_EQ(1, MixCanvasWithColor(canvas, rect, 0x7F20FF81, value));
            EXPECT_TRUE(Same(expected, canvas.Pixels())) << std::hex << value;
        }
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
