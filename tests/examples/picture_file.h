// Pictures as files that any viewer opens, on systems with libpng and without.
#pragma once

#include <lacquer/lacquer.h>

#include <string>
#include <vector>

namespace lacquer::examples {

/// Words 0xAARRGGBB of straight alpha, row by row.
struct PlainPicture {
    int width = 0, height = 0;
    std::vector<DWORD> words;
};

/// Writes a PNG file that is not compressed. False when that fails.
bool WritePlainPicture(const std::string &path, const PlainPicture &picture);

}  // namespace lacquer::examples
