// Canvases: their bitmap, the state stack, clip and translation.

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

#include "painting.h"

extern "C" DWORD PaintFromC(void);

namespace lacquer {
namespace {

constexpr uint32_t kBlack = 0xFF000000;

TEST(VelCanvasTest, PaintsFromC) { EXPECT_EQ(0xFF336699u, PaintFromC()); }

TEST(VelCanvasTest, RefusesBitmapsThatItCannotDrawOn) {
    alignas(8) uint32_t pixels[16] = {};
    char *bytes = reinterpret_cast<char *>(pixels);
    EXPECT_EQ(nullptr, velBitmapCreateFromData(nullptr, 2, 2, 8));
    EXPECT_EQ(nullptr, velBitmapCreateFromData(bytes + 1, 2, 2, 8));
    const velBitmapData kWrong[] = {{0, 2, 8, bytes},  {2, -1, 8, bytes}, {3, 2, 8, bytes},
                                    {2, 2, 10, bytes}, {2, 2, -8, bytes}, {INT_MAX, 1, INT_MAX - 3, bytes}};
    for (const auto &[width, height, stride, bits] : kWrong) {
        EXPECT_EQ(nullptr, velBitmapCreateFromData(bits, width, height, stride)) << width << ' ' << height;
    }
}

TEST(VelCanvasTest, DrawsNothingWithoutABitmap) {
    velCanvas *canvas = velCanvasCreate();
    velBitmapData data{};
    EXPECT_EQ(0, velCanvasLockBits(canvas, nullptr, &data));
    EXPECT_EQ(0, velCanvasUnlockBits(canvas, nullptr));
    EXPECT_EQ(0, velCanvasDrawColor(canvas, kBlack));
    EXPECT_EQ(0, velCanvasDrawLine(canvas, 0, 0, 1, 1));
    EXPECT_EQ(0, velCanvasDrawRectangle(canvas, 0, 0, 1, 1));
    EXPECT_EQ(1, velCanvasSetColor(canvas, kBlack));
    EXPECT_EQ(1, velCanvasDestroy(canvas));
}

TEST(VelCanvasTest, GoesToAnotherBitmapWithItsState) {
    Painting painting(4, 4);
    std::vector<uint32_t> other(6 * 2, 0x11111111);
    EXPECT_EQ(1, velCanvasSetColor(painting, 0xFF123456));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 1, 1));
    // Rows of six words, of which the bitmap has four.
    velBitmap *bitmap = velBitmapCreateFromData(other.data(), 4, 2, 24);
    EXPECT_EQ(1, velCanvasSetBitmap(painting, bitmap));
    EXPECT_EQ(1, velBitmapDestroy(bitmap));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, -100, 1, 1000, 100));
    EXPECT_EQ(1u, painting.Area());
    const uint32_t n = 0x11111111, c = 0xFF123456;
    EXPECT_EQ((std::vector<uint32_t>{n, n, n, n, n, n, c, c, c, c, n, n}), other);

    velBitmapData data{};
    const RECT reserved{1, 2, 3, 4};
    EXPECT_EQ(1, velCanvasLockBits(painting, &reserved, &data));
    EXPECT_EQ(std::tuple(4, 2, 24, other.data()), std::tuple(data.width, data.height, data.stride, data.bits));
    EXPECT_EQ(1, velCanvasUnlockBits(painting, &reserved));
}

TEST(VelCanvasTest, SeesWhatOthersDrewSinceItCleared) {
    Painting painting(8, 8);
    EXPECT_EQ(1, velCanvasSetBlendMode(painting, VEL_BLEND_CLEAR));
    EXPECT_EQ(1, velCanvasDrawColor(painting, kBlack));
    painting.Fill(0xFF00FF00);
    EXPECT_EQ(1, velCanvasSetBlendMode(painting, VEL_BLEND_SOURCE_OVER));
    EXPECT_EQ(1, velCanvasSetColor(painting, 0x80FF0000));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 8, 8));
    EXPECT_EQ(0xFF807F00u, painting.At(3, 3));
}

TEST(VelCanvasTest, RestoresEverythingSaved) {
    Painting painting(16, 16);
    ASSERT_EQ(1, velCanvasSave(painting));
    const float lengths[] = {1, 1};
    EXPECT_EQ(1, velCanvasSetColor(painting, 0xFFFFFFFF));
    UseGradient(painting, velGradientCreateLinear(0, 0, 16, 0), {});
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_STROKE));
    EXPECT_EQ(1, velCanvasSetSmooth(painting, 0));
    EXPECT_EQ(1, velCanvasSetBlendMode(painting, VEL_BLEND_XOR));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 7));
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 5));
    EXPECT_EQ(1, velCanvasSetStrokeCap(painting, VEL_CAP_ROUND));
    EXPECT_EQ(1, velCanvasSetStrokeJoin(painting, VEL_JOIN_ROUND));
    EXPECT_EQ(1, velCanvasSetDashPattern(painting, lengths, 2, 0));
    EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_PATTERN));
    EXPECT_EQ(1, velCanvasTranslate(painting, 3, 4));
    EXPECT_EQ(1, velCanvasClipRect(painting, 0, 0, 2, 2));
    EXPECT_EQ(DWORD{VEL_BLEND_XOR}, velCanvasGetBlendMode(painting));
    ASSERT_EQ(1, velCanvasRestore(painting));

    Painting fresh(16, 16);
    EXPECT_EQ(DWORD{VEL_BLEND_SOURCE_OVER}, velCanvasGetBlendMode(painting));
    EXPECT_EQ(255u, velCanvasGetBlendValue(painting));
    EXPECT_EQ(1.0f, velCanvasGetStrokeWidth(painting));
    for (const Painting *each : {&painting, &fresh}) {
        EXPECT_EQ(1, velCanvasDrawEllipse(*each, 8, 8, 6, 3));
        EXPECT_EQ(1, velCanvasDrawLine(*each, 0, 15, 14, 3));
        EXPECT_EQ(1, velCanvasDrawPoint(*each, 2, 2));
    }
    EXPECT_EQ(fresh.Pixels(), painting.Pixels());
}

TEST(VelCanvasTest, RefusesToRestoreMoreThanWasSaved) {
    Painting painting(4, 4);
    EXPECT_EQ(0, velCanvasRestore(painting));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 9));
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(1, velCanvasSave(painting));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 10));
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(1, velCanvasRestore(painting));
    EXPECT_EQ(9u, velCanvasGetBlendValue(painting));
    for (int i = 0; i < 3; ++i) EXPECT_EQ(0, velCanvasRestore(painting));
    EXPECT_EQ(9u, velCanvasGetBlendValue(painting));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 4, 4));
    EXPECT_EQ(9u, painting.AlphaAt(1, 1));
    EXPECT_EQ(1, velCanvasSave(painting));  // destroyed with a state still saved
}

TEST(VelCanvasTest, ClipsToIntersectedRectangles) {
    Painting painting(16, 16);
    EXPECT_EQ(1, velCanvasClipRect(painting, 2, 3, 10, 12));
    EXPECT_EQ(1, velCanvasTranslate(painting, 1.25f, -0.75f));
    EXPECT_EQ(1, velCanvasClipRect(painting, 3, INT_MIN, INT_MAX, 10));  // (4.25, ..., 9.25), rounded
    EXPECT_EQ(1, velCanvasDrawColor(painting, kBlack));
    ExpectBox(painting, {4, 3, 10, 9});
    EXPECT_EQ(36.0, painting.Area());
}

TEST(VelCanvasTest, DrawsNothingInAnEmptyClip) {
    Painting painting(8, 8);
    for (const RECT &clip : {RECT{3, 3, 3, 6}, RECT{6, 6, 2, 2}, RECT{8, 0, 20, 8}, RECT{INT_MAX, 0, INT_MIN, 8}}) {
        ASSERT_EQ(1, velCanvasSave(painting));
        EXPECT_EQ(1, velCanvasClipRect(painting, clip.left, clip.top, clip.right, clip.bottom));
        EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 8, 8));
        EXPECT_EQ(1, velCanvasDrawColor(painting, kBlack));
        ASSERT_EQ(1, velCanvasRestore(painting));
    }
    EXPECT_TRUE(painting.IsEmpty());
    EXPECT_EQ(1, velCanvasDrawColor(painting, kBlack));
    EXPECT_EQ(64.0, painting.Area());
}

TEST(VelCanvasTest, AddsTranslationsUpWithoutLoss) {
    Painting painting(8, 8);
    // Far away and back, as window and viewport origins do.
    EXPECT_EQ(1, velCanvasTranslate(painting, 2147483648.0f, -2147483648.0f));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 1, 1));
    EXPECT_TRUE(painting.IsEmpty());
    EXPECT_EQ(1, velCanvasTranslate(painting, 3, 2));
    EXPECT_EQ(1, velCanvasTranslate(painting, -2147483648.0f, 2147483648.0f));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 0, 0, 1, 1));
    EXPECT_EQ(kBlack, painting.At(3, 2));
    EXPECT_EQ(1.0, painting.Area());
}

TEST(VelCanvasTest, ReachesWhatItCanOfAHugeBitmap) {
    Painting painting(40000, 2);
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 32000, 0, 8000, 2));
    ExpectBox(painting, {32000, 0, 32767, 2});
}

}  // namespace
}  // namespace lacquer
