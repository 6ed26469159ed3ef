// The examples' skin for their tests.
#pragma once

#include "common/png_file.h"
#include "common/skin.h"

namespace lacquer::examples {

inline std::string AssetPath(const std::string &name) { return std::string(EXAMPLE_ASSETS "/") + name + ".png"; }

inline Skin LoadSkin() {
    return Skin([](const std::string &name, Alpha alpha) { return ReadPng(AssetPath(name), alpha); });
}

/// All pixels of a canvas, row by row.
inline std::vector<DWORD> PixelsOf(const Canvas &canvas) {
    const CanvasPixels pixels(canvas.get());
    std::vector<DWORD> result;
    for (int y = 0; y < pixels.height(); ++y)
        result.insert(result.end(), pixels.words(y), pixels.words(y) + pixels.width());
    return result;
}

}  // namespace lacquer::examples
