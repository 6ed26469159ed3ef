// A program outside the project that uses the companion library by itself.
#include <velgraphic/velgraphic.hpp>

int main() {
    DWORD pixels[16] = {};
    lq::VectorCanvas canvas = lq::VectorCanvas::Create();
    return canvas.DrawInto(pixels, 4, 4, 16) && velCanvasDrawRectangle(canvas, 1, 1, 1, 1) && pixels[5] == 0xFF000000
               ? 0
               : 1;
}
