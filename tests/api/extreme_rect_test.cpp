// Rectangles from the ends of the number range, in every field, through every function that takes one.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "objects.h"

namespace lacquer {
namespace {

constexpr LONG kSide = 6;
constexpr LONG kEdges[] = {INT_MIN, INT_MIN + 1, -3, 0, 2, kSide, INT_MAX - 1, INT_MAX};

/// Calls `function` for every rectangle whose fields are edges.
template <class Function>
void ForEachRect(Function function) {
    for (const LONG left : kEdges) {
        for (const LONG top : kEdges) {
            for (const LONG right : kEdges) {
                for (const LONG bottom : kEdges) function(RECT{left, top, right, bottom});
            }
        }
    }
}

int64_t WidthOf(const RECT &rect) { return int64_t{rect.right} - rect.left; }
int64_t HeightOf(const RECT &rect) { return int64_t{rect.bottom} - rect.top; }
bool IsInside(const RECT &rect) {
    return rect.left >= 0 && rect.top >= 0 && rect.right <= kSide && rect.bottom <= kSide && WidthOf(rect) > 0 &&
           HeightOf(rect) > 0;
}

TEST(ExtremeRectTest, DestinationsOfDraws) {
    const OwnedBitmap bitmap(CreateMemBitmap(3, 3));
    FillWith(ViewOf(bitmap), 0xFFFFFFFF);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, HGCANVAS{}));
    uint32_t round = 0;
    ForEachRect([&](const RECT &place) {
        // Under every sampler and draw mode in turn.
        constexpr DWORD kKernelModes[] = {0, 1, 4, 5};
        const DWORD kernelMode = kKernelModes[round % 4], mode = round / 4 % 2;
        ++round;
        SetBitmapFilter(bitmap, mode << 24);
        FillWith(ViewOf(canvas), 0);
        ASSERT_EQ(1, DrawBitmap(canvas, &place, bitmap, kernelMode));
        const bool draws =
            WidthOf(place) > 0 && HeightOf(place) > 0 && WidthOf(place) <= INT_MAX && HeightOf(place) <= INT_MAX;
        const SurfaceView view = ViewOf(canvas);
        for (LONG y = 0; y < kSide; ++y) {
            for (LONG x = 0; x < kSide; ++x) {
                const bool inside = draws && x >= place.left && x < place.right && y >= place.top && y < place.bottom;
                // Weights may round a channel of a filtered stretch down by a little.
                ASSERT_EQ(inside, PixelAt(view, x, y) > 0xF0000000)
                    << testing::PrintToString(Rect(place)) << " kernel mode " << kernelMode << " at " << x << ' ' << y;
            }
        }
    });
}

TEST(ExtremeRectTest, SourcesOfDrawsAndCopies) {
    const OwnedBitmap bitmap = NoisyBitmap(kSide, kSide, 1), copy = NoisyBitmap(kSide, kSide, 2);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, HGCANVAS{}));
    const OwnedTexture texture = NoisyTexture(kSide, kSide, 3);
    const std::vector<uint32_t> pixels = PixelsIn(copy), blank(kSide * kSide);
    const RECT all{0, 0, kSide, kSide};
    ForEachRect([&](const RECT &source) {
        if (IsInside(source)) return;
        ASSERT_EQ(1, DrawBitmapRectEx(canvas, &all, bitmap, &source, 1, 255));
        ASSERT_EQ(blank, PixelsIn(canvas));
        ASSERT_EQ(1, CopyBitmap(copy, nullptr, bitmap, &source));
        ASSERT_EQ(1, CopyBitmap(copy, &source, bitmap, nullptr));
        ASSERT_EQ(pixels, PixelsIn(copy));
        // Slices may have their edges exchanged.
        const RECT ordered{std::min(source.left, source.right), std::min(source.top, source.bottom),
                           std::max(source.left, source.right), std::max(source.top, source.bottom)};
        SetTextureSlice(texture, 1, &source);
        ASSERT_EQ(IsInside(ordered), DrawTexture(canvas, &all, texture, 0)) << testing::PrintToString(Rect(source));
        FillWith(ViewOf(canvas), 0);
    });
}

TEST(ExtremeRectTest, Locks) {
    const OwnedBitmap bitmap = NoisyBitmap(kSide, kSide, 1);
    const OwnedTexture texture = NoisyTexture(kSide, kSide, 3);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, HGCANVAS{}));
    ForEachRect([&](const RECT &rect) {
        SurfaceView view{};
        ASSERT_EQ(IsInside(rect), LockBitmapBits(bitmap, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockTextureBitsEx(texture, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockCanvasBits(canvas, &view, &rect));
    });
}

TEST(ExtremeRectTest, OriginsUnderDraws) {
    const OwnedBitmap bitmap(CreateMemBitmap(3, 3));
    FillWith(ViewOf(bitmap), 0xFFFFFFFF);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, HGCANVAS{}));
    for (const int viewport : kEdges) {
        for (const int window : kEdges) {
            SetViewportOrg(canvas, viewport, 0, nullptr);
            SetWindowOrg(canvas, window, 0, nullptr);
            for (const LONG left : kEdges) {
                for (const LONG right : kEdges) {
                    FillWith(ViewOf(canvas), 0);
                    const RECT place{left, 0, right, kSide};
                    ASSERT_EQ(1, DrawBitmap(canvas, &place, bitmap, 0));
                    const int64_t shift = int64_t{viewport} - window;
                    // Beyond the logical range the clip is cut off: there is no coordinate for what lies outside.
                    const int64_t first = std::max<int64_t>(left + shift, 0),
                                  last = std::min<int64_t>(right + shift, kSide);
                    if (shift > INT_MAX - kSide || shift < INT_MIN + kSide) continue;
                    const bool draws = WidthOf(place) > 0 && WidthOf(place) <= INT_MAX;
                    for (LONG x = 0; x < kSide; ++x) {
                        ASSERT_EQ(draws && x >= first && x < last ? 0xFFFFFFFF : 0, PixelAt(ViewOf(canvas), x, 2))
                            << viewport << ' ' << window << ' ' << left << ' ' << right << " at " << x;
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
