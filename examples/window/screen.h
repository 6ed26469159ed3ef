// Pixels as the screen shows them, and as they should be.
#pragma once

#include <cstddef>
#include <vector>

#include "common/painting.h"

namespace lacquer::examples {

/// Words 0xAARRGGBB, row by row. Of the screen alpha is 0; a canvas's pixel with alpha 0 is no part of its window.
struct Pixels {
    LONG width = 0;
    LONG height = 0;
    std::vector<DWORD> words;
};

/// The client area of a window as the screen shows it. Throws std::runtime_error when it can't be read.
Pixels ReadScreen(HWND window);

Pixels ReadCanvas(const Canvas &canvas);

/// Puts the visible pixels of one picture on another, with its left top corner at `corner`.
void Overlay(Pixels &under, const Pixels &above, POINT corner);

/// How many of the expected pixels, parts of no window aside, have another colour on the screen.
std::size_t CountDifferences(const Pixels &screen, const Pixels &expected);

std::size_t CountColours(const Pixels &pixels);

/// Writes a BMP file. Throws std::runtime_error on failure.
void WriteBmp(const std::string &path, const Pixels &pixels);

}  // namespace lacquer::examples
