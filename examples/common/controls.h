// The controls of a window: pieces of a skin, with text in the system's fonts and icons made of paths.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <tuple>

#include "common/skin.h"
#include "common/vector.h"

namespace lacquer::examples {

/// Text on a light ground.
inline constexpr std::uint32_t kText = 0xFF333845;

enum class Icon { kMinimise, kMaximise, kRestore, kClose, kTick, kEraser, kRoller, kInformation, kUp, kDown };

/// What is made of curves, letters too, is painted once and drawn as a texture from then on: quickly, and with the same
/// pixels under every clip, while a curve that a clip cuts is rounded otherwise than a whole one. The functions throw
/// std::runtime_error on failure. Sizes are those of 96 DPI, places and rectangles pixels. One thread at a time uses an
/// object.
class Controls {
public:
    /// Controls at a scale; `skin` must outlive the object.
    Controls(const Skin &skin, Scale scale);

    const Skin &skin() const { return skin_; }
    const Scale &px() const { return px_; }

    /// A window frame with its title.
    void DrawFrame(const Canvas &canvas, const RECT &outer, std::string_view title) const;

    /// A button, its shadow of 6 pixels around included, with an icon before its caption.
    void DrawButton(const Canvas &canvas, const RECT &rect, ButtonState state, Icon icon,
                    std::string_view caption) const;

    /// The same with an icon at its right end.
    void DrawMenuButton(const Canvas &canvas, const RECT &rect, ButtonState state, std::string_view caption,
                        Icon icon) const;

    /// A button of a title bar. Such buttons are never disabled.
    void DrawCaptionButton(const Canvas &canvas, const RECT &rect, Icon icon, ButtonState state) const;

    /// A check box of 24 x 24 at the left of a rectangle of that height, with its caption beside it.
    void DrawCheckBox(const Canvas &canvas, const RECT &rect, bool isOn, ButtonState state,
                      std::string_view caption) const;

    /// A ball of 16 x 16; `gloss`: how strongly light shows on it.
    void DrawBall(const Canvas &canvas, int x, int y, std::uint32_t colour, BYTE gloss) const;

    /// A rectangle with round corners, in a straight colour.
    void DrawHighlight(const Canvas &canvas, const RECT &rect, std::uint32_t colour) const;

    /// An icon of 16 x 16 in a straight colour.
    void DrawIcon(const Canvas &canvas, int x, int y, Icon icon, std::uint32_t colour) const;

    /// A line of text that begins at x, its capitals centred on y.
    void DrawLabel(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour) const {
        DrawLine(canvas, label_, x, y, text, colour);
    }

    /// The same in bold letters.
    void DrawName(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour) const {
        DrawLine(canvas, name_, x, y, text, colour);
    }

    /// The same in letters of one width; the text ends at x.
    void DrawCode(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour) const;

private:
    /// Parts of 16 x 16: what is stroked, how wide, and what is filled.
    struct Drawing {
        Path lines;
        float width;
        Path areas;
    };

    /// What tells one texture from another: the object that it is made with, a colour, two numbers, and a text.
    using Key = std::tuple<const void *, std::uint32_t, int, int, std::string>;

    template <typename Draw>
    void DrawRaised(ButtonState state, Draw draw) const;
    void DrawOnce(const Canvas &canvas, int x, int y, SIZE size, Key key,
                  const std::function<void(const Canvas &)> &paint) const;
    void DrawLine(const Canvas &canvas, const Typeface &typeface, int x, int y, std::string_view text,
                  std::uint32_t colour) const;
    void DrawFace(const Canvas &canvas, const RECT &rect, const Gradient &gradient, std::uint32_t edge) const;

    const Skin &skin_;
    const Scale px_;
    Typeface label_, name_, title_, code_;
    std::array<Drawing, 10> icons_;                // by Icon
    std::array<std::array<Gradient, 2>, 2> caps_;  // of the buttons in a title bar: by button; under the mouse, pressed
    Gradient box_, rim_, glint_;
    Canvas sheet_;  // where the textures are painted
    mutable std::map<Key, Texture> textures_;
};

}  // namespace lacquer::examples
