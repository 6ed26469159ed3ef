// Pixel access of the tests.

#include "support/pixels.h"

#include <cstring>

namespace lacquer {

namespace {

uint8_t *AddressOf(const SurfaceView &view, LONG x, LONG y) {
    return static_cast<uint8_t *>(view.bits) + static_cast<std::ptrdiff_t>(y) * view.stride +
           static_cast<std::ptrdiff_t>(x) * (view.bitsPerPixel / 8);
}

template <class Function>
void ForEachPixel(const SurfaceView &view, Function function) {
    for (LONG y = 0; y < view.height; ++y) {
        for (LONG x = 0; x < view.width; ++x) function(x, y);
    }
}

uint32_t IndexOf(const SurfaceView &view, LONG x, LONG y) { return static_cast<uint32_t>(y * view.width + x); }

}  // namespace

uint32_t Noise(uint32_t seed, uint32_t index) {
    uint64_t mixed = (static_cast<uint64_t>(seed) << 32 | index) + 0x1234567;
    for (int round = 0; round < 3; ++round) {
        mixed ^= mixed >> 31;
        mixed *= 0xD6E8FEB86659FD93;
    }
    return static_cast<uint32_t>(mixed >> 32);
}

uint32_t PremultipliedNoise(uint32_t seed, uint32_t index) {
    const uint32_t noise = Noise(seed, index), choice = Noise(seed + 1, index) % 8;
    const uint32_t alpha = choice == 0 ? 0 : choice == 1 ? 255 : noise >> 24;
    uint32_t word = alpha << 24;
    for (unsigned shift = 0; shift < 24; shift += 8) word |= (noise >> shift & 0xFF) * alpha / 255 << shift;
    return word;
}

uint32_t PixelAt(const SurfaceView &view, LONG x, LONG y) {
    uint64_t value = 0;
    std::memcpy(&value, AddressOf(view, x, y), view.bitsPerPixel / 8);
    return static_cast<uint32_t>(value);
}

void PutPixel(const SurfaceView &view, LONG x, LONG y, uint32_t value) {
    const uint64_t pixel = value;
    std::memcpy(AddressOf(view, x, y), &pixel, view.bitsPerPixel / 8);
}

uint32_t ColourAt(const SurfaceView &view, LONG x, LONG y) {
    const uint32_t pixel = PixelAt(view, x, y);
    if (view.bitsPerPixel == 24) return pixel | 0xFF000000;
    if (view.bitsPerPixel == 8) return pixel < view.paletteCount ? view.palette[pixel] : 0;
    return pixel;
}

std::vector<uint32_t> PixelsOf(const SurfaceView &view) {
    std::vector<uint32_t> pixels;
    ForEachPixel(view, [&](LONG x, LONG y) { pixels.push_back(PixelAt(view, x, y)); });
    return pixels;
}

std::vector<uint32_t> ColoursOf(const SurfaceView &view) {
    std::vector<uint32_t> colours;
    ForEachPixel(view, [&](LONG x, LONG y) { colours.push_back(ColourAt(view, x, y)); });
    return colours;
}

void FillWithNoise(const SurfaceView &view, uint32_t seed) {
    const auto noise = view.bitsPerPixel == 32 ? PremultipliedNoise : Noise;
    ForEachPixel(view, [&](LONG x, LONG y) { PutPixel(view, x, y, noise(seed, IndexOf(view, x, y))); });
}

void FillWith(const SurfaceView &view, uint32_t value) {
    ForEachPixel(view, [&](LONG x, LONG y) { PutPixel(view, x, y, value); });
}

void FillPaletteWithNoise(const SurfaceView &view, uint32_t seed) {
    for (DWORD i = 0; i < view.paletteCount; ++i) view.palette[i] = PremultipliedNoise(seed, i);
}

}  // namespace lacquer
