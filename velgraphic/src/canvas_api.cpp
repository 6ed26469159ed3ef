// The exports that make canvases and bitmaps and set a canvas's state.

#include <new>

#include "canvas.h"

using lacquer::vel::AreFinite;
using lacquer::vel::DashPattern;
using lacquer::vel::FontName;
using lacquer::vel::kMaxSize;
using lacquer::vel::PixelRect;
using lacquer::vel::Point;
using lacquer::vel::Reference;
using lacquer::vel::State;

namespace {

/// Sets a word of the state to one of the values 0 to `last`.
int SetWord(velCanvas *canvas, DWORD State::*word, DWORD value, DWORD last) {
    if (!canvas || value > last) return 0;
    canvas->state.*word = value;
    return 1;
}

}  // namespace

velCanvas *velCanvasCreate() { return new (std::nothrow) velCanvas; }

int velCanvasDestroy(velCanvas *canvas) {
    delete canvas;
    return canvas != nullptr;
}

velBitmap *velBitmapCreateFromData(void *bits, LONG width, LONG height, LONG stride) {
    constexpr LONG kPixel = 4;
    if (!bits || reinterpret_cast<uintptr_t>(bits) % kPixel != 0 || width <= 0 || height <= 0) return nullptr;
    if (stride % kPixel != 0 || stride / kPixel < width) return nullptr;
    return new (std::nothrow) velBitmap({width, height, stride, bits});
}

int velBitmapDestroy(velBitmap *bitmap) {
    if (!bitmap) return 0;
    bitmap->Release();
    return 1;
}

int velCanvasSetBitmap(velCanvas *canvas, velBitmap *bitmap) {
    if (!canvas || !bitmap) return 0;
    canvas->target.SetBitmap(Reference<velBitmap>::Share(bitmap));
    return 1;
}

int velCanvasLockBits(velCanvas *canvas, const RECT *, velBitmapData *out) {
    if (!canvas || !out || !canvas->target.Bitmap()) return 0;
    *out = canvas->target.Bitmap()->data;
    return 1;
}

int velCanvasUnlockBits(velCanvas *canvas, const RECT *) { return canvas && canvas->target.Bitmap(); }

int velCanvasSave(velCanvas *canvas) { return canvas && canvas->Save(); }

int velCanvasRestore(velCanvas *canvas) { return canvas && canvas->Restore(); }

int velCanvasClipRect(velCanvas *canvas, int left, int top, int right, int bottom) {
    if (!canvas) return 0;
    State &state = canvas->state;
    const Point low{static_cast<double>(left), static_cast<double>(top)};
    const Point high{static_cast<double>(right), static_cast<double>(bottom)};
    state.clip = state.clip.Intersected(PixelRect(low + state.translation, high + state.translation));
    return 1;
}

int velCanvasTranslate(velCanvas *canvas, float x, float y) {
    if (!canvas || !AreFinite(x, y)) return 0;
    canvas->state.translation = canvas->state.translation + Point{x, y};
    return 1;
}

int velCanvasSetDrawStyle(velCanvas *canvas, DWORD style) {
    return SetWord(canvas, &State::style, style, VEL_STYLE_GRADIENT_STROKE);
}

int velCanvasSetColor(velCanvas *canvas, DWORD colour) { return SetWord(canvas, &State::colour, colour, 0xFFFFFFFF); }

int velCanvasSetSmooth(velCanvas *canvas, int on) {
    if (!canvas) return 0;
    canvas->state.smooth = on != 0;
    return 1;
}

int velCanvasSetBlendMode(velCanvas *canvas, DWORD mode) {
    return SetWord(canvas, &State::blendMode, mode, VEL_BLEND_EXCLUSION);
}

DWORD velCanvasGetBlendMode(velCanvas *canvas) { return canvas ? canvas->state.blendMode : 0xFFFFFFFF; }

int velCanvasSetBlendValue(velCanvas *canvas, DWORD value) { return SetWord(canvas, &State::blendValue, value, 255); }

DWORD velCanvasGetBlendValue(velCanvas *canvas) { return canvas ? canvas->state.blendValue : 255; }

int velCanvasSetStrokeCap(velCanvas *canvas, DWORD cap) { return SetWord(canvas, &State::cap, cap, VEL_CAP_SQUARE); }

int velCanvasSetStrokeJoin(velCanvas *canvas, DWORD join) {
    return SetWord(canvas, &State::join, join, VEL_JOIN_BEVEL);
}

int velCanvasSetGradient(velCanvas *canvas, velGradient *gradient) {
    if (!canvas || !gradient) return 0;
    canvas->state.gradient = Reference<velGradient>::Share(gradient);
    return 1;
}

int velCanvasSetStrokeWidth(velCanvas *canvas, float width) {
    if (!canvas || !(width >= 0 && width <= static_cast<float>(kMaxSize))) return 0;
    canvas->state.strokeWidth = width;
    return 1;
}

float velCanvasGetStrokeWidth(velCanvas *canvas) { return canvas ? canvas->state.strokeWidth : 1; }

int velCanvasSetDashStyle(velCanvas *canvas, DWORD style) {
    return SetWord(canvas, &State::dashStyle, style, VEL_DASH_PATTERN);
}

int velCanvasSetDashPattern(velCanvas *canvas, const float *lengths, int count, float offset) {
    if (!canvas) return 0;
    auto pattern = DashPattern::Create(lengths, count, offset);
    if (!pattern) return 0;
    canvas->state.dashes = std::move(pattern);
    return 1;
}

int velCanvasSetFontFaceName(velCanvas *canvas, const WCHAR *name) {
    if (!canvas) return 0;
    FontName font{.style = canvas->state.font.style};
    for (int i = 0; name && name[i] != 0; ++i) {
        if (i == FontName::kCapacity - 1) return 0;
        font.family[i] = name[i];
    }
    canvas->state.font = font;
    return 1;
}

int velCanvasSetFontStyle(velCanvas *canvas, DWORD bits) {
    constexpr DWORD kAll = VEL_FONT_BOLD | VEL_FONT_ITALIC | VEL_FONT_UNDERLINE | VEL_FONT_STRIKE_OUT;
    if (!canvas || (bits & ~kAll) != 0) return 0;
    canvas->state.font.style = bits;
    return 1;
}

int velCanvasSetTextSize(velCanvas *canvas, float pixels) {
    if (!canvas || !(pixels > 0 && pixels <= static_cast<float>(kMaxSize))) return 0;
    canvas->state.textSize = pixels;
    return 1;
}
