// Rectangles from the ends of the number range, in every field, through locks, copies, sources and slices.

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

bool IsInside(const RECT &rect) {
    return rect.left >= 0 && rect.top >= 0 && rect.right <= kSide && rect.bottom <= kSide && rect.left < rect.right &&
           rect.top < rect.bottom;
}

TEST(ExtremeRectTest, OnlyThoseInsideAreLockedCopiedOrDrawnFrom) {
    const OwnedBitmap bitmap = NoisyBitmap(kSide, kSide, 1), copy = NoisyBitmap(kSide, kSide, 2);
    const OwnedCanvas canvas(CreateCanvas(kSide, kSide, {}));
    const OwnedTexture texture = NoisyTexture(kSide, kSide, 3);
    const std::vector<uint32_t> pixels = PixelsIn(copy), blank(kSide * kSide);
    const RECT all{0, 0, kSide, kSide};
    ForEachRect([&](const RECT &rect) {
        SurfaceView view{};
        ASSERT_EQ(IsInside(rect), LockBitmapBits(bitmap, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockTextureBitsEx(texture, &view, &rect));
        ASSERT_EQ(IsInside(rect), LockCanvasBits(canvas, &view, &rect));
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

}  // namespace
}  // namespace lacquer
