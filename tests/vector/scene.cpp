// The scene of the vector tests.

#include "scene.h"

namespace lacquer {

void DrawScene(HGCANVAS canvas) {
    EXPECT_EQ(1, Save(canvas));
    SetColor(canvas, 0xC0E02040);
    EXPECT_EQ(1, DrawCircle(canvas, 12.5f, 11.25f, 9.5f));
    SetDrawStyle(canvas, VEL_STYLE_STROKE);
    SetStrokeWidth(canvas, 2.5f);
    EXPECT_EQ(1, DrawBezier(canvas, 2, 20, 20, 0, 30, 44, 46, 16));
    EXPECT_EQ(1, Restore(canvas));
}

Picture Scene() {
    const OwnedCanvas canvas = PlainCanvas();
    DrawScene(canvas);
    return PixelsOn(canvas);
}

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
