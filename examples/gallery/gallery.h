// The gallery: pictures that show what Lacquer draws, each painted by a function of its own from one skin.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "common/png_file.h"
#include "common/skin.h"
#include "common/vector.h"

namespace lacquer::examples {

inline constexpr std::uint32_t kInk = 0xFFE9ECF2;
inline constexpr std::uint32_t kFaintInk = 0xFF9AA3B5;
inline constexpr std::uint32_t kRed = 0xFFE5484D;
inline constexpr std::uint32_t kGold = 0xFFF5B84B;
inline constexpr std::uint32_t kBlue = 0xFF5AA9E6;
inline constexpr std::uint32_t kGreen = 0xFF63C7A0;

/// A canvas with the gallery's background, a title and a line of explanation.
Canvas MakePage(const Skin &skin, int width, int height, std::string_view title, std::string_view explanation);

/// A ground with round corners for what shows a piece of a page.
void DrawPanel(const Canvas &canvas, const RECT &rect);

/// Lets `draw` draw on a layer of the rectangle's size that is opaque on the left, half covered in the middle and clear
/// on the right, and lays it over a checkerboard. So a draw shows on all three kinds of ground.
void DrawSpecimen(const Canvas &canvas, const RECT &rect, const std::function<void(const Canvas &layer)> &draw);

/// The same with a piece in the middle of the layer.
void DrawSpecimen(const Canvas &canvas, const RECT &rect, const Texture &piece, BYTE alpha = 255);

/// Cuts colour channels that have grown beyond their alpha, which only copies may show. A mode that ignores alpha
/// leaves such colours, and no ground under the layer can show them.
void CutToAlpha(const Canvas &layer);

/// A copy of a 32-bit texture, or of a part of it, with straight pixels.
Texture Straightened(const Texture &texture, const RECT *part = nullptr);

/// Where the picture of text shows italics, which lean by themselves or are leant: that depends on the system's fonts.
inline constexpr RECT kItalics{612, 178, 720, 210};
/// Where it shows scripts that the DejaVu fonts lack, as far as other fonts have them.
inline constexpr RECT kOtherFonts{560, 656, 800, 836};

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
Canvas PaintLayouts(const Skin &skin);
Canvas PaintTiles(const Skin &skin);
Canvas PaintScales(const Skin &skin);
Canvas PaintFills(const Skin &skin);
Canvas PaintRectangles(const Skin &skin);
Canvas PaintShadows(const Skin &skin);
Canvas PaintMixes(const Skin &skin);
Canvas PaintLettering(const Skin &skin);
Canvas PaintFilters(const Skin &skin);
Canvas PaintHues(const Skin &skin);
Canvas PaintGlow(const Skin &skin);
Canvas PaintRegions(const Skin &skin);
Canvas PaintShapes(const Skin &skin);
Canvas PaintStrokes(const Skin &skin);
Canvas PaintDashes(const Skin &skin);
Canvas PaintGradients(const Skin &skin);
Canvas PaintOperators(const Skin &skin);
Canvas PaintText(const Skin &skin);
Canvas PaintFilm(const Skin &skin);
Canvas PaintWindow(const Skin &skin);
Canvas PaintDesktop(const Skin &skin);

}  // namespace lacquer::examples
