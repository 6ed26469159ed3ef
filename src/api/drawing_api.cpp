// The exported functions that draw bitmaps and textures on canvases.

#include <lacquer/lacquer.h>

#include <optional>

#include "api/objects.h"
#include "draw/blit.h"
#include "draw/layout.h"
#include "draw/nine_grid.h"
#include "draw/texture_drawing.h"

using namespace lacquer;

namespace {

constexpr BYTE kFullStrength = 255;

/// The draw that these arguments ask for; none when one of them is refused.
std::optional<TextureDraw> DrawOf(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice,
                                  DWORD kernelMode, BYTE alpha) {
    Texture *from = Find(texture);
    Canvas *to = from ? Find(canvas) : nullptr;
    if (!to || !dest) return std::nullopt;
    return TextureDraw{*to, *dest, *from, slice, kernelMode, alpha};
}

}  // namespace

int DrawBitmap(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, DWORD kernelMode) {
    return DrawBitmapEx(canvas, dest, bitmap, kernelMode, kFullStrength);
}

int DrawBitmapEx(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, DWORD kernelMode, BYTE alpha) {
    return DrawBitmapRectEx(canvas, dest, bitmap, nullptr, kernelMode, alpha);
}

int DrawBitmapRectEx(HGCANVAS canvas, const RECT *dest, HGBITMAP bitmap, const RECT *source, DWORD kernelMode,
                     BYTE alpha) {
    PixelSurface *from = Find(bitmap);
    Canvas *to = from ? Find(canvas) : nullptr;
    if (!to || !dest) return 0;
    Blit(*to, *dest, *from, source, {from->Filter(), kernelMode, alpha});
    return 1;
}

int DrawTexture(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode) {
    return DrawTextureEx(canvas, dest, texture, kernelMode, kFullStrength, 1.0f, 0);
}

int DrawTextureEx(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode, BYTE alpha, float scale,
                  int halfScale) {
    auto draw = DrawOf(canvas, dest, texture, nullptr, kernelMode, alpha);
    if (!draw) return 0;
    draw->slice = draw->texture.CurrentSlice();
    return DrawLaidOut(*draw, scale, halfScale != 0);
}

int DrawTextureCenter(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, DWORD kernelMode,
                      BYTE alpha) {
    const auto draw = DrawOf(canvas, dest, texture, slice, kernelMode, alpha);
    return draw ? DrawCentred(*draw) : 0;
}

int DrawTextureTile(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, DWORD kernelMode,
                    BYTE alpha, DWORD scaleFlags, float scale) {
    const auto draw = DrawOf(canvas, dest, texture, slice, kernelMode, alpha);
    if (draw) DrawTiled(*draw, scaleFlags, scale);
    return 0;
}

int DrawTextureTopTile(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, const RECT *margins,
                       DWORD kernelMode, BYTE alpha) {
    const auto draw = DrawOf(canvas, dest, texture, slice, kernelMode, alpha);
    if (draw && margins) DrawTopTiled(*draw, *margins);
    return 0;
}

int DrawTexture9Grid(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, const RECT *margins,
                     DWORD kernelMode, int hollowCentre, BYTE alpha, DWORD scaleFlags, float scale, int halfScale) {
    const auto draw = DrawOf(canvas, dest, texture, slice, kernelMode, alpha);
    if (!draw || !margins) return 0;
    return DrawNineGrid(*draw, {*margins, hollowCentre != 0, scaleFlags, scale, halfScale != 0});
}
