// Canvases: their bitmap, the state stack, clip, translation and gradients.

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <tuple>

#include "painting.h"

namespace lacquer {
namespace {

constexpr uint32_t kBlack = 0xFF000000;

TEST(VelCanvasTest, RefusesBitmapsThatItCannotDrawOn) {
    alignas(8) uint32_t pixels[16] = {};
    char *bytes = reinterpret_cast<char *>(pixels);
    const velBitmapData kWrong[] = {
        {2, 2, 8, nullptr}, {2, 2, 8, bytes + 1}, {0, 2, 8, bytes},  {2, -1, 8, bytes},
        {3, 2, 8, bytes},   {2, 2, 10, bytes},    {2, 2, -8, bytes}, {INT_MAX, 1, INT_MAX - 3, bytes}};
    for (const auto &[width, height, stride, bits] : kWrong) {
        EXPECT_EQ(nullptr, velBitmapCreateFromData(bits, width, height, stride)) << width << ' ' << height;
    }
    velCanvas *canvas = velCanvasCreate();  // without a bitmap
    velBitmapData data{};
    EXPECT_EQ(0, velCanvasLockBits(canvas, nullptr, &data) | velCanvasUnlockBits(canvas, nullptr));
    EXPECT_TRUE(velCanvasSetColor(canvas, kBlack) && !velCanvasDrawColor(canvas, kBlack) && velCanvasDestroy(canvas));
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

TEST(VelCanvasTest, ReachesWhatItCanOfAHugeBitmap) {
    Painting painting(40000, 2);
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 32000, 0, 8000, 2));
    ExpectBox(painting, {32000, 0, 32767, 2});
}

TEST(VelCanvasTest, RestoresEverythingSaved) {
    Painting painting(16, 16), fresh(16, 16);
    EXPECT_EQ(0, velCanvasRestore(painting)) << "nothing was saved";
    EXPECT_EQ(1, velCanvasSave(painting));
    const float lengths[] = {1, 1};
    UseGradient(painting, velGradientCreateLinear(0, 0, 16, 0), {});
    for (const int result :
         {velCanvasSetColor(painting, 0xFFFFFFFF), velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_STROKE),
          velCanvasSetSmooth(painting, 0), velCanvasSetBlendMode(painting, VEL_BLEND_XOR),
          velCanvasSetBlendValue(painting, 7), velCanvasSetStrokeWidth(painting, 5),
          velCanvasSetStrokeCap(painting, VEL_CAP_ROUND), velCanvasSetStrokeJoin(painting, VEL_JOIN_ROUND),
          velCanvasSetDashPattern(painting, lengths, 2, 0), velCanvasSetDashStyle(painting, VEL_DASH_PATTERN),
          velCanvasTranslate(painting, 3, 4), velCanvasClipRect(painting, 0, 0, 2, 2)}) {
        EXPECT_EQ(1, result);
    }
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(1, velCanvasSave(painting));
    EXPECT_EQ(1, velCanvasSetBlendMode(painting, VEL_BLEND_PLUS));
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(1, velCanvasRestore(painting));
    EXPECT_EQ(std::tuple(DWORD{VEL_BLEND_XOR}, 7u, 5.0f),
              std::tuple(velCanvasGetBlendMode(painting), velCanvasGetBlendValue(painting),
                         velCanvasGetStrokeWidth(painting)));
    ASSERT_EQ(1, velCanvasRestore(painting));
    EXPECT_EQ(0, velCanvasRestore(painting));
    for (const Painting *each : {&painting, &fresh}) {
        EXPECT_EQ(1, velCanvasDrawEllipse(*each, 8, 8, 6, 3));
        EXPECT_EQ(1, velCanvasDrawLine(*each, 0, 15, 14, 3));
    }
    EXPECT_EQ(fresh.Pixels(), painting.Pixels());
    EXPECT_EQ(1, velCanvasSave(painting));  // destroyed with a state still saved
}

TEST(VelCanvasTest, ClipsToIntersectedRectangles) {
    Painting painting(16, 16), other(8, 8);
    EXPECT_EQ(1, velCanvasClipRect(painting, 2, 3, 10, 12));
    EXPECT_EQ(1, velCanvasTranslate(painting, 1.25f, -0.75f));
    EXPECT_EQ(1, velCanvasClipRect(painting, 3, INT_MIN, INT_MAX, 10));  // (4.25, ..., 9.25), rounded
    EXPECT_EQ(1, velCanvasDrawColor(painting, kBlack));
    ExpectBox(painting, {4, 3, 10, 9});
    EXPECT_EQ(36.0, painting.Area());
    for (const RECT &clip :
         {RECT{1, 1, 3, 3}, RECT{3, 3, 3, 6}, RECT{6, 6, 2, 2}, RECT{8, 0, 20, 8}, RECT{INT_MAX, 0, INT_MIN, 8}}) {
        ASSERT_EQ(1, velCanvasSave(other));
        EXPECT_EQ(1, velCanvasClipRect(other, clip.left, clip.top, clip.right, clip.bottom));
        EXPECT_EQ(1, velCanvasDrawRectangle(other, 0, 0, 8, 8));
        EXPECT_EQ(1, velCanvasDrawColor(other, kBlack));
        ASSERT_EQ(1, velCanvasRestore(other));
    }
    EXPECT_EQ(4.0, other.Area()) << "of the first clip";
    EXPECT_EQ(1, velCanvasDrawColor(other, kBlack));
    EXPECT_EQ(64.0, other.Area()) << "all of it again";
    EXPECT_EQ(1, velCanvasSetBlendMode(other, VEL_BLEND_SOURCE));
    EXPECT_EQ(1, velCanvasSetBlendValue(other, 128));
    EXPECT_EQ(1, velCanvasDrawColor(other, kBlack));
    EXPECT_EQ(128u, other.AlphaAt(2, 2));
}

TEST(VelCanvasTest, AddsTranslationsUpWithoutLoss) {
    Painting painting(8, 8);
    // Far away and back, as window and viewport origins do.
    for (const auto &[x, y] : {std::pair{2147483648.0f, -2147483648.0f}, {3.5f, 2}, {-2147483648.0f, 2147483648.0f}}) {
        EXPECT_EQ(1, velCanvasTranslate(painting, x, y));
        EXPECT_TRUE(painting.IsEmpty());
        EXPECT_EQ(1, velCanvasDrawRectangle(painting, -0.5f, 0, 1, 1));
    }
    EXPECT_EQ(kBlack, painting.At(3, 2));
    EXPECT_EQ(1.0, painting.Area());
}

TEST(VelGradientTest, RefusesWhatIsNoGradient) {
    for (const float bad : {NAN, INFINITY}) {
        EXPECT_EQ(nullptr, velGradientCreateLinear(bad, 0, 1, 1));
        EXPECT_EQ(nullptr, velGradientCreateLinear(0, 0, 1, bad));
        EXPECT_EQ(nullptr, velGradientCreateRadial(0, bad, 1));
    }
    for (const float radius : {0.0f, -1.0f}) EXPECT_EQ(nullptr, velGradientCreateRadial(0, 0, radius));
    velGradient *gradient = velGradientCreateLinear(0, 0, 1, 1);
    for (const float offset : {-0.1f, 1.1f, NAN, INFINITY}) EXPECT_EQ(0, velGradientAddColorStop(gradient, offset, 0));
    velGradientDestroy(gradient);
    for (const DWORD style : {VEL_STYLE_GRADIENT_FILL, VEL_STYLE_GRADIENT_STROKE}) {
        ExpectRefused("no gradient set", [&](velCanvas *canvas) {
            EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, style));
            const int result = velCanvasDrawRectangle(canvas, 0, 0, 9, 9);
            EXPECT_EQ(1, velCanvasSetDrawStyle(canvas, VEL_STYLE_FILL));
            return result;
        });
    }
}

}  // namespace
}  // namespace lacquer
