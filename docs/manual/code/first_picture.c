/* The smallest whole program: a canvas, a texture with half-transparent pixels, one draw, and a picture file. */
#include <lacquer/image.h>
#include <lacquer/lacquer.h>

int main(void) {
    const HGCANVAS canvas = CreateCanvas(160, 96, (HGCANVAS){0}); /* its pixels are transparent black */
    const HGTEXTURE disc = CreateTexture(64, 64);                 /* its pixels are not cleared */

    const RECT all = {0, 0, 160, 96};
    FillSolidRect(canvas, 0xFFF4EEDD, &all); /* 0xAARRGGBB */

    SurfaceView pixels;
    if (!LockTextureBits(disc, &pixels, NULL)) return 1;
    DWORD *row = pixels.bits;
    for (int y = 0; y < pixels.height; ++y, row += pixels.stride / 4) {
        for (int x = 0; x < pixels.width; ++x) {
            const int inside = (x - 32) * (x - 32) + (y - 32) * (y - 32) < 31 * 31;
            row[x] = inside ? 0xC0961E1E : 0; /* 0xAARRGGBB, the colours premultiplied by alpha */
        }
    }
    UnlockTextureBits(disc);

    const RECT place = {48, 16, 112, 80};
    SetTextureFilter(disc, (DWORD)LACQUER_DRAW_OVER << 24); /* drawn by its own alpha */
    DrawTexture(canvas, &place, disc, LACQUER_BILINEAR);    /* 1:1 here, sampled where sizes differ */

    const int saved = SaveCanvasAsPng(canvas, "first_picture.png", 0);
    DeleteTexture(disc);
    DeleteCanvas(canvas);
    return saved ? 0 : 1;
}
