// Arguments that make no sense, at every function: refused, without a trace in what is drawn later.

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>

#include "painting.h"

namespace lacquer {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(VelBadInputTest, NullObjectsAreRefused) {
    velBitmapData data{};
    velPointF point{};
    velRectF rect{};
    velLottieInfo info{};
    WORD glyph = 1;
    const WCHAR name[] = {'a', 0};
    const float lengths[] = {1, 1};
    float number = 0;
    EXPECT_EQ(0, velCanvasDestroy(nullptr));
    EXPECT_EQ(0, velBitmapDestroy(nullptr));
    EXPECT_EQ(0, velCanvasSetBitmap(nullptr, nullptr));
    EXPECT_EQ(0, velCanvasLockBits(nullptr, nullptr, &data));
    EXPECT_EQ(0, velCanvasUnlockBits(nullptr, nullptr));
    EXPECT_EQ(0, velCanvasSave(nullptr));
    EXPECT_EQ(0, velCanvasRestore(nullptr));
    EXPECT_EQ(0, velCanvasClipRect(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(0, velCanvasTranslate(nullptr, 1, 1));
    EXPECT_EQ(0, velCanvasSetDrawStyle(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetColor(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetSmooth(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetBlendMode(nullptr, 0));
    EXPECT_EQ(0xFFFFFFFFu, velCanvasGetBlendMode(nullptr));
    EXPECT_EQ(0, velCanvasSetBlendValue(nullptr, 0));
    EXPECT_EQ(255u, velCanvasGetBlendValue(nullptr));
    EXPECT_EQ(0, velCanvasSetStrokeCap(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetStrokeJoin(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetGradient(nullptr, nullptr));
    EXPECT_EQ(0, velCanvasSetStrokeWidth(nullptr, 1));
    EXPECT_EQ(1.0f, velCanvasGetStrokeWidth(nullptr));
    EXPECT_EQ(0, velCanvasSetDashStyle(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetDashPattern(nullptr, lengths, 2, 0));
    EXPECT_EQ(0, velCanvasSetFontFaceName(nullptr, name));
    EXPECT_EQ(0, velCanvasSetFontStyle(nullptr, 0));
    EXPECT_EQ(0, velCanvasSetTextSize(nullptr, 1));
    EXPECT_EQ(0, velCanvasDrawPoint(nullptr, 1, 1));
    EXPECT_EQ(0, velCanvasDrawLine(nullptr, 1, 1, 2, 2));
    EXPECT_EQ(0, velCanvasDrawRectangle(nullptr, 1, 1, 2, 2));
    EXPECT_EQ(0, velCanvasDrawRoundRect(nullptr, 1, 1, 2, 2, 1, 1));
    EXPECT_EQ(0, velCanvasDrawCircle(nullptr, 1, 1, 2));
    EXPECT_EQ(0, velCanvasDrawArc(nullptr, 1, 1, 2, 2, 0, 90, 0));
    EXPECT_EQ(0, velCanvasDrawEllipse(nullptr, 1, 1, 2, 2));
    EXPECT_EQ(0, velCanvasDrawColor(nullptr, 0));
    EXPECT_EQ(0, velCanvasDrawPath(nullptr, nullptr));
    EXPECT_EQ(0, velCanvasDrawPosTextByGlyphs(nullptr, &glyph, 1, &point));
    EXPECT_EQ(0, velCanvasGetGlyphs(nullptr, name, 1, &glyph, &point));
    EXPECT_EQ(0, velCanvasGetFontMetrics(nullptr, &number, &number, &number));
    EXPECT_EQ(0, velPathDestroy(nullptr));
    EXPECT_EQ(0, velPathBegin(nullptr));
    EXPECT_EQ(0, velPathClose(nullptr));
    EXPECT_EQ(0, velPathSetFillType(nullptr, 0));
    EXPECT_EQ(0, velPathMoveTo(nullptr, 0, 0));
    EXPECT_EQ(0, velPathLineTo(nullptr, 0, 0));
    EXPECT_EQ(0, velPathArcTo(nullptr, 0, 0, 1, 1, 0, 90, 0));
    EXPECT_EQ(0, velPathOvalCurveTo(nullptr, 1, 1, 0, 0, 0, 1, 1));
    EXPECT_EQ(0, velPathBezierCurveTo(nullptr, 0, 0, 1, 1, 2, 2));
    EXPECT_EQ(0, velPathQuadraticCurveTo(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(0, velPathAddArc(nullptr, 0, 0, 1, 1, 0, 90));
    EXPECT_EQ(0, velPathAddRectangle(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(0, velPathAddCircle(nullptr, 0, 0, 1));
    EXPECT_EQ(0, velPathAddEllipse(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(0, velPathGetBounds(nullptr, &rect));
    EXPECT_EQ(0, velGradientAddColorStop(nullptr, 0, 0));
    EXPECT_EQ(0, velGradientDestroy(nullptr));
    EXPECT_EQ(nullptr, velLottieCreateFromData(nullptr, 10));
    EXPECT_EQ(nullptr, velLottieCreateFromFile(nullptr));
    EXPECT_EQ(0, velLottieGetInfo(nullptr, &info));
    EXPECT_EQ(0, velLottieDestroy(nullptr));
    EXPECT_EQ(0, velLottieDraw(nullptr, nullptr, 0, 0, 0, 1, 1));

    ExpectRefused("bitmap", [](velCanvas *canvas) { return velCanvasSetBitmap(canvas, nullptr); });
    ExpectRefused("view", [](velCanvas *canvas) { return velCanvasLockBits(canvas, nullptr, nullptr); });
    ExpectRefused("gradient", [](velCanvas *canvas) { return velCanvasSetGradient(canvas, nullptr); });
    ExpectRefused("path", [](velCanvas *canvas) { return velCanvasDrawPath(canvas, nullptr); });
    ExpectRefused("animation", [](velCanvas *canvas) { return velLottieDraw(canvas, nullptr, 0, 0, 0, 9, 9); });
    ExpectRefused("face", [](velCanvas *canvas) { return velCanvasSetFontFaceName(canvas, nullptr); });
    velPath *path = velPathCreate();
    EXPECT_EQ(0, velPathGetBounds(path, nullptr));
    velPathDestroy(path);
}

TEST(VelBadInputTest, UnknownWordsAreRefused) {
    const struct {
        const char *name;
        int (*set)(velCanvas *, DWORD);
        DWORD first;
    } kSetters[] = {{"style", velCanvasSetDrawStyle, 4},
                    {"cap", velCanvasSetStrokeCap, 3},
                    {"join", velCanvasSetStrokeJoin, 3},
                    {"dash style", velCanvasSetDashStyle, 6},
                    {"font style", velCanvasSetFontStyle, 16}};
    for (const auto &setter : kSetters) {
        for (const DWORD value : {setter.first, setter.first | 0x100, DWORD{0x80000000}, DWORD{0xFFFFFFFF}}) {
            ExpectRefused(setter.name, [&](velCanvas *canvas) { return setter.set(canvas, value); });
        }
        ExpectRefused(setter.name, [&](velCanvas *canvas) {
            EXPECT_EQ(1, velCanvasSave(canvas));
            EXPECT_EQ(1, setter.set(canvas, setter.first - 1));
            EXPECT_EQ(1, velCanvasRestore(canvas));
            return 0;
        });
    }
}

/// A function of a canvas that takes up to seven floats.
struct FloatFunction {
    const char *name;
    int count;
    int (*call)(velCanvas *, const float *);
};

constexpr FloatFunction kDraws[] = {
    {"point", 2, [](velCanvas *c, const float *a) { return velCanvasDrawPoint(c, a[0], a[1]); }},
    {"line", 4, [](velCanvas *c, const float *a) { return velCanvasDrawLine(c, a[0], a[1], a[2], a[3]); }},
    {"rectangle", 4, [](velCanvas *c, const float *a) { return velCanvasDrawRectangle(c, a[0], a[1], a[2], a[3]); }},
    {"round rectangle", 6,
     [](velCanvas *c, const float *a) { return velCanvasDrawRoundRect(c, a[0], a[1], a[2], a[3], a[4], a[5]); }},
    {"circle", 3, [](velCanvas *c, const float *a) { return velCanvasDrawCircle(c, a[0], a[1], a[2]); }},
    {"ellipse", 4, [](velCanvas *c, const float *a) { return velCanvasDrawEllipse(c, a[0], a[1], a[2], a[3]); }},
    {"arc", 6, [](velCanvas *c, const float *a) { return velCanvasDrawArc(c, a[0], a[1], a[2], a[3], a[4], a[5], 0); }},
    {"pie", 6, [](velCanvas *c, const float *a) { return velCanvasDrawArc(c, a[0], a[1], a[2], a[3], a[4], a[5], 1); }},
};

/// The same for paths, called on a path that has a figure already.
struct PathFunction {
    const char *name;
    int count;
    int (*call)(velPath *, const float *);
};

constexpr PathFunction kPathFunctions[] = {
    {"move", 2, [](velPath *p, const float *a) { return velPathMoveTo(p, a[0], a[1]); }},
    {"line", 2, [](velPath *p, const float *a) { return velPathLineTo(p, a[0], a[1]); }},
    {"arc", 6, [](velPath *p, const float *a) { return velPathArcTo(p, a[0], a[1], a[2], a[3], a[4], a[5], 0); }},
    {"oval", 5, [](velPath *p, const float *a) { return velPathOvalCurveTo(p, a[0], a[1], a[2], 1, 0, a[3], a[4]); }},
    {"curve", 6,
     [](velPath *p, const float *a) { return velPathBezierCurveTo(p, a[0], a[1], a[2], a[3], a[4], a[5]); }},
    {"quadratic", 4, [](velPath *p, const float *a) { return velPathQuadraticCurveTo(p, a[0], a[1], a[2], a[3]); }},
    {"add arc", 6, [](velPath *p, const float *a) { return velPathAddArc(p, a[0], a[1], a[2], a[3], a[4], a[5]); }},
    {"add rectangle", 4, [](velPath *p, const float *a) { return velPathAddRectangle(p, a[0], a[1], a[2], a[3]); }},
    {"add circle", 3, [](velPath *p, const float *a) { return velPathAddCircle(p, a[0], a[1], a[2]); }},
    {"add ellipse", 4, [](velPath *p, const float *a) { return velPathAddEllipse(p, a[0], a[1], a[2], a[3]); }},
};

TEST(VelBadInputTest, NumbersThatAreNoneAreRefused) {
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        for (const FloatFunction &draw : kDraws) {
            for (int i = 0; i < draw.count; ++i) {
                float arguments[] = {4, 5, 6, 7, 2, 3};
                arguments[i] = bad;
                ExpectRefused(draw.name, [&](velCanvas *canvas) { return draw.call(canvas, arguments); });
            }
        }
        for (const PathFunction &function : kPathFunctions) {
            velPath *path = velPathCreate();
            EXPECT_EQ(1, velPathAddRectangle(path, 1, 2, 3, 4));
            for (int i = 0; i < function.count; ++i) {
                float arguments[] = {4, 5, 6, 7, 2, 3};
                arguments[i] = bad;
                EXPECT_EQ(0, function.call(path, arguments)) << function.name;
            }
            velRectF bounds{};
            EXPECT_EQ(1, velPathGetBounds(path, &bounds));
            EXPECT_EQ(6.0f, bounds.bottom) << function.name;
            velPathDestroy(path);
        }
        ExpectRefused("translate x", [&](velCanvas *canvas) { return velCanvasTranslate(canvas, bad, 1); });
        ExpectRefused("translate y", [&](velCanvas *canvas) { return velCanvasTranslate(canvas, 1, bad); });
        ExpectRefused("stroke width", [&](velCanvas *canvas) { return velCanvasSetStrokeWidth(canvas, bad); });
        ExpectRefused("text size", [&](velCanvas *canvas) { return velCanvasSetTextSize(canvas, bad); });
    }
    for (const float width : {-1.0f, -0.001f, 32768.0f, FLT_MAX}) {
        ExpectRefused("stroke width", [&](velCanvas *canvas) { return velCanvasSetStrokeWidth(canvas, width); });
        ExpectRefused("text size", [&](velCanvas *canvas) { return velCanvasSetTextSize(canvas, width); });
    }
    ExpectRefused("text size", [&](velCanvas *canvas) { return velCanvasSetTextSize(canvas, 0); });
    for (const FloatFunction &shape : kDraws) {
        if (shape.count < 3 || shape.call == kDraws[1].call) continue;
        const float arguments[] = {4, 5, -1, -1, 2, 3};
        ExpectRefused(shape.name, [&](velCanvas *canvas) { return shape.call(canvas, arguments); });
    }
}

TEST(VelBadInputTest, ExtremeNumbersNeitherHangNorLeaveATrace) {
    // Drawn or refused, but bounded in time, and with the next drawing as if nothing had been.
    constexpr float kExtremes[] = {0,      -0.0f,   1e-45f,   FLT_MIN, -1e-30f, 0.5f,    999999,  -1e6f,
                                   1.1e6f, 8388608, 2.147e9f, -4.3e9f, 1.8e19f, FLT_MAX, -FLT_MAX};
    velGradient *gradient = velGradientCreateRadial(-90000, 5, 1e6f);
    EXPECT_EQ(1, velGradientAddColorStop(gradient, 0.25f, 0x80FF0000));
    Painting fresh;
    EXPECT_EQ(1, velCanvasDrawCircle(fresh, 16, 16, 9.5f));
    for (DWORD style = 0; style < 4; ++style) {
        Painting painting;
        EXPECT_EQ(1, velCanvasSetGradient(painting, gradient));
        for (const FloatFunction &draw : kDraws) {
            for (int i = 0; i < draw.count; ++i) {
                for (const float extreme : kExtremes) {
                    float arguments[] = {4, 5, 6, 7, 20, 30};
                    arguments[i] = extreme;
                    ASSERT_EQ(1, velCanvasSave(painting));
                    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, style));
                    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, std::clamp(extreme, 0.0f, 32767.0f)));
                    EXPECT_EQ(1, velCanvasSetStrokeJoin(painting, i % 3u));
                    EXPECT_EQ(1, velCanvasSetStrokeCap(painting, (i + 1) % 3u));
                    draw.call(painting, arguments);
                    EXPECT_EQ(1, velCanvasSetDashStyle(painting, 4));
                    draw.call(painting, arguments);
                    EXPECT_EQ(1, velCanvasTranslate(painting, extreme, -extreme));
                    draw.call(painting, arguments);
                    ASSERT_EQ(1, velCanvasRestore(painting));
                }
            }
        }
        painting.Fill(0);
        EXPECT_EQ(1, velCanvasDrawCircle(painting, 16, 16, 9.5f));
        EXPECT_EQ(fresh.Pixels(), painting.Pixels());
    }
    velGradientDestroy(gradient);
}

TEST(VelBadInputTest, TheLimitOfCoordinatesIsWhereItIsSaid) {
    Painting painting;
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, -1e6f, 0, 1e6f, 1));
    EXPECT_TRUE(painting.IsEmpty());
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, -1e6f, 0, 2e6f, 32));
    EXPECT_EQ(1024.0, painting.Area());
    EXPECT_EQ(0, velCanvasDrawRectangle(painting, -1e6f, 0, 2.0001e6f, 1));
    EXPECT_EQ(1, velCanvasTranslate(painting, -1, 0));
    EXPECT_EQ(0, velCanvasDrawRectangle(painting, -1e6f, 0, 1, 1));
}

TEST(VelBadInputTest, FaceNamesHaveAtMost31Units) {
    for (const size_t length : {size_t{31}, size_t{32}, size_t{1000}}) {
        std::vector<WCHAR> name(length, 'x');
        name.push_back(0);
        Painting painting;
        EXPECT_EQ(length == 31, velCanvasSetFontFaceName(painting, name.data()) == 1);
    }
    const WCHAR empty[] = {0};
    ExpectRefused("empty", [&](velCanvas *canvas) { return velCanvasSetFontFaceName(canvas, empty); });
}

}  // namespace
}  // namespace lacquer
