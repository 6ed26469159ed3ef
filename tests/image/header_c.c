/* The public header in C11: layouts, and a call. */
#include <lacquer/image.h>

_Static_assert(sizeof(ImageFileInfo) == 28 && offsetof(ImageFileInfo, isAnimated) == 24, "the layout of ImageFileInfo");
_Static_assert(sizeof(ImageLoadOptions) == 16 && offsetof(ImageLoadOptions, maxBytes) == 8, "of ImageLoadOptions");

int LoadFromC(void);

/* Result: 1 when a picture of one pixel is written and read. */
int LoadFromC(void) {
    const HGCANVAS none = {0};
    const HGCANVAS canvas = CreateCanvas(1, 1, none);
    size_t length = 0;
    void *file = EncodeCanvasAsPng(canvas, LACQUER_PNG_OPAQUE, &length);
    const HGBITMAP bitmap = LoadBitmapFromData(file, length, NULL);
    const int isLoaded = bitmap.value != 0;
    FreeImageData(file);
    DeleteBitmap(bitmap);
    DeleteCanvas(canvas);
    return isLoaded;
}
