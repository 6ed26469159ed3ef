// The rows of vector drawing, through canvases and in the companion itself: everything but text and animations.

#include "kinds.h"

namespace fuzz {
namespace {

constexpr Group kGroup = kVector;

POINT ChoosePoint(Call &call) { return {ChooseCoordinate(call), ChooseCoordinate(call)}; }
using Points = List<POINT, ChoosePoint, 9>;

using Dashes = List<float, ChooseSmallLength, 300>;

float ChooseAngle(Call &call) {
    return call.choices.Seldom(16) ? ChooseLength(call) : static_cast<float>(call.choices.Byte()) * 4 - 360;
}
using Angle = Chosen<float, ChooseAngle>;

/// Pixels of the program's own, with a stride that may be refused.
struct VelPixels {
    explicit VelPixels(Call &call) {
        width = static_cast<LONG>(1 + call.choices.Below(caps::kSide));
        height = static_cast<LONG>(1 + call.choices.Below(caps::kSide));
        stride = width * 4 + static_cast<LONG>(call.choices.Below(3)) * 4;
        bits = call.world.Buffer(static_cast<size_t>(stride) * static_cast<size_t>(height));
        switch (call.choices.Byte()) {
            case 0: stride = width * 4 - 4; break;
            case 1: stride += 1; break;
            case 2: stride = -stride; break;
            case 3: width = 0; break;
            case 4: height = -1; break;
            case 5: bits = nullptr; break;
            default: break;
        }
    }
    std::tuple<void *, LONG, LONG, LONG> Value() const { return {bits, width, height, stride}; }
    void *bits = nullptr;
    LONG width = 0, height = 0, stride = 0;
};

/// What velCanvasLockBits fills; its pixels are the program's.
struct VelView : Out<velBitmapData> {
    explicit VelView(Call &call) : Out(call) {}
    void After(Call &call) {
        if (!call.done || isNull) return;
        const SurfaceView view{0, record.width, record.height, record.stride, 1, 32, record.bits, 0, nullptr};
        if (call.choices.Seldom(64)) call.world.PaintView(view, call.choices.Byte());
        Digest digest;
        digest.AddBytes(record.bits, static_cast<size_t>(record.height) * static_cast<size_t>(record.stride));
        call.Add(digest.Value());
    }
};

velCanvas *NewVelCanvasWithBitmap(void *bits, LONG width, LONG height, LONG stride) {
    velCanvas *canvas = velCanvasCreate();
    velBitmap *bitmap = velBitmapCreateFromData(bits, width, height, stride);
    velCanvasSetBitmap(canvas, bitmap);
    velBitmapDestroy(bitmap);
    return canvas;
}

}  // namespace

// Functions that the library passes on to the companion under nearly the same name.
#define ON_CANVASES(name, ...) \
    CALL(name __VA_OPT__(, Canvas, __VA_ARGS__)), CALL(velCanvas##name __VA_OPT__(, VelCanvas, __VA_ARGS__))
#define OF_COMPANION(name, ...) CALL(name __VA_OPT__(, ) __VA_ARGS__), CALL(vel##name __VA_OPT__(, ) __VA_ARGS__)

std::vector<Row> VectorCalls() {
    return {
        FOR_EACH(ON_CANVASES, DrawPoint, DrawLine, DrawRectangle, DrawRoundRect, DrawCircle, DrawEllipse, DrawPath,
                 Save, Restore, GetBlendMode, GetBlendValue, SetGradient, GetStrokeWidth),
        FOR_EACH(OF_COMPANION, PathCreate, PathBegin, PathClose, PathMoveTo, PathLineTo, PathBezierCurveTo,
                 PathQuadraticCurveTo, PathAddRectangle, PathAddCircle, PathAddEllipse, PathGetBounds,
                 GradientCreateLinear, GradientCreateRadial),
        FOR_EACH(CALL, DrawBezier, velCanvasCreate, velCanvasSetBitmap, velCanvasClipRect, velCanvasTranslate),

        ON_CANVASES(DrawArc, Length, Length, Length, Length, Angle, Angle, Flag),
        ON_CANVASES(DrawColor, Colour),
        ON_CANVASES(SetDrawStyle, Code<4>),
        ON_CANVASES(SetColor, Colour),
        ON_CANVASES(SetSmooth, Flag),
        ON_CANVASES(SetBlendMode, Code<23>),
        ON_CANVASES(SetBlendValue, Word),
        ON_CANVASES(SetStrokeCap, Code<3>),
        ON_CANVASES(SetStrokeJoin, Code<3>),
        ON_CANVASES(SetStrokeWidth, SmallLength),
        ON_CANVASES(SetDashStyle, Code<6>),
        ON_CANVASES(SetDashPattern, Dashes, Length),
        CALL_AS(DrawPolygon,
                (+[](HGCANVAS canvas, const POINT *points, int count) { return DrawPolygon(canvas, count, points); }),
                Canvas, Points),

        OF_COMPANION(PathDestroy, Ended<velPath *>),
        OF_COMPANION(PathSetFillType, Path, Code<2>),
        OF_COMPANION(PathArcTo, Path, Length, Length, Length, Length, Angle, Angle, Flag),
        OF_COMPANION(PathOvalCurveTo, Path, Length, Length, Angle, Flag, Flag, Length, Length),
        OF_COMPANION(PathAddArc, Path, Length, Length, Length, Length, Angle, Angle),
        OF_COMPANION(GradientAddColorStop, Gradient, Fraction, Colour),
        OF_COMPANION(GradientDestroy, Ended<velGradient *>),

        CALL_AS(CreateVelCanvasWithBitmap, NewVelCanvasWithBitmap, VelPixels),
        CALL(velCanvasDestroy, Ended<velCanvas *>),
        CALL(velBitmapCreateFromData, VelPixels),
        CALL(velBitmapDestroy, Ended<velBitmap *>),
        CALL(velCanvasLockBits, VelCanvas, Rect, VelView),
        CALL(velCanvasUnlockBits, VelCanvas, Rect),
    };
}

}  // namespace fuzz
