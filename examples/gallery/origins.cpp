// origins.png: one scene, painted four times by the same function. The viewport origin puts it into place, the window
// origin scrolls it and the clip rectangle cuts it; the scene's own coordinates never change.
#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kWidth = 224;
constexpr int kHeight = 152;

void PaintScene(const Canvas &canvas, const Skin &skin) {
    FillGradient(canvas, Box(0, 0, kWidth, kHeight), 0xFFF2EFE6, 0xFFD9D2BF);
    for (int x = 0; x < kWidth; x += 16) FillBox(canvas, Box(x, 0, 1, kHeight), 0x30405070);
    for (int y = 0; y < kHeight; y += 16) FillBox(canvas, Box(0, y, kWidth, 1), 0x30405070);
    skin.font.Draw(canvas, 4, 4, "0, 0", 0xFF405070);
    DrawAt(canvas, 16, 24, skin.photo);
    DrawAt(canvas, 24, 76, skin.ladybird32);
    DrawAt(canvas, 144, 80, skin.icon);
}

/// Puts logical (0, 0) to `corner` and lets nothing be drawn outside of the scene's size.
void OpenPanel(const Canvas &canvas, POINT corner) {
    Check(SetViewportOrg(canvas, corner.x, corner.y, nullptr), "SetViewportOrg");
    const RECT panel = Box(0, 0, kWidth, kHeight);
    Check(SetCanvasClipRect(canvas, &panel), "SetCanvasClipRect");
}

/// Takes origins and clip back, and draws the panel's border and caption.
void ClosePanel(const Canvas &canvas, const Skin &skin, POINT corner, std::string_view caption) {
    Check(SetWindowOrg(canvas, 0, 0, nullptr), "SetWindowOrg");
    Check(SetViewportOrg(canvas, 0, 0, nullptr), "SetViewportOrg");
    const RECT everything = Box(0, 0, 32767, 32767);
    Check(SetCanvasClipRect(canvas, &everything), "SetCanvasClipRect");
    OutlineBox(canvas, Box(corner.x - 1, corner.y - 1, kWidth + 2, kHeight + 2), 0x80FFFFFF);
    skin.font.Draw(canvas, corner.x, corner.y - 14, caption, kInk);
}

}  // namespace

Canvas PaintOrigins(const Skin &skin) {
    Canvas canvas = MakePage(skin, 504, 444, "Origins and clip", "device = logical + viewport origin - window origin");

    const POINT placed{20, 84};
    OpenPanel(canvas, placed);
    PaintScene(canvas, skin);
    ClosePanel(canvas, skin, placed, "viewport origin");

    const POINT scrolled{260, 84};
    OpenPanel(canvas, scrolled);
    Check(SetWindowOrg(canvas, 40, 56, nullptr), "SetWindowOrg");
    PaintScene(canvas, skin);
    ClosePanel(canvas, skin, scrolled, "window origin 40, 56");

    const POINT cut{20, 270};
    OpenPanel(canvas, cut);
    const RECT window = Box(48, 40, 128, 80);
    Check(IntersectCanvasClipRect(canvas, &window), "IntersectCanvasClipRect");
    PaintScene(canvas, skin);
    ClosePanel(canvas, skin, cut, "clip 48, 40, 128 x 80");

    // A clip for each strip of a blind, and the scene painted through each.
    const POINT blind{260, 270};
    for (int left = 0; left < kWidth; left += 16) {
        OpenPanel(canvas, blind);
        const RECT strip = Box(left, left / 4, 10, kHeight - left / 2);
        Check(IntersectCanvasClipRect(canvas, &strip), "IntersectCanvasClipRect");
        PaintScene(canvas, skin);
    }
    ClosePanel(canvas, skin, blind, "fourteen clips, fourteen paints");
    return canvas;
}

}  // namespace lacquer::examples
