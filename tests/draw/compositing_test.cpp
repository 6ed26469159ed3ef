// Canvas onto canvas where both have pixels: which rule BlendCanvas picks, the mixes, and scrolling.

#include "painting.h"

namespace lacquer {
namespace {

constexpr RECT kCanvas{0, 0, 40, 36};

uint32_t Faded(uint32_t s, uint32_t d, uint32_t alpha) {
    return WordOf([&](int i) {
        const uint32_t kept = ChannelOf(d, i) * (256 - alpha) >> 8;
        return i == 3 ? kept + alpha : kept + (ChannelOf(s, i) * (alpha + 1) >> 8);
    });
}

uint32_t Mixed(uint32_t s, uint32_t d, uint32_t weight) {
    if (weight == 0 || weight == 255) return weight == 0 ? d : s;
    return WordOf([&](int i) { return (ChannelOf(s, i) * (weight + 1) + ChannelOf(d, i) * (255 - weight)) >> 8; });
}

bool SameSize(const RECT &a, const RECT &b) { return WidthOf(a) == WidthOf(b) && HeightOf(a) == HeightOf(b); }

/// A second rectangle inside `bounds`, often of the same size.
RECT Partner(Random &random, const RECT &rect, const RECT &bounds) {
    const LONG width = rect.right - rect.left, height = rect.bottom - rect.top;
    if (random.Coin() || width > bounds.right - bounds.left || height > bounds.bottom - bounds.top) {
        return random.Inside(bounds);
    }
    const int left = random.Between(bounds.left, bounds.right - width),
              top = random.Between(bounds.top, bounds.bottom - height);
    return {left, top, left + width, top + height};
}

TEST(BlendCanvas, PicksItsRuleByFiltersAlphaSizesAndVisibility) {
    Random random(1);
    int partlyStretched = 0;
    for (int round = 0; round < 2500; ++round) {
        const TestCanvas dest(random.Of({CanvasKind::Memory, CanvasKind::System}), 40, 36, random.Word());
        const TestCanvas source(random.Of({CanvasKind::Memory, CanvasKind::System}), 25, 22, random.Word());
        const DWORD sourceFilter = random.Of<DWORD>({0u, kOver, 0x03FFFFFFu}),
                    destFilter = random.Of<DWORD>({0u, kOver, 0x02000001u});
        SetCanvasFilter(source, sourceFilter);
        SetCanvasFilter(dest, destFilter);
        const auto alpha = static_cast<BYTE>(random.Of({0, 1, 128, 254, 255, 255}));
        const RECT destRect = random.Coin() ? random.Inside(kCanvas) : random.Inside({-20, -20, 60, 56});
        const RECT sourceRect = Partner(random, destRect, {0, 0, 25, 22});
        const RECT clip = random.Coin() ? kCanvas : random.Inside(kCanvas);

        const bool sameSize = SameSize(destRect, sourceRect);
        const bool whole = destRect.left >= clip.left && destRect.top >= clip.top && destRect.right <= clip.right &&
                           destRect.bottom <= clip.bottom;
        const bool fades = (alpha < 255 || destFilter >> 24 == 1) && (whole || sameSize);
        partlyStretched += !whole && !sameSize;
        Picture expected = dest.Pixels();
        DrawNearest(expected, clip, destRect, source.Pixels(), sourceRect, [&](uint32_t s, uint32_t d) {
            if (sourceFilter >> 24 == 1) return Combined(kOver, 255, 32, s, d);
            return fades ? Faded(s, d, alpha) : s;
        });

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

TEST(BlendCanvas, DrawsNothingWhereNothingIsVisible) {
    const TestCanvas dest(CanvasKind::Memory, 40, 36, 1), source(CanvasKind::Memory, 25, 22, 2);
    const Picture before = dest.Pixels();
    const RECT part{3, 3, 20, 20}, away{40, 0, 50, 10};
    EXPECT_EQ(1, BlendCanvas(dest, &away, source, &part, 255));
    for (const RECT &outside : {RECT{-1, 0, 10, 10}, RECT{0, 0, 26, 10}, RECT{5, 5, 5, 9}, RECT{9, 9, 2, 2}}) {
        EXPECT_EQ(1, BlendCanvas(dest, &part, source, &outside, 255));
        EXPECT_EQ(1, MixCanvas(dest, &part, source, &outside, 128));
        EXPECT_EQ(1, MixCanvas(dest, &away, source, &part, 128));
    }
    EXPECT_TRUE(Same(before, dest.Pixels()));
}

TEST(MixCanvas, MixesEveryChannelWithoutClipping) {
    Random random(2);
    const RECT clip{10, 10, 12, 12};
    for (int round = 0; round < 800; ++round) {
        const TestCanvas dest(random.Of(kCanvasKinds), 40, 36, random.Word());
        const TestCanvas source(random.Of(kCanvasKinds), 25, 22, random.Word());
        const auto weight = static_cast<BYTE>(random.Of({0, 1, 100, 254, 255}));
        const RECT destRect = random.Inside(kCanvas), sourceRect = Partner(random, destRect, {0, 0, 25, 22});
        Picture expected = dest.Pixels();
        DrawNearest(expected, kCanvas, destRect, source.Pixels(), sourceRect,
                    [&](uint32_t s, uint32_t d) { return Mixed(s, d, weight); });
        SetViewportOrg(dest, 3, 5, nullptr);
        const RECT logicalDest = Moved(destRect, -3, -5);
        SIZE size{};
        if (GetCanvasSize(dest, &size)) SetCanvasClipRect(dest, &clip);
        EXPECT_EQ(1, MixCanvas(dest, &logicalDest, source, &sourceRect, weight));
        ASSERT_TRUE(Same(expected, dest.Pixels())) << "round " << round << " weight " << int{weight};
    }
}

TEST(MixCanvas, TakesWholeCanvasesForNull) {
    const TestCanvas dest(CanvasKind::Memory, 25, 22, 1), source(CanvasKind::System, 25, 22, 2),
        small(CanvasKind::Memory, 7, 5, 3);
    Picture expected = dest.Pixels();
    const RECT clip{1, 1, 2, 2};
    SetCanvasClipRect(dest, &clip);
    SetWindowOrg(dest, 100, 100, nullptr);
    for (const TestCanvas *from : {&source, &small}) {
        const Picture picture = from->Pixels();
        DrawNearest(expected, expected.Bounds(), expected.Bounds(), picture, picture.Bounds(),
                    [&](uint32_t s, uint32_t d) { return Mixed(s, d, 77); });
        EXPECT_EQ(1, MixCanvas(dest, nullptr, *from, nullptr, 77));
        EXPECT_TRUE(Same(expected, dest.Pixels()));
    }
    const TestCanvas foreign(CanvasKind::FromDC, 25, 22, 4);
    EXPECT_EQ(1, MixCanvas(dest, nullptr, foreign, nullptr, 77)) << "it has no whole to lock";
    EXPECT_TRUE(Same(expected, dest.Pixels()));
}

TEST(MixCanvasWithColor, AddsAColourThatIsWeightedAlready) {
    const RECT part{4, 3, 30, 33};
    for (const DWORD value : {0u, 1u, 128u, 254u, 255u, 0x180u, 0xFFFFFF00u}) {
        for (const RECT *rect : {&part, static_cast<const RECT *>(nullptr)}) {
            const TestCanvas canvas(CanvasKind::Memory, 40, 36, value);
            Picture expected = canvas.Pixels();
            const uint32_t weight = value & 255, colour = 0x7F20FF81;
            DrawNearest(expected, kCanvas, rect ? *rect : kCanvas, expected, kCanvas, [&](uint32_t, uint32_t d) {
                if (weight == 0 || weight == 255) return weight == 0 ? d : colour;
                return WordOf([&](int i) { return (ChannelOf(d, i) * (255 - weight) >> 8) + ChannelOf(colour, i); });
            });
            EXPECT_EQ(1, MixCanvasWithColor(canvas, rect, colour, value));
            EXPECT_TRUE(Same(expected, canvas.Pixels())) << std::hex << value;
        }
    }
}

TEST(CanvasScroll, MovesRowsAndKeepsTheOnesLeftBehind) {
    for (const CanvasKind kind : {CanvasKind::Memory, CanvasKind::System}) {
        for (const int dy : {5, -5, 0, 1, -1, 99, -99}) {
            const TestCanvas canvas(kind, 3, 100, 1);
            const RECT clip{0, 0, 1, 1};
            SetCanvasClipRect(canvas, &clip);
            SetViewportOrg(canvas, 50, 50, nullptr);
            const Picture before = canvas.Pixels();
            Picture expected = before;
            ForEachPixel(before, [&](LONG x, LONG y) {
                if (y - dy >= 0 && y - dy < 100) expected.At(x, y) = before.At(x, y - dy);
            });
            EXPECT_EQ(1, CanvasScroll(canvas, 0, dy));
            EXPECT_TRUE(Same(expected, canvas.Pixels())) << dy;
        }
        const TestCanvas canvas(kind, 3, 100, 1);
        const Picture before = canvas.Pixels();
        for (const int dy : {100, -100, 101, INT32_MAX, INT32_MIN}) EXPECT_EQ(0, CanvasScroll(canvas, 0, dy)) << dy;
        EXPECT_EQ(0, CanvasScroll(canvas, 1, 0));
        EXPECT_EQ(0, CanvasScroll(canvas, INT32_MIN, 5));
        EXPECT_TRUE(Same(before, canvas.Pixels()));
    }
    EXPECT_EQ(0, CanvasScroll(TestCanvas(CanvasKind::FromDC, 3, 100, 1), 0, 5));
}

}  // namespace
}  // namespace lacquer
