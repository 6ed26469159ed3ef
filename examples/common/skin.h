// A skin: the pieces of examples/assets as textures, with their draw modes, slices and layouts, and the parts of a
// window drawn from them, at the scale of the screen that they are drawn for.
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

    /// Throws what `read` throws, and std::runtime_error when an object can't be made.
    explicit Skin(const Reader &read);

    Texture photo, vignette;                           // drawn as copies
    Texture wood;                                      // the same, as a tile
    Texture icon, knob, card, splash;                  // drawn over
    Texture stripes;                                   // drawn over, as a tile
    Texture waves;                                     // drawn over, as a top-tile
    Texture button, caption, check, progress, scroll;  // drawn over; a slice for each state
    Texture frame, popup, shadow, field;               // drawn over, as nine-grids
    // One sprite at each depth, drawn with a colour key.
    Texture ladybird32, ladybird24, ladybird8;
    // The textures of the same names as pieces that draw themselves at any scale, with a state for each slice.
    lq::SkinPiece buttons, bars, scrolls, stripe, board, window;
    Bitmap lettering;  // a mask to draw colours through
    Font font;
};

/// Where the shadow of a rectangle is, which reaches beyond it.
RECT ShadowOf(const RECT &caster, Scale px = Scale());

/// Draws the shadow of a rectangle with round corners.
void DrawShadow(const Canvas &canvas, const RECT &caster, int radius, Scale px = Scale());

/// Draws a plain surface with round corners and a thin edge, in straight colours.
void DrawCard(const Canvas &canvas, const RECT &rect, int radius, std::uint32_t edge, std::uint32_t colour,
              Scale px = Scale());

/// Lets a surface with round corners look sunken.
void DrawWell(const Canvas &canvas, const RECT &rect, int radius, Scale px = Scale());

/// Marks a chosen row with dots.
void DrawDots(const Canvas &canvas, const RECT &rect, std::uint32_t colour, Scale px = Scale());

/// Draws the ring of what has the keyboard's focus, just inside a rectangle.
void DrawFocusRing(const Canvas &canvas, const RECT &rect, Scale px = Scale());

enum class ButtonState { kNormal, kHot, kPressed, kDisabled };

inline constexpr SIZE kButtonSize{104, 44};

/// Draws a button without a caption into a rectangle, its shadow of 6 pixels around included.
void DrawButton(const Canvas &canvas, const Skin &skin, const RECT &rect, ButtonState state, Scale px = Scale());

inline constexpr SIZE kCaptionButtonSize{28, 20};

inline constexpr int kCheckSize = 24;

/// The left part of a progress bar, a share of `done` / `all`.
RECT FilledPart(const RECT &bar, int done, int all);

/// Draws a progress bar of which a share of `done` / `all` is filled.
void DrawProgress(const Canvas &canvas, const Skin &skin, const RECT &rect, int done, int all, Scale px = Scale());

/// Draws a scroll bar of 14 pixels with its thumb.
void DrawScrollBar(const Canvas &canvas, const Skin &skin, const RECT &track, const RECT &thumb, ButtonState state,
                   Scale px = Scale());

}  // namespace lacquer::examples
