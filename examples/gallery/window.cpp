// window.png: a window that paints itself, frame, shadow and all, on a transparent canvas. Its file keeps the alpha, so
// that it can be laid over anything. desktop.png does so: two windows over a picture, the one behind at half strength.
#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// A rectangle with wood from edge to edge: tiles of it, cut off by the clip, darkened towards the corners.
void FillWood(const Canvas &canvas, const Skin &skin, const RECT &rect) {
    Check(IntersectCanvasClipRect(canvas.get(), &rect), "IntersectCanvasClipRect");
    const SIZE tile = SizeOf(skin.wood);
    for (LONG y = rect.top; y < rect.bottom; y += tile.cy)
        for (LONG x = rect.left; x < rect.right; x += tile.cx) DrawAt(canvas, x, y, skin.wood);
    const Texture shade = CopyOf(skin.vignette);
    SetDrawMode(shade, LACQUER_DRAW_MODULATE);
    DrawInto(canvas, rect, shade, LACQUER_BILINEAR);
    const RECT everything = Box(0, 0, 32767, 32767);
    Check(SetCanvasClipRect(canvas.get(), &everything), "SetCanvasClipRect");
}

void DrawPanel(const Canvas &canvas, const Skin &skin, const RECT &rect, std::string_view caption) {
    FillBox(canvas, rect, 0x18000000);
    OutlineBox(canvas, rect, 0x30000000);
    skin.font.Draw(canvas, rect.left + 8, rect.top + 7, caption, 0xFF8A2028);
}

}  // namespace

Canvas PaintWindow(const Skin &skin) {
    Canvas canvas = MakeCanvas(452, 332);
    DrawFrame(canvas, skin, Box(0, 0, 452, 332), "Lacquer");
    const RECT icon = Box(22, 17, 20, 20);
    DrawInto(canvas, icon, skin.icon, LACQUER_BILINEAR);

    DrawInto(canvas, Box(32, 54, 208, 130), skin.photo, LACQUER_BICUBIC);
    OutlineBox(canvas, Box(31, 53, 210, 132), 0xA0000000);
    const RECT caption = Box(32, 160, 208, 24);
    FillBox(canvas, caption, 0x90101420);
    skin.font.Draw(canvas, 42, 169, "Evening by the lake", 0xFFFFF0D8);

    DrawPanel(canvas, skin, Box(252, 53, 168, 131), "Finish");
    DrawCheckBox(canvas, skin, 260, 76, CheckState::kOn, "Glossy");
    DrawCheckBox(canvas, skin, 260, 102, CheckState::kOff, "Brushed");
    DrawCheckBox(canvas, skin, 260, 128, CheckState::kPartly, "Three coats (of 7)");
    DrawInto(canvas, Box(374, 58, 40, 40), skin.ladybird32, LACQUER_NEAREST);

    FillWood(canvas, skin, Box(32, 196, 388, 62));
    OutlineBox(canvas, Box(31, 195, 390, 64), 0xA0000000);
    for (int i = 0; i < 4; ++i) DrawAt(canvas, 62 + i * 90, 195, skin.knob);

    DrawButton(canvas, skin, 26, 264, ButtonState::kDisabled, "Undo");
    DrawButton(canvas, skin, 212, 264, ButtonState::kHot, "Apply");
    DrawButton(canvas, skin, 322, 264, ButtonState::kNormal, "Close");
    return canvas;
}

Canvas PaintDesktop(const Skin &skin) {
    Canvas canvas = MakeCanvas(800, 500);
    DrawInto(canvas, Box(0, 0, 800, 500), skin.photo, LACQUER_BICUBIC);
    const Canvas window = PaintWindow(skin);
    DrawLayer(canvas, 36, 30, window, 150);
    DrawLayer(canvas, 300, 130, window);
    DrawAt(canvas, 30, 410, skin.icon);
    skin.font.DrawCentred(canvas, 62, 480, "Drop", 0xFFFFFFFF);
    return canvas;
}

}  // namespace lacquer::examples
