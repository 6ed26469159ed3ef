// Coordinates and numbers at both ends of their ranges, in every field: no operation draws outside the clip, and draws
// cover what their rectangles do.

#include <limits>

#include "painting.h"

namespace lacquer {
namespace {

constexpr LONG kLow = INT32_MIN, kHigh = INT32_MAX;
constexpr LONG kEnds[] = {kLow, kLow + 1, -5, 0, 9, 40, kHigh};
constexpr RECT kClip{4, 4, 20, 20}, kPart{1, 2, 15, 12}, kMargins{3, 2, 4, 5}, kWhole{0, 0, 24, 24};
constexpr float kInfinity = std::numeric_limits<float>::infinity(), kNaN = std::numeric_limits<float>::quiet_NaN();

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
    Sheet sheet{16, 16, 32, 3, kOver};
    Picture before;
    mutable Random random{7};

    explicit Scene(CanvasKind kind)
        : canvas(kind, 24, 24, 1), other(CanvasKind::Memory, 16, 16, 2), before(canvas.Pixels()) {
        SetCanvasClipRect(canvas, &kClip);
    }

    float Number() const {
        return random.Of({1.0f, 0.004f, 7.3f, -1.0f, 1e9f, 3e38f, -1e30f, 1e-30f, kInfinity, -kInfinity, kNaN});
    }
    DWORD Kernel() const { return random.Of<DWORD>({0, 1, 4, 5}); }
};

/// What a call does with a rectangle.
using Call = void (*)(const Scene &s, const RECT &rect);

constexpr Call kCalls[] = {
    // As the destination, as the source, and as both.
    [](const Scene &s, const RECT &r) { DrawBitmapEx(s.canvas, &r, s.sheet.bitmap, s.Kernel(), 200); },
    [](const Scene &s, const RECT &r) { FillSolidRect(s.canvas, 0x80123456, &r); },
    [](const Scene &s, const RECT &r) { FillGradualRect(s.canvas, 0x80123456, 0xFFFFFFFF, &r, 0); },
    [](const Scene &s, const RECT &r) { BlendCanvas(s.canvas, &r, s.other, &kPart, 200); },
    [](const Scene &s, const RECT &r) { BlendCanvas(s.canvas, &r, s.other, &r, 255); },
    [](const Scene &s, const RECT &r) { DrawBitmapRectEx(s.canvas, &kWhole, s.sheet.bitmap, &r, 1, 255); },
    [](const Scene &s, const RECT &r) { DrawModulation(s.canvas, r.left, r.top, s.sheet.bitmap, &r, 0x80123456); },
    [](const Scene &s, const RECT &r) { GeoRoundRect(s.canvas, &r, ~0u, 0x80FF0000, r.left, r.top); },
    [](const Scene &s, const RECT &r) {
        const float radius = s.Number(), width = s.Number();
        const ShadowStyle shadow{0x80102030, r.top,     r.bottom, s.Number(), s.Number(), {5, radius, 0, width},
                                 s.Number(), s.Kernel()};
        DrawShadows(s.canvas, &r, &shadow, 1);
        const GeoRect any{s.Number(), s.Number(), s.Number(), s.Number()};
        const GeoStyle style{0x80FF0000, 0xFF00FF00, width, {radius, s.Number(), 0, 5}};
        GeoRoundRectEx(s.canvas, &any, &style, s.random.Word());
        GeoRectFocusEx(s.canvas, &any, ~0u, width, radius, s.Number(), s.Number());
    },
    // As the destination and the slice of every layout, and as margins.
    [](const Scene &s, const RECT &r) {
        for (DWORD mode = 0; mode <= 5; ++mode) {
            const TextureMode record{mode, mode * 7 & 0x1F, mode == 1 ? r : kMargins};
            SetTextureMode(s.sheet.texture, &record);
            SetTextureSlice(s.sheet.texture, 1, mode % 2 ? &kPart : &r);
            DrawTextureEx(s.canvas, &r, s.sheet.texture, 1, 255, 1.5f, mode == 1);
            DrawTextureEx(s.canvas, &kWhole, s.sheet.texture, s.Kernel(), 200, s.Number(), mode == 4);
        }
    },
};

TEST(Extremes, NothingIsDrawnOutsideTheClip) {
    for (const CanvasKind kind : kCanvasKinds) {
        const Scene scene(kind);
        ForEachRect([&](const RECT &rect) {
            for (const Call &call : kCalls) call(scene, rect);
        });
        ExpectSameOutside(kClip, scene.before, scene.canvas.Pixels());
        ForEachRect([&](const RECT &origins) {
            SetViewportOrg(scene.canvas, origins.left, origins.top, nullptr);
            SetWindowOrg(scene.canvas, origins.right, origins.bottom, nullptr);
            for (const RECT &dest : {kPart, RECT{kLow, kLow, kHigh, kHigh}, RECT{kHigh - 9, kHigh - 9, kHigh, kHigh}}) {
                for (const Call &call : kCalls) call(scene, dest);
            }
        });
        // Near the ends the clip box of a device context is only as exact as the system's own arithmetic.
        if (kind == CanvasKind::Memory) ExpectSameOutside(kClip, scene.before, scene.canvas.Pixels());
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
