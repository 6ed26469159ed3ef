// slices.png: one sheet holds all states of a control; slices name the parts, and a draw takes the current one. The
// sheets are on the left with their slices outlined, what is made of them on the right.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// Draws a sheet `scale` times its size, with its slices outlined and numbered.
void DrawSheet(const Canvas &canvas, const Skin &skin, int x, int y, const Texture &sheet, int scale) {
    const Texture whole = CopyOf(sheet);
    const SIZE size = SizeOf(whole);
    const RECT place = Box(x, y, size.cx * scale, size.cy * scale);
    FillChecker(canvas, place, 8);
    DrawInto(canvas, place, whole, LACQUER_NEAREST);
    const int count = static_cast<int>(GetTextureSliceCount(sheet));
    for (int i = 0; i < count; ++i) {
        SetTextureCurSlice(sheet, i);
        RECT slice{};
        Check(GetTextureCurSlice(sheet, &slice), "GetTextureCurSlice");
        OutlineBox(canvas,
                   {slice.left * scale + x, slice.top * scale + y, slice.right * scale + x, slice.bottom * scale + y},
                   0xC000A0FF);
        skin.font.Draw(canvas, x + slice.left * scale + 3, y + slice.top * scale + 3, std::to_string(i), 0xFF0048A0);
    }
}

void DrawNamedButton(const Canvas &canvas, const Skin &skin, const RECT &rect, ButtonState state,
                     std::string_view name) {
    DrawButton(canvas, skin, rect, state);
    const int centre = (rect.left + rect.right) / 2;
    const int top = (rect.top + rect.bottom) / 2 - (state == ButtonState::kPressed ? 4 : 5);
    if (state == ButtonState::kDisabled) {
        skin.font.DrawCentred(canvas, centre, top, name, 0xFF6F6866);
        return;
    }
    skin.font.DrawCentred(canvas, centre, top + 1, name, 0x80400008);
    skin.font.DrawCentred(canvas, centre, top, name, 0xFFFFFFFF);
}

}  // namespace

Canvas PaintSlices(const Skin &skin) {
    constexpr std::array<ButtonState, 4> states{ButtonState::kNormal, ButtonState::kHot, ButtonState::kPressed,
                                                ButtonState::kDisabled};
    constexpr std::array<std::string_view, 4> names{"Normal", "Hot", "Pressed", "Disabled"};

    Canvas canvas = MakePage(skin, 724, 424, "Slices", "All states of a control are parts of one sheet");
    DrawSheet(canvas, skin, 20, 72, skin.button, 1);
    DrawSheet(canvas, skin, 20, 264, skin.caption, 2);
    DrawSheet(canvas, skin, 20, 360, skin.check, 2);
    DrawSheet(canvas, skin, 200, 264, skin.progress, 2);
    DrawSheet(canvas, skin, 200, 312, skin.scroll, 2);

    const RECT panel{334, 72, 704, 408};
    FillBox(canvas, panel, 0xFFF1EEE8);
    FillBox(canvas, {panel.left, 264, panel.right, 316}, 0xFF454C5C);
    for (int i = 0; i < 4; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const int width = 80 + i * 60;
        DrawNamedButton(canvas, skin, Box(340, 76 + i * 46, width, kButtonSize.cy), states[index], names[index]);
        DrawButton(canvas, skin, Box(354 + width, 76 + i * 46, 340 - width, kButtonSize.cy), states[index]);
    }
    for (int i = 0; i < 3; ++i) {
        const auto state = states[static_cast<std::size_t>(i)];
        for (int button = 0; button < 2; ++button) {
            const RECT place = Box(356 + i * 100 + button * 34, 280, kCaptionButtonSize.cx, kCaptionButtonSize.cy);
            DrawSlice(canvas, place, skin.caption, button * 3 + i);
        }
        DrawScrollBar(canvas, skin, Box(616 + i * 26, 324, 14, 76), Box(616 + i * 26, 334 + i * 10, 14, 40), state);
        DrawProgress(canvas, skin, Box(346, 330 + i * 24, 120 + i * 60, 18), i + 1, 4);
    }
    constexpr std::array<std::string_view, 3> checks{"Off", "On", "Partly"};
    constexpr std::array<POINT, 3> corners{{{484, 324}, {546, 324}, {546, 350}}};
    for (int i = 0; i < 3; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const auto [x, y] = corners[index];
        DrawSlice(canvas, Box(x, y, kCheckSize, kCheckSize), skin.check, i);
        skin.font.Draw(canvas, x + kCheckSize + 4, y + 9, checks[index], 0xFF333845);
    }
    return canvas;
}

}  // namespace lacquer::examples
