// The scene of the vector tests.

#include "scene.h"

#include <algorithm>
#include <cstdlib>

namespace lacquer {

void DrawScene(HGCANVAS canvas) {
    const POINT star[] = {{30, 2}, {34, 14}, {24, 6}, {36, 6}, {26, 14}};
    const float dashes[] = {4, 1.5f};
    EXPECT_EQ(1, Save(canvas));
    SetColor(canvas, 0xC0E02040);
    EXPECT_EQ(1, DrawCircle(canvas, 12.5f, 11.25f, 9.5f));
    SetColor(canvas, 0xFF2060E0);
    EXPECT_EQ(1, DrawPolygon(canvas, 5, star));
    EXPECT_EQ(1, DrawArc(canvas, 36, 20, 11, 9, 20, 250, 1));
    velPath *path = PathCreate();
    PathSetFillType(path, VEL_FILL_EVEN_ODD);
    PathAddCircle(path, 10, 30, 7);
    PathAddEllipse(path, 10, 30, 3, 5);
    PathMoveTo(path, 20, 24);
    PathQuadraticCurveTo(path, 30, 22, 26, 36);
    PathOvalCurveTo(path, 4, 7, 30, 0, 1, 20, 30);
    EXPECT_EQ(1, DrawPath(canvas, path));
    PathDestroy(path);
    SetDrawStyle(canvas, VEL_STYLE_STROKE);
    SetStrokeWidth(canvas, 2.5f);
    SetStrokeJoin(canvas, VEL_JOIN_ROUND);
    SetColor(canvas, 0x8010C030);
    EXPECT_EQ(1, DrawRoundRect(canvas, 3.5f, 3.5f, 38, 30, 6, 9));
    SetDashStyle(canvas, VEL_DASH_PATTERN);
    SetDashPattern(canvas, dashes, 2, 1);
    EXPECT_EQ(1, DrawBezier(canvas, 2, 20, 20, 0, 30, 44, 46, 16));
    EXPECT_EQ(1, DrawLine(canvas, 47, 1, 1, 38.5f));
    EXPECT_EQ(1, DrawEllipse(canvas, 34, 30, 10, 4));
    SetStrokeCap(canvas, VEL_CAP_ROUND);
    SetStrokeWidth(canvas, 5);
    EXPECT_EQ(1, DrawPoint(canvas, 43, 35));
    EXPECT_EQ(1, Restore(canvas));
}

OwnedCanvas PlainCanvas(LONG width, LONG height, uint32_t word) {
    OwnedCanvas canvas(CreateCanvas(static_cast<DWORD>(width), static_cast<DWORD>(height), {}));
    FillWith(ViewOf(canvas), word);
    return canvas;
}

Picture PixelsOn(HGCANVAS canvas) { return PictureOf(ViewOf(canvas)); }

OwnedCompanion CompanionOn(void *bits, LONG width, LONG height, LONG stride) {
    OwnedCompanion companion(velCanvasCreate(), velCanvasDestroy);
    velBitmap *bitmap = velBitmapCreateFromData(bits, width, height, stride);
    EXPECT_EQ(1, velCanvasSetBitmap(companion.get(), bitmap));
    EXPECT_EQ(1, velBitmapDestroy(bitmap));
    return companion;
}

int Difference(uint32_t a, uint32_t b) {
    int most = 0;
    for (int i = 0; i < 4; ++i) {
        most = std::max(most, std::abs(static_cast<int>(ChannelOf(a, i)) - static_cast<int>(ChannelOf(b, i))));
    }
    return most;
}

Picture Cropped(const Picture &before, const Picture &drawn, const RECT &rect) {
    Picture result = before;
    for (LONG y = 0; y < result.height; ++y) {
        for (LONG x = 0; x < result.width; ++x) {
            if (Contains(rect, x, y)) result.At(x, y) = drawn.At(x, y);
        }
    }
    return result;
}

Picture WithRectangle(Picture picture, const RECT &rect, uint32_t word) {
    const Picture plain{picture.width, picture.height, std::vector<uint32_t>(picture.pixels.size(), word)};
    return Cropped(picture, plain, rect);
}

}  // namespace lacquer
