/* A program outside the project, valid as C and as C++: one texture drawn on one canvas, and a vector rectangle. */
#include <lacquer/lacquer.h>

int main(void) {
    const HGCANVAS none = {0};
    const HGCANVAS canvas = CreateCanvas(4, 4, none);
    const HGTEXTURE texture = CreateTexture(2, 2);
    const RECT place = {1, 1, 3, 3};
    SurfaceView view;
    if (!LockTextureBits(texture, &view, 0)) return 1;
    for (int i = 0; i < 4; ++i) ((DWORD *)view.bits)[i] = 0xFF123456;
#ifdef __cplusplus
    /* Its name encodes its arguments. */
    if (!DrawTextureCenter(canvas, &place, texture, 0, LACQUER_NEAREST, 255)) return 1;
#else
    if (!DrawTexture(canvas, &place, texture, LACQUER_NEAREST)) return 1;
#endif
    if (!SetColor(canvas, 0xFF654321) || !DrawRectangle(canvas, 3, 3, 1, 1)) return 1;
    if (!LockCanvasBits(canvas, &view, 0)) return 1;
    const DWORD *pixels = (const DWORD *)view.bits;
    const int drawn = pixels[0] == 0 && pixels[5] == 0xFF123456 && pixels[15] == 0xFF654321;
    DeleteTexture(texture);
    DeleteCanvas(canvas);
    return drawn ? 0 : 1;
}
