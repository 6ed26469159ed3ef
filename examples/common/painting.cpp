// Painting helpers.
#include "common/painting.h"

#include <algorithm>

namespace lacquer::examples {

Canvas MakeCanvas(int width, int height) {
    return Need(Canvas::CreateSystem(static_cast<DWORD>(width), static_cast<DWORD>(height)), "CreateSystemCanvas");
}

void SetDrawMode(const Texture &texture, DWORD mode, DWORD key) {
    Check(SetTextureFilter(texture, mode << 24 | key), "SetTextureFilter");
}

void SetLayout(const Texture &texture, DWORD layout, const RECT &margins, DWORD scaleFlags) {
    const TextureMode mode{layout, scaleFlags, margins};
    Check(SetTextureMode(texture, &mode), "SetTextureMode");
}

void SetSlices(const Texture &texture, std::span<const RECT> slices) {
    const auto count = static_cast<DWORD>(slices.size());
    if (SetTextureSlice(texture, count, slices.data()) != count) throw std::runtime_error("SetTextureSlice failed");
}

Texture CopyOf(const Texture &texture, const RECT *part) {
    const auto pixels = Locked(texture, part);
    const SurfaceView &view = pixels.View();
    Texture copy = Need(Texture::Create(static_cast<DWORD>(view.width), static_cast<DWORD>(view.height),
                                        view.bitsPerPixel, view.paletteCount),
                        "CreateTextureEx");
    Check(CopyTexture(copy, nullptr, texture, part), "CopyTexture");
    return copy;
}

SIZE SizeOf(const Texture &texture) {
    SIZE size{};
    Check(GetTextureSize(texture, &size), "GetTextureSize");
    return size;
}

void DrawInto(const Canvas &canvas, const RECT &dest, const Texture &texture, DWORD kernelMode, BYTE alpha,
              float scale) {
    const int result = DrawTextureEx(canvas, &dest, texture, kernelMode, alpha, scale, 0);
    TextureMode mode{};
    Check(GetTextureMode(texture, &mode), "GetTextureMode");
    // Tiles give 0 even when they are drawn.
    if (mode.mode != LACQUER_LAYOUT_TILE && mode.mode != LACQUER_LAYOUT_TOP_TILE) Check(result, "DrawTextureEx");
}

void DrawAt(const Canvas &canvas, int x, int y, const Texture &texture, BYTE alpha) {
    const SIZE size = SizeOf(texture);
    DrawInto(canvas, Box(x, y, size.cx, size.cy), texture, LACQUER_NEAREST, alpha);
}

void DrawSlice(const Canvas &canvas, const RECT &dest, const Texture &texture, int slice, DWORD kernelMode) {
    if (SetTextureCurSlice(texture, slice) == -1) throw std::runtime_error("a texture has no such slice");
    DrawInto(canvas, dest, texture, kernelMode);
}

void FillBox(const Canvas &canvas, const RECT &rect, std::uint32_t colour) {
    Check(FillSolidRect(canvas, colour, &rect), "FillSolidRect");
}

void FillGradient(const Canvas &canvas, const RECT &rect, std::uint32_t top, std::uint32_t bottom) {
    const int height = rect.bottom - rect.top;
    for (int y = 0; y < height; ++y) {
        std::uint32_t colour = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const int from = static_cast<int>(top >> shift & 255);
            const int to = static_cast<int>(bottom >> shift & 255);
            colour |= static_cast<std::uint32_t>(from + (to - from) * y / std::max(height - 1, 1)) << shift;
        }
        const RECT row{rect.left, rect.top + y, rect.right, rect.top + y + 1};
        Check(FillSolidRectEx(canvas, colour, &row, LACQUER_DRAW_COPY), "FillSolidRectEx");
    }
}

void FillChecker(const Canvas &canvas, const RECT &rect, int square) {
    FillBox(canvas, rect, 0xFFD2D4D8);
    for (int top = rect.top; top < rect.bottom; top += square) {
        const int shift = (top - rect.top) / square % 2 * square;
        for (int left = rect.left + shift; left < rect.right; left += 2 * square) {
            const RECT cell{left, top, std::min<LONG>(left + square, rect.right),
                            std::min<LONG>(top + square, rect.bottom)};
            FillBox(canvas, cell, 0xFFB4B7BD);
        }
    }
}

void OutlineBox(const Canvas &canvas, const RECT &rect, std::uint32_t colour) {
    FillBox(canvas, {rect.left, rect.top, rect.right, rect.top + 1}, colour);
    FillBox(canvas, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, colour);
    FillBox(canvas, {rect.left, rect.top + 1, rect.left + 1, rect.bottom - 1}, colour);
    FillBox(canvas, {rect.right - 1, rect.top + 1, rect.right, rect.bottom - 1}, colour);
}

void DrawLayer(const Canvas &canvas, int x, int y, const Canvas &layer, BYTE alpha) {
    const Texture texture = Need(layer.AsTexture(), "GetTexture");
    SetDrawMode(texture, LACQUER_DRAW_OVER);
    DrawAt(canvas, x, y, texture, alpha);
}

}  // namespace lacquer::examples
