// Loading a skin, and the parts of a window.
#include "common/skin.h"

#include <array>

namespace lacquer::examples {

namespace {

constexpr int kButtonWidth = 104;
constexpr int kButtonHeight = 44;
constexpr int kCheckSize = 24;

/// The nine parts of a rectangle between and outside of the frame's margins, row by row.
std::array<RECT, 9> NineParts(const RECT &rect) {
    const std::array<LONG, 4> xs{rect.left, rect.left + kFrameMargins.left, rect.right - kFrameMargins.right,
                                 rect.right};
    const std::array<LONG, 4> ys{rect.top, rect.top + kFrameMargins.top, rect.bottom - kFrameMargins.bottom,
                                 rect.bottom};
    std::array<RECT, 9> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i] = {xs[i % 3], ys[i / 3], xs[i % 3 + 1], ys[i / 3 + 1]};
    return parts;
}

}  // namespace

Skin::Skin(const Reader &read) : font(read("font", Alpha::kPremultiplied)) {
    const auto load = [&](const char *name) { return MakeTexture(read(name, Alpha::kPremultiplied)); };
    photo = load("photo");
    wood = load("wood");
    vignette = load("vignette");
    icon = load("icon");
    knob = load("knob");
    button = load("button");
    check = load("check");
    frame = load("frame");
    // The sprite's own pixels are opaque and the others clear: premultiplied, these would lose the key colour.
    const Image ladybird = read("ladybird", Alpha::kAsStored);
    ladybird32 = MakeTexture(ladybird);
    ladybird24 = MakeTexture(WithoutAlpha(ladybird));
    ladybird8 = MakeTexture(WithPalette(ladybird));

    for (const Texture *texture : {&icon, &knob, &button, &check, &frame}) SetDrawMode(*texture, LACQUER_DRAW_OVER);
    for (const Texture *texture : {&ladybird32, &ladybird24, &ladybird8})
        SetDrawMode(*texture, LACQUER_DRAW_COLOR_KEY, kKeyColour);
    std::array<RECT, 4> buttons{};
    for (int i = 0; i < 4; ++i)
        buttons[static_cast<std::size_t>(i)] = Box(0, i * kButtonHeight, kButtonWidth, kButtonHeight);
    SetSlices(button, buttons);
    std::array<RECT, 3> boxes{};
    for (int i = 0; i < 3; ++i) boxes[static_cast<std::size_t>(i)] = Box(i * kCheckSize, 0, kCheckSize, kCheckSize);
    SetSlices(check, boxes);
    const SIZE size = SizeOf(frame);
    SetSlices(frame, NineParts(Box(0, 0, size.cx, size.cy)));
}

void DrawFrame(const Canvas &canvas, const Skin &skin, const RECT &outer, std::string_view title) {
    const std::array<RECT, 9> parts = NineParts(outer);
    for (std::size_t i = 0; i < parts.size(); ++i) DrawSlice(canvas, parts[i], skin.frame, static_cast<int>(i));
    skin.font.DrawCentred(canvas, (outer.left + outer.right) / 2, outer.top + 24, title, 0xFFF4F6FA);
}

void DrawButton(const Canvas &canvas, const Skin &skin, int x, int y, ButtonState state, std::string_view caption) {
    DrawSlice(canvas, Box(x, y, kButtonWidth, kButtonHeight), skin.button, static_cast<int>(state));
    const int textTop = y + (state == ButtonState::kPressed ? 18 : 17);
    if (state == ButtonState::kDisabled) {
        skin.font.DrawCentred(canvas, x + kButtonWidth / 2, textTop, caption, 0xFF6F6866);
        return;
    }
    skin.font.DrawCentred(canvas, x + kButtonWidth / 2, textTop + 1, caption, 0x80400008);
    skin.font.DrawCentred(canvas, x + kButtonWidth / 2, textTop, caption, 0xFFFFFFFF);
}

void DrawCheckBox(const Canvas &canvas, const Skin &skin, int x, int y, CheckState state, std::string_view caption) {
    DrawSlice(canvas, Box(x, y, kCheckSize, kCheckSize), skin.check, static_cast<int>(state));
    skin.font.Draw(canvas, x + kCheckSize + 4, y + 9, caption, 0xFF333845);
}

}  // namespace lacquer::examples
