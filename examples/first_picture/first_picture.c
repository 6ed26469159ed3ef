/* The smallest whole program, in C: a canvas, a texture with half-transparent pixels, one draw, and the result as a
 * file of the plain PPM format. It prints two pixels of the picture. */
#include <lacquer/lacquer.h>
#include <stdio.h>

enum { kWidth = 160, kHeight = 96, kDisc = 64 };

static const DWORD kPaper = 0xFFF4EEDD;

static DWORD *Row(const SurfaceView *view, int y) {
    return (DWORD *)(void *)((BYTE *)view->bits + (size_t)y * (size_t)view->stride);
}

/* Red, three quarters opaque, with a smooth edge; clear outside. */
static DWORD DiscPixel(int x, int y) {
    const int dx = 2 * x + 1 - kDisc;
    const int dy = 2 * y + 1 - kDisc;
    int alpha = 2400 - (dx * dx + dy * dy); /* of a radius of 24.5 pixels, in quarter pixels squared */
    if (alpha < 0) alpha = 0;
    if (alpha > 192) alpha = 192;
    /* Colours are stored premultiplied. */
    const DWORD red = 200u * (DWORD)(alpha + 1) >> 8;
    const DWORD other = 40u * (DWORD)(alpha + 1) >> 8;
    return (DWORD)alpha << 24 | red << 16 | other << 8 | other;
}

static int PaintPaper(HGCANVAS canvas) {
    SurfaceView view;
    if (!LockCanvasBits(canvas, &view, NULL)) return 0;
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x) Row(&view, y)[x] = kPaper;
    return UnlockCanvasBits(canvas);
}

static int PaintDisc(HGTEXTURE texture) {
    SurfaceView view;
    if (!LockTextureBits(texture, &view, NULL)) return 0;
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x) Row(&view, y)[x] = DiscPixel(x, y);
    return UnlockTextureBits(texture) && SetTextureFilter(texture, (DWORD)LACQUER_DRAW_OVER << 24);
}

static int WriteCanvas(HGCANVAS canvas, const char *path) {
    SurfaceView view;
    if (!LockCanvasBits(canvas, &view, NULL)) return 0;
    FILE *file = fopen(path, "wb");
    if (!file) {
        UnlockCanvasBits(canvas);
        return 0;
    }
    fprintf(file, "P6\n%d %d\n255\n", kWidth, kHeight);
    for (int y = 0; y < view.height; ++y) {
        for (int x = 0; x < view.width; ++x) {
            const DWORD pixel = Row(&view, y)[x];
            fputc((int)(pixel >> 16 & 255), file);
            fputc((int)(pixel >> 8 & 255), file);
            fputc((int)(pixel & 255), file);
        }
    }
    printf("corner 0x%08lX\n", (unsigned long)Row(&view, 0)[0]);
    printf("middle 0x%08lX\n", (unsigned long)Row(&view, kHeight / 2)[kWidth / 2]);
    const int written = !ferror(file);
    return (fclose(file) == 0) & written & UnlockCanvasBits(canvas);
}

int main(int argc, char **argv) {
    const char *path = argc > 1 ? argv[1] : "first_picture.ppm";
    const HGCANVAS none = {0};
    const HGCANVAS canvas = CreateCanvas(kWidth, kHeight, none);
    const HGTEXTURE texture = CreateTexture(kDisc, kDisc);
    const RECT dest = {(kWidth - kDisc) / 2, (kHeight - kDisc) / 2, (kWidth + kDisc) / 2, (kHeight + kDisc) / 2};
    const int done = PaintPaper(canvas) && PaintDisc(texture) &&
                     DrawTexture(canvas, &dest, texture, LACQUER_BILINEAR) && WriteCanvas(canvas, path);
    DeleteTexture(texture);
    DeleteCanvas(canvas);
    if (!done) {
        fprintf(stderr, "first_picture: painting or writing %s failed\n", path);
        return 1;
    }
    return 0;
}
