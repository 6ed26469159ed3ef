// Bad input to the vector functions: nulls, values outside their tables, numbers of any size. Each is refused or drawn,
// and what comes later is drawn as ever.

#include <array>
#include <cmath>
#include <functional>
#include <limits>

#include "scene.h"

namespace lacquer {
namespace {

constexpr uint32_t kGround = 0xFF808080;
constexpr float kInfinity = std::numeric_limits<float>::infinity(), kNan = std::numeric_limits<float>::quiet_NaN();

/// A canvas with the scene, which bad input must not change.
class VectorInputTest : public testing::Test {
protected:
    ~VectorInputTest() override {
        // The state is that of a new canvas again, and it still draws.
        FillWith(Locked(canvas_), kGround);
        SetCanvasClipRect(canvas_, &kWhole);
        DrawScene(canvas_);
        const OwnedCanvas fresh = PlainCanvas(kSceneWidth, kSceneHeight, kGround);
        DrawScene(fresh);
        EXPECT_TRUE(Same(PictureOf(Locked(fresh)), PictureOf(Locked(canvas_))));
        EXPECT_EQ(0, Restore(canvas_));
    }

    static constexpr RECT kWhole{0, 0, kSceneWidth, kSceneHeight};
    const OwnedCanvas canvas_ = PlainCanvas(kSceneWidth, kSceneHeight, kGround);
};

TEST_F(VectorInputTest, NullsAreRefused) {
    const WORD glyph = 1;
    const velPointF position{};
    const Picture before = PictureOf(Locked(canvas_));
    velRectF bounds{1, 2, 3, 4};
    for (const int result : {DrawPath(canvas_, nullptr),
                             DrawPolygon(canvas_, 3, nullptr),
                             DrawLottie(canvas_, nullptr, 0, 0, 0, 9, 9),
                             DrawPosTextByGlyphs(canvas_, nullptr, 1, &position),
                             DrawPosTextByGlyphs(canvas_, &glyph, 1, nullptr),
                             SetGradient(canvas_, nullptr),
                             SetDashPattern(canvas_, nullptr, 2, 0),
                             SetFontFaceName(canvas_, nullptr),
                             PathDestroy(nullptr),
                             PathBegin(nullptr),
                             PathClose(nullptr),
                             PathSetFillType(nullptr, 0),
                             PathMoveTo(nullptr, 1, 2),
                             PathLineTo(nullptr, 1, 2),
                             PathArcTo(nullptr, 1, 2, 3, 4, 5, 6, 0),
                             PathOvalCurveTo(nullptr, 1, 2, 3, 0, 0, 4, 5),
                             PathBezierCurveTo(nullptr, 1, 2, 3, 4, 5, 6),
                             PathQuadraticCurveTo(nullptr, 1, 2, 3, 4),
                             PathAddArc(nullptr, 1, 2, 3, 4, 5, 6),
                             PathAddRectangle(nullptr, 1, 2, 3, 4),
                             PathAddCircle(nullptr, 1, 2, 3),
                             PathAddEllipse(nullptr, 1, 2, 3, 4),
                             PathGetBounds(nullptr, &bounds),
                             GradientAddColorStop(nullptr, 0, 0),
                             GradientDestroy(nullptr)}) {
        EXPECT_EQ(0, result);
    }
    velPath *path = PathCreate();
    EXPECT_EQ(0, PathGetBounds(path, nullptr));
    EXPECT_EQ(1, PathDestroy(path));
    EXPECT_EQ(1, bounds.left);
    EXPECT_TRUE(Same(before, PictureOf(Locked(canvas_))));
}

TEST_F(VectorInputTest, ValuesOutsideTheirTablesAreRefused) {
    struct Setter {
        const char *name;
        int (*set)(HGCANVAS, DWORD);
        DWORD first;  ///< the lowest value that is refused
    };
    constexpr Setter kSetters[] = {{"SetDrawStyle", SetDrawStyle, 4},     {"SetBlendMode", SetBlendMode, 23},
                                   {"SetBlendValue", SetBlendValue, 256}, {"SetStrokeCap", SetStrokeCap, 3},
                                   {"SetStrokeJoin", SetStrokeJoin, 3},   {"SetDashStyle", SetDashStyle, 6},
                                   {"SetFontStyle", SetFontStyle, 16}};
    for (const Setter &setter : kSetters) {
        for (const DWORD wrong :
             {setter.first, DWORD{0x100}, DWORD{0x7FFFFFFF}, DWORD{0x80000000}, DWORD{0xFFFFFFFF}}) {
            EXPECT_EQ(0, setter.set(canvas_, wrong)) << setter.name << " " << wrong;
        }
    }
    for (const float wrong : {-1.0f, 32768.0f, kNan, kInfinity, -kInfinity}) {
        EXPECT_EQ(0, SetStrokeWidth(canvas_, wrong));
        EXPECT_EQ(0, SetTextSize(canvas_, wrong));
        EXPECT_EQ(0, SetDashPattern(canvas_, std::array{2.0f, wrong}.data(), 2, 0));
    }
    EXPECT_EQ(0, SetDashPattern(canvas_, std::array{2.0f, 1.0f}.data(), INT32_MIN, 0));
    EXPECT_EQ(1.0f, GetStrokeWidth(canvas_));
    EXPECT_EQ(DWORD{VEL_BLEND_SOURCE_OVER}, GetBlendMode(canvas_));
    EXPECT_EQ(255u, GetBlendValue(canvas_));
}

TEST_F(VectorInputTest, NumbersOfAnySizeStayInsideTheClip) {
    using Numbers = std::array<float, 8>;
    const std::vector<std::function<int(HGCANVAS, const Numbers &)>> drawings = {
        [](HGCANVAS c, const Numbers &n) { return DrawPoint(c, n[0], n[1]); },
        [](HGCANVAS c, const Numbers &n) { return DrawLine(c, n[0], n[1], n[2], n[3]); },
        [](HGCANVAS c, const Numbers &n) { return DrawRectangle(c, n[0], n[1], n[2], n[3]); },
        [](HGCANVAS c, const Numbers &n) { return DrawRoundRect(c, n[0], n[1], n[2], n[3], n[4], n[5]); },
        [](HGCANVAS c, const Numbers &n) { return DrawCircle(c, n[0], n[1], n[2]); },
        [](HGCANVAS c, const Numbers &n) { return DrawArc(c, n[0], n[1], n[2], n[3], n[4], n[5], 1); },
        [](HGCANVAS c, const Numbers &n) { return DrawEllipse(c, n[0], n[1], n[2], n[3]); },
        [](HGCANVAS c, const Numbers &n) { return DrawBezier(c, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7]); },
        [](HGCANVAS c, const Numbers &n) {
            velPath *path = PathCreate();
            PathMoveTo(path, 20, 20);
            PathArcTo(path, n[0], n[1], n[2], n[3], n[4], n[5], 0);
            PathOvalCurveTo(path, n[0], n[1], n[2], 1, 0, n[3], n[4]);
            PathQuadraticCurveTo(path, n[4], n[5], n[6], n[7]);
            PathAddRectangle(path, n[0], n[1], n[2], n[3]);
            velRectF bounds{};
            PathGetBounds(path, &bounds);
            const int result = DrawPath(c, path);
            PathDestroy(path);
            return result;
        },
        [](HGCANVAS c, const Numbers &n) {
            velGradient *gradient = GradientCreateLinear(n[0], n[1], n[2], n[3]);
            GradientAddColorStop(gradient, n[4], 0xFFFF0000);
            GradientAddColorStop(gradient, n[5], 0xFF0000FF);
            Save(c);
            SetGradient(c, gradient);
            SetDrawStyle(c, VEL_STYLE_GRADIENT_FILL);
            const int result = DrawRectangle(c, 0, 0, 40, 40);
            Restore(c);
            GradientDestroy(gradient);
            return result;
        },
        [](HGCANVAS c, const Numbers &) {
            const POINT points[] = {{INT32_MAX, INT32_MIN}, {INT32_MIN, INT32_MAX}, {5, 5}};
            return DrawPolygon(c, 3, points);
        },
    };
    const float wild[] = {kNan,     kInfinity, -kInfinity, 3.4e38f, -3.4e38f, 1e9f,   -1e9f,  1000001.0f, -999999.0f,
                          40000.5f, -32769.0f, 1e-38f,     -0.0f,   0.0f,     20.25f, 360.0f, -7.5f};
    const RECT clip{8, 8, 40, 32};
    SetCanvasClipRect(canvas_, &clip);
    Random random(1);
    for (int round = 0; round < 400; ++round) {
        Numbers numbers{};
        for (float &number : numbers) number = wild[random.Word() % std::size(wild)];
        Save(canvas_);
        SetDrawStyle(canvas_, random.Word() % 2);
        SetStrokeWidth(canvas_, random.Of({0.0f, 1.0f, 3.5f, 32767.0f}));
        SetDashStyle(canvas_, random.Word() % 5);
        SetColor(canvas_, random.Word());
        for (size_t i = 0; i < drawings.size(); ++i) {
            const int result = drawings[i](canvas_, numbers);
            ASSERT_TRUE(result == 0 || result == 1) << i;
        }
        Restore(canvas_);
    }
    const Picture pixels = PictureOf(Locked(canvas_));
    for (LONG y = 0; y < kSceneHeight; ++y) {
        for (LONG x = 0; x < kSceneWidth; ++x) {
            if (!Contains(clip, x, y)) {
                ASSERT_EQ(kGround, pixels.At(x, y)) << x << " " << y;
            }
        }
    }
}

TEST_F(VectorInputTest, OriginsAtTheEndsOfTheRangeDrawNothingElsewhere) {
    constexpr int kEnds[] = {INT32_MIN, -1, 0, INT32_MAX};
    const Picture before = PictureOf(Locked(canvas_));
    for (const int viewport : kEnds) {
        for (const int window : kEnds) {
            SetViewportOrg(canvas_, viewport, 0, nullptr);
            SetWindowOrg(canvas_, window, 0, nullptr);
            for (const RECT &clip : {RECT{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, RECT{5, 5, 9, 9}}) {
                SetCanvasClipRect(canvas_, &clip);
                const int result = DrawCircle(canvas_, 20, 20, 10);
                EXPECT_TRUE(result == 0 || result == 1);
                if (std::abs(int64_t{viewport} - window) > 100) {
                    EXPECT_TRUE(Same(before, PictureOf(Locked(canvas_)))) << viewport << " " << window;
                }
                FillWith(Locked(canvas_), kGround);
            }
        }
    }
    SetViewportOrg(canvas_, 0, 0, nullptr);
    SetWindowOrg(canvas_, 0, 0, nullptr);
}

TEST_F(VectorInputTest, LongPolygonsAreDrawn) {
    std::vector<POINT> points;
    for (LONG i = 0; i < 20000; ++i) points.push_back({i * 7919 % kSceneWidth, i * 104729 % kSceneHeight});
    EXPECT_EQ(1, DrawPolygon(canvas_, static_cast<int>(points.size()), points.data()));
    // A polygon that goes twice around its rectangle is the rectangle.
    FillWith(Locked(canvas_), kGround);
    const POINT twice[] = {{5, 5}, {15, 5}, {15, 12}, {5, 12}, {5, 5}, {15, 5}, {15, 12}, {5, 12}};
    SetColor(canvas_, 0xFF00FF00);
    EXPECT_EQ(1, DrawPolygon(canvas_, 8, twice));
    const Picture pixels = PictureOf(Locked(canvas_));
    for (LONG y = 0; y < kSceneHeight; ++y) {
        for (LONG x = 0; x < kSceneWidth; ++x) {
            ASSERT_EQ(Contains({5, 5, 15, 12}, x, y) ? 0xFF00FF00 : kGround, pixels.At(x, y)) << x << " " << y;
        }
    }
    SetColor(canvas_, 0xFF000000);
}

}  // namespace
}  // namespace lacquer
