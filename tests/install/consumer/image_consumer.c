/* A program outside the project, valid as C and as C++: a picture written and read. */
#include <lacquer/image.h>

int main(void) {
    const HGCANVAS none = {0};
    const HGCANVAS canvas = CreateCanvas(4, 4, none);
    const RECT all = {0, 0, 4, 4};
    size_t length = 0;
    SurfaceView view;
    if (!FillSolidRect(canvas, 0xFF123456, &all)) return 1;
    void *png = EncodeCanvasAsPng(canvas, 0, &length);
    const HGTEXTURE texture = LoadTextureFromData(png, length, 0);
    FreeImageData(png);
    return LockTextureBits(texture, &view, 0) && ((DWORD *)view.bits)[15] == 0xFF123456 ? 0 : 1;
}
