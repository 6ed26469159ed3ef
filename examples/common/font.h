// A tiny font in a texture: a slice for each character, and a palette of two words whose second one is the ink.
#pragma once

#include <array>
#include <string_view>

#include "common/painting.h"

namespace lacquer::examples {

class Font {
public:
    /// `sheet`: assets/font.png at any depth with alpha. Throws std::runtime_error when it has another size.
    explicit Font(const Image &sheet);

    /// The width of a text, pixels. Characters that the font does not have count as a space.
    int Width(std::string_view text, int scale = 1) const;

    /// Draws a text with the top of its capitals at y, in a straight colour; a capital is 7 * scale pixels high. The
    /// pen starts at x and never turns to a new line.
    void Draw(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour, int scale = 1) const;

    /// Draws a text centred on x.
    void DrawCentred(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour,
                     int scale = 1) const;

private:
    Texture texture_;
    std::array<int, 256> sliceOf_;  // by character, -1 for none
    std::array<int, 256> widthOf_;  // by character, the gap to the next one included
};

}  // namespace lacquer::examples
