// slices.png: one sheet holds all states of a button, another one all parts of a frame; slices name the parts, and a
// draw takes the current one. The sheets are on the left with their slices outlined, what is made of them on the right.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

void DrawSheet(const Canvas &canvas, const Skin &skin, int x, int y, const Texture &sheet) {
    const Texture whole = CopyOf(sheet);
    const SIZE size = SizeOf(whole);
    FillChecker(canvas, Box(x, y, size.cx, size.cy), 8);
    DrawAt(canvas, x, y, whole);
    const int count = static_cast<int>(GetTextureSliceCount(sheet.get()));
    for (int i = 0; i < count; ++i) {
        SetTextureCurSlice(sheet.get(), i);
        RECT slice{};
        Check(GetTextureCurSlice(sheet.get(), &slice), "GetTextureCurSlice");
        OutlineBox(canvas, {slice.left + x, slice.top + y, slice.right + x, slice.bottom + y}, 0xC000A0FF);
        skin.font.Draw(canvas, x + slice.left + 3, y + slice.top + 3, std::to_string(i), 0xFF0048A0);
    }
}

}  // namespace

Canvas PaintSlices(const Skin &skin) {
    Canvas canvas = MakePage(skin, 700, 400, "Slices", "Parts of a sheet, drawn at their own size or stretched");
    DrawSheet(canvas, skin, 20, 76, skin.button);
    DrawSheet(canvas, skin, 28, 276, skin.frame);

    DrawButton(canvas, skin, 160, 72, ButtonState::kNormal, "Normal");
    DrawButton(canvas, skin, 292, 72, ButtonState::kHot, "Hot");
    DrawButton(canvas, skin, 424, 72, ButtonState::kPressed, "Pressed");
    DrawButton(canvas, skin, 556, 72, ButtonState::kDisabled, "Disabled");
    DrawFrame(canvas, skin, Box(146, 124, 160, 260), "Tall");
    DrawFrame(canvas, skin, Box(296, 124, 386, 130), "Wide");
    DrawFrame(canvas, skin, Box(296, 242, 230, 142), "Middling");
    DrawFrame(canvas, skin, Box(524, 242, 158, 142), "Small");
    return canvas;
}

}  // namespace lacquer::examples
