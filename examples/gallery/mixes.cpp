// mixes.png: one canvas mixed into another or blended onto it, and a canvas mixed with a colour.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr SIZE kSize{120, 75};

Canvas MakePicture(const Skin &skin) {
    Canvas canvas = MakeCanvas(kSize.cx, kSize.cy);
    DrawInto(canvas, Box(0, 0, kSize.cx, kSize.cy), skin.photo, LACQUER_BILINEAR);
    return canvas;
}

Canvas MakeBoard(const Skin &skin) {
    Canvas canvas = MakeCanvas(kSize.cx, kSize.cy);
    DrawInto(canvas, Box(0, 0, 128, 128), skin.wood);
    DrawAt(canvas, 28, 6, skin.ladybird32);
    return canvas;
}

/// A canvas with clear parts: sprites on nothing.
Canvas MakeSprites(const Skin &skin) {
    Canvas canvas = MakeCanvas(kSize.cx, kSize.cy);
    DrawAt(canvas, 2, 6, skin.icon);
    DrawAt(canvas, 54, 6, skin.knob);
    return canvas;
}

/// c * (value + 1) / 256 for each channel c: a colour that carries its weight.
DWORD Weighted(DWORD colour, unsigned value) {
    DWORD result = 0;
    for (int shift = 0; shift < 32; shift += 8) result |= ((colour >> shift & 255) * (value + 1) >> 8) << shift;
    return result;
}

}  // namespace

Canvas PaintMixes(const Skin &skin) {
    const Canvas board = MakeBoard(skin);
    const Canvas sprites = MakeSprites(skin);
    const Canvas layer = MakeSprites(skin);
    Check(SetCanvasFilter(layer, LACQUER_DRAW_OVER << 24), "SetCanvasFilter");
    const RECT whole = Box(0, 0, kSize.cx, kSize.cy);
    const RECT middle = Box(20, 12, 80, 50);
    const RECT part = Box(40, 6, 40, 25);

    struct Row {
        std::string_view name, detail;
        void (*mix)(const Canvas &, const Canvas &, const RECT *, const RECT *, unsigned);
        const Canvas &source;
        const RECT *dest;
        const RECT *from;
    };
    const auto mix = [](const Canvas &canvas, const Canvas &source, const RECT *dest, const RECT *from,
                        unsigned value) {
        Check(MixCanvas(canvas, dest, source, from, static_cast<BYTE>(value)), "MixCanvas");
    };
    const auto blend = [](const Canvas &canvas, const Canvas &source, const RECT *dest, const RECT *from,
                          unsigned value) {
        Check(BlendCanvas(canvas, dest, source, from, static_cast<BYTE>(value)), "BlendCanvas");
    };
    const auto colour = [](const Canvas &canvas, const Canvas &, const RECT *dest, const RECT *, unsigned value) {
        Check(MixCanvasWithColor(canvas, dest, Weighted(0xFFFFB060, value), value), "MixCanvasWithColor");
    };
    const std::array<Row, 6> rows{{{"mix", "all four channels", mix, board, &whole, &whole},
                                   {"mix", "with clear parts", mix, sprites, &whole, &whole},
                                   {"mix", "stretched, in a part", mix, board, &middle, &part},
                                   {"mix with colour", "FFFFB060", colour, board, &middle, nullptr},
                                   {"blend", "an opaque source", blend, board, &middle, &middle},
                                   {"blend", "drawn over, at any alpha", blend, layer, &whole, &whole}}};
    constexpr std::array<unsigned, 5> values{0, 64, 128, 192, 255};

    Canvas canvas = MakePage(skin, 828, 600, "Mixes and blends", "A canvas put on another with a value from 0 to 255");
    for (std::size_t line = 0; line < rows.size(); ++line) {
        const Row &row = rows[line];
        const int y = 86 + static_cast<int>(line) * (kSize.cy + 9);
        skin.font.Draw(canvas, 20, y + 26, row.name, kInk);
        skin.font.Draw(canvas, 20, y + 40, row.detail, kFaintInk);
        for (std::size_t column = 0; column < values.size(); ++column) {
            const int x = 162 + static_cast<int>(column) * (kSize.cx + 10);
            if (line == 0) skin.font.DrawCentred(canvas, x + kSize.cx / 2, 68, std::to_string(values[column]), kInk);
            const Canvas mixed = MakePicture(skin);
            row.mix(mixed, row.source, row.dest, row.from, values[column]);
            FillChecker(canvas, Box(x, y, kSize.cx, kSize.cy), 6);
            DrawLayer(canvas, x, y, mixed);
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
