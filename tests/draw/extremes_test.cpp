// Coordinates and numbers at both ends of their ranges, in every field: no operation traps, runs on, or draws outside
// the clip.

#include <limits>

#include "painting.h"

namespace lacquer {
namespace {

constexpr LONG kLow = INT32_MIN, kHigh = INT32_MAX;
constexpr LONG kEnds[] = {kLow, kLow + 1, -5, 0, 9, 40, kHigh};
constexpr RECT kClip{4, 4, 20, 20}, kPart{1, 2, 15, 12}, kMargins{3, 2, 4, 5}, kWhole{0, 0, 24, 24};

using Limits = std::numeric_limits<float>;
constexpr float kFloats[] = {1.0f,
                             0.0f,
                             0.004f,
                             -0.004f,
                             7.3f,
                             -1.0f,
                             1e9f,
                             -1e9f,
                             1e30f,
                             3e38f,
                             -1e30f,
                             1e-30f,
                             Limits::infinity(),
                             -Limits::infinity(),
                             Limits::quiet_NaN()};

/// Every rectangle whose edges are among kEnds.
template <class Test>
void ForEachRect(const Test &test) {
    for (const LONG left : kEnds) {
        for (const LONG right : kEnds) {
            for (const LONG top : kEnds) {
                for (const LONG bottom : kEnds) test(RECT{left, top, right, bottom});
            }
        }
    }
}

/// What is drawn, and the canvas that it is drawn on.
struct Scene {
    TestCanvas canvas, other;
    OwnedBitmap bitmap;
    OwnedTexture texture;
    Picture before;
    mutable Random random{7};

    explicit Scene(CanvasKind kind)
        : canvas(kind, 24, 24, 1),
          other(CanvasKind::Memory, 16, 16, 2),
          bitmap(NoiseBitmap(16, 16, 32, 3, kOver)),
          texture(NoiseTexture(16, 16, 32, 3, kOver)),
          before(canvas.Pixels()) {
        SetCanvasClipRect(canvas, &kClip);
    }

    float Number() const { return kFloats[random.Word() % std::size(kFloats)]; }
    DWORD Kernel() const { return random.Of<DWORD>({0, 1, 4, 5}); }
    GeoRect Numbers() const { return {Number(), Number(), Number(), Number()}; }
    GeoStyle Style() const { return {0x80FF0000, 0xFF00FF00, Number(), {Number(), Number(), Number(), Number()}}; }

    /// Nothing is drawn outside the clip.
    void ExpectOutsideUntouched() const { ExpectSameOutside(kClip, before, canvas.Pixels()); }
};

/// What a call does with a rectangle.
using Call = void (*)(const Scene &s, const RECT &rect);

constexpr Call kCalls[] = {
    // As the destination.
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, DrawBitmapEx(s.canvas, &r, s.bitmap, s.Kernel(), 200)); },
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, FillSolidRect(s.canvas, 0x80123456, &r)); },
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, FillGradualRect(s.canvas, 0x80123456, 0xFFFFFFFF, &r, 0)); },
    [](const Scene &s, const RECT &r) { BlendCanvas(s.canvas, &r, s.other, &kPart, 200); },
    [](const Scene &s, const RECT &r) { BlendCanvas(s.canvas, &r, s.other, &r, 255); },
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, GeoRoundRect(s.canvas, &r, ~0u, 0x80FF0000, r.left, r.top)); },
    [](const Scene &s, const RECT &r) {
        const GeoStyle style = s.Style();
        const ShadowStyle shadow{0x80102030, r.top,          r.bottom,
                                 s.Number(), s.Number(),     {5, s.Number(), 0, s.Number()},
                                 s.Number(), s.random.Word()};
        EXPECT_EQ(1, DrawShadows(s.canvas, &r, &shadow, 1));
        const GeoRect any = s.Numbers();
        EXPECT_EQ(1, GeoRectangleEx(s.canvas, &any, &style, s.random.Word()));
        EXPECT_EQ(1, GeoRoundRectEx(s.canvas, &any, &style, s.random.Word()));
        EXPECT_EQ(1, GeoRectFocusEx(s.canvas, &any, ~0u, s.Number(), s.Number(), s.Number(), s.Number()));
    },
    // As the source.
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, DrawBitmapRectEx(s.canvas, &kWhole, s.bitmap, &r, 1, 255)); },
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, DrawModulation(s.canvas, r.left, r.top, s.bitmap, &r, ~0xFFu)); },
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, DrawModulation(s.canvas, 7, 7, s.bitmap, &r, 0x80123456)); },
    [](const Scene &s, const RECT &r) { EXPECT_EQ(1, DrawModulation(s.canvas, r.left, r.bottom, s.bitmap, {}, 99)); },
    [](const Scene &s, const RECT &r) { BlendCanvas(s.canvas, &kWhole, s.other, &r, 200); },
    // As the destination and the slice of every layout, and as margins.
    [](const Scene &s, const RECT &r) {
        for (DWORD mode = 0; mode <= 5; ++mode) {
            const TextureMode record{mode, mode * 7 & 0x1F, kMargins};
            SetTextureMode(s.texture, &record);
            SetTextureSlice(s.texture, 0, &r);
            EXPECT_EQ(mode != 2 && mode != 5, DrawTextureEx(s.canvas, &r, s.texture, 1, 255, 1.5f, mode == 1));
            SetTextureSlice(s.texture, 1, &r);
            DrawTexture(s.canvas, &kWhole, s.texture, 1);
        }
    },
    [](const Scene &s, const RECT &r) {
        for (const RECT &to : {RECT{2, 2, 22, 19}, RECT{kLow, kLow, kHigh, kHigh}}) {
            const DWORD flags = s.random.Word();
            EXPECT_EQ(0, DrawTextureTopTile(s.canvas, &to, s.texture, nullptr, &r, s.Kernel(), 255));
            EXPECT_EQ(0, DrawTextureTile(s.canvas, &to, s.texture, &kPart, s.Kernel(), 255, flags, s.Number()));
            EXPECT_EQ(1, DrawTexture9Grid(s.canvas, &to, s.texture, &kPart, &r, s.Kernel(), s.random.Coin(), 200, flags,
                                          s.Number(), s.random.Coin()));
        }
    },
};

TEST(Extremes, RectanglesAndNumbers) {
    for (const CanvasKind kind : {CanvasKind::Memory, CanvasKind::FromDC}) {
        const Scene scene(kind);
        for (const Call &call : kCalls) ForEachRect([&](const RECT &rect) { call(scene, rect); });
        scene.ExpectOutsideUntouched();
        if (kind != CanvasKind::FromDC) continue;
        ForEachRect([&](const RECT &rect) {
            GdiTransCanvas(scene.canvas.Context(), &rect, scene.other, &kPart, 128);
            GdiTransCanvas(scene.canvas.Context(), &kPart, scene.other, &rect, 255);
        });
        scene.ExpectOutsideUntouched();
    }
    // The mixes do not clip.
    const Scene scene(CanvasKind::Memory);
    ForEachRect([&](const RECT &rect) {
        EXPECT_EQ(1, MixCanvas(scene.canvas, &rect, scene.other, &kPart, 100));
        EXPECT_EQ(1, MixCanvas(scene.canvas, &kPart, scene.other, &rect, 100));
        EXPECT_EQ(1, MixCanvasWithColor(scene.canvas, &rect, 0x20202020, 100));
    });
}

TEST(Extremes, Origins) {
    for (const CanvasKind kind : {CanvasKind::Memory, CanvasKind::System}) {
        const Scene scene(kind);
        ForEachRect([&](const RECT &origins) {
            SetViewportOrg(scene.canvas, origins.left, origins.top, nullptr);
            SetWindowOrg(scene.canvas, origins.right, origins.bottom, nullptr);
            for (const RECT &dest : {kPart, RECT{kLow, kLow, kHigh, kHigh}, RECT{kHigh - 9, kHigh - 9, kHigh, kHigh}}) {
                for (const Call &call : kCalls) call(scene, dest);
            }
        });
        // Near the ends the clip box of a device context is only as exact as the system's own arithmetic.
        if (kind == CanvasKind::Memory) scene.ExpectOutsideUntouched();
    }
}

TEST(Extremes, DrawsCoverWhatTheirRectanglesDoUpToTwoToThe31Pixels) {
    constexpr LONG kSide = 10;
    const OwnedBitmap bitmap(CreateMemBitmap(3, 3));
    FillWith(ViewOf(bitmap), 0xFFFFFFFF);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, {}));
    Random random(3);
    const auto check = [&](const RECT &place, int viewport, int window) {
        // Beyond the logical range the clip is cut off: there is no coordinate for what lies outside.
        const int64_t shift = int64_t{viewport} - window;
        if (shift > kHigh - kSide || shift < kLow + kSide) return;
        SetViewportOrg(canvas, viewport, 0, nullptr);
        SetWindowOrg(canvas, window, 0, nullptr);
        SetBitmapFilter(bitmap, random.Of<DWORD>({0, kOver}));
        FillWith(ViewOf(canvas), 0);
        const auto kernelMode = random.Of<DWORD>({0, 1, 4, 5});
        EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, kernelMode));
        const bool draws = WidthOf(place) <= kHigh && HeightOf(place) <= kHigh;
        const Picture result = PictureOf(ViewOf(canvas));
        ForEachPixel(result, [&](LONG x, LONG y) {
            // Weights may round a channel of a filtered stretch down by a little.
            ASSERT_EQ(draws && Contains(place, x - shift, y), result.At(x, y) > 0xF0000000)
                << "kernel mode " << kernelMode << " at " << x << ", " << y;
        });
    };
    ForEachRect([&](const RECT &rect) {
        check(rect, 0, 0);
        check({rect.left, 0, rect.right, kSide}, rect.top, rect.bottom);
    });

    const Scene scene(CanvasKind::Memory);
    constexpr RECT kLargest{0, 0, kHigh, kHigh}, kTooWide{-1, 0, kHigh, 9};
    EXPECT_EQ(1, BlendCanvas(scene.canvas, &kTooWide, scene.other, &kPart, 255));
    EXPECT_TRUE(Same(scene.before, scene.canvas.Pixels()));
    // The top-left pixel of the source covers all that is visible.
    Picture expected = scene.before;
    DrawNearest(expected, kClip, kLargest, scene.other.Pixels(), kPart, [](uint32_t s, uint32_t) { return s; });
    EXPECT_EQ(1, BlendCanvas(scene.canvas, &kLargest, scene.other, &kPart, 255));
    EXPECT_TRUE(Same(expected, scene.canvas.Pixels()));
    EXPECT_EQ(1, FillSolidRect(scene.canvas, 0xFF102030, &kTooWide)) << "fills have no such end";
    EXPECT_EQ(0xFF102030, scene.canvas.Pixels().At(19, 8));
}

TEST(Extremes, TilesOfHugeDestinationsAreCounted) {
    // The first row is cut at 2^32 - 1 mod 16 = 15 columns; these divide the width, so that all later cells have them.
    const Sheet sheet(16, 16, 32, 4, 0);
    const TestCanvas canvas(CanvasKind::Memory, 70, 50, 1);
    const RECT dest{kLow, kLow, kHigh, kHigh};
    DrawTextureTile(canvas, &dest, sheet.texture, nullptr, 0, 255, 0, 1.0f);
    const Picture source = PictureOf(ViewOf(sheet.bitmap)), result = canvas.Pixels();
    ForEachPixel(result, [&](LONG x, LONG y) {
        ASSERT_EQ(source.At((x - int64_t{kLow}) % 15, (y - int64_t{kLow}) % 16), result.At(x, y));
    });
}

}  // namespace
}  // namespace lacquer
