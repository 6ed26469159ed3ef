// The vector functions beside the companion's own: the same results, and the same pixels to the bit.

#include <cstring>
#include <tuple>
#include <type_traits>

#include "scene.h"
#include "velgraphic/animations.h"

namespace lacquer {
namespace {

/// A canvas and a path, and the same two made by the companion alone, which is told by hand where the canvas draws.
class SideBySide {
public:
    explicit SideBySide(OwnedCanvas canvas = PlainCanvas()) : canvas_(std::move(canvas)) {
        std::get<HGCANVAS>(ours_) = canvas_;
        std::get<velCanvas *>(theirs_) = companion_.get();
        velCanvasSave(companion_.get());
        for (velPath *path : {std::get<velPath *>(ours_), std::get<velPath *>(theirs_)}) {
            velPathMoveTo(path, 2, 3);
            velPathLineTo(path, 21, 5);
            velPathBezierCurveTo(path, 20, 30, 15, -9, 5, 17);
        }
    }
    ~SideBySide() {
        EXPECT_EQ(1, PathDestroy(std::get<velPath *>(ours_)));
        EXPECT_EQ(1, velPathDestroy(std::get<velPath *>(theirs_)));
    }

    /// Moves and confines drawing; the clip is logical. Result: the clip in pixels.
    RECT Place(const POINT &viewport, const POINT &window, const RECT &clip) {
        EXPECT_EQ(1, SetViewportOrg(canvas_, viewport.x, viewport.y, nullptr));
        EXPECT_EQ(1, SetWindowOrg(canvas_, window.x, window.y, nullptr));
        EXPECT_EQ(1, SetCanvasClipRect(canvas_, &clip));
        const LONG dx = viewport.x - window.x, dy = viewport.y - window.y;
        const RECT pixels = Moved(clip, dx, dy);
        velCanvas *companion = companion_.get();
        EXPECT_EQ(1, velCanvasRestore(companion));
        EXPECT_EQ(1, velCanvasSave(companion));
        EXPECT_EQ(1, velCanvasClipRect(companion, pixels.left, pixels.top, pixels.right, pixels.bottom));
        EXPECT_EQ(1, velCanvasTranslate(companion, static_cast<float>(dx), static_cast<float>(dy)));
        return pixels;
    }

    void UseGradients(velGradient *ours, velGradient *theirs) {
        std::get<velGradient *>(ours_) = ours;
        std::get<velGradient *>(theirs_) = theirs;
        EXPECT_EQ(1, SetGradient(canvas_, ours));
        EXPECT_EQ(1, velCanvasSetGradient(companion_.get(), theirs));
    }

    /// Calls two functions with the same arguments after the object of their own, and draws the paths and some glyphs.
    /// Result: whether anything looks different after it than after the call before.
    template <class Ours, class Theirs, class... Parameters>
    bool Both(int (*ours)(Ours, Parameters...), int (*theirs)(Theirs, Parameters...),
              std::type_identity_t<Parameters>... arguments) {
        SCOPED_TRACE(testing::Message() << "call " << calls_++);
        FillWith(ViewOf(canvas_), kGround);
        FillWith(ViewOf(expected_), kGround);
        EXPECT_EQ(theirs(std::get<Theirs>(theirs_), arguments...), ours(std::get<Ours>(ours_), arguments...));
        return Compare();
    }

    HGCANVAS Canvas() const { return canvas_; }
    Picture Pixels() const { return PixelsOn(canvas_); }

private:
    bool Compare() {
        const WORD glyphs[] = {43, 72};
        const velPointF positions[] = {{1, 14}, {12, 14}};
        velPath *ours = std::get<velPath *>(ours_), *theirs = std::get<velPath *>(theirs_);
        velCanvas *companion = companion_.get();
        EXPECT_EQ(velCanvasDrawPath(companion, theirs), DrawPath(canvas_, ours));
        EXPECT_EQ(velCanvasDrawPosTextByGlyphs(companion, glyphs, 2, positions),
                  DrawPosTextByGlyphs(canvas_, glyphs, 2, positions));
        velRectF bounds{}, expected{};
        EXPECT_EQ(velPathGetBounds(theirs, &expected), PathGetBounds(ours, &bounds));
        const Picture now = PixelsOn(canvas_);
        EXPECT_TRUE(Same(PixelsOn(expected_), now));
        EXPECT_EQ(0, std::memcmp(&expected, &bounds, sizeof bounds));
        const bool same = Same(last_, now) && std::memcmp(&lastBounds_, &bounds, sizeof bounds) == 0;
        last_ = now;
        lastBounds_ = bounds;
        return !same;
    }

    const OwnedCanvas canvas_, expected_ = PlainCanvas();
    const SurfaceView view_ = ViewOf(expected_);
    const OwnedCompanion companion_ = CompanionOn(view_.bits, view_.width, view_.height, view_.stride);
    std::tuple<HGCANVAS, velPath *, velGradient *> ours_{{}, PathCreate(), nullptr};
    std::tuple<velCanvas *, velPath *, velGradient *> theirs_{nullptr, velPathCreate(), nullptr};
    int calls_ = 0;
    Picture last_;
    velRectF lastBounds_{};
};

int DrawClosedLines(velCanvas *canvas, int count, const POINT *points) {
    velPath *path = velPathCreate();
    for (int i = 0; i < count; ++i) {
        velPathLineTo(path, static_cast<float>(points[i].x), static_cast<float>(points[i].y));
    }
    velPathClose(path);
    const int result = velCanvasDrawPath(canvas, path);
    velPathDestroy(path);
    return result;
}

int DrawCurve(velCanvas *canvas, float x0, float y0, float x1, float y1, float x2, float y2, float x3, float y3) {
    velPath *path = velPathCreate();
    velPathMoveTo(path, x0, y0);
    velPathBezierCurveTo(path, x1, y1, x2, y2, x3, y3);
    const int result = velCanvasDrawPath(canvas, path);
    velPathDestroy(path);
    return result;
}

TEST(VectorForwarding, DrawsWhatTheCompanionDraws) {
    SideBySide sides;
    sides.Place({9, 8}, {2, 3}, {0, 1, 25, 20});
    EXPECT_TRUE(sides.Both(DrawPoint, velCanvasDrawPoint, 1, 2));
    EXPECT_TRUE(sides.Both(DrawLine, velCanvasDrawLine, 1, 2, 13, 4.5f));
    EXPECT_TRUE(sides.Both(DrawRectangle, velCanvasDrawRectangle, 1, 2, 13, 4));
    EXPECT_TRUE(sides.Both(DrawRoundRect, velCanvasDrawRoundRect, 1, 2, 13, 14, 5, 6));
    EXPECT_TRUE(sides.Both(DrawCircle, velCanvasDrawCircle, 11, 12, 3));
    EXPECT_TRUE(sides.Both(DrawArc, velCanvasDrawArc, 1, 2, 13, 14, 50, 260, 0));
    EXPECT_TRUE(sides.Both(DrawArc, velCanvasDrawArc, 1, 2, 13, 14, 50, 260, 1));
    EXPECT_TRUE(sides.Both(DrawEllipse, velCanvasDrawEllipse, 11, 12, 3, 4));
    EXPECT_TRUE(sides.Both(DrawColor, velCanvasDrawColor, 0x80002040));
    velLottie *square = velLottieCreateFromData(AnimationOf(RedSquare()).data(), AnimationOf(RedSquare()).size());
    EXPECT_TRUE(sides.Both(DrawLottie, velLottieDraw, square, 1, 2, 3, 14, 15));
    velLottieDestroy(square);
    const POINT triangle[] = {{1, 2}, {13, 4}, {-5, 16}};
    EXPECT_TRUE(sides.Both(DrawPolygon, DrawClosedLines, 3, triangle));
    EXPECT_TRUE(sides.Both(DrawBezier, DrawCurve, 1, 2, 3, 14, 5, 16, 17, 8));
}

TEST(VectorForwarding, SetsTheStateOfTheCompanion) {
    const WCHAR face[] = {'D', 'e', 'j', 'a', 'V', 'u', ' ', 'S', 'a', 'n', 's', 0};
    const float lengths[] = {4, 1.5f, 2};
    SideBySide sides;
    EXPECT_TRUE(sides.Both(SetFontFaceName, velCanvasSetFontFaceName, face));
    EXPECT_TRUE(sides.Both(SetTextSize, velCanvasSetTextSize, 12.5f));
    EXPECT_TRUE(sides.Both(SetFontStyle, velCanvasSetFontStyle, DWORD{VEL_FONT_UNDERLINE}));
    EXPECT_TRUE(sides.Both(SetColor, velCanvasSetColor, 0xC0402060));
    sides.Both(Save, velCanvasSave);
    const Picture before = sides.Pixels();
    EXPECT_TRUE(sides.Both(SetSmooth, velCanvasSetSmooth, 0));
    EXPECT_TRUE(sides.Both(SetBlendMode, velCanvasSetBlendMode, DWORD{VEL_BLEND_DIFFERENCE}));
    EXPECT_TRUE(sides.Both(SetBlendValue, velCanvasSetBlendValue, 128u));
    EXPECT_TRUE(sides.Both(SetDrawStyle, velCanvasSetDrawStyle, DWORD{VEL_STYLE_STROKE}));
    EXPECT_TRUE(sides.Both(SetStrokeWidth, velCanvasSetStrokeWidth, 5.5f));
    const POINT triangle[] = {{1, 2}, {13, 4}, {-5, 16}};
    EXPECT_TRUE(sides.Both(DrawPolygon, DrawClosedLines, 3, triangle));
    EXPECT_TRUE(sides.Both(SetStrokeCap, velCanvasSetStrokeCap, DWORD{VEL_CAP_SQUARE}));
    EXPECT_TRUE(sides.Both(SetStrokeJoin, velCanvasSetStrokeJoin, DWORD{VEL_JOIN_BEVEL}));
    EXPECT_TRUE(sides.Both(SetDashStyle, velCanvasSetDashStyle, DWORD{VEL_DASH_DOT}));
    EXPECT_TRUE(sides.Both(SetDashStyle, velCanvasSetDashStyle, DWORD{VEL_DASH_PATTERN}));
    EXPECT_TRUE(sides.Both(SetDashPattern, velCanvasSetDashPattern, lengths, 3, 2.5f));
    EXPECT_EQ(DWORD{VEL_BLEND_DIFFERENCE}, GetBlendMode(sides.Canvas()));
    EXPECT_EQ(128u, GetBlendValue(sides.Canvas()));
    EXPECT_EQ(5.5f, GetStrokeWidth(sides.Canvas()));
    EXPECT_TRUE(sides.Both(Restore, velCanvasRestore));
    EXPECT_TRUE(Same(before, sides.Pixels()));
}

TEST(VectorForwarding, PassesPathsAndGradientsThrough) {
    SideBySide sides;
    EXPECT_TRUE(sides.Both(SetDrawStyle, velCanvasSetDrawStyle, DWORD{VEL_STYLE_STROKE}));
    EXPECT_TRUE(sides.Both(PathBegin, velPathBegin));
    EXPECT_TRUE(sides.Both(PathMoveTo, velPathMoveTo, 11, 12));
    EXPECT_TRUE(sides.Both(PathLineTo, velPathLineTo, 20, 13));
    EXPECT_TRUE(sides.Both(PathArcTo, velPathArcTo, 1, 2, 13, 14, 5, 60, 0));
    EXPECT_TRUE(sides.Both(PathArcTo, velPathArcTo, 5, 12, 13, 14, 50, 160, 1));
    EXPECT_TRUE(sides.Both(PathOvalCurveTo, velPathOvalCurveTo, 11, 22, 13, 0, 1, 26, 7));
    EXPECT_TRUE(sides.Both(PathOvalCurveTo, velPathOvalCurveTo, 11, 22, 13, 1, 0, 16, 17));
    EXPECT_TRUE(sides.Both(PathBezierCurveTo, velPathBezierCurveTo, 1, 2, 13, 4, 5, 26));
    EXPECT_TRUE(sides.Both(PathQuadraticCurveTo, velPathQuadraticCurveTo, 1, 22, 13, 34));
    EXPECT_TRUE(sides.Both(PathClose, velPathClose));
    EXPECT_TRUE(sides.Both(PathAddArc, velPathAddArc, 1, 2, 13, 34, 50, 160));
    EXPECT_TRUE(sides.Both(PathAddRectangle, velPathAddRectangle, 1, 2, 13, 14));
    EXPECT_TRUE(sides.Both(PathAddCircle, velPathAddCircle, 11, 12, 8));
    EXPECT_TRUE(sides.Both(PathAddEllipse, velPathAddEllipse, 11, 12, 3, 4));
    EXPECT_TRUE(sides.Both(SetDrawStyle, velCanvasSetDrawStyle, DWORD{VEL_STYLE_GRADIENT_FILL}));
    for (const bool isRadial : {false, true}) {
        velGradient *ours = isRadial ? GradientCreateRadial(10, 8, 9) : GradientCreateLinear(1, 2, 20, 4);
        velGradient *theirs = isRadial ? velGradientCreateRadial(10, 8, 9) : velGradientCreateLinear(1, 2, 20, 4);
        sides.UseGradients(ours, theirs);
        EXPECT_TRUE(sides.Both(GradientAddColorStop, velGradientAddColorStop, 0.2f, kRed));
        EXPECT_TRUE(sides.Both(GradientAddColorStop, velGradientAddColorStop, 0.9f, kBlue));
        EXPECT_EQ(1, GradientDestroy(ours));
        EXPECT_EQ(1, velGradientDestroy(theirs));
    }
    EXPECT_TRUE(sides.Both(PathSetFillType, velPathSetFillType, DWORD{VEL_FILL_EVEN_ODD}));
}

TEST(VectorForwarding, HasTheClipAndTheOriginsOfTheCanvas) {
    constexpr std::pair<POINT, POINT> kOrigins[] = {{{0, 0}, {0, 0}},
                                                    {{7, 5}, {0, 0}},
                                                    {{0, 0}, {10, 10}},
                                                    {{-3, 9}, {4, -6}},
                                                    {{100000, -100000}, {100003, -100004}}};
    constexpr RECT kClips[] = {{0, 0, 1, 1}, {5, 3, 41, 29}, {-100, 11, 20, 1000}, {20, 20, 20, 30}, {30, 30, 10, 10}};
    const Picture ground = PixelsOn(PlainCanvas());
    for (const auto create : {CreateCanvas, CreateSystemCanvas}) {
        SideBySide sides(OwnedCanvas(create(kSceneWidth, kSceneHeight, {})));
        for (const auto &[viewport, window] : kOrigins) {
            for (const RECT &clip : kClips) {
                const RECT pixels = sides.Place(viewport, window, clip);
                sides.Both(DrawCircle, velCanvasDrawCircle, 20, 17, 15.5f);
                EXPECT_TRUE(Same(Cropped(ground, sides.Pixels(), pixels), sides.Pixels()));
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
