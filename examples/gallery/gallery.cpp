// What the pictures share, and their list.
#include "gallery/gallery.h"

#include <algorithm>

namespace lacquer::examples {

namespace {

constexpr Picture kPictures[] = {
    {"sources", PngKind::kOpaque, PaintSources},     {"modes", PngKind::kOpaque, PaintModes},
    {"alpha", PngKind::kOpaque, PaintAlpha},         {"slices", PngKind::kOpaque, PaintSlices},
    {"origins", PngKind::kOpaque, PaintOrigins},     {"transforms", PngKind::kOpaque, PaintTransforms},
    {"samplers", PngKind::kOpaque, PaintSamplers},   {"layouts", PngKind::kOpaque, PaintLayouts},
    {"tiles", PngKind::kOpaque, PaintTiles},         {"scales", PngKind::kOpaque, PaintScales},
    {"fills", PngKind::kOpaque, PaintFills},         {"rectangles", PngKind::kOpaque, PaintRectangles},
    {"shadows", PngKind::kOpaque, PaintShadows},     {"mixes", PngKind::kOpaque, PaintMixes},
    {"lettering", PngKind::kOpaque, PaintLettering}, {"filters", PngKind::kOpaque, PaintFilters},
    {"hues", PngKind::kOpaque, PaintHues},           {"glow", PngKind::kOpaque, PaintGlow},
    {"regions", PngKind::kOpaque, PaintRegions},     {"shapes", PngKind::kOpaque, PaintShapes},
    {"strokes", PngKind::kOpaque, PaintStrokes},     {"dashes", PngKind::kOpaque, PaintDashes},
    {"gradients", PngKind::kOpaque, PaintGradients}, {"operators", PngKind::kOpaque, PaintOperators},
    {"text", PngKind::kOpaque, PaintText},           {"film", PngKind::kOpaque, PaintFilm},
    {"window", PngKind::kStraight, PaintWindow},     {"desktop", PngKind::kOpaque, PaintDesktop},
};

}  // namespace

Canvas MakePage(const Skin &skin, int width, int height, std::string_view title, std::string_view explanation) {
    Canvas canvas = MakeCanvas(width, height);
    FillGradient(canvas, Box(0, 0, width, height), 0xFF333948, 0xFF1D2029);
    skin.font.Draw(canvas, 20, 16, title, kInk, 2);
    skin.font.Draw(canvas, 20, 38, explanation, kFaintInk);
    FillBox(canvas, Box(20, 54, width - 40, 1), 0x40FFFFFF);
    return canvas;
}

void DrawPanel(const Canvas &canvas, const RECT &rect) {
    const ScopedState keep(canvas);
    const auto x = static_cast<float>(rect.left), y = static_cast<float>(rect.top);
    const auto width = static_cast<float>(rect.right - rect.left), height = static_cast<float>(rect.bottom - rect.top);
    FillWith(canvas, 0x14FFFFFF);
    Check(DrawRoundRect(canvas, x, y, width, height, 7, 7), "DrawRoundRect");
    StrokeWith(canvas, 0x20FFFFFF, 1);
    Check(DrawRoundRect(canvas, x + 0.5f, y + 0.5f, width - 1, height - 1, 6.5f, 6.5f), "DrawRoundRect");
}

void DrawSpecimen(const Canvas &canvas, const RECT &rect, const std::function<void(const Canvas &layer)> &draw) {
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const Canvas layer = MakeCanvas(width, height);
    FillGradient(layer, Box(0, 0, width / 3, height), 0xFF6FA8DC, 0xFF2E5F96);
    FillGradient(layer, Box(width / 3, 0, width / 3, height), 0x80FFD060, 0x80E09020);
    draw(layer);
    FillChecker(canvas, rect, 6);
    DrawLayer(canvas, rect.left, rect.top, layer);
}

void DrawSpecimen(const Canvas &canvas, const RECT &rect, const Texture &piece, BYTE alpha) {
    DrawSpecimen(canvas, rect, [&](const Canvas &layer) {
        const SIZE size = SizeOf(piece);
        DrawAt(layer, (rect.right - rect.left - size.cx) / 2, (rect.bottom - rect.top - size.cy) / 2, piece, alpha);
    });
}

void CutToAlpha(const Canvas &layer) {
    const auto pixels = Locked(layer);
    for (int y = 0; y < pixels.Height(); ++y) {
        for (DWORD &word : pixels.Row(y)) {
            auto *pixel = reinterpret_cast<BYTE *>(&word);
            for (int channel = 0; channel < 3; ++channel) pixel[channel] = std::min(pixel[channel], pixel[3]);
        }
    }
}

Texture Straightened(const Texture &texture, const RECT *part) {
    Texture result = CopyOf(texture, part);
    const auto pixels = Locked(result);
    for (int y = 0; y < pixels.Height(); ++y)
        for (DWORD &word : pixels.Row(y)) word = StraightWord(word);
    return result;
}

std::span<const Picture> Pictures() { return kPictures; }

}  // namespace lacquer::examples
