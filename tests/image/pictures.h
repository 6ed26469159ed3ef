// Small files of every kind that the library reads, encoded by the codecs' own libraries, with the pixels that they
// hold.
#pragma once

#include <lacquer/image.h>

#include <string>
#include <vector>

namespace lacquer {

using Bytes = std::vector<BYTE>;

struct Picture {
    std::string name;
    Bytes file;
    ImageFileInfo info;
    std::vector<uint32_t> pixels;  ///< straight, 0xAARRGGBB
    int tolerance;                 ///< of a colour channel
};

/// Every colour type and depth of PNG, with and without a transparent colour, interlaced or not; JPEG in its colour
/// spaces, with two kinds of sampling, and progressive; WebP with and without loss and alpha, and animated.
std::vector<Picture> Pictures();

/// A JPEG of flat blocks whose Exif data, in either order of bytes, give an orientation.
Picture TurnedJpeg(DWORD orientation, bool isLittleEndian);

/// A PNG with pixels that index one colour more than its palette has.
Bytes PngBeyondItsPalette();

}  // namespace lacquer
