// The companion library's functions, as far as the bridge calls them.

#include "recording_companion.h"

#include <sstream>
#include <utility>

// Opaque to everyone else.
struct velCanvas {
    velBitmapData pixels;
    bool hasPixels;
};
struct velBitmap {
    velBitmapData pixels;
};
struct velPath {};
struct velGradient {};

namespace lacquer {

Recorder recorder;

std::vector<std::string> Recorder::Take() { return std::exchange(calls, {}); }

namespace {

std::string Text(const velCanvas *object) { return object ? "canvas" : "null"; }
std::string Text(const velBitmap *object) { return object ? "bitmap" : "null"; }
std::string Text(const velPath *object) { return object ? "path" : "null"; }
std::string Text(const velGradient *object) { return object ? "gradient" : "null"; }
std::string Text(const void *pointer) { return pointer ? "pointer" : "null"; }

template <class Number>
requires std::is_arithmetic_v<Number> std::string Text(Number number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

/// Result: whether the function is to do its work.
template <class... Arguments>
bool Recorded(const char *name, Arguments... arguments) {
    std::string list;
    ((list += (list.empty() ? "" : ", ") + Text(arguments)), ...);
    recorder.calls.push_back(name + ("(" + list + ")"));
    return !recorder.refusing.contains(name);
}

template <class... Arguments>
int Answered(const char *name, Arguments... arguments) {
    return Recorded(name, arguments...) ? kAnswer : 0;
}

template <class Object>
Object *Made(int &count, bool allowed) {
    count += allowed;
    return allowed ? new Object{} : nullptr;
}

template <class Object>
int Destroyed(const char *name, int &count, Object *object) {
    const int answer = Answered(name, object);
    count -= object != nullptr;
    delete object;
    return answer;
}

}  // namespace
}  // namespace lacquer

using namespace lacquer;

velCanvas *velCanvasCreate(void) { return Made<velCanvas>(recorder.canvases, Recorded("velCanvasCreate")); }
int velCanvasDestroy(velCanvas *canvas) { return Destroyed("velCanvasDestroy", recorder.canvases, canvas); }

velBitmap *velBitmapCreateFromData(void *bits, LONG width, LONG height, LONG stride) {
    const bool allowed = Recorded("velBitmapCreateFromData", bits, width, height, stride);
    velBitmap *bitmap = Made<velBitmap>(recorder.bitmaps, allowed);
    if (bitmap) bitmap->pixels = {width, height, stride, bits};
    return bitmap;
}
int velBitmapDestroy(velBitmap *bitmap) { return Destroyed("velBitmapDestroy", recorder.bitmaps, bitmap); }

int velCanvasSetBitmap(velCanvas *canvas, velBitmap *bitmap) {
    if (!Recorded("velCanvasSetBitmap", canvas, bitmap)) return 0;
    canvas->pixels = recorder.pixels = bitmap->pixels;
    canvas->hasPixels = true;
    return kAnswer;
}

int velCanvasLockBits(velCanvas *canvas, const RECT *, velBitmapData *out) {
    if (!canvas || !canvas->hasPixels) return 0;
    ++recorder.locks;
    *out = canvas->pixels;
    return kAnswer;
}
int velCanvasUnlockBits(velCanvas *, const RECT *) {
    ++recorder.unlocks;
    return kAnswer;
}

int velCanvasSave(velCanvas *canvas) { return Answered("velCanvasSave", canvas); }
int velCanvasRestore(velCanvas *canvas) { return Answered("velCanvasRestore", canvas); }
int velCanvasClipRect(velCanvas *canvas, int left, int top, int right, int bottom) {
    return Answered("velCanvasClipRect", canvas, left, top, right, bottom);
}
int velCanvasTranslate(velCanvas *canvas, float x, float y) { return Answered("velCanvasTranslate", canvas, x, y); }

int velCanvasSetDrawStyle(velCanvas *canvas, DWORD style) { return Answered("velCanvasSetDrawStyle", canvas, style); }
int velCanvasSetColor(velCanvas *canvas, DWORD colour) { return Answered("velCanvasSetColor", canvas, colour); }
int velCanvasSetSmooth(velCanvas *canvas, int on) { return Answered("velCanvasSetSmooth", canvas, on); }
int velCanvasSetBlendMode(velCanvas *canvas, DWORD mode) { return Answered("velCanvasSetBlendMode", canvas, mode); }
DWORD velCanvasGetBlendMode(velCanvas *canvas) { return static_cast<DWORD>(Answered("velCanvasGetBlendMode", canvas)); }
int velCanvasSetBlendValue(velCanvas *canvas, DWORD value) { return Answered("velCanvasSetBlendValue", canvas, value); }
DWORD velCanvasGetBlendValue(velCanvas *canvas) {
    return static_cast<DWORD>(Answered("velCanvasGetBlendValue", canvas));
}
int velCanvasSetStrokeCap(velCanvas *canvas, DWORD cap) { return Answered("velCanvasSetStrokeCap", canvas, cap); }
int velCanvasSetStrokeJoin(velCanvas *canvas, DWORD join) { return Answered("velCanvasSetStrokeJoin", canvas, join); }
int velCanvasSetGradient(velCanvas *canvas, velGradient *gradient) {
    return Answered("velCanvasSetGradient", canvas, gradient);
}
int velCanvasSetStrokeWidth(velCanvas *canvas, float width) {
    return Answered("velCanvasSetStrokeWidth", canvas, width);
}
float velCanvasGetStrokeWidth(velCanvas *canvas) {
    return static_cast<float>(Answered("velCanvasGetStrokeWidth", canvas));
}
int velCanvasSetDashStyle(velCanvas *canvas, DWORD style) { return Answered("velCanvasSetDashStyle", canvas, style); }
int velCanvasSetDashPattern(velCanvas *canvas, const float *lengths, int count, float offset) {
    return Answered("velCanvasSetDashPattern", canvas, lengths, count, offset);
}
int velCanvasSetFontFaceName(velCanvas *canvas, const WCHAR *name) {
    return Answered("velCanvasSetFontFaceName", canvas, name);
}
int velCanvasSetFontStyle(velCanvas *canvas, DWORD bits) { return Answered("velCanvasSetFontStyle", canvas, bits); }
int velCanvasSetTextSize(velCanvas *canvas, float pixels) { return Answered("velCanvasSetTextSize", canvas, pixels); }

int velCanvasDrawPoint(velCanvas *canvas, float x, float y) { return Answered("velCanvasDrawPoint", canvas, x, y); }
int velCanvasDrawLine(velCanvas *canvas, float x0, float y0, float x1, float y1) {
    return Answered("velCanvasDrawLine", canvas, x0, y0, x1, y1);
}
int velCanvasDrawRectangle(velCanvas *canvas, float x, float y, float width, float height) {
    return Answered("velCanvasDrawRectangle", canvas, x, y, width, height);
}
int velCanvasDrawRoundRect(velCanvas *canvas, float x, float y, float width, float height, float radiusX,
                           float radiusY) {
    return Answered("velCanvasDrawRoundRect", canvas, x, y, width, height, radiusX, radiusY);
}
int velCanvasDrawCircle(velCanvas *canvas, float centreX, float centreY, float radius) {
    return Answered("velCanvasDrawCircle", canvas, centreX, centreY, radius);
}
int velCanvasDrawArc(velCanvas *canvas, float x, float y, float width, float height, float startAngle, float sweepAngle,
                     int useCentre) {
    return Answered("velCanvasDrawArc", canvas, x, y, width, height, startAngle, sweepAngle, useCentre);
}
int velCanvasDrawEllipse(velCanvas *canvas, float centreX, float centreY, float radiusX, float radiusY) {
    return Answered("velCanvasDrawEllipse", canvas, centreX, centreY, radiusX, radiusY);
}
int velCanvasDrawColor(velCanvas *canvas, DWORD colour) { return Answered("velCanvasDrawColor", canvas, colour); }
int velCanvasDrawPath(velCanvas *canvas, velPath *path) { return Answered("velCanvasDrawPath", canvas, path); }
int velCanvasDrawPosTextByGlyphs(velCanvas *canvas, const WORD *glyphs, int count, const velPointF *positions) {
    return Answered("velCanvasDrawPosTextByGlyphs", canvas, glyphs, count, positions);
}
int velLottieDraw(velCanvas *canvas, velLottie *lottie, float frame, float x, float y, float width, float height) {
    return Answered("velLottieDraw", canvas, static_cast<const void *>(lottie), frame, x, y, width, height);
}

velPath *velPathCreate(void) { return Made<velPath>(recorder.paths, Recorded("velPathCreate")); }
int velPathDestroy(velPath *path) { return Destroyed("velPathDestroy", recorder.paths, path); }
int velPathBegin(velPath *path) { return Answered("velPathBegin", path); }
int velPathClose(velPath *path) { return Answered("velPathClose", path); }
int velPathSetFillType(velPath *path, DWORD type) { return Answered("velPathSetFillType", path, type); }
int velPathMoveTo(velPath *path, float x, float y) { return Answered("velPathMoveTo", path, x, y); }
int velPathLineTo(velPath *path, float x, float y) { return Answered("velPathLineTo", path, x, y); }
int velPathArcTo(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle,
                 int forceMoveTo) {
    return Answered("velPathArcTo", path, x, y, width, height, startAngle, sweepAngle, forceMoveTo);
}
int velPathOvalCurveTo(velPath *path, float radiusX, float radiusY, float xAxisRotation, int largeArc, int clockwise,
                       float x, float y) {
    return Answered("velPathOvalCurveTo", path, radiusX, radiusY, xAxisRotation, largeArc, clockwise, x, y);
}
int velPathBezierCurveTo(velPath *path, float x1, float y1, float x2, float y2, float x3, float y3) {
    return Answered("velPathBezierCurveTo", path, x1, y1, x2, y2, x3, y3);
}
int velPathQuadraticCurveTo(velPath *path, float x1, float y1, float x2, float y2) {
    return Answered("velPathQuadraticCurveTo", path, x1, y1, x2, y2);
}
int velPathAddArc(velPath *path, float x, float y, float width, float height, float startAngle, float sweepAngle) {
    return Answered("velPathAddArc", path, x, y, width, height, startAngle, sweepAngle);
}
int velPathAddRectangle(velPath *path, float x, float y, float width, float height) {
    return Answered("velPathAddRectangle", path, x, y, width, height);
}
int velPathAddCircle(velPath *path, float centreX, float centreY, float radius) {
    return Answered("velPathAddCircle", path, centreX, centreY, radius);
}
int velPathAddEllipse(velPath *path, float centreX, float centreY, float radiusX, float radiusY) {
    return Answered("velPathAddEllipse", path, centreX, centreY, radiusX, radiusY);
}
int velPathGetBounds(velPath *path, velRectF *out) {
    return Answered("velPathGetBounds", path, static_cast<const void *>(out));
}

velGradient *velGradientCreateLinear(float x0, float y0, float x1, float y1) {
    return Made<velGradient>(recorder.gradients, Recorded("velGradientCreateLinear", x0, y0, x1, y1));
}
velGradient *velGradientCreateRadial(float centreX, float centreY, float radius) {
    return Made<velGradient>(recorder.gradients, Recorded("velGradientCreateRadial", centreX, centreY, radius));
}
int velGradientAddColorStop(velGradient *gradient, float offset, DWORD colour) {
    return Answered("velGradientAddColorStop", gradient, offset, colour);
}
int velGradientDestroy(velGradient *gradient) { return Destroyed("velGradientDestroy", recorder.gradients, gradient); }
