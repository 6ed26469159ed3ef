// The rows of vector drawing, through canvases and in the companion itself: everything but text and animations.

#include "kinds.h"

namespace fuzz {
namespace {

constexpr Group kGroup = kVector;

POINT ChoosePoint(Call &call) {
    const int limit = static_cast<int>(caps::kVectorCoordinate);
    const auto coordinate = [&] { return std::clamp(ChooseCoordinate(call), -limit, limit); };
    return {coordinate(), coordinate()};
}
using Points = List<POINT, ChoosePoint, 9>;

float ChooseDash(Call &call) {
    return call.choices.Seldom(8) ? ChooseLength(call)
                                  : caps::kShortestDash + static_cast<float>(call.choices.Byte()) / 16;
}
using Dashes = List<float, ChooseDash, caps::kDashes>;

float ChooseAngle(Call &call) {
    return call.choices.Seldom(16) ? ChooseLength(call) : static_cast<float>(call.choices.Byte()) * 4 - 360;
}
using Angle = Chosen<float, ChooseAngle>;

using VelRect = Out<velRectF>;

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
    void Write(std::ostream &out) const { out << "bits, " << width << ", " << height << ", " << stride; }
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

std::vector<Row> VectorCalls() {
    return {
        CALL(DrawPoint, Canvas, Length, Length),
        CALL(DrawLine, Canvas, Length, Length, Length, Length),
        CALL(DrawRectangle, Canvas, Length, Length, Length, Length),
        CALL(DrawRoundRect, Canvas, Length, Length, Length, Length, Length, Length),
        CALL(DrawCircle, Canvas, Length, Length, Length),
        CALL(DrawArc, Canvas, Length, Length, Length, Length, Angle, Angle, Flag),
        CALL(DrawEllipse, Canvas, Length, Length, Length, Length),
        CALL_AS(DrawPolygon,
                (+[](HGCANVAS canvas, const POINT *points, int count) { return DrawPolygon(canvas, count, points); }),
                Canvas, Points),
        CALL(DrawColor, Canvas, Colour),
        CALL(DrawBezier, Canvas, Length, Length, Length, Length, Length, Length, Length, Length),
        CALL(DrawPath, Canvas, Path),
        CALL(Save, Canvas),
        CALL(Restore, Canvas),
        CALL(SetDrawStyle, Canvas, Code<4>),
        CALL(SetColor, Canvas, Colour),
        CALL(SetSmooth, Canvas, Flag),
        CALL(SetBlendMode, Canvas, Code<23>),
        CALL(GetBlendMode, Canvas),
        CALL(SetBlendValue, Canvas, Word),
        CALL(GetBlendValue, Canvas),
        CALL(SetStrokeCap, Canvas, Code<3>),
        CALL(SetStrokeJoin, Canvas, Code<3>),
        CALL(SetGradient, Canvas, Gradient),
        CALL(SetStrokeWidth, Canvas, StrokeWidth),
        CALL(GetStrokeWidth, Canvas),
        CALL(SetDashStyle, Canvas, Code<6>),
        CALL(SetDashPattern, Canvas, Dashes, Length),

        CALL(PathCreate),
        CALL(PathDestroy, Ended<velPath *>),
        CALL(PathBegin, Path),
        CALL(PathClose, Path),
        CALL(PathSetFillType, Path, Code<2>),
        CALL(PathMoveTo, Path, Length, Length),
        CALL(PathLineTo, Path, Length, Length),
        CALL(PathArcTo, Path, Length, Length, Length, Length, Angle, Angle, Flag),
        CALL(PathOvalCurveTo, Path, Length, Length, Angle, Flag, Flag, Length, Length),
        CALL(PathBezierCurveTo, Path, Length, Length, Length, Length, Length, Length),
        CALL(PathQuadraticCurveTo, Path, Length, Length, Length, Length),
        CALL(PathAddArc, Path, Length, Length, Length, Length, Angle, Angle),
        CALL(PathAddRectangle, Path, Length, Length, Length, Length),
        CALL(PathAddCircle, Path, Length, Length, Length),
        CALL(PathAddEllipse, Path, Length, Length, Length, Length),
        CALL(PathGetBounds, Path, VelRect),
        CALL(GradientCreateLinear, Length, Length, Length, Length),
        CALL(GradientCreateRadial, Length, Length, Length),
        CALL(GradientAddColorStop, Gradient, Fraction, Colour),
        CALL(GradientDestroy, Ended<velGradient *>),

        CALL(velCanvasCreate),
        CALL_AS(CreateVelCanvasWithBitmap, NewVelCanvasWithBitmap, VelPixels),
        CALL(velCanvasDestroy, Ended<velCanvas *>),
        CALL(velBitmapCreateFromData, VelPixels),
        CALL(velBitmapDestroy, Ended<velBitmap *>),
        CALL(velCanvasSetBitmap, VelCanvas, VelBitmap),
        CALL(velCanvasLockBits, VelCanvas, Rect, VelView),
        CALL(velCanvasUnlockBits, VelCanvas, Rect),
        CALL(velCanvasSave, VelCanvas),
        CALL(velCanvasRestore, VelCanvas),
        CALL(velCanvasClipRect, VelCanvas, Coordinate, Coordinate, Coordinate, Coordinate),
        CALL(velCanvasTranslate, VelCanvas, Length, Length),
        CALL(velCanvasSetDrawStyle, VelCanvas, Code<4>),
        CALL(velCanvasSetColor, VelCanvas, Colour),
        CALL(velCanvasSetSmooth, VelCanvas, Flag),
        CALL(velCanvasSetBlendMode, VelCanvas, Code<23>),
        CALL(velCanvasGetBlendMode, VelCanvas),
        CALL(velCanvasSetBlendValue, VelCanvas, Word),
        CALL(velCanvasGetBlendValue, VelCanvas),
        CALL(velCanvasSetStrokeCap, VelCanvas, Code<3>),
        CALL(velCanvasSetStrokeJoin, VelCanvas, Code<3>),
        CALL(velCanvasSetGradient, VelCanvas, Gradient),
        CALL(velCanvasSetStrokeWidth, VelCanvas, StrokeWidth),
        CALL(velCanvasGetStrokeWidth, VelCanvas),
        CALL(velCanvasSetDashStyle, VelCanvas, Code<6>),
        CALL(velCanvasSetDashPattern, VelCanvas, Dashes, Length),
        CALL(velCanvasDrawPoint, VelCanvas, Length, Length),
        CALL(velCanvasDrawLine, VelCanvas, Length, Length, Length, Length),
        CALL(velCanvasDrawRectangle, VelCanvas, Length, Length, Length, Length),
        CALL(velCanvasDrawRoundRect, VelCanvas, Length, Length, Length, Length, Length, Length),
        CALL(velCanvasDrawCircle, VelCanvas, Length, Length, Length),
        CALL(velCanvasDrawArc, VelCanvas, Length, Length, Length, Length, Angle, Angle, Flag),
        CALL(velCanvasDrawEllipse, VelCanvas, Length, Length, Length, Length),
        CALL(velCanvasDrawColor, VelCanvas, Colour),
        CALL(velCanvasDrawPath, VelCanvas, Path),
        CALL(velPathCreate),
        CALL(velPathDestroy, Ended<velPath *>),
        CALL(velPathBegin, Path),
        CALL(velPathClose, Path),
        CALL(velPathSetFillType, Path, Code<2>),
        CALL(velPathMoveTo, Path, Length, Length),
        CALL(velPathLineTo, Path, Length, Length),
        CALL(velPathArcTo, Path, Length, Length, Length, Length, Angle, Angle, Flag),
        CALL(velPathOvalCurveTo, Path, Length, Length, Angle, Flag, Flag, Length, Length),
        CALL(velPathBezierCurveTo, Path, Length, Length, Length, Length, Length, Length),
        CALL(velPathQuadraticCurveTo, Path, Length, Length, Length, Length),
        CALL(velPathAddArc, Path, Length, Length, Length, Length, Angle, Angle),
        CALL(velPathAddRectangle, Path, Length, Length, Length, Length),
        CALL(velPathAddCircle, Path, Length, Length, Length),
        CALL(velPathAddEllipse, Path, Length, Length, Length, Length),
        CALL(velPathGetBounds, Path, VelRect),
        CALL(velGradientCreateLinear, Length, Length, Length, Length),
        CALL(velGradientCreateRadial, Length, Length, Length),
        CALL(velGradientAddColorStop, Gradient, Fraction, Colour),
        CALL(velGradientDestroy, Ended<velGradient *>),
    };
}

}  // namespace fuzz
