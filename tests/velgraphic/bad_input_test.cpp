// Arguments that make no sense, at every function: refused, without a trace in what is drawn later.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <climits>
#include <limits>
#include <span>

#include "arguments.h"
#include "painting.h"

namespace lacquer {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// The functions of numbers; those after the first five are shapes with a size.
const NumberFunction<velCanvas *> kCanvasFunctions[] = {
    {"translate", velCanvasTranslate},   {"stroke width", velCanvasSetStrokeWidth},
    {"text size", velCanvasSetTextSize}, {"point", velCanvasDrawPoint},
    {"line", velCanvasDrawLine},         {"rectangle", velCanvasDrawRectangle},
    {"round", velCanvasDrawRoundRect},   {"circle", velCanvasDrawCircle},
    {"arc", velCanvasDrawArc, 0},        {"pie", velCanvasDrawArc, 1},
    {"ellipse", velCanvasDrawEllipse},
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
/// The functions of a word, and the first word that is unknown to them.
const struct {
    const char *name;
    int (*set)(velCanvas *, DWORD);
    DWORD first;
} kSetters[] = {{"style", velCanvasSetDrawStyle, 4},         {"cap", velCanvasSetStrokeCap, 3},
                {"join", velCanvasSetStrokeJoin, 3},         {"dash style", velCanvasSetDashStyle, 6},
                {"font style", velCanvasSetFontStyle, 16},   {"blend mode", velCanvasSetBlendMode, 23},
                {"blend value", velCanvasSetBlendValue, 256}};

TEST(VelBadInputTest, NullObjectsAreRefused) {
    constexpr float kNumbers[6] = {};
    for (const auto &function : kCanvasFunctions) EXPECT_EQ(0, function.call(nullptr, kNumbers)) << function.name;
    for (const auto &function : kPathFunctions) EXPECT_EQ(0, function.call(nullptr, kNumbers)) << function.name;
    for (const auto &setter : kSetters) EXPECT_EQ(0, setter.set(nullptr, 0)) << setter.name;
    const auto refuse = [](auto... functions) {
        int index = 0;
        for (const int result : {WithoutObject(functions)...}) EXPECT_EQ(0, result) << "function " << index++;
    };
    refuse(velCanvasDestroy, velCanvasSetBitmap, velCanvasLockBits, velCanvasUnlockBits, velCanvasSave,
           velCanvasRestore, velCanvasClipRect, velCanvasSetColor, velCanvasSetSmooth, velCanvasSetGradient,
           velCanvasSetDashPattern, velCanvasSetFontFaceName, velCanvasDrawColor, velCanvasDrawPath,
           velCanvasDrawPosTextByGlyphs, velCanvasGetGlyphs, velCanvasGetFontMetrics, velLottieDraw, velBitmapDestroy,
           velPathDestroy, velPathBegin, velPathClose, velPathSetFillType, velPathGetBounds, velGradientAddColorStop,
           velGradientDestroy, velLottieGetInfo, velLottieDestroy);
    EXPECT_EQ(0xFFFFFFFFu, velCanvasGetBlendMode(nullptr));
    EXPECT_EQ(255u, velCanvasGetBlendValue(nullptr));
    EXPECT_EQ(1.0f, velCanvasGetStrokeWidth(nullptr));
    EXPECT_EQ(nullptr, velLottieCreateFromData(nullptr, 10));
    EXPECT_EQ(nullptr, velLottieCreateFromFile(nullptr));
    EXPECT_EQ(0, velPathGetBounds(Path(), nullptr));

    ExpectRefused("bitmap", [](velCanvas *canvas) { return velCanvasSetBitmap(canvas, nullptr); });
    ExpectRefused("view", [](velCanvas *canvas) { return velCanvasLockBits(canvas, nullptr, nullptr); });
    ExpectRefused("gradient", [](velCanvas *canvas) { return velCanvasSetGradient(canvas, nullptr); });
    ExpectRefused("path", [](velCanvas *canvas) { return velCanvasDrawPath(canvas, nullptr); });
    ExpectRefused("animation", [](velCanvas *canvas) { return velLottieDraw(canvas, nullptr, 0, 0, 0, 9, 9); });
    ExpectRefused("face", [](velCanvas *canvas) { return velCanvasSetFontFaceName(canvas, nullptr); });
    ExpectRefused("dashes", [](velCanvas *canvas) { return velCanvasSetDashPattern(canvas, nullptr, 2, 0); });
}

TEST(VelBadInputTest, UnknownWordsAreRefused) {
    for (const auto &setter : kSetters) {
        for (const DWORD value : {setter.first, setter.first | 0x100, DWORD{0x80000000}, DWORD{0xFFFFFFFF}}) {
            ExpectRefused(setter.name, [&](velCanvas *canvas) { return setter.set(canvas, value); });
        }
        const Painting painting;
        EXPECT_EQ(1, setter.set(painting, setter.first - 1)) << setter.name;
    }
}

TEST(VelBadInputTest, NumbersThatAreNoneAreRefused) {
    const auto refuse = [](const NumberFunction<velCanvas *> &function, std::array<float, 6> numbers) {
        ExpectRefused(function.name, [&](velCanvas *canvas) { return function.call(canvas, numbers.data()); });
    };
    for (const float bad : {kNan, kInfinity, -kInfinity}) {
        for (size_t i = 0; i < 6; ++i) {
            std::array<float, 6> numbers{4, 5, 6, 7, 2, 3};
            numbers[i] = bad;
            for (const auto &function : kCanvasFunctions) {
                if (i < function.count) refuse(function, numbers);
            }
            for (const auto &function : kPathFunctions) {
                if (i >= function.count) continue;
                const Path path;
                EXPECT_EQ(1, velPathAddRectangle(path, 1, 2, 3, 4));
                EXPECT_EQ(0, function.call(path, numbers.data())) << function.name;
                EXPECT_EQ(6.0f, path.Bounds().bottom) << function.name;
            }
        }
    }
    for (const float size : {-1.0f, -0.001f, 32768.0f, FLT_MAX}) {
        for (const auto &function : std::span(kCanvasFunctions).subspan(1, 2)) refuse(function, {size});
    }
    refuse(kCanvasFunctions[2], {0});
    for (const auto &shape : std::span(kCanvasFunctions).subspan(5)) {
        const bool isRound = shape.count == 3;
        refuse(shape, {4, 5, -1, isRound ? 0.0f : 1.0f, 2, 3});
        if (!isRound) refuse(shape, {4, 5, 1, -1, 2, 3});
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
            std::array<float, 6> numbers{4, 5, 6, 7, 20, 30};
            numbers[changed] = extreme;
            ASSERT_EQ(1, velCanvasSave(painting));
            EXPECT_EQ(1, velCanvasSetDrawStyle(painting, static_cast<DWORD>(i % 4)));
            EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, std::clamp(extreme, 0.0f, 32767.0f)));
            EXPECT_EQ(1, velCanvasSetStrokeJoin(painting, static_cast<DWORD>(changed % 3)));
            EXPECT_EQ(1, velCanvasSetStrokeCap(painting, static_cast<DWORD>((changed + 1) % 3)));
            draw(numbers.data());
            EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_DASH_DOT_DOT));
            draw(numbers.data());
            EXPECT_EQ(1, velCanvasTranslate(painting, extreme, -extreme));
            draw(numbers.data());
            ASSERT_EQ(1, velCanvasRestore(painting));
        }
    };
    for (const auto &function : kCanvasFunctions) {
        tryAll(function.count, [&](const float *numbers) { function.call(painting, numbers); });
    }
    for (const auto &function : kPathFunctions) {
        tryAll(function.count, [&](const float *numbers) {
            const Path path;
            velPathMoveTo(path, 20, 20);
            function.call(path, numbers);
            velCanvasDrawPath(painting, path);
        });
    }
    tryAll(4, [&](const float *numbers) {
        if (velGradient *gradient = velGradientCreateLinear(numbers[0], numbers[1], numbers[2], numbers[3])) {
            UseGradient(painting, gradient, {{0, 0xFFFF0000}, {1, 0xFF0000FF}});
        }
        velCanvasDrawRectangle(painting, 0, 0, 40, 40);
    });
    painting.Fill(0);
    for (const Painting *each : {&painting, &fresh}) EXPECT_EQ(1, velCanvasDrawCircle(*each, 16, 16, 9.5f));
    EXPECT_EQ(fresh.Pixels(), painting.Pixels());
}

}  // namespace
}  // namespace lacquer
