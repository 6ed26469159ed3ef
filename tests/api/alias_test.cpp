// Several handles for one object, and what is left of them when one of them deletes it.

#include <gtest/gtest.h>

#include "objects.h"

namespace lacquer {
namespace {

constexpr RECT kPixel{0, 0, 1, 1};

class AliasTest : public testing::TestWithParam<bool> {
protected:
    HGCANVAS Create() const {
        const HGCANVAS canvas = GetParam() ? CreateSystemCanvas(5, 4, HGCANVAS{}) : CreateCanvas(5, 4, HGCANVAS{});
        FillWithNoise(ViewOf(canvas), 3);
        return canvas;
    }
};

INSTANTIATE_TEST_SUITE_P(MemoryAndSystem, AliasTest, testing::Bool());

TEST_P(AliasTest, GetBitmapNamesTheCanvassPixels) {
    const OwnedCanvas canvas(Create());
    const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas);
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_EQ(ViewOf(canvas).bits, ViewOf(first).bits);
    ReleaseBitmap(first);
    EXPECT_FALSE(IsLive(first));
    EXPECT_TRUE(IsLive(second));
    EXPECT_EQ(20u, PixelsIn(second).size());
    ReleaseBitmap(second);
    EXPECT_EQ(20u, PixelsIn(canvas).size());
}

TEST_P(AliasTest, DieWithTheirCanvas) {
    const HGCANVAS canvas = Create();
    const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas);
    DeleteCanvas(canvas);
    EXPECT_FALSE(IsLive(first));
    EXPECT_FALSE(IsLive(second));
    DeleteBitmap(first);
    ReleaseBitmap(second);
}

TEST_P(AliasTest, DeletingOneEmptiesTheCanvasForGood) {
    for (const bool withDC : {false, true}) {
        const OwnedCanvas canvas(Create());
        if (withDC) {
            ASSERT_NE(nullptr, GetCanvasHandle(canvas));
        }
        const HGBITMAP first = GetBitmap(canvas), second = GetBitmap(canvas);
        DeleteBitmap(first);
        EXPECT_FALSE(IsLive(first));
        SurfaceView view{};
        SIZE size{-1, -1};
        EXPECT_EQ(0, LockCanvasBits(canvas, &view, nullptr));
        EXPECT_EQ(0, LockCanvasBitsEx(canvas, &view, &kPixel));
        EXPECT_EQ(0, LockBitmapBits(second, &view, nullptr));
        EXPECT_EQ(1, GetBitmapSize(second, &size));
        EXPECT_EQ(0, size.cx);
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

TEST_P(AliasTest, BecomeAliasesOfTheBitmapThatTheCanvasBecomes) {
    const HGCANVAS canvas = Create();
    const HGBITMAP alias = GetBitmap(canvas);
    const HGBITMAP bitmap = CanvasToBitmap(canvas);
    ASSERT_TRUE(bitmap);
    EXPECT_TRUE(IsLive(alias));
    EXPECT_EQ(ViewOf(bitmap).bits, ViewOf(alias).bits);
    DeleteBitmap(alias);
    EXPECT_FALSE(IsLive(bitmap)) << "it was the same object";
    DeleteBitmap(bitmap);
}

TEST_P(AliasTest, TheCanvassFilterWordPrevailsOverTheAliass) {
    const HGCANVAS canvas = Create();
    SetCanvasFilter(canvas, 0x01000011);
    const HGBITMAP alias = GetBitmap(canvas);
    SetBitmapFilter(alias, 0x02000022);
    DWORD filter = 0;
    EXPECT_EQ(1, GetCanvasFilter(canvas, &filter));
    EXPECT_EQ(0x01000011u, filter);
    const OwnedBitmap bitmap(CanvasToBitmap(canvas));
    EXPECT_EQ(1, GetBitmapFilter(bitmap, &filter));
    EXPECT_EQ(0x01000011u, filter);
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
    EXPECT_EQ(pixels, PixelsIn(canvas));
    EXPECT_NE(nullptr, GetCanvasHandle(canvas));
    EXPECT_EQ(pixels, PixelsIn(canvas));
    ReleaseBitmap(alias);
}

TEST_P(AliasTest, ACanvasDeletedThroughItsAliasIsGoneUnderEveryHandle) {
    const OwnedCanvas child(Create());
    const HGCANVAS parent = Create();
    const HGBITMAP bitmap = GetBitmap(parent);
    SetCanvasParent(child, parent);
    const HGCANVAS first = GetCanvasParent(child), second = GetCanvasParent(child);
    DeleteCanvas(first);
    EXPECT_FALSE(IsLive(parent));
    EXPECT_FALSE(IsLive(second));
    EXPECT_FALSE(IsLive(bitmap));
    EXPECT_FALSE(GetCanvasParent(child));
    DeleteCanvas(parent);
    DeleteCanvas(second);
}

TEST_P(AliasTest, ACanvasConvertedThroughItsAliasIsGoneUnderEveryHandle) {
    const OwnedCanvas child(Create());
    const HGCANVAS parent = Create();
    SetCanvasParent(child, parent);
    const OwnedBitmap bitmap(CanvasToBitmap(GetCanvasParent(child)));
    EXPECT_FALSE(IsLive(parent));
    EXPECT_FALSE(GetCanvasParent(child));
    EXPECT_EQ(20u, PixelsIn(bitmap).size());
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
    EXPECT_EQ(0, e_DelHandleEntry(nullptr, 0));
}

TEST(HandleEntryTest, AHandleFreedByHandIsRefusedAndItsSlotServesAgain) {
    const OwnedCanvas canvas(CreateCanvas(2, 2, HGCANVAS{}));
    const HGBITMAP alias = GetBitmap(canvas);
    EXPECT_EQ(1, e_DelHandleEntry(nullptr, static_cast<DWORD>(alias.value)));
    EXPECT_FALSE(IsLive(alias));
    DeleteBitmap(alias);
    const OwnedBitmap next(CreateMemBitmap(3, 3));
    EXPECT_EQ(alias.value & 0xFFFF, HGBITMAP(next).value & 0xFFFF);
    EXPECT_FALSE(IsLive(alias));
    EXPECT_EQ(4u, PixelsIn(canvas).size());
}

TEST(HandleEntryTest, OldHandlesMatchAgainAfter256Deletions) {
    HGBITMAP first = CreateMemBitmap(1, 1), last{};
    DeleteBitmap(first);
    for (int i = 0; i < 255; ++i) {
        last = CreateMemBitmap(1, 1);
        EXPECT_NE(first, last);
        EXPECT_FALSE(IsLive(first));
        DeleteBitmap(last);
    }
    last = CreateMemBitmap(1, 1);
    EXPECT_EQ(first, last);
    DeleteBitmap(last);
}

}  // namespace
}  // namespace lacquer
