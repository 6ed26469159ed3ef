// samplers.png: the four samplers side by side, enlarging and shrinking. The area sampler is for opaque copies that
// shrink: it hands copies that grow to the bicubic one, and blends to the bilinear one.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// Rings that become finer outwards. A sampler that skips pixels turns them into rings that are not there.
Texture MakeRings(int size) {
    Image image{.width = size, .height = size, .bitsPerPixel = 8, .pixels = {}, .palette = {}};
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int dx = x - size / 2;
            const int dy = y - size / 2;
            // The phase of a wave whose length shrinks with the distance, folded into a triangle.
            const int phase = (dx * dx + dy * dy) * 256 / (size * 2) % 512;
            image.pixels.push_back(static_cast<std::uint8_t>(phase < 256 ? phase : 511 - phase));
        }
    }
    return MakeTexture(image);
}

/// A part of the window picture, with small text, as an opaque texture of 32 bits per pixel.
Texture MakeFinePrint(const Skin &skin) {
    const Texture window = Need(Texture::From(PaintWindow(skin)), "CanvasToTexture");
    const RECT inside = Box(206, 158, 414, 267);
    return CopyOf(window, &inside);
}

}  // namespace

Canvas PaintSamplers(const Skin &skin) {
    struct Sampler {
        DWORD mode;
        std::string_view name;
    };
    constexpr std::array<Sampler, 4> samplers{{{LACQUER_NEAREST, "nearest"},
                                               {LACQUER_BILINEAR, "bilinear"},
                                               {LACQUER_BICUBIC, "bicubic"},
                                               {LACQUER_AREA, "area"}}};
    struct Row {
        std::string_view name, detail;
        Texture source;
        SIZE size;
    };
    const RECT sun = Box(108, 42, 28, 20);
    const RECT tick = Box(24, 0, 24, 24);
    const std::array<Row, 4> rows{{{"x 5, copy", "24 bit", CopyOf(skin.photo, &sun), {140, 100}},
                                   {"x 4, over", "32 bit", CopyOf(skin.check, &tick), {96, 96}},
                                   {"/ 3, copy", "32 bit", MakeFinePrint(skin), {138, 89}},
                                   {"/ 2.9, copy", "8 bit", MakeRings(288), {100, 100}}}};

    Canvas canvas = MakePage(skin, 728, 552, "Samplers", "One source at another size, sampled in four ways");
    for (int column = 0; column < 4; ++column)
        skin.font.DrawCentred(canvas, 166 + column * 156, 70, samplers[static_cast<std::size_t>(column)].name, kInk);
    int y = 90;
    for (const Row &row : rows) {
        skin.font.Draw(canvas, 20, y + row.size.cy / 2 - 12, row.name, kInk);
        skin.font.Draw(canvas, 20, y + row.size.cy / 2 + 2, row.detail, kFaintInk);
        int centre = 166;
        for (const Sampler &sampler : samplers) {
            const RECT dest = Box(centre - row.size.cx / 2, y, row.size.cx, row.size.cy);
            FillChecker(canvas, dest, 8);
            DrawInto(canvas, dest, row.source, sampler.mode);
            centre += 156;
        }
        y += row.size.cy + 20;
    }
    return canvas;
}

}  // namespace lacquer::examples
