/* A program outside the project: one texture drawn on one canvas. */
#include <lacquer/lacquer.h>

int main(void) {
    HGCANVAS canvas = CreateCanvas(4, 4, (HGCANVAS){0});
    HGTEXTURE texture = CreateTexture(2, 2);
    const RECT place = {1, 1, 3, 3};
    SurfaceView view;
    if (!LockTextureBits(texture, &view, 0)) return 1;
    for (int i = 0; i < 4; ++i) ((DWORD *)view.bits)[i] = 0xFF123456;
    if (!DrawTexture(canvas, &place, texture, LACQUER_NEAREST) || !LockCanvasBits(canvas, &view, 0)) return 1;
    const DWORD *pixels = (const DWORD *)view.bits;
    const int drawn = pixels[0] == 0 && pixels[5] == 0xFF123456;
    DeleteTexture(texture);
    DeleteCanvas(canvas);
    return drawn ? 0 : 1;
}
