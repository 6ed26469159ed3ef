// Arguments that make no sense: refused, without a trace in what is drawn later. The fuzzer calls every function with
// them, with null objects, and with extreme numbers, too.

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <functional>
#include <span>
#include <tuple>
#include <type_traits>

#include "painting.h"

namespace lacquer {
namespace {

/// A function of an object and of numbers, to be called with as many numbers of an array as it takes. Parameters that
/// are whole numbers are all 0.
template <class Object>
struct NumberFunction {
    const char *name;
    size_t count;
    std::function<int(Object, const float *)> call;

    template <class... Numbers>
    NumberFunction(const char *functionName, int (*function)(Object, Numbers...))
        : name(functionName), count((0 + ... + size_t{std::is_same_v<Numbers, float>})) {
        call = [function](Object object, const float *numbers) {
            const auto next = [&](bool isFloat) { return isFloat ? *numbers++ : 0.0f; };
            // In braces the arguments are evaluated in their order.
            return std::apply(function, std::tuple<Object, Numbers...>{
                                            object, static_cast<Numbers>(next(std::is_same_v<Numbers, float>))...});
        };
    }
};

/// The functions of numbers; those after the first five are shapes with a size.
const NumberFunction<velCanvas *> kCanvasFunctions[] = {
    {"translate", velCanvasTranslate},   {"stroke width", velCanvasSetStrokeWidth},
    {"text size", velCanvasSetTextSize}, {"point", velCanvasDrawPoint},
    {"line", velCanvasDrawLine},         {"rectangle", velCanvasDrawRectangle},
    {"round", velCanvasDrawRoundRect},   {"circle", velCanvasDrawCircle},
    {"arc", velCanvasDrawArc},           {"ellipse", velCanvasDrawEllipse}};
const NumberFunction<velPath *> kPathFunctions[] = {{"move", velPathMoveTo},
                                                    {"line", velPathLineTo},
                                                    {"arc", velPathArcTo},
                                                    {"oval", velPathOvalCurveTo},
                                                    {"curve", velPathBezierCurveTo},
                                                    {"quadratic", velPathQuadraticCurveTo},
                                                    {"add arc", velPathAddArc},
                                                    {"add rectangle", velPathAddRectangle},
                                                    {"add circle", velPathAddCircle},
                                                    {"add ellipse", velPathAddEllipse}};
/// The functions of a word, and the first word that is unknown to them.
const struct {
    const char *name;
    int (*set)(velCanvas *, DWORD);
    DWORD first;
} kSetters[] = {{"style", velCanvasSetDrawStyle, 4},         {"cap", velCanvasSetStrokeCap, 3},
                {"join", velCanvasSetStrokeJoin, 3},         {"dash style", velCanvasSetDashStyle, 6},
                {"font style", velCanvasSetFontStyle, 16},   {"blend mode", velCanvasSetBlendMode, 23},
                {"blend value", velCanvasSetBlendValue, 256}};

TEST(VelBadInputTest, UnknownWordsAreRefused) {
    for (const auto &setter : kSetters) {
        for (const DWORD value : {setter.first, setter.first | 0x100, DWORD{0x80000000}, DWORD{0xFFFFFFFF}}) {
            ExpectRefused(setter.name, [&](velCanvas *canvas) { return setter.set(canvas, value); });
        }
        EXPECT_EQ(1, setter.set(Painting(), setter.first - 1)) << setter.name;
    }
}

TEST(VelBadInputTest, NumbersThatAreNoneAreRefused) {
    const auto refuse = [](const NumberFunction<velCanvas *> &function, std::array<float, 6> numbers) {
        ExpectRefused(function.name, [&](velCanvas *canvas) { return function.call(canvas, numbers.data()); });
    };
    for (size_t i = 0; i < 12; ++i) {
        std::array<float, 6> numbers{4, 5, 6, 7, 2, 3};
        numbers[i % 6] = i < 6 ? NAN : i % 2 ? INFINITY : -INFINITY;
        for (const auto &function : kCanvasFunctions) {
            if (i % 6 < function.count) refuse(function, numbers);
        }
        for (const auto &function : kPathFunctions) {
            if (i % 6 >= function.count) continue;
            const Path path;
            EXPECT_EQ(1, velPathAddRectangle(path, 1, 2, 3, 4));
            EXPECT_EQ(0, function.call(path, numbers.data())) << function.name;
            EXPECT_EQ(6.0f, path.Bounds().bottom) << function.name;
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

}  // namespace
}  // namespace lacquer
