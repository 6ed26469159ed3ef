// Several handles for one object, and what is left of them when one of them deletes it.

#include <gtest/gtest.h>

#include "objects.h"

namespace lacquer {
namespace {

constexpr RECT kPixel{0, 0, 1, 1};

class AliasTest : public BothStorages {
protected:
    static HGCANVAS Create() { return Noisy(BothStorages::Create(5, 4), 3); }
};

INSTANTIATE_TEST_SUITE_P(MemoryAndSystem, AliasTest, testing::Bool());

TEST_P(AliasTest, DeletingOneEmptiesTheCanvasForGood) {
    for (const bool withDC : {false, true}) {
        const OwnedCanvas canvas(Create());
        EXPECT_TRUE(!withDC || GetCanvasHandle(canvas));
        const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas), released = GetBitmap(canvas);
        EXPECT_EQ(ViewOf(canvas).bits, ViewOf(second).bits);
        ReleaseBitmap(released);
        EXPECT_FALSE(IsLive(released));
        SetBitmapFilter(first, 0x01000011);
        DeleteBitmap(first);
        EXPECT_FALSE(IsLive(first));
        EXPECT_EQ(0u, FilterOf(second)) << "nothing is left";
        EXPECT_EQ((Size{0, 0}), SizeOf(second));
        SurfaceView view{};
        EXPECT_EQ(0, LockCanvasBits(canvas, &view, nullptr) | LockBitmapBits(second, &view, nullptr));
        EXPECT_EQ(nullptr, GetBitmapHandle(second));
        EXPECT_FALSE(ResizeBitmap(second, 3, 0, 0) || TransformBitmap(second, 1) || BitmapToTexture(second));
        EXPECT_FALSE(GetTexture(canvas) || CanvasToBitmap(canvas) || CanvasToTexture(canvas));
        EXPECT_EQ(1, FillSolidRect(canvas, 1, &kPixel) & CopyBitmap(second, nullptr, second, nullptr));
    }
}

TEST(HandleEntryTest, TheTableNamesButNeverOwns) {
    const OwnedCanvas canvas(CreateCanvas(2, 2, {}));
    const HGBITMAP alias = GetBitmap(canvas);
    EXPECT_EQ(1, e_DelHandleEntry(nullptr, static_cast<DWORD>(alias.value)));
    EXPECT_FALSE(IsLive(alias));
    int object = 0;
    const DWORD next = e_NewHandleEntry(reinterpret_cast<HandleTable *>(&object), 0x102, &object);
    EXPECT_EQ((alias.value + 0x01000000) & 0xFFFFFFFF, next) << "one table, whatever table is named";
    EXPECT_EQ(1, e_DelHandleEntry(nullptr, next));
    EXPECT_EQ(4u, PixelsIn(canvas).size());
}

}  // namespace
}  // namespace lacquer
