// Null where a record or a rectangle is required, and where it has a meaning of its own.

#include <gtest/gtest.h>

#include "objects.h"
#include "support/memory_dc.h"
#include "support/refusals.h"

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
    ExpectRefused(GetBitmapSize(bitmap_, nullptr), LockBitmapBits(bitmap_, nullptr, &rect_),
                  LockBitmapBitsEx(bitmap_, nullptr, nullptr), GetBitmapFilter(bitmap_, nullptr),
                  GetBitmapBitsPixel(bitmap_, nullptr));

    ExpectRefused(GetTextureSize(texture_, nullptr), LockTextureBits(texture_, nullptr, nullptr),
                  LockTextureBitsEx(texture_, nullptr, &rect_), GetTextureFilter(texture_, nullptr),
                  GetTextureBitsPixel(texture_, nullptr), SetTextureMode(texture_, nullptr),
                  GetTextureMode(texture_, nullptr), SetTextureSlice(texture_, 1, nullptr),
                  GetTextureCurSlice(texture_, nullptr));

    ExpectRefused(LockCanvasBits(canvas_, nullptr, nullptr), LockCanvasBitsEx(canvas_, nullptr, &rect_),
                  GetCanvasSize(canvas_, nullptr), GetViewportOrg(canvas_, nullptr), GetWindowOrg(canvas_, nullptr),
                  GetCanvasFilter(canvas_, nullptr), GetCanvasBkColor(canvas_, nullptr),
                  SetCanvasClipRect(canvas_, nullptr), IntersectCanvasClipRect(canvas_, nullptr),
                  GetCanvasClipRect(canvas_, nullptr));
    EXPECT_EQ(Rect(0, 0, 3, 3), ClipOf(canvas_));

    ExpectRefused(FillSolidRect(canvas_, 0xFF112233, nullptr), FillSolidRectEx(canvas_, 0xFF112233, nullptr, 0),
                  FillPreMulColorRectEx(canvas_, 0xFF112233, nullptr, 0),
                  FillGradualRect(canvas_, 0xFF112233, 0xFF112233, nullptr, 1),
                  FillGradualRect(canvas_, 0xFF112233, 0xFF445566, nullptr, 1));

    const GeoRect geoRect{0, 0, 2, 2};
    const GeoStyle style{0xFF112233, 0xFF112233, 1, {}};
    const ShadowStyle shadow{};
    ExpectRefused(GeoRectangle(canvas_, nullptr, 0xFF112233, 0, 1), GeoRoundRect(canvas_, nullptr, 0, 0, 1, 1),
                  GeoRectangleEx(canvas_, nullptr, &style, 0), GeoRectangleEx(canvas_, &geoRect, nullptr, 0),
                  GeoRoundRectEx(canvas_, nullptr, &style, 0), GeoRoundRectEx(canvas_, &geoRect, nullptr, 0),
                  GeoRectFocusEx(canvas_, nullptr, 0xFF112233, 1, 0, 1, 1), DrawShadows(canvas_, nullptr, &shadow, 1),
                  DrawShadows(canvas_, nullptr, nullptr, 0), DrawShadows(canvas_, &rect_, nullptr, 1));

    ExpectRefused(DrawBitmap(canvas_, nullptr, bitmap_, 0), DrawBitmapEx(canvas_, nullptr, bitmap_, 0, 255),
                  DrawBitmapRectEx(canvas_, nullptr, bitmap_, &rect_, 0, 255),
                  DrawTexture(canvas_, nullptr, texture_, 0),
                  DrawTextureEx(canvas_, nullptr, texture_, 0, 255, 1.0f, 0),
                  DrawTextureCenter(canvas_, nullptr, texture_, &rect_, 0, 255),
                  DrawTextureTile(canvas_, nullptr, texture_, &rect_, 0, 255, 0, 1.0f),
                  DrawTextureTopTile(canvas_, nullptr, texture_, &rect_, &rect_, 0, 255),
                  DrawTextureTopTile(canvas_, &rect_, texture_, &rect_, nullptr, 0, 255),
                  DrawTexture9Grid(canvas_, nullptr, texture_, &rect_, &rect_, 0, 0, 255, 0, 1.0f, 0),
                  DrawTexture9Grid(canvas_, &rect_, texture_, &rect_, nullptr, 0, 0, 255, 0, 1.0f, 0));

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
    ExpectRefused(DrawPolygon(canvas_, 3, nullptr), DrawPath(canvas_, nullptr),
                  DrawLottie(canvas_, nullptr, 0, 0, 0, 2, 2), DrawPosTextByGlyphs(canvas_, nullptr, 1, &position),
                  DrawPosTextByGlyphs(canvas_, &glyph, 1, nullptr), SetGradient(canvas_, nullptr),
                  SetDashPattern(canvas_, nullptr, 2, 0), SetFontFaceName(canvas_, nullptr));
    EXPECT_FALSE(GetTextureFromVelCanvas(nullptr));

    velPath *path = PathCreate();
    EXPECT_EQ(0, PathGetBounds(path, nullptr));
    EXPECT_EQ(1, PathDestroy(path));
    velRectF bounds{};
    ExpectRefused(PathGetBounds(nullptr, &bounds), PathDestroy(nullptr), PathBegin(nullptr), PathClose(nullptr),
                  PathSetFillType(nullptr, 0), PathMoveTo(nullptr, 1, 1), PathLineTo(nullptr, 1, 1),
                  PathArcTo(nullptr, 0, 0, 1, 1, 0, 90, 0), PathOvalCurveTo(nullptr, 1, 1, 0, 0, 0, 2, 2),
                  PathBezierCurveTo(nullptr, 1, 1, 2, 2, 3, 3), PathQuadraticCurveTo(nullptr, 1, 1, 2, 2),
                  PathAddArc(nullptr, 0, 0, 1, 1, 0, 90), PathAddRectangle(nullptr, 0, 0, 1, 1),
                  PathAddCircle(nullptr, 1, 1, 1), PathAddEllipse(nullptr, 1, 1, 2, 1),
                  GradientAddColorStop(nullptr, 0, 0), GradientDestroy(nullptr));
    EXPECT_EQ(before, PixelsIn(canvas_));
}

TEST_F(NullPointerTest, GivesNullForColourRecords) {
    RGBRecord rgb{1, 2, 3};
    HSLRecord hsl{1, 2, 3};
    ExpectRefused(RGBtoHSL(nullptr, &rgb), RGBtoHSL(&hsl, nullptr), HSLtoRGB(nullptr, &hsl), HSLtoRGB(&rgb, nullptr),
                  RGBColorize(nullptr, &rgb, 1, 1, 1), RGBColorize(&rgb, nullptr, 1, 1, 1),
                  HSLColorize(nullptr, &hsl, 1, 1, 1), HSLColorize(&hsl, nullptr, 1, 1, 1));
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
