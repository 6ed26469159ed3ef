// Locks of every rectangle, those from the ends of the number range included: which are refused, where the others lie,
// and what either writes.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

constexpr LONG kSide = 6;
constexpr LONG kEdges[] = {INT_MIN, INT_MIN + 1, -3, 0, 2, 4, kSide, INT_MAX - 1, INT_MAX};
constexpr size_t kPlain = sizeof(BITMAP), kAll = sizeof(SurfaceView);

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

/// A refused lock clears the fields that it would have written.
template <class Handle>
void ExpectRefused(int (*lock)(Handle, SurfaceView *, const RECT *), Handle handle, const RECT *rect, size_t fields) {
    SurfaceView record;
    BYTE expected[kAll] = {};
    std::memset(&record, 0xA5, kAll);
    std::memset(expected + fields, 0xA5, kAll - fields);
    ASSERT_EQ(0, lock(handle, &record, rect));
    ASSERT_EQ(0, std::memcmp(expected, &record, kAll)) << "not " << fields << " bytes are cleared";
}

/// Locks what lies in the surface, whose pixel (0, 0) is at `origin`, and no more.
template <class Handle>
void ExpectLocksInside(int (*lock)(Handle, SurfaceView *, const RECT *), Handle handle, size_t fields,
                       POINT origin = {0, 0}) {
    const SurfaceView whole = ViewOf(handle);
    ForEachRect([&](const RECT &edges) {
        const int64_t left = int64_t{edges.left} - origin.x, top = int64_t{edges.top} - origin.y;
        const bool isInside = left >= 0 && top >= 0 && left + edges.right - edges.left <= kSide &&
                              top + edges.bottom - edges.top <= kSide && edges.left < edges.right &&
                              edges.top < edges.bottom;
        if (!isInside) return ExpectRefused(lock, handle, &edges, fields);
        SurfaceView view{};
        ASSERT_EQ(1, lock(handle, &view, &edges));
        ASSERT_EQ((Size{edges.right - edges.left, edges.bottom - edges.top}), (Size{view.width, view.height}));
        ASSERT_EQ(static_cast<char *>(whole.bits) + top * whole.stride + left * (whole.bitsPerPixel / 8), view.bits);
        ASSERT_EQ(whole.stride, view.stride);
    });
}

TEST(LockTest, TakesWhatLiesInsideAndClearsTheRecordElse) {
    for (const DWORD depth : {8u, 24u, 32u}) {
        const OwnedBitmap bitmap(CreateMemBitmapEx(kSide, kSide, depth, 16));
        const OwnedTexture texture(CreateTextureEx(kSide, kSide, depth, 16));
        ExpectLocksInside<HGBITMAP>(LockBitmapBits, bitmap, kPlain);
        ExpectLocksInside<HGBITMAP>(LockBitmapBitsEx, bitmap, kAll);
        ExpectLocksInside<HGTEXTURE>(LockTextureBits, texture, kPlain);
        ExpectLocksInside<HGTEXTURE>(LockTextureBitsEx, texture, kAll);
    }
    for (const auto create : {CreateCanvas, CreateSystemCanvas}) {
        const OwnedCanvas canvas(create(kSide, kSide, {}));
        ExpectLocksInside<HGCANVAS>(LockCanvasBits, canvas, kPlain);
        SetViewportOrg(canvas, 10, 20, nullptr);
        SetWindowOrg(canvas, 8, 24, nullptr);
        ExpectLocksInside<HGCANVAS>(LockCanvasBitsEx, canvas, kAll, {-2, 4});
    }
}

TEST(LockTest, OfADeviceContextTakesWhatMemoryHolds) {
    const Dib dib(kSide, kSide);
    const MemoryDC dc(dib.Handle());
    const OwnedCanvas canvas(CreateCanvasFromDC(dc));
    ExpectRefused<HGCANVAS>(LockCanvasBits, canvas, nullptr, kPlain);
    ExpectRefused<HGCANVAS>(LockCanvasBitsEx, canvas, nullptr, kAll);
    ForEachRect([&](const RECT &rect) {
        const int64_t width = int64_t{rect.right} - rect.left, height = int64_t{rect.bottom} - rect.top;
        ExpectRefused<HGCANVAS>(LockCanvasBitsEx, canvas, &rect, kAll);
        if (width <= 0 || height <= 0 || width > 99 || height > 99) {
            return ExpectRefused<HGCANVAS>(LockCanvasBits, canvas, &rect, kPlain);
        }
        SurfaceView view{};
        ASSERT_EQ(1, LockCanvasBits(canvas, &view, &rect));
        ASSERT_EQ(1, UnlockCanvasBits(canvas));
    });
}

}  // namespace
}  // namespace lacquer
