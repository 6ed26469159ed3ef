// The pictures that the examples' tests read: the skin, and what pictures painted from it are compared with. On Windows
// the program carries them as resources.
#pragma once

#ifdef _WIN32
#include "window/resources.h"
#else
#include "common/png_file.h"
#endif
#include <algorithm>
#include <fstream>

#include "common/skin.h"

namespace lacquer::examples {

#ifdef _WIN32
inline Image ReadAsset(const std::string &name, Alpha alpha) { return ReadPngResource("piece_" + name, alpha); }
inline Image ReadReference(const std::string &name) {
    return ReadPngResource("reference_" + name, Alpha::kPremultiplied);
}
#else
inline std::string AssetPath(const std::string &name) { return EXAMPLE_ASSETS "/" + name + ".png"; }
inline std::string ReferencePath(const std::string &name) { return EXAMPLE_REFERENCES "/" + name + ".png"; }
inline Image ReadAsset(const std::string &name, Alpha alpha) { return ReadPng(AssetPath(name), alpha); }
inline Image ReadReference(const std::string &name) { return ReadPng(ReferencePath(name)); }
#endif

inline Skin LoadSkin() { return Skin(ReadAsset); }

/// Every pixel becomes a word that nothing is painted with: what has lost it afterwards was painted.
constexpr DWORD kPoison = 0xFF01FE02;
inline void FillWithPoison(const Canvas &canvas) {
    const auto pixels = Locked(canvas);
    for (int y = 0; y < pixels.Height(); ++y) std::ranges::fill(pixels.Row(y), kPoison);
}

/// All pixels of a canvas, row by row.
inline std::vector<DWORD> PixelsOf(const Canvas &canvas) {
    const auto pixels = Locked(canvas);
    std::vector<DWORD> result;
    for (int y = 0; y < pixels.Height(); ++y) result.insert(result.end(), pixels.Row(y).begin(), pixels.Row(y).end());
    return result;
}

/// Writes words, without their alpha, as a picture for who wants to look at it. Result: its name.
inline std::string WritePicture(const std::string &name, int width, const std::vector<DWORD> &words) {
    std::ofstream file(name + ".ppm", std::ios::binary);
    file << "P6 " << width << ' ' << words.size() / static_cast<std::size_t>(width) << " 255\n";
    for (const DWORD word : words)
        file << static_cast<char>(word >> 16) << static_cast<char>(word >> 8) << static_cast<char>(word);
    return name + ".ppm";
}

}  // namespace lacquer::examples
