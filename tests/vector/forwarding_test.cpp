// What the bridge asks of its companion: every function with its arguments in their order, each drawing between one
// save and one restore, and nothing left over when the companion refuses something.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "recording_companion.h"

namespace lacquer {
namespace {

using Calls = std::vector<std::string>;

/// A canvas of 40 x 30 pixels whose companion is made, with origins and a clip that are nothing special.
class ForwardingTest : public testing::Test {
protected:
    ForwardingTest() {
        recorder = {};
        canvas_ = CreateCanvas(40, 30, HGCANVAS{});
        SetViewportOrg(canvas_, 9, 8, nullptr);
        SetWindowOrg(canvas_, 2, 3, nullptr);
        const RECT clip{0, 1, 20, 15};
        SetCanvasClipRect(canvas_, &clip);
        Save(canvas_);
        recorder.Take();
    }
    ~ForwardingTest() override {
        DeleteCanvas(canvas_);
        EXPECT_EQ(0, recorder.canvases);
        EXPECT_EQ(0, recorder.bitmaps);
        EXPECT_EQ(0, recorder.paths);
        EXPECT_EQ(0, recorder.gradients);
        EXPECT_LE(recorder.locks, recorder.unlocks);
    }

    HGCANVAS canvas_;
};

/// The calls of a primitive around its drawing.
Calls Primitive(const Calls &drawing) {
    Calls calls{"velCanvasSave(canvas)", "velCanvasClipRect(canvas, 7, 6, 27, 20)", "velCanvasTranslate(canvas, 9, 8)",
                "velCanvasTranslate(canvas, -2, -3)"};
    calls.insert(calls.end(), drawing.begin(), drawing.end());
    calls.push_back("velCanvasRestore(canvas)");
    return calls;
}

ptrdiff_t Count(const Calls &calls, const std::string &call) { return std::count(calls.begin(), calls.end(), call); }

bool AnyDraws(const Calls &calls) {
    return std::any_of(calls.begin(), calls.end(), [](const std::string &call) {
        return call.find("Draw") != call.npos && call.find("Style") == call.npos;
    });
}

struct Forward {
    std::function<int(HGCANVAS)> call;
    std::string expected;
};

const WORD kGlyphs[] = {1, 2};
const velPointF kPositions[2] = {};
const float kLengths[] = {1, 2};
const WCHAR kName[] = {'A', 0};
const POINT kTriangle[] = {{1, 2}, {3, 4}, {-5, 6}};
velLottie *const kLottie = reinterpret_cast<velLottie *>(uintptr_t{0x10});

const std::vector<Forward> kPrimitives = {
    {[](HGCANVAS c) { return DrawPoint(c, 1, 2); }, "velCanvasDrawPoint(canvas, 1, 2)"},
    {[](HGCANVAS c) { return DrawLine(c, 1, 2, 3, 4.5f); }, "velCanvasDrawLine(canvas, 1, 2, 3, 4.5)"},
    {[](HGCANVAS c) { return DrawRectangle(c, 1, 2, 3, 4); }, "velCanvasDrawRectangle(canvas, 1, 2, 3, 4)"},
    {[](HGCANVAS c) { return DrawRoundRect(c, 1, 2, 3, 4, 5, 6); }, "velCanvasDrawRoundRect(canvas, 1, 2, 3, 4, 5, 6)"},
    {[](HGCANVAS c) { return DrawCircle(c, 1, 2, 3); }, "velCanvasDrawCircle(canvas, 1, 2, 3)"},
    {[](HGCANVAS c) { return DrawArc(c, 1, 2, 3, 4, 5, 6, 7); }, "velCanvasDrawArc(canvas, 1, 2, 3, 4, 5, 6, 7)"},
    {[](HGCANVAS c) { return DrawEllipse(c, 1, 2, 3, 4); }, "velCanvasDrawEllipse(canvas, 1, 2, 3, 4)"},
    {[](HGCANVAS c) { return DrawColor(c, 0xFF000001); }, "velCanvasDrawColor(canvas, 4278190081)"},
    {[](HGCANVAS c) { return DrawPath(c, nullptr); }, "velCanvasDrawPath(canvas, null)"},
    {[](HGCANVAS c) { return DrawLottie(c, kLottie, 1, 2, 3, 4, 5); }, "velLottieDraw(canvas, pointer, 1, 2, 3, 4, 5)"},
    {[](HGCANVAS c) { return DrawPosTextByGlyphs(c, kGlyphs, 2, kPositions); },
     "velCanvasDrawPosTextByGlyphs(canvas, pointer, 2, pointer)"},
    {[](HGCANVAS c) { return DrawPosTextByGlyphs(c, nullptr, -2, nullptr); },
     "velCanvasDrawPosTextByGlyphs(canvas, null, -2, null)"},
};

const std::vector<Forward> kSetters = {
    {[](HGCANVAS c) { return SetDrawStyle(c, 2); }, "velCanvasSetDrawStyle(canvas, 2)"},
    {[](HGCANVAS c) { return SetColor(c, 3); }, "velCanvasSetColor(canvas, 3)"},
    {[](HGCANVAS c) { return Save(c); }, "velCanvasSave(canvas)"},
    {[](HGCANVAS c) { return Restore(c); }, "velCanvasRestore(canvas)"},
    {[](HGCANVAS c) { return SetSmooth(c, 1); }, "velCanvasSetSmooth(canvas, 1)"},
    {[](HGCANVAS c) { return SetBlendMode(c, 99); }, "velCanvasSetBlendMode(canvas, 99)"},
    {[](HGCANVAS c) { return SetBlendValue(c, 128); }, "velCanvasSetBlendValue(canvas, 128)"},
    {[](HGCANVAS c) { return SetStrokeCap(c, 1); }, "velCanvasSetStrokeCap(canvas, 1)"},
    {[](HGCANVAS c) { return SetStrokeJoin(c, 2); }, "velCanvasSetStrokeJoin(canvas, 2)"},
    {[](HGCANVAS c) { return SetGradient(c, nullptr); }, "velCanvasSetGradient(canvas, null)"},
    {[](HGCANVAS c) { return SetStrokeWidth(c, 2.5f); }, "velCanvasSetStrokeWidth(canvas, 2.5)"},
    {[](HGCANVAS c) { return SetDashStyle(c, 5); }, "velCanvasSetDashStyle(canvas, 5)"},
    {[](HGCANVAS c) { return SetDashPattern(c, kLengths, 2, 3); }, "velCanvasSetDashPattern(canvas, pointer, 2, 3)"},
    {[](HGCANVAS c) { return SetFontFaceName(c, kName); }, "velCanvasSetFontFaceName(canvas, pointer)"},
    {[](HGCANVAS c) { return SetFontStyle(c, 3); }, "velCanvasSetFontStyle(canvas, 3)"},
    {[](HGCANVAS c) { return SetTextSize(c, 12.5f); }, "velCanvasSetTextSize(canvas, 12.5)"},
};

TEST_F(ForwardingTest, PrimitivesSaveClipMoveDrawAndRestore) {
    for (const Forward &forward : kPrimitives) {
        EXPECT_EQ(kAnswer, forward.call(canvas_)) << forward.expected;
        EXPECT_EQ(Primitive({forward.expected}), recorder.Take());
    }
    EXPECT_EQ(kAnswer, DrawPolygon(canvas_, 3, kTriangle));
    EXPECT_EQ(Primitive({"velPathCreate()", "velPathBegin(path)", "velPathMoveTo(path, 1, 2)",
                         "velPathLineTo(path, 3, 4)", "velPathLineTo(path, -5, 6)", "velPathClose(path)",
                         "velCanvasDrawPath(canvas, path)", "velPathDestroy(path)"}),
              recorder.Take());
    EXPECT_EQ(kAnswer, DrawPolygon(canvas_, 1, kTriangle));
    EXPECT_EQ(Primitive({"velPathCreate()", "velPathBegin(path)", "velPathMoveTo(path, 1, 2)", "velPathClose(path)",
                         "velCanvasDrawPath(canvas, path)", "velPathDestroy(path)"}),
              recorder.Take());
    EXPECT_EQ(kAnswer, DrawBezier(canvas_, 1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_EQ(Primitive({"velPathCreate()", "velPathBegin(path)", "velPathMoveTo(path, 1, 2)",
                         "velPathBezierCurveTo(path, 3, 4, 5, 6, 7, 8)", "velCanvasDrawPath(canvas, path)",
                         "velPathDestroy(path)"}),
              recorder.Take());
}

TEST_F(ForwardingTest, SettersAndGettersAreOneCall) {
    for (const Forward &forward : kSetters) {
        EXPECT_EQ(kAnswer, forward.call(canvas_)) << forward.expected;
        EXPECT_EQ(Calls{forward.expected}, recorder.Take());
    }
    EXPECT_EQ(DWORD{kAnswer}, GetBlendMode(canvas_));
    EXPECT_EQ(DWORD{kAnswer}, GetBlendValue(canvas_));
    EXPECT_EQ(float{kAnswer}, GetStrokeWidth(canvas_));
    EXPECT_EQ(
        (Calls{"velCanvasGetBlendMode(canvas)", "velCanvasGetBlendValue(canvas)", "velCanvasGetStrokeWidth(canvas)"}),
        recorder.Take());
}

TEST_F(ForwardingTest, PathsAndGradientsPassThrough) {
    velPath *path = PathCreate();
    velRectF bounds{};
    EXPECT_EQ(kAnswer, PathBegin(path));
    EXPECT_EQ(kAnswer, PathSetFillType(path, 1));
    EXPECT_EQ(kAnswer, PathMoveTo(path, 1, 2));
    EXPECT_EQ(kAnswer, PathLineTo(path, 1, 2));
    EXPECT_EQ(kAnswer, PathArcTo(path, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_EQ(kAnswer, PathOvalCurveTo(path, 1, 2, 3, 4, 5, 6, 7));
    EXPECT_EQ(kAnswer, PathBezierCurveTo(path, 1, 2, 3, 4, 5, 6));
    EXPECT_EQ(kAnswer, PathQuadraticCurveTo(path, 1, 2, 3, 4));
    EXPECT_EQ(kAnswer, PathAddArc(path, 1, 2, 3, 4, 5, 6));
    EXPECT_EQ(kAnswer, PathAddRectangle(path, 1, 2, 3, 4));
    EXPECT_EQ(kAnswer, PathAddCircle(path, 1, 2, 3));
    EXPECT_EQ(kAnswer, PathAddEllipse(path, 1, 2, 3, 4));
    EXPECT_EQ(kAnswer, PathGetBounds(path, &bounds));
    EXPECT_EQ(kAnswer, PathClose(path));
    EXPECT_EQ(kAnswer, PathDestroy(path));
    EXPECT_EQ(kAnswer, PathBegin(nullptr));
    EXPECT_EQ(
        (Calls{"velPathCreate()", "velPathBegin(path)", "velPathSetFillType(path, 1)", "velPathMoveTo(path, 1, 2)",
               "velPathLineTo(path, 1, 2)", "velPathArcTo(path, 1, 2, 3, 4, 5, 6, 7)",
               "velPathOvalCurveTo(path, 1, 2, 3, 4, 5, 6, 7)", "velPathBezierCurveTo(path, 1, 2, 3, 4, 5, 6)",
               "velPathQuadraticCurveTo(path, 1, 2, 3, 4)", "velPathAddArc(path, 1, 2, 3, 4, 5, 6)",
               "velPathAddRectangle(path, 1, 2, 3, 4)", "velPathAddCircle(path, 1, 2, 3)",
               "velPathAddEllipse(path, 1, 2, 3, 4)", "velPathGetBounds(path, pointer)", "velPathClose(path)",
               "velPathDestroy(path)", "velPathBegin(null)"}),
        recorder.Take());

    EXPECT_EQ(kAnswer, GradientDestroy(GradientCreateRadial(1, 2, 3)));
    velGradient *gradient = GradientCreateLinear(1, 2, 3, 4);
    EXPECT_EQ(kAnswer, GradientAddColorStop(gradient, 0.5f, 6));
    EXPECT_EQ(kAnswer, GradientDestroy(gradient));
    EXPECT_EQ((Calls{"velGradientCreateRadial(1, 2, 3)", "velGradientDestroy(gradient)",
                     "velGradientCreateLinear(1, 2, 3, 4)", "velGradientAddColorStop(gradient, 0.5, 6)",
                     "velGradientDestroy(gradient)"}),
              recorder.Take());
}

TEST_F(ForwardingTest, CompanionIsMadeAtTheFirstCallAndGoesWithTheCanvas) {
    const Calls made{"velCanvasCreate()", "velBitmapCreateFromData(pointer, 5, 4, 20)",
                     "velCanvasSetBitmap(canvas, bitmap)", "velBitmapDestroy(bitmap)"};
    const std::function<void(HGCANVAS)> ends[] = {[](HGCANVAS c) { DeleteCanvas(c); },
                                                  [](HGCANVAS c) { DeleteBitmap(CanvasToBitmap(c)); },
                                                  [](HGCANVAS c) { DeleteTexture(CanvasToTexture(c)); }};
    for (const auto &end : ends) {
        const HGCANVAS canvas = CreateCanvas(5, 4, HGCANVAS{});
        EXPECT_EQ(Calls{}, recorder.Take());
        EXPECT_EQ(DWORD{kAnswer}, GetBlendMode(canvas));
        Calls expected = made;
        expected.push_back("velCanvasGetBlendMode(canvas)");
        EXPECT_EQ(expected, recorder.Take());
        end(canvas);
        EXPECT_EQ(Calls{"velCanvasDestroy(canvas)"}, recorder.Take());
    }
}

TEST_F(ForwardingTest, PixelsThatMovedAreFoundAgain) {
    const auto pixelsNow = [&] {
        SurfaceView view{};
        EXPECT_EQ(1, LockCanvasBits(canvas_, &view, nullptr));
        return view.bits;
    };
    const Calls moved{"velBitmapCreateFromData(pointer, 40, 30, 160)", "velCanvasSetBitmap(canvas, bitmap)",
                      "velBitmapDestroy(bitmap)"};
    EXPECT_EQ(pixelsNow(), recorder.pixels.bits);
    const HGBITMAP alias = GetBitmap(canvas_);
    EXPECT_NE(nullptr, GetBitmapHandle(alias));
    EXPECT_NE(pixelsNow(), recorder.pixels.bits);
    EXPECT_EQ(kAnswer, DrawPoint(canvas_, 1, 2));
    EXPECT_EQ(pixelsNow(), recorder.pixels.bits);
    Calls expected = moved;
    const Calls draw = Primitive({"velCanvasDrawPoint(canvas, 1, 2)"});
    expected.insert(expected.end(), draw.begin(), draw.end());
    EXPECT_EQ(expected, recorder.Take());
    EXPECT_EQ(kAnswer, DrawPoint(canvas_, 1, 2));
    EXPECT_EQ(draw, recorder.Take());

    // Without pixels there is a state, but nothing to draw on.
    DeleteBitmap(alias);
    EXPECT_EQ(kAnswer, SetColor(canvas_, 3));
    recorder.Take();
    for (const Forward &forward : kPrimitives) EXPECT_EQ(0, forward.call(canvas_)) << forward.expected;
    EXPECT_EQ(0, DrawPolygon(canvas_, 3, kTriangle));
    EXPECT_EQ(Calls{}, recorder.Take());
}

TEST_F(ForwardingTest, WhatIsRefusedLeavesNothingOver) {
    const std::vector<std::function<int(HGCANVAS)>> drawings = {
        kPrimitives[1].call, [](HGCANVAS c) { return DrawPolygon(c, 3, kTriangle); },
        [](HGCANVAS c) { return DrawBezier(c, 1, 2, 3, 4, 5, 6, 7, 8); },
        [](HGCANVAS c) {
            const RECT rect{1, 1, 9, 9};
            return FillGradualRect(c, 0xFF000000, 0xFFFFFFFF, &rect, 1) - 1;
        }};
    // Begin, which can't fail on a path just made, and the destructions are not tried.
    for (const char *refused :
         {"velCanvasSave", "velCanvasClipRect", "velCanvasTranslate", "velPathCreate", "velPathMoveTo", "velPathLineTo",
          "velPathBezierCurveTo", "velPathClose", "velCanvasDrawPath", "velCanvasDrawLine", "velGradientCreateLinear",
          "velGradientAddColorStop", "velCanvasSetGradient", "velCanvasSetDrawStyle", "velCanvasDrawRectangle"}) {
        recorder.refusing = {refused};
        for (size_t i = 0; i < drawings.size(); ++i) {
            const int result = drawings[i](canvas_);
            const Calls calls = recorder.Take();
            const bool asked = std::any_of(calls.begin(), calls.end(), [&](const std::string &call) {
                return call.starts_with(std::string(refused) + "(");
            });
            if (asked || i == 3) {
                EXPECT_EQ(0, result) << refused << " " << i;
            }
            const ptrdiff_t saves = Count(calls, "velCanvasSave(canvas)");
            EXPECT_EQ(refused == std::string("velCanvasSave") ? 0 : saves, Count(calls, "velCanvasRestore(canvas)"))
                << refused << " " << i;
            if (asked && !std::string(refused).starts_with("velCanvasDraw")) {
                EXPECT_FALSE(AnyDraws(calls)) << refused << " " << i;
            }
            EXPECT_EQ(0, recorder.paths) << refused;
            EXPECT_EQ(0, recorder.gradients) << refused;
        }
    }
}

TEST_F(ForwardingTest, CanvasesWithoutCompanionGiveTheDefaults) {
    const HGCANVAS fresh = CreateCanvas(5, 4, HGCANVAS{});
    for (const char *refused : {"velCanvasCreate", ""}) {
        recorder.refusing = {refused};
        const HGCANVAS canvas = *refused ? fresh : CreateCanvasFromDC(GetCanvasHandle(fresh));
        for (const auto *forwards : {&kPrimitives, &kSetters}) {
            for (const Forward &forward : *forwards) EXPECT_EQ(0, forward.call(canvas)) << forward.expected;
        }
        EXPECT_EQ(0, DrawPolygon(canvas, 3, kTriangle));
        EXPECT_EQ(0, DrawBezier(canvas, 1, 2, 3, 4, 5, 6, 7, 8));
        EXPECT_EQ(0xFFFFFFFF, GetBlendMode(canvas));
        EXPECT_EQ(255u, GetBlendValue(canvas));
        EXPECT_EQ(1.0f, GetStrokeWidth(canvas));
        const Calls calls = recorder.Take();
        EXPECT_EQ(*refused ? static_cast<ptrdiff_t>(calls.size()) : 0, Count(calls, "velCanvasCreate()"));
        EXPECT_EQ(*refused == 0, calls.empty());
        if (!*refused) DeleteCanvas(canvas);
    }
    // A companion that could not be given its pixels gets them as soon as it can.
    recorder.refusing = {"velBitmapCreateFromData"};
    EXPECT_EQ(kAnswer, SetColor(fresh, 3));
    EXPECT_EQ(0, DrawPoint(fresh, 1, 2));
    recorder.refusing = {};
    recorder.Take();
    EXPECT_EQ(kAnswer, DrawPoint(fresh, 1, 2));
    EXPECT_EQ("velBitmapCreateFromData(pointer, 5, 4, 20)", recorder.Take().front());
    DeleteCanvas(fresh);
}

TEST_F(ForwardingTest, PolygonsWithoutPointsAreRefused) {
    EXPECT_EQ(0, DrawPolygon(canvas_, 3, nullptr));
    EXPECT_EQ(0, DrawPolygon(canvas_, 0, kTriangle));
    EXPECT_EQ(0, DrawPolygon(canvas_, INT32_MIN, kTriangle));
    EXPECT_EQ(Calls{}, recorder.Take());
}

TEST_F(ForwardingTest, GradientRectanglesBracketTheirState) {
    const RECT rect{1, 2, 31, 42};
    const auto expected = [](const char *gradient) {
        Calls calls{"velCanvasSave(canvas)",
                    gradient,
                    "velGradientAddColorStop(gradient, 0, 4278190081)",
                    "velGradientAddColorStop(gradient, 1, 2147483650)",
                    "velCanvasSetGradient(canvas, gradient)",
                    "velCanvasSetDrawStyle(canvas, 2)"};
        const Calls draw = Primitive({"velCanvasDrawRectangle(canvas, 1, 2, 30, 40)"});
        calls.insert(calls.end(), draw.begin(), draw.end());
        calls.push_back("velGradientDestroy(gradient)");
        calls.push_back("velCanvasRestore(canvas)");
        return calls;
    };
    EXPECT_EQ(1, FillGradualRect(canvas_, 0xFF000001, 0x80000002, &rect, 1));
    EXPECT_EQ(expected("velGradientCreateLinear(1, 2, 1, 42)"), recorder.Take());
    EXPECT_EQ(1, FillGradualRect(canvas_, 0xFF000001, 0x80000002, &rect, 2));
    EXPECT_EQ(expected("velGradientCreateLinear(1, 2, 31, 2)"), recorder.Take());

    // Everything that the companion is not needed for.
    const RECT outside{20, 1, 40, 15};
    EXPECT_EQ(1, FillGradualRect(canvas_, 0xFF000001, 0x80000002, &outside, 1));
    EXPECT_EQ(1, FillGradualRect(canvas_, 0xFF000001, 0xFF000001, &rect, 1));
    for (const int direction : {0, 3, -1, INT32_MIN}) {
        EXPECT_EQ(1, FillGradualRect(canvas_, 0xFF000001, 0x80000002, &rect, direction));
    }
    EXPECT_EQ(0, FillGradualRect(HGCANVAS{}, 0xFF000001, 0x80000002, &rect, 1));
    EXPECT_EQ(0, FillGradualRect(canvas_, 0xFF000001, 0x80000002, nullptr, 1));
    EXPECT_EQ(Calls{}, recorder.Take());
}

TEST_F(ForwardingTest, ClipsAreDevicePixelsWhateverTheOrigins) {
    const auto clipCall = [&] {
        EXPECT_EQ(kAnswer, DrawPoint(canvas_, 0, 0));
        return recorder.Take()[1];
    };
    const RECT everything{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, nothing{5, 5, 5, 9};
    SetViewportOrg(canvas_, 0, 0, nullptr);
    SetWindowOrg(canvas_, 10, 10, nullptr);
    SetCanvasClipRect(canvas_, &everything);
    EXPECT_EQ("velCanvasClipRect(canvas, 0, 0, 40, 30)", clipCall());
    SetCanvasClipRect(canvas_, &nothing);
    EXPECT_EQ("velCanvasClipRect(canvas, 0, 0, 0, 0)", clipCall());

    // With a device context the clip comes from there, in its coordinates.
    SetCanvasClipRect(canvas_, &everything);
    EXPECT_NE(nullptr, GetCanvasHandle(canvas_));
    EXPECT_EQ(kAnswer, Save(canvas_));
    recorder.Take();
    EXPECT_EQ("velCanvasClipRect(canvas, 0, 0, 40, 30)", clipCall());
    SetWindowOrg(canvas_, -7, 0, nullptr);
    EXPECT_EQ("velCanvasClipRect(canvas, 0, 0, 40, 30)", clipCall());
}

TEST_F(ForwardingTest, TexturesOfACompanionCanvasLockItForTheCallOnly) {
    // Unlocked even when there was nothing to lock.
    recorder.unlocks = 0;
    EXPECT_FALSE(GetTextureFromVelCanvas(nullptr));
    EXPECT_EQ(1, recorder.unlocks);
    velCanvas *companion = velCanvasCreate();
    EXPECT_FALSE(GetTextureFromVelCanvas(companion));
    EXPECT_EQ(2, recorder.unlocks);
    DWORD pixels[6] = {};
    velBitmap *bitmap = velBitmapCreateFromData(pixels, 2, 2, 12);
    velCanvasSetBitmap(companion, bitmap);
    velBitmapDestroy(bitmap);
    const HGTEXTURE texture = GetTextureFromVelCanvas(companion);
    EXPECT_EQ(3, recorder.unlocks);
    SurfaceView view{};
    ASSERT_EQ(1, LockTextureBitsEx(texture, &view, nullptr));
    EXPECT_EQ(pixels, view.bits);
    EXPECT_EQ(2, view.width);
    EXPECT_EQ(2, view.height);
    EXPECT_EQ(12, view.stride);
    EXPECT_EQ(32, view.bitsPerPixel);
    EXPECT_EQ(nullptr, GetTextureHandle(texture)) << "foreign pixels have no bitmap";
    DeleteTexture(texture);
    velCanvasDestroy(companion);
}

}  // namespace
}  // namespace lacquer
