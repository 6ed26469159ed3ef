// The exported functions that draw bitmaps and textures on canvases.

#include <lacquer/lacquer.h>

#include <optional>

#include "api/objects.h"
#include "draw/blit.h"
#include "draw/nine_grid.h"
#include "draw/texture_drawing.h"

using namespace lacquer;

namespace {

constexpr BYTE kFullStrength = 255;

/// The draw that the arguments of a layout ask for; none when one of them is refused.
std::optional<TextureDraw> Layout(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice,
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
    Blit(*to, *dest, *from, source, {from->GetFilter(), kernelMode, alpha});
    return 1;
}

int DrawTexture(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode) {
    return DrawTextureEx(canvas, dest, texture, kernelMode, kFullStrength, 1.0f, 0);
}

int DrawTextureEx(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, DWORD kernelMode, BYTE alpha, float scale,
                  int halfScale) {
    const Texture *found = Find(texture);
    if (!found) return 0;
    const TextureMode &mode = found->Mode();
    const RECT *slice = found->CurrentSlice();
    switch (mode.mode) {
        case LACQUER_LAYOUT_NINE_GRID:
        case LACQUER_LAYOUT_HOLLOW_NINE_GRID:
            return DrawTexture9Grid(canvas, dest, texture, slice, &mode.margins, kernelMode,
                                    mode.mode == LACQUER_LAYOUT_HOLLOW_NINE_GRID, alpha, mode.scaleFlags, scale,
                                    halfScale);
        case LACQUER_LAYOUT_TILE:
            return DrawTextureTile(canvas, dest, texture, slice, kernelMode, alpha, mode.scaleFlags, scale);
        case LACQUER_LAYOUT_CENTER: return DrawTextureCenter(canvas, dest, texture, slice, kernelMode, alpha);
        case LACQUER_LAYOUT_TOP_TILE:
            return DrawTextureTopTile(canvas, dest, texture, slice, &mode.margins, kernelMode, alpha);
        default: {
            const auto draw = Layout(canvas, dest, texture, slice, kernelMode, alpha);
            return draw ? DrawStretched(*draw) : 0;
        }
    }
}

int DrawTextureCenter(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, DWORD kernelMode,
                      BYTE alpha) {
    const auto draw = Layout(canvas, dest, texture, slice, kernelMode, alpha);
    return draw ? DrawCentred(*draw) : 0;
}

int DrawTextureTile(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, DWORD kernelMode,
                    BYTE alpha, DWORD scaleFlags, float scale) {
    const auto draw = Layout(canvas, dest, texture, slice, kernelMode, alpha);
    if (draw) DrawTiled(*draw, scaleFlags, scale);
    return 0;
}

int DrawTextureTopTile(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, const RECT *margins,
                       DWORD kernelMode, BYTE alpha) {
    const auto draw = Layout(canvas, dest, texture, slice, kernelMode, alpha);
    if (draw && margins) DrawTopTiled(*draw, *margins);
    return 0;
}

int DrawTexture9Grid(HGCANVAS canvas, const RECT *dest, HGTEXTURE texture, const RECT *slice, const RECT *margins,
                     DWORD kernelMode, int hollowCentre, BYTE alpha, DWORD scaleFlags, float scale, int halfScale) {
    const auto draw = Layout(canvas, dest, texture, slice, kernelMode, alpha);
    if (!draw || !margins) return 0;
    return DrawNineGrid(*draw, {*margins, hollowCentre != 0, scaleFlags, scale, halfScale != 0});
}
