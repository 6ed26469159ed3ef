// The exported functions that combine whole canvases, and the modulation.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "draw/compositing.h"
#include "draw/modulation.h"

using namespace lacquer;

int MixCanvas(HGCANVAS dest, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE value) {
    Canvas *to = Find(dest), *from = Find(source);
    if (!to || !from) return 0;
    MixCanvases(*to, destRect, *from, sourceRect, value);
    return 1;
}

int MixCanvasWithColor(HGCANVAS canvas, const RECT *rect, DWORD colour, DWORD value) {
    Canvas *found = Find(canvas);
    if (!found) return 0;
    MixWithColor(*found, rect, colour, static_cast<BYTE>(value & 0xFF));
    return 1;
}

int BlendCanvas(HGCANVAS dest, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE alpha) {
    Canvas *to = Find(dest), *from = Find(source);
    if (!to || !from || !destRect || !sourceRect) return 0;
    return BlendCanvases(*to, *destRect, *from, *sourceRect, alpha);
}

int GdiTransCanvas(HDC dc, const RECT *destRect, HGCANVAS source, const RECT *sourceRect, BYTE alpha) {
    Canvas *from = Find(source);
    if (!from || !destRect || !sourceRect) return 0;
    return DrawOnDeviceContext(dc, *destRect, *from, *sourceRect, alpha);
}

int CanvasScroll(HGCANVAS canvas, int dx, int dy) {
    Canvas *found = Find(canvas);
    return found && dx == 0 && ScrollRows(*found, dy);
}

int DrawModulation(HGCANVAS canvas, int x, int y, HGBITMAP mask, const RECT *source, DWORD colour) {
    Canvas *to = Find(canvas);
    PixelSurface *through = Find(mask);
    if (!to || !through) return 0;
    DrawThroughMask(*to, x, y, *through, source, colour);
    return 1;
}
