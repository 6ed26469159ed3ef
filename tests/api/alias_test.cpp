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

TEST_P(AliasTest, GetBitmapNamesTheCanvassPixelsWhileItLives) {
    const HGCANVAS canvas = Create();
    const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas), third = GetBitmap(canvas);
    EXPECT_NE(first, second);
    EXPECT_EQ(ViewOf(canvas).bits, ViewOf(first).bits);
    ReleaseBitmap(first);
    EXPECT_FALSE(IsLive(first));
    EXPECT_EQ(PixelsIn(canvas), PixelsIn(second));
    DeleteCanvas(canvas);
    EXPECT_FALSE(IsLive(second));
    DeleteBitmap(second);
    ReleaseBitmap(third);
}

TEST_P(AliasTest, DeletingOneEmptiesTheCanvasForGood) {
    for (const bool withDC : {false, true}) {
        const OwnedCanvas canvas(Create());
        EXPECT_TRUE(!withDC || GetCanvasHandle(canvas));
        const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas);
        SetBitmapFilter(first, 0x01000011);
        DeleteBitmap(first);
        EXPECT_FALSE(IsLive(first));
        EXPECT_EQ(0u, FilterOf(second)) << "nothing is left";
        SurfaceView view{};
        EXPECT_EQ(0, LockCanvasBits(canvas, &view, nullptr));
        EXPECT_EQ(0, LockCanvasBitsEx(canvas, &view, &kPixel));
        EXPECT_EQ(0, LockBitmapBits(second, &view, nullptr));
        EXPECT_EQ((std::array<LONG, 2>{0, 0}), SizeOf(second));
        EXPECT_EQ(nullptr, GetBitmapHandle(second));
        EXPECT_FALSE(ResizeBitmap(second, 3, 0, 0));
        EXPECT_FALSE(TransformBitmap(second, 1));
        EXPECT_FALSE(GetTexture(canvas));
        EXPECT_FALSE(CanvasToBitmap(canvas));
        EXPECT_FALSE(CanvasToTexture(canvas));
        EXPECT_FALSE(BitmapToTexture(second));
        const OwnedBitmap source = NoisyBitmap(2, 2, 1);
        EXPECT_EQ(1, DrawBitmap(canvas, &kPixel, source, 0));
        EXPECT_EQ(1, CopyBitmap(second, nullptr, source, nullptr));
        EXPECT_EQ(1, CopyBitmap(source, nullptr, second, nullptr));
        EXPECT_EQ(1, SetCanvasClipRect(canvas, &kPixel));
        HDC dc = GetCanvasHandle(canvas);
        if (dc) PatBlt(dc, 0, 0, 5, 4, WHITENESS);
    }
}

TEST_P(AliasTest, BelongToTheBitmapThatTheCanvasBecomesWithItsFilterWord) {
    const HGCANVAS canvas = Create();
    SetCanvasFilter(canvas, 0x01000011);
    const HGBITMAP alias = GetBitmap(canvas);
    SetBitmapFilter(alias, 0x02000022);
    EXPECT_EQ(0x01000011u, FilterOf(canvas));
    const HGBITMAP bitmap = CanvasToBitmap(canvas);
    EXPECT_EQ(0x01000011u, FilterOf(bitmap));
    EXPECT_EQ(ViewOf(bitmap).bits, ViewOf(alias).bits);
    DeleteBitmap(alias);
    EXPECT_FALSE(IsLive(bitmap)) << "it was the same object";
    DeleteBitmap(bitmap);
}

TEST_P(AliasTest, AreRefusedOnceTheirPixelsAreATexture) {
    const HGCANVAS canvas = Create();
    const HGBITMAP alias = GetBitmap(canvas);
    const OwnedTexture texture(CanvasToTexture(canvas));
    EXPECT_FALSE(IsLive(alias));
    EXPECT_EQ(20u, PixelsIn(texture).size());

    const OwnedCanvas other(Create());
    const OwnedTexture taken(BitmapToTexture(GetBitmap(other)));
    EXPECT_EQ(20u, PixelsIn(taken).size());
    SurfaceView view{};
    EXPECT_EQ(0, LockCanvasBits(other, &view, nullptr)) << "the canvas is left empty";
}

TEST_P(AliasTest, ConversionThroughOneMovesTheCanvas) {
    const OwnedCanvas canvas(Create());
    const std::vector<uint32_t> pixels = PixelsIn(canvas);
    const HGBITMAP alias = GetBitmap(canvas);
    ASSERT_NE(nullptr, GetBitmapHandle(alias));
    EXPECT_EQ(ViewOf(alias).bits, ViewOf(canvas).bits);
    EXPECT_NE(nullptr, GetCanvasHandle(canvas));
    EXPECT_EQ(pixels, PixelsIn(canvas));
    ReleaseBitmap(alias);
}

TEST_P(AliasTest, ACanvasThatEndsThroughItsAliasIsGoneUnderEveryHandle) {
    for (const bool converted : {false, true}) {
        const OwnedCanvas child(Create());
        const HGCANVAS parent = Create();
        const HGBITMAP bitmap = GetBitmap(parent);
        SetCanvasParent(child, parent);
        const HGCANVAS first = GetCanvasParent(child), second = GetCanvasParent(child);
        if (converted) {
            DeleteBitmap(CanvasToBitmap(first));
        } else {
            DeleteCanvas(first);
        }
        for (const HGCANVAS handle : {parent, first, second}) EXPECT_FALSE(IsLive(handle));
        EXPECT_FALSE(IsLive(bitmap));
        EXPECT_FALSE(GetCanvasParent(child));
        DeleteCanvas(parent);
        DeleteCanvas(second);
    }
}

TEST(HandleEntryTest, TheTableNamesButNeverOwns) {
    int object = 0;
    const DWORD handle = e_NewHandleEntry(nullptr, 0x102, &object);
    EXPECT_EQ(0x20000u, handle & 0xFF0000);
    EXPECT_EQ(1, e_DelHandleEntry(nullptr, handle));
    EXPECT_EQ(0, e_DelHandleEntry(nullptr, handle));
    const DWORD next = e_NewHandleEntry(reinterpret_cast<HandleTable *>(&object), 2, &object);
    EXPECT_EQ(handle & 0xFFFF, next & 0xFFFF) << "one table, whatever table is named";
    EXPECT_EQ(((handle >> 24) + 1) & 0xFF, next >> 24);
    EXPECT_EQ(1, e_DelHandleEntry(reinterpret_cast<HandleTable *>(&object), next));
}

TEST(HandleEntryTest, AHandleFreedByHandIsRefusedAndItsSlotServesAgain) {
    const OwnedCanvas canvas(CreateCanvas(2, 2, {}));
    const HGBITMAP alias = GetBitmap(canvas);
    EXPECT_EQ(1, e_DelHandleEntry(nullptr, static_cast<DWORD>(alias.value)));
    EXPECT_FALSE(IsLive(alias));
    DeleteBitmap(alias);
    const OwnedBitmap next(CreateMemBitmap(3, 3));
    EXPECT_EQ(alias.value & 0xFFFF, HGBITMAP(next).value & 0xFFFF);
    EXPECT_FALSE(IsLive(alias));
    EXPECT_EQ(4u, PixelsIn(canvas).size());
}

}  // namespace
}  // namespace lacquer
