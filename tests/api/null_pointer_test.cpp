// Null where a record or a rectangle is required, and where it has a meaning of its own.

#include <gtest/gtest.h>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

class NullPointerTest : public testing::Test {
protected:
    const OwnedBitmap bitmap_ = NoisyBitmap(3, 3, 1);
    const OwnedTexture texture_ = NoisyTexture(3, 3, 2);
    const OwnedCanvas canvas_ = NoisyCanvas(3, 3, 3), other_ = NoisyCanvas(3, 3, 4);
    const RECT rect_{0, 0, 2, 2};
};

TEST_F(NullPointerTest, IsRefusedWhereARecordIsRequired) {
    const std::vector<uint32_t> before = PixelsIn(canvas_);
    EXPECT_EQ(0, GetBitmapSize(bitmap_, nullptr));
    EXPECT_EQ(0, LockBitmapBits(bitmap_, nullptr, &rect_));
    EXPECT_EQ(0, LockBitmapBitsEx(bitmap_, nullptr, nullptr));
    EXPECT_EQ(0, GetBitmapFilter(bitmap_, nullptr));
    EXPECT_EQ(0, GetBitmapBitsPixel(bitmap_, nullptr));

    EXPECT_EQ(0, GetTextureSize(texture_, nullptr));
    EXPECT_EQ(0, LockTextureBits(texture_, nullptr, nullptr));
    EXPECT_EQ(0, LockTextureBitsEx(texture_, nullptr, &rect_));
    EXPECT_EQ(0, GetTextureFilter(texture_, nullptr));
    EXPECT_EQ(0, GetTextureBitsPixel(texture_, nullptr));
    EXPECT_EQ(0, SetTextureMode(texture_, nullptr));
    EXPECT_EQ(0, GetTextureMode(texture_, nullptr));
    EXPECT_EQ(0u, SetTextureSlice(texture_, 1, nullptr));
    EXPECT_EQ(0, GetTextureCurSlice(texture_, nullptr));

    EXPECT_EQ(0, LockCanvasBits(canvas_, nullptr, nullptr));
    EXPECT_EQ(0, LockCanvasBitsEx(canvas_, nullptr, &rect_));
    EXPECT_EQ(0, GetCanvasSize(canvas_, nullptr));
    EXPECT_EQ(0, GetViewportOrg(canvas_, nullptr));
    EXPECT_EQ(0, GetWindowOrg(canvas_, nullptr));
    EXPECT_EQ(0, GetCanvasFilter(canvas_, nullptr));
    EXPECT_EQ(0, GetCanvasBkColor(canvas_, nullptr));
    EXPECT_EQ(0, SetCanvasClipRect(canvas_, nullptr));
    EXPECT_EQ(0, IntersectCanvasClipRect(canvas_, nullptr));
    EXPECT_EQ(0, GetCanvasClipRect(canvas_, nullptr));
    EXPECT_EQ(Rect(0, 0, 3, 3), ClipOf(canvas_));

    EXPECT_EQ(0, FillSolidRect(canvas_, 0xFF112233, nullptr));
    EXPECT_EQ(0, FillSolidRectEx(canvas_, 0xFF112233, nullptr, 0));
    EXPECT_EQ(0, FillPreMulColorRectEx(canvas_, 0xFF112233, nullptr, 0));
    EXPECT_EQ(0, FillGradualRect(canvas_, 0xFF112233, 0xFF112233, nullptr, 1));
    EXPECT_EQ(0, FillGradualRect(canvas_, 0xFF112233, 0xFF445566, nullptr, 1));

    EXPECT_EQ(0, DrawBitmap(canvas_, nullptr, bitmap_, 0));
    EXPECT_EQ(0, DrawBitmapEx(canvas_, nullptr, bitmap_, 0, 255));
    EXPECT_EQ(0, DrawBitmapRectEx(canvas_, nullptr, bitmap_, &rect_, 0, 255));
    EXPECT_EQ(0, DrawTexture(canvas_, nullptr, texture_, 0));
    EXPECT_EQ(0, DrawTextureEx(canvas_, nullptr, texture_, 0, 255, 1.0f, 0));
    EXPECT_EQ(0, DrawTextureCenter(canvas_, nullptr, texture_, &rect_, 0, 255));
    EXPECT_EQ(0, DrawTextureTile(canvas_, nullptr, texture_, &rect_, 0, 255, 0, 1.0f));
    EXPECT_EQ(0, DrawTextureTopTile(canvas_, nullptr, texture_, &rect_, &rect_, 0, 255));
    EXPECT_EQ(0, DrawTextureTopTile(canvas_, &rect_, texture_, &rect_, nullptr, 0, 255));
    EXPECT_EQ(0, DrawTexture9Grid(canvas_, nullptr, texture_, &rect_, &rect_, 0, 0, 255, 0, 1.0f, 0));
    EXPECT_EQ(0, DrawTexture9Grid(canvas_, &rect_, texture_, &rect_, nullptr, 0, 0, 255, 0, 1.0f, 0));

    EXPECT_EQ(0, BlendCanvas(canvas_, nullptr, other_, &rect_, 255));
    EXPECT_EQ(0, BlendCanvas(canvas_, &rect_, other_, nullptr, 255));
    const Dib dib(3, 3);
    const MemoryDC dc(dib.Handle());
    EXPECT_EQ(0, GdiTransCanvas(dc, nullptr, other_, &rect_, 255));
    EXPECT_EQ(0, GdiTransCanvas(dc, &rect_, other_, nullptr, 255));
    EXPECT_EQ(before, PixelsIn(canvas_));
}

TEST_F(NullPointerTest, IsRefusedByVectorDrawing) {
    const std::vector<uint32_t> before = PixelsIn(canvas_);
    const WORD glyph = 1;
    const velPointF position{};
    EXPECT_EQ(0, DrawPolygon(canvas_, 3, nullptr));
    EXPECT_EQ(0, DrawPath(canvas_, nullptr));
    EXPECT_EQ(0, DrawLottie(canvas_, nullptr, 0, 0, 0, 2, 2));
    EXPECT_EQ(0, DrawPosTextByGlyphs(canvas_, nullptr, 1, &position));
    EXPECT_EQ(0, DrawPosTextByGlyphs(canvas_, &glyph, 1, nullptr));
    EXPECT_EQ(0, SetGradient(canvas_, nullptr));
    EXPECT_EQ(0, SetDashPattern(canvas_, nullptr, 2, 0));
    EXPECT_EQ(0, SetFontFaceName(canvas_, nullptr));
    EXPECT_FALSE(GetTextureFromVelCanvas(nullptr));

    velPath *path = PathCreate();
    EXPECT_EQ(0, PathGetBounds(path, nullptr));
    EXPECT_EQ(1, PathDestroy(path));
    velRectF bounds{};
    EXPECT_EQ(0, PathGetBounds(nullptr, &bounds));
    EXPECT_EQ(0, PathDestroy(nullptr));
    EXPECT_EQ(0, PathBegin(nullptr));
    EXPECT_EQ(0, PathClose(nullptr));
    EXPECT_EQ(0, PathSetFillType(nullptr, 0));
    EXPECT_EQ(0, PathMoveTo(nullptr, 1, 1));
    EXPECT_EQ(0, PathLineTo(nullptr, 1, 1));
    EXPECT_EQ(0, PathArcTo(nullptr, 0, 0, 1, 1, 0, 90, 0));
    EXPECT_EQ(0, PathOvalCurveTo(nullptr, 1, 1, 0, 0, 0, 2, 2));
    EXPECT_EQ(0, PathBezierCurveTo(nullptr, 1, 1, 2, 2, 3, 3));
    EXPECT_EQ(0, PathQuadraticCurveTo(nullptr, 1, 1, 2, 2));
    EXPECT_EQ(0, PathAddArc(nullptr, 0, 0, 1, 1, 0, 90));
    EXPECT_EQ(0, PathAddRectangle(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(0, PathAddCircle(nullptr, 1, 1, 1));
    EXPECT_EQ(0, PathAddEllipse(nullptr, 1, 1, 2, 1));
    EXPECT_EQ(0, GradientAddColorStop(nullptr, 0, 0));
    EXPECT_EQ(0, GradientDestroy(nullptr));
    EXPECT_EQ(before, PixelsIn(canvas_));
}

TEST_F(NullPointerTest, GivesNullForColourRecords) {
    RGBRecord rgb{1, 2, 3};
    HSLRecord hsl{1, 2, 3};
    EXPECT_EQ(nullptr, RGBtoHSL(nullptr, &rgb));
    EXPECT_EQ(nullptr, RGBtoHSL(&hsl, nullptr));
    EXPECT_EQ(nullptr, HSLtoRGB(nullptr, &hsl));
    EXPECT_EQ(nullptr, HSLtoRGB(&rgb, nullptr));
    EXPECT_EQ(nullptr, RGBColorize(nullptr, &rgb, 1, 1, 1));
    EXPECT_EQ(nullptr, RGBColorize(&rgb, nullptr, 1, 1, 1));
    EXPECT_EQ(nullptr, HSLColorize(nullptr, &hsl, 1, 1, 1));
    EXPECT_EQ(nullptr, HSLColorize(&hsl, nullptr, 1, 1, 1));
    EXPECT_EQ(1, rgb.b);
    EXPECT_EQ(1, hsl.l);
}

TEST_F(NullPointerTest, MeansEverythingOrNothingWantedElsewhere) {
    SurfaceView view{};
    EXPECT_EQ(1, LockBitmapBits(bitmap_, &view, nullptr));
    EXPECT_EQ(1, LockTextureBits(texture_, &view, nullptr));
    EXPECT_EQ(1, LockCanvasBits(canvas_, &view, nullptr));
    EXPECT_EQ(1, SetViewportOrg(canvas_, 0, 0, nullptr));
    EXPECT_EQ(1, SetWindowOrg(canvas_, 0, 0, nullptr));
    EXPECT_EQ(1, SetCanvasBkColor(canvas_, 0, nullptr));
    EXPECT_EQ(1, DrawBitmapRectEx(canvas_, &rect_, bitmap_, nullptr, 0, 255));
    EXPECT_EQ(1, CopyBitmap(bitmap_, nullptr, bitmap_, nullptr));
    EXPECT_EQ(1, DrawTextureCenter(canvas_, &rect_, texture_, nullptr, 0, 255));
    EXPECT_EQ(1, DrawTexture9Grid(canvas_, &rect_, texture_, nullptr, &rect_, 0, 0, 255, 0, 1.0f, 0));
    EXPECT_EQ(1, MixCanvasWithColor(canvas_, nullptr, 0x11223344, 255));
    EXPECT_EQ(std::vector<uint32_t>(9, 0x11223344), PixelsIn(canvas_));
    EXPECT_EQ(1, MixCanvas(canvas_, nullptr, other_, nullptr, 255));
    EXPECT_EQ(PixelsIn(other_), PixelsIn(canvas_));
    EXPECT_EQ(1, DrawModulation(canvas_, 0, 0, bitmap_, nullptr, 0xFFFFFFFF));
}

}  // namespace
}  // namespace lacquer
