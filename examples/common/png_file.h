// PNG files: any kind is read into an image of the nearest depth that Lacquer draws, and canvases are written.
#pragma once

#include <string>

#include "common/image.h"

namespace lacquer::examples {

/// Reads a file. Palette images and greys without alpha become 8-bit images, colour without alpha 24-bit ones, the rest
/// 32-bit ones. Throws std::runtime_error ("<path>: <reason>") on failure.
Image ReadPng(const std::string &path, Alpha alpha = Alpha::kPremultiplied);

enum class PngKind {
    kOpaque,   // three channels: the pixels as a window shows them, whatever their alpha
    kStraight  // straight alpha
};

/// Writes the pixels of a canvas. Throws std::runtime_error ("<path>: <reason>") on failure.
void WritePng(const std::string &path, HGCANVAS canvas, PngKind kind);

}  // namespace lacquer::examples
