// Arguments that make no sense, at every function: refused, without a trace in what is drawn later.

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <span>

#include "arguments.h"
#include "painting.h"

namespace lacquer {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(VelBadInputTest, NullObjectsAreRefused) {
    const auto refuse = [](auto... functions) {
        int index = 0;
        for (const int result : {WithoutObject(functions)...}) EXPECT_EQ(0, result) << "function " << index++;
    };
    refuse(velCanvasDestroy, velCanvasSetBitmap, velCanvasLockBits, velCanvasUnlockBits, velCanvasSave,
           velCanvasRestore, velCanvasClipRect, velCanvasTranslate, velCanvasSetDrawStyle, velCanvasSetColor,
           velCanvasSetSmooth, velCanvasSetBlendMode, velCanvasSetBlendValue, velCanvasSetStrokeCap,
           velCanvasSetStrokeJoin, velCanvasSetGradient, velCanvasSetStrokeWidth, velCanvasSetDashStyle,
           velCanvasSetDashPattern, velCanvasSetFontFaceName, velCanvasSetFontStyle, velCanvasSetTextSize,
           velCanvasDrawPoint, velCanvasDrawLine, velCanvasDrawRectangle, velCanvasDrawRoundRect, velCanvasDrawCircle,
           velCanvasDrawArc, velCanvasDrawEllipse, velCanvasDrawColor, velCanvasDrawPath, velCanvasDrawPosTextByGlyphs,
           velCanvasGetGlyphs, velCanvasGetFontMetrics, velLottieDraw);
    refuse(velBitmapDestroy, velPathDestroy, velPathBegin, velPathClose, velPathSetFillType, velPathMoveTo,
           velPathLineTo, velPathArcTo, velPathOvalCurveTo, velPathBezierCurveTo, velPathQuadraticCurveTo,
           velPathAddArc, velPathAddRectangle, velPathAddCircle, velPathAddEllipse, velPathGetBounds,
           velGradientAddColorStop, velGradientDestroy, velLottieGetInfo, velLottieDestroy);
    EXPECT_EQ(0xFFFFFFFFu, velCanvasGetBlendMode(nullptr));
    EXPECT_EQ(255u, velCanvasGetBlendValue(nullptr));
    EXPECT_EQ(1.0f, velCanvasGetStrokeWidth(nullptr));
    EXPECT_EQ(nullptr, velLottieCreateFromData(nullptr, 10));
    EXPECT_EQ(nullptr, velLottieCreateFromFile(nullptr));

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
    } kSetters[] = {{"style", velCanvasSetDrawStyle, 4},         {"cap", velCanvasSetStrokeCap, 3},
                    {"join", velCanvasSetStrokeJoin, 3},         {"dash style", velCanvasSetDashStyle, 6},
                    {"font style", velCanvasSetFontStyle, 16},   {"blend mode", velCanvasSetBlendMode, 23},
                    {"blend value", velCanvasSetBlendValue, 256}};
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

const NumberFunction<velCanvas *> kDraws[] = {
    {"point", velCanvasDrawPoint},         {"line", velCanvasDrawLine},
    {"rectangle", velCanvasDrawRectangle}, {"round rectangle", velCanvasDrawRoundRect},
    {"circle", velCanvasDrawCircle},       {"arc", velCanvasDrawArc, 0},
    {"pie", velCanvasDrawArc, 1},          {"ellipse", velCanvasDrawEllipse},
};

const NumberFunction<velPath *> kPathFunctions[] = {
    {"move", velPathMoveTo},
    {"line", velPathLineTo},
    {"arc", velPathArcTo},
    {"oval", velPathOvalCurveTo},
    {"curve", velPathBezierCurveTo},
    {"quadratic", velPathQuadraticCurveTo},
    {"add arc", velPathAddArc},
    {"add rectangle", velPathAddRectangle},
    {"add circle", velPathAddCircle},
    {"add ellipse", velPathAddEllipse},
};

TEST(VelBadInputTest, NumbersThatAreNoneAreRefused) {
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        for (const auto &draw : kDraws) {
            for (size_t i = 0; i < draw.count; ++i) {
                float arguments[] = {4, 5, 6, 7, 2, 3};
                arguments[i] = bad;
                ExpectRefused(draw.name, [&](velCanvas *canvas) { return draw.call(canvas, arguments); });
            }
        }
        for (const auto &function : kPathFunctions) {
            velPath *path = velPathCreate();
            EXPECT_EQ(1, velPathAddRectangle(path, 1, 2, 3, 4));
            for (size_t i = 0; i < function.count; ++i) {
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
    for (const auto &shape : std::span(kDraws).subspan(2)) {
        const float arguments[] = {4, 5, -1, -1, 2, 3};
        ExpectRefused(shape.name, [&](velCanvas *canvas) { return shape.call(canvas, arguments); });
    }
}

TEST(VelBadInputTest, ExtremeNumbersNeitherHangNorLeaveATrace) {
    // Drawn or refused, but bounded in time, and with the next drawing as if nothing had been.
    constexpr float kExtremes[] = {0,      -0.0f,   1e-45f,   FLT_MIN, -1e-30f, 0.5f,    999999,  -1e6f,
                                   1.1e6f, 8388608, 2.147e9f, -4.3e9f, 1.8e19f, FLT_MAX, -FLT_MAX};
    Painting painting, fresh;
    UseGradient(painting, velGradientCreateRadial(-90000, 5, 1e6f), {{0.25f, 0x80FF0000}});
    const auto tryAll = [&](size_t count, const auto &draw) {
        for (size_t i = 0; i < count * std::size(kExtremes) * 4; ++i) {
            const float extreme = kExtremes[i / 4 % std::size(kExtremes)];
            const size_t changed = i / 4 / std::size(kExtremes);
            std::array<float, 6> arguments{4, 5, 6, 7, 20, 30};
            arguments[changed] = extreme;
            ASSERT_EQ(1, velCanvasSave(painting));
            EXPECT_EQ(1, velCanvasSetDrawStyle(painting, static_cast<DWORD>(i % 4)));
            EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, std::clamp(extreme, 0.0f, 32767.0f)));
            EXPECT_EQ(1, velCanvasSetStrokeJoin(painting, static_cast<DWORD>(changed % 3)));
            EXPECT_EQ(1, velCanvasSetStrokeCap(painting, static_cast<DWORD>((changed + 1) % 3)));
            draw(arguments);
            EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_DASH_DOT_DOT));
            draw(arguments);
            EXPECT_EQ(1, velCanvasTranslate(painting, extreme, -extreme));
            draw(arguments);
            ASSERT_EQ(1, velCanvasRestore(painting));
        }
    };
    for (const auto &function : kDraws) {
        tryAll(function.count, [&](const auto &arguments) { function.call(painting, arguments.data()); });
    }
    for (const auto &function : kPathFunctions) {
        tryAll(function.count, [&](const auto &arguments) {
            Path path;
            velPathMoveTo(path, 20, 20);
            function.call(path, arguments.data());
            velCanvasDrawPath(painting, path);
        });
    }
    tryAll(4, [&](const auto &numbers) {
        if (velGradient *gradient = velGradientCreateLinear(numbers[0], numbers[1], numbers[2], numbers[3])) {
            UseGradient(painting, gradient, {{0, 0xFFFF0000}, {1, 0xFF0000FF}});
        }
        velCanvasDrawRectangle(painting, 0, 0, 40, 40);
    });
    painting.Fill(0);
    for (const Painting *each : {&painting, &fresh}) EXPECT_EQ(1, velCanvasDrawCircle(*each, 16, 16, 9.5f));
    EXPECT_EQ(fresh.Pixels(), painting.Pixels());
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
