// A skin: the pieces of examples/assets as textures, with their draw modes and slices, and the parts of a window drawn
// from them.
#pragma once

#include <functional>
#include <string>

#include "common/font.h"

namespace lacquer::examples {

inline constexpr DWORD kKeyColour = 0xFF00FF;

struct Skin {
    /// Reads the image of a piece, given the name of its file without the ending. Throws std::runtime_error when it
    /// can't.
    using Reader = std::function<Image(const std::string &name, Alpha alpha)>;

    /// Throws what `read` throws, and std::runtime_error when a texture can't be made.
    explicit Skin(const Reader &read);

    Texture photo, wood, vignette;  // drawn as copies
    Texture icon, knob;             // drawn over
    Texture button, check, frame;   // drawn over; a slice for each state, and for each of the frame's nine parts
    // One sprite at each depth, drawn with a colour key.
    Texture ladybird32, ladybird24, ladybird8;
    Font font;
};

// What the frame's picture holds around its client area, in pixels: shadow, border and title bar together.
inline constexpr RECT kFrameMargins{20, 44, 20, 20};

/// Draws a window frame into a rectangle: corners at their size, edges and the centre stretched.
void DrawFrame(const Canvas &canvas, const Skin &skin, const RECT &outer, std::string_view title);

enum class ButtonState { kNormal, kHot, kPressed, kDisabled };

/// Draws a button of 104 x 44 pixels, its shadow included, with its left top corner at (x, y).
void DrawButton(const Canvas &canvas, const Skin &skin, int x, int y, ButtonState state, std::string_view caption);

enum class CheckState { kOff, kOn, kPartly };

/// Draws a check box of 24 x 24 pixels with its caption to the right.
void DrawCheckBox(const Canvas &canvas, const Skin &skin, int x, int y, CheckState state, std::string_view caption);

}  // namespace lacquer::examples
