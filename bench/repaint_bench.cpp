// A window's whole repaint: background, skinned frame in nine pieces, a list of icons with shadows, a dimmed part.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>

#include <cstring>
#include <vector>

#include "ratio.h"

namespace {

HGTEXTURE MakeTexture(DWORD width, DWORD height, DWORD mode, DWORD word) {
    const HGTEXTURE texture = CreateTexture(width, height);
    SurfaceView view{};
    LockTextureBits(texture, &view, nullptr);
    auto *pixels = static_cast<DWORD *>(view.bits);
    for (LONG i = 0; i < view.width * view.height; ++i) pixels[i] = i % 7 == 0 ? 0 : word;
    UnlockTextureBits(texture);
    SetTextureFilter(texture, mode << 24);
    return texture;
}

void RepaintWindow(benchmark::State &state) {
    const auto width = static_cast<LONG>(state.range(0)), height = static_cast<LONG>(state.range(1));
    const HGCANVAS canvas = CreateCanvas(static_cast<DWORD>(width), static_cast<DWORD>(height), {});
    const HGTEXTURE frame = MakeTexture(48, 48, LACQUER_DRAW_OVER, 0x80402010);
    const HGTEXTURE icon = MakeTexture(32, 32, LACQUER_DRAW_OVER, 0xFF3060C0);
    const HGTEXTURE photo = MakeTexture(300, 200, LACQUER_DRAW_COPY, 0xFF806040);
    const TextureMode grid = {LACQUER_LAYOUT_NINE_GRID, 0, {16, 16, 16, 16}};
    SetTextureMode(frame, &grid);
    const RECT all = {0, 0, width, height}, upper = {width / 4, height / 8, width * 3 / 4, height / 2};
    const auto repaint = [&] {
        FillSolidRect(canvas, 0xF0F0F0, &all);
        DrawTexture(canvas, &all, frame, LACQUER_NEAREST);
        DrawTextureEx(canvas, &upper, photo, LACQUER_BILINEAR, 255, 1.0f, 0);
        for (LONG y = height / 2; y + 32 < height; y += 40) {
            for (LONG x = 20; x + 32 < width; x += 40) {
                const RECT place = {x, y, x + 32, y + 32};
                DrawTexture(canvas, &place, icon, LACQUER_NEAREST);
            }
        }
        const RECT dimmed = {0, height * 3 / 4, width, height};
        FillPreMulColorRectEx(canvas, 0x40000000, &dimmed, LACQUER_DRAW_OVER << 24);
    };
    const size_t bytes = static_cast<size_t>(width) * static_cast<size_t>(height) * 4;
    std::vector<char> from(bytes, 1), to(bytes, 2);
    lacquer::bench::MeasureAgainst(
        state, repaint,
        [&] {
            std::memcpy(to.data(), from.data(), bytes);
            benchmark::ClobberMemory();
        },
        static_cast<double>(width) * height);
    for (const HGTEXTURE texture : {frame, icon, photo}) DeleteTexture(texture);
    DeleteCanvas(canvas);
}
BENCHMARK(RepaintWindow)->Args({640, 480})->Args({1280, 800})->Args({3840, 2160})->UseManualTime();

}  // namespace
