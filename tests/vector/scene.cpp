// Canvases of one colour, and pictures made from others.

#include "scene.h"

namespace lacquer {

OwnedCanvas PlainCanvas(LONG width, LONG height, uint32_t word) {
    OwnedCanvas canvas(CreateCanvas(static_cast<DWORD>(width), static_cast<DWORD>(height), {}));
    FillWith(ViewOf(canvas), word);
    return canvas;
}

Picture PixelsOn(HGCANVAS canvas) { return PictureOf(ViewOf(canvas)); }

Picture Cropped(const Picture &before, const Picture &drawn, const RECT &rect) {
    Picture result = before;
    ForEachPixel(before, [&](LONG x, LONG y) {
        if (Contains(rect, x, y)) result.At(x, y) = drawn.At(x, y);
    });
    return result;
}

Picture WithRectangle(Picture picture, const RECT &rect, uint32_t word) {
    const Picture plain{picture.width, picture.height, std::vector<uint32_t>(picture.pixels.size(), word)};
    return Cropped(picture, plain, rect);
}

}  // namespace lacquer
