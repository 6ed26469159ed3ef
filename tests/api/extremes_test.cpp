// Rectangles and origins from the ends of the number range, through locks, copies, sources and slices.

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

#include "objects.h"
#include "support/memory_dc.h"

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

bool IsInside(const RECT &rect) {
    return rect.left >= 0 && rect.top >= 0 && rect.right <= kSide && rect.bottom <= kSide && rect.left < rect.right &&
           rect.top < rect.bottom;
}

/// Of a context's canvas any rectangle can be locked that memory holds.
bool IsSmall(const RECT &rect) {
    const int64_t width = int64_t{rect.right} - rect.left, height = int64_t{rect.bottom} - rect.top;
    return width > 0 && height > 0 && width < 100 && height < 100;
}

TEST(ExtremeRectTest, OnlyThoseInsideAreLockedCopiedOrDrawnFrom) {
    const OwnedBitmap bitmap = NoisyBitmap(kSide, kSide, 1), copy = NoisyBitmap(kSide, kSide, 2);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, {}));
    const OwnedTexture texture = NoisyTexture(kSide, kSide, 3);
    const Dib dib(kSide, kSide);
    const MemoryDC dc(dib.Handle());
    const OwnedCanvas foreign(CreateCanvasFromDC(dc));
    const std::vector<uint32_t> pixels = PixelsIn(copy), blank(kSide * kSide);
    const RECT all{0, 0, kSide, kSide};
    ForEachRect([&](const RECT &rect) {
        SurfaceView view{};
        ASSERT_EQ(IsInside(rect), LockBitmapBits(bitmap, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockTextureBitsEx(texture, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockCanvasBits(canvas, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockCanvasBitsEx(canvas, &view, &rect));
        ASSERT_EQ(IsSmall(rect), LockCanvasBits(foreign, &view, &rect));
        ASSERT_EQ(1, UnlockCanvasBits(foreign));
        if (IsInside(rect)) return;
        ASSERT_EQ(1, DrawBitmapRectEx(canvas, &all, bitmap, &rect, 1, 255));
        ASSERT_EQ(blank, PixelsIn(canvas));
        ASSERT_EQ(1, CopyBitmap(copy, nullptr, bitmap, &rect));
        ASSERT_EQ(1, CopyBitmap(copy, &rect, bitmap, nullptr));
        ASSERT_EQ(pixels, PixelsIn(copy));
        // Slices may have their edges exchanged.
        const RECT ordered{std::min(rect.left, rect.right), std::min(rect.top, rect.bottom),
                           std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
        SetTextureSlice(texture, 1, &rect);
        ASSERT_EQ(IsInside(ordered), DrawTexture(canvas, &all, texture, 0)) << testing::PrintToString(Rect(rect));
        FillWith(ViewOf(canvas), 0);
    });
}

TEST(ExtremeOriginTest, ReachesNoForeignPixels) {
    const Dib dib(kSide, kSide);
    const MemoryDC dc(dib.Handle());
    const OwnedCanvas memory(CreateCanvas(kSide, kSide, {})), system(CreateSystemCanvas(kSide, kSide, {})),
        foreign(CreateCanvasFromDC(dc));
    for (const HGCANVAS canvas : {HGCANVAS(memory), HGCANVAS(system), HGCANVAS(foreign)}) {
        for (const int viewport : {INT_MIN, -1, 0, INT_MAX}) {
            for (const int window : {INT_MIN, 0, 1, INT_MAX}) {
                SetViewportOrg(canvas, viewport, viewport, nullptr);
                SetWindowOrg(canvas, window, window, nullptr);
                for (const LONG from : std::initializer_list<LONG>{INT_MIN, -1, 0, 1, INT_MAX - kSide}) {
                    const RECT rect{from, from, from + kSide, from + kSide};
                    SurfaceView view{};
                    const bool locked = LockCanvasBits(canvas, &view, &rect);
                    if (canvas != foreign) {
                        EXPECT_EQ(int64_t{from} + viewport == window, locked) << viewport << ' ' << window;
                    }
                    if (locked) FillWith(view, 1);
                    UnlockCanvasBits(canvas);
                }
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
