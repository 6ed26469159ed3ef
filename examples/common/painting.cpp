// Painting helpers. A plain colour is a texture of one pixel, stretched; a gradient is a column of pixels.
#include "common/painting.h"

#include <algorithm>

namespace lacquer::examples {

Canvas MakeCanvas(int width, int height) {
    return Canvas(CreateSystemCanvas(static_cast<DWORD>(width), static_cast<DWORD>(height), HGCANVAS{}),
                  "CreateSystemCanvas");
}

void SetDrawMode(const Texture &texture, DWORD mode, DWORD key) {
    Check(SetTextureFilter(texture.get(), mode << 24 | key), "SetTextureFilter");
}

void SetSlices(const Texture &texture, std::span<const RECT> slices) {
    const auto count = static_cast<DWORD>(slices.size());
    if (SetTextureSlice(texture.get(), count, slices.data()) != count)
        throw std::runtime_error("SetTextureSlice failed");
}

Texture CopyOf(const Texture &texture, const RECT *part) {
    SurfaceView view{};
    Check(LockTextureBitsEx(texture.get(), &view, part), "LockTextureBitsEx");
    UnlockTextureBits(texture.get());
    Texture copy(CreateTextureEx(static_cast<DWORD>(view.width), static_cast<DWORD>(view.height), view.bitsPerPixel,
                                 view.paletteCount),
                 "CreateTextureEx");
    Check(CopyTexture(copy.get(), nullptr, texture.get(), part), "CopyTexture");
    return copy;
}

SIZE SizeOf(const Texture &texture) {
    SIZE size{};
    Check(GetTextureSize(texture.get(), &size), "GetTextureSize");
    return size;
}

void DrawInto(const Canvas &canvas, const RECT &dest, const Texture &texture, DWORD kernelMode, BYTE alpha) {
    Check(DrawTextureEx(canvas.get(), &dest, texture.get(), kernelMode, alpha, 1.0f, 0), "DrawTextureEx");
}

void DrawAt(const Canvas &canvas, int x, int y, const Texture &texture, BYTE alpha) {
    const SIZE size = SizeOf(texture);
    DrawInto(canvas, Box(x, y, size.cx, size.cy), texture, LACQUER_NEAREST, alpha);
}

void DrawSlice(const Canvas &canvas, const RECT &dest, const Texture &texture, int slice, DWORD kernelMode) {
    if (SetTextureCurSlice(texture.get(), slice) == -1) throw std::runtime_error("a texture has no such slice");
    DrawInto(canvas, dest, texture, kernelMode);
}

void FillBox(const Canvas &canvas, const RECT &rect, std::uint32_t colour) {
    const Texture pixel(CreateTexture(1, 1), "CreateTexture");
    TexturePixels(pixel.get()).words(0)[0] = PremultipliedWord(colour);
    SetDrawMode(pixel, LACQUER_DRAW_OVER);
    DrawInto(canvas, rect, pixel, LACQUER_NEAREST);
}

void FillGradient(const Canvas &canvas, const RECT &rect, std::uint32_t top, std::uint32_t bottom) {
    const int height = rect.bottom - rect.top;
    const Texture column(CreateTexture(1, static_cast<DWORD>(height)), "CreateTexture");
    {
        const TexturePixels pixels(column.get());
        for (int y = 0; y < height; ++y) {
            std::uint32_t word = 0;
            for (int shift = 0; shift < 32; shift += 8) {
                const int from = static_cast<int>(top >> shift & 255);
                const int to = static_cast<int>(bottom >> shift & 255);
                word |= static_cast<std::uint32_t>(from + (to - from) * y / std::max(height - 1, 1)) << shift;
            }
            pixels.words(y)[0] = PremultipliedWord(word);
        }
    }
    DrawInto(canvas, rect, column, LACQUER_NEAREST);
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
    const Texture texture(GetTexture(layer.get()), "GetTexture");
    SetDrawMode(texture, LACQUER_DRAW_OVER);
    DrawAt(canvas, x, y, texture, alpha);
}

}  // namespace lacquer::examples
