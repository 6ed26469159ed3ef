// The pictures that the examples' tests read: the skin, and what pictures painted from it are compared with. On Windows
// the program carries them as resources.
#pragma once

#ifdef _WIN32
#include <objbase.h>

#include "window/png_resource.h"
#else
#include "common/png_file.h"
#endif
#include "common/skin.h"

namespace lacquer::examples {

#ifdef _WIN32
inline Image ReadResource(const std::string &name, Alpha alpha) {
    static const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(com)) throw std::runtime_error("COM is not available");
    return ReadPngResource(name, alpha);
}
inline Image ReadAsset(const std::string &name, Alpha alpha) { return ReadResource("piece_" + name, alpha); }
inline Image ReadReference(const std::string &name) { return ReadResource("reference_" + name, Alpha::kPremultiplied); }
#else
inline std::string AssetPath(const std::string &name) { return EXAMPLE_ASSETS "/" + name + ".png"; }
inline std::string ReferencePath(const std::string &name) { return EXAMPLE_REFERENCES "/" + name + ".png"; }
inline Image ReadAsset(const std::string &name, Alpha alpha) { return ReadPng(AssetPath(name), alpha); }
inline Image ReadReference(const std::string &name) { return ReadPng(ReferencePath(name)); }
#endif

inline Skin LoadSkin() { return Skin(ReadAsset); }

/// All pixels of a canvas, row by row.
inline std::vector<DWORD> PixelsOf(const Canvas &canvas) {
    const auto pixels = Locked(canvas);
    std::vector<DWORD> result;
    for (int y = 0; y < pixels.Height(); ++y) result.insert(result.end(), pixels.Row(y).begin(), pixels.Row(y).end());
    return result;
}

}  // namespace lacquer::examples
