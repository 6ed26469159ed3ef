// Coordinates at both ends of the integer range, in every field: no operation traps, runs on, or draws outside the
// clip.

#include <limits>

#include "painting.h"

namespace lacquer {
namespace {

constexpr LONG kLow = INT32_MIN, kHigh = INT32_MAX;
constexpr LONG kEnds[] = {kLow, kLow + 1, -5, 0, 9, 40, kHigh};
constexpr RECT kClip{4, 4, 20, 20}, kPart{1, 2, 15, 12}, kMargins{3, 2, 4, 5};

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

    explicit Scene(CanvasKind kind)
        : canvas(kind, 24, 24, 1),
          other(CanvasKind::Memory, 16, 16, 2),
          bitmap(NoiseBitmap(16, 16, 32, 3, kOver)),
          texture(NoiseTexture(16, 16, 32, 3, kOver)),
          before(canvas.Pixels()) {
        SetCanvasClipRect(canvas, &kClip);
    }

    void SetMode(DWORD mode) const {
        const TextureMode record{mode, mode * 7 & 0x1F, kMargins};
        SetTextureMode(texture, &record);
    }

    /// Nothing is drawn outside the clip.
    void ExpectOutsideUntouched() const { ExpectSameOutside(kClip, before, canvas.Pixels()); }
};

constexpr CanvasKind kKinds[] = {CanvasKind::Memory, CanvasKind::FromDC};

TEST(Extremes, DestinationRectangles) {
    for (const CanvasKind kind : kKinds) {
        const Scene scene(kind);
        ForEachRect([&](const RECT &rect) {
            for (const DWORD kernelMode : {0u, 1u, 4u, 5u}) {
                EXPECT_EQ(1, DrawBitmapEx(scene.canvas, &rect, scene.bitmap, kernelMode, 200));
            }
            EXPECT_EQ(1, FillSolidRect(scene.canvas, 0x80123456, &rect));
            EXPECT_EQ(1, FillGradualRect(scene.canvas, 0x80123456, 0xFFFFFFFF, &rect, 0));
            for (DWORD mode = 0; mode <= 5; ++mode) {
                scene.SetMode(mode);
                EXPECT_EQ(mode != 2 && mode != 5,
                          DrawTextureEx(scene.canvas, &rect, scene.texture, 1, 255, 1.5f, mode == 1));
            }
        });
        scene.ExpectOutsideUntouched();
    }
}

TEST(Extremes, SourceRectangles) {
    const Scene scene(CanvasKind::Memory);
    constexpr RECT kDest{0, 0, 24, 24};
    ForEachRect([&](const RECT &rect) {
        EXPECT_EQ(1, DrawBitmapRectEx(scene.canvas, &kDest, scene.bitmap, &rect, 1, 255));
        EXPECT_EQ(1, DrawModulation(scene.canvas, rect.left, rect.top, scene.bitmap, &rect, 0xFF123456));
        EXPECT_EQ(1, DrawModulation(scene.canvas, 7, 7, scene.bitmap, &rect, 0x80123456));
        EXPECT_EQ(1, DrawModulation(scene.canvas, rect.left, rect.bottom, scene.bitmap, nullptr, 0x80123456));
        EXPECT_EQ(1, BlendCanvas(scene.canvas, &kDest, scene.other, &rect, 200));
        SetTextureSlice(scene.texture, 1, &rect);
        for (DWORD mode = 0; mode <= 5; ++mode) {
            scene.SetMode(mode);
            DrawTexture(scene.canvas, &kDest, scene.texture, 1);
        }
    });
    scene.ExpectOutsideUntouched();
}

TEST(Extremes, CompositedRectangles) {
    for (const CanvasKind kind : kKinds) {
        const Scene scene(kind);
        ForEachRect([&](const RECT &rect) {
            BlendCanvas(scene.canvas, &rect, scene.other, &kPart, 200);
            BlendCanvas(scene.canvas, &rect, scene.other, &rect, 255);
        });
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

TEST(Extremes, DrawsCoverWhatTheirRectanglesDoUpToTwoToThe31Pixels) {
    constexpr LONG kSide = 10;
    constexpr DWORD kKernelModes[] = {0, 1, 4, 5};
    const OwnedBitmap bitmap(CreateMemBitmap(3, 3));
    FillWith(ViewOf(bitmap), 0xFFFFFFFF);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, {}));
    uint32_t round = 0;
    const auto check = [&](const RECT &place, int viewport, int window) {
        // Beyond the logical range the clip is cut off: there is no coordinate for what lies outside.
        const int64_t shift = int64_t{viewport} - window;
        if (shift > kHigh - kSide || shift < kLow + kSide) return;
        SetViewportOrg(canvas, viewport, 0, nullptr);
        SetWindowOrg(canvas, window, 0, nullptr);
        // Under every sampler and two draw modes in turn.
        const DWORD kernelMode = kKernelModes[++round % 4];
        SetBitmapFilter(bitmap, round / 4 % 2 * kOver);
        FillWith(ViewOf(canvas), 0);
        EXPECT_EQ(1, DrawBitmap(canvas, &place, bitmap, kernelMode));
        const bool draws = WidthOf(place) <= kHigh && HeightOf(place) <= kHigh;
        const Picture result = PictureOf(ViewOf(canvas));
        ForEachPixel(result, [&](LONG x, LONG y) {
            // Weights may round a channel of a filtered stretch down by a little.
            ASSERT_EQ(draws && Contains(place, x - shift, y), result.At(x, y) > 0xF0000000)
                << "round " << round << " kernel mode " << kernelMode << " at " << x << ", " << y;
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
    const Picture source = scene.other.Pixels();
    DrawNearest(expected, kClip, kLargest, source, kPart, [](uint32_t s, uint32_t) { return s; });
    EXPECT_EQ(1, BlendCanvas(scene.canvas, &kLargest, scene.other, &kPart, 255));
    EXPECT_TRUE(Same(expected, scene.canvas.Pixels()));
    EXPECT_EQ(1, FillSolidRect(scene.canvas, 0xFF102030, &kTooWide)) << "fills have no such end";
    EXPECT_EQ(0xFF102030, scene.canvas.Pixels().At(19, 8));
}

TEST(Extremes, MarginsScalesAndFlags) {
    using Limits = std::numeric_limits<float>;
    constexpr float kInfinity = Limits::infinity(), kNaN = Limits::quiet_NaN();
    constexpr float kScales[] = {1.0f, 0.0f, -1.0f, 1e30f, -1e30f, 1e-30f, kInfinity, -kInfinity, kNaN};
    constexpr RECT kDests[] = {{2, 2, 22, 19}, {kLow, kLow, kHigh, kHigh}};
    const Scene scene(CanvasKind::Memory);
    DWORD round = 0;
    ForEachRect([&](const RECT &margins) {
        const float scale = kScales[++round % std::size(kScales)];
        for (const RECT &dest : kDests) {
            EXPECT_EQ(0, DrawTextureTopTile(scene.canvas, &dest, scene.texture, nullptr, &margins, 1, 255));
            for (const int hollow : {0, 1}) {
                EXPECT_EQ(1, DrawTexture9Grid(scene.canvas, &dest, scene.texture, &kPart, &margins, 1, hollow, 200,
                                              round, scale, 0));
                EXPECT_EQ(1, DrawTexture9Grid(scene.canvas, &dest, scene.texture, &kPart, &margins, 0, hollow, 255,
                                              round, scale, 1));
            }
            EXPECT_EQ(0, DrawTextureTile(scene.canvas, &dest, scene.texture, &kPart, 1, 255, round, scale));
        }
    });
    scene.ExpectOutsideUntouched();
}

TEST(Extremes, Origins) {
    for (const CanvasKind kind : {CanvasKind::Memory, CanvasKind::System}) {
        const Scene scene(kind);
        ForEachRect([&](const RECT &origins) {
            SetViewportOrg(scene.canvas, origins.left, origins.top, nullptr);
            SetWindowOrg(scene.canvas, origins.right, origins.bottom, nullptr);
            for (const RECT &dest : {kPart, RECT{kLow, kLow, kHigh, kHigh}, RECT{kHigh - 9, kHigh - 9, kHigh, kHigh}}) {
                FillSolidRect(scene.canvas, 0x80123456, &dest);
                DrawBitmap(scene.canvas, &dest, scene.bitmap, 1);
                BlendCanvas(scene.canvas, &dest, scene.other, &kPart, 255);
                DrawModulation(scene.canvas, dest.left, dest.top, scene.bitmap, nullptr, 0xFF445566);
                DrawTexture9Grid(scene.canvas, &dest, scene.texture, nullptr, &kMargins, 1, 1, 255, 0, 1.0f, 0);
                DrawTextureTile(scene.canvas, &dest, scene.texture, nullptr, 1, 255, 0, 1.0f);
            }
        });
        // Near the ends the clip box of a device context is only as exact as the system's own arithmetic.
        if (kind == CanvasKind::Memory) scene.ExpectOutsideUntouched();
    }
}

}  // namespace
}  // namespace lacquer
