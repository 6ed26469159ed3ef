// The gallery: pictures that show what Lacquer draws, each painted by a function of its own from one skin.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "common/png_file.h"
#include "common/skin.h"

namespace lacquer::examples {

inline constexpr std::uint32_t kInk = 0xFFE9ECF2;
inline constexpr std::uint32_t kFaintInk = 0xFF9AA3B5;

/// A canvas with the gallery's background, a title and a line of explanation.
Canvas MakePage(const Skin &skin, int width, int height, std::string_view title, std::string_view explanation);

/// Draws a piece in the middle of a layer that is opaque on the left, half covered in the middle and clear on the
/// right, and the layer over a checkerboard into a rectangle of the canvas. So a draw shows on all three kinds of
/// ground.
void DrawSpecimen(const Canvas &canvas, const RECT &rect, const Texture &piece, BYTE alpha = 255);

struct Picture {
    std::string_view name;  // of the file, without its ending
    PngKind kind;
    Canvas (*paint)(const Skin &skin);
};

/// All pictures, in the order in which they are painted.
std::span<const Picture> Pictures();

Canvas PaintSources(const Skin &skin);
Canvas PaintModes(const Skin &skin);
Canvas PaintAlpha(const Skin &skin);
Canvas PaintSlices(const Skin &skin);
Canvas PaintOrigins(const Skin &skin);
Canvas PaintTransforms(const Skin &skin);
Canvas PaintSamplers(const Skin &skin);
Canvas PaintWindow(const Skin &skin);
Canvas PaintDesktop(const Skin &skin);

}  // namespace lacquer::examples
