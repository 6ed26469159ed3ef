// lettering.png: colours painted through a mask. The three thirds of a pixel have coverages of their own, so that a
// screen with striped pixels shows finer edges; beside it the same mask with one coverage for all three.
#include <algorithm>
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kMaskWidth = 232;

/// The rows of the mask, by the height of their capitals.
constexpr RECT RowOf(int index) {
    constexpr std::array<int, 6> tops{0, 15, 35, 61, 99, 161};
    return {0, tops[static_cast<std::size_t>(index)], kMaskWidth, tops[static_cast<std::size_t>(index) + 1]};
}

/// A copy with the middle third's coverage in all channels.
Bitmap WithOneCoverage(const Bitmap &mask) {
    SIZE size{};
    Check(GetBitmapSize(mask, &size), "GetBitmapSize");
    Bitmap copy = Need(Bitmap::Create(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy)), "CreateMemBitmap");
    const auto from = Locked(mask);
    const auto to = Locked(copy);
    for (int y = 0; y < size.cy; ++y) {
        std::ranges::transform(from.Row(y), to.Row(y).begin(),
                               [](DWORD word) { return (word >> 8 & 255) * 0x01010101; });
    }
    return copy;
}

void DrawWord(const Canvas &canvas, int x, int y, const Bitmap &mask, int row, DWORD colour) {
    const RECT source = RowOf(row);
    Check(DrawModulation(canvas, x, y, mask, &source, colour), "DrawModulation");
}

}  // namespace

Canvas PaintLettering(const Skin &skin) {
    Canvas canvas = MakePage(skin, 816, 560, "Lettering", "Colours painted through a mask with DrawModulation");
    const Bitmap grey = WithOneCoverage(skin.lettering);

    struct Ground {
        std::string_view name;
        DWORD back, ink;
    };
    constexpr std::array<Ground, 3> grounds{{{"dark on light", 0xFFFAF8F2, 0xFF1A1C22},
                                             {"light on dark", 0xFF12202E, 0xFFFFE8C0},
                                             {"red on blue", 0xFFA8C8E8, 0xFFB01820}}};
    for (int i = 0; i < 3; ++i) {
        const Ground &ground = grounds[static_cast<std::size_t>(i)];
        const int x = 20 + i * 262;
        skin.font.Draw(canvas, x, 66, ground.name, kInk);
        FillBox(canvas, Box(x, 80, 252, 172), ground.back);
        for (int row = 0; row < 5; ++row)
            DrawWord(canvas, x + 10, 84 + RowOf(row).top, skin.lettering, row, ground.ink);
    }

    // The same word enlarged: with three coverages, and with one.
    const Bitmap *const masks[] = {&skin.lettering, &grey};
    constexpr std::array<std::string_view, 2> names{"three coverages", "one coverage"};
    for (int i = 0; i < 2; ++i) {
        const int x = 20 + i * 262;
        skin.font.Draw(canvas, x, 268, names[static_cast<std::size_t>(i)], kInk);
        Canvas small = MakeCanvas(63, 17);
        FillBox(small, Box(0, 0, 63, 17), 0xFFFAF8F2);
        DrawWord(small, 0, 0, *masks[i], 1, 0xFF1A1C22);
        const Texture word = Need(Texture::From(std::move(small)), "CanvasToTexture");
        DrawInto(canvas, Box(x, 282, 252, 68), word, LACQUER_NEAREST);
    }
    skin.font.Draw(canvas, 544, 268, "at a place of its own, cut by the clip", kInk);
    FillBox(canvas, Box(544, 282, 252, 68), 0xFFFAF8F2);
    {
        const ScopedClip clip(canvas, Box(544, 282, 252, 68));
        for (int i = 0; i < 7; ++i) DrawWord(canvas, 530 + i * 40, 276 + i * 12, skin.lettering, i % 3, 0xFF1A1C22);
    }

    skin.font.Draw(canvas, 20, 366, "opaque, and translucent at 3/4, 1/2 and 1/4, on a picture", kInk);
    const RECT picture = Box(20, 380, 776, 160);
    DrawInto(canvas, picture, skin.photo, LACQUER_BILINEAR);
    // A translucent colour is premultiplied.
    constexpr std::array<DWORD, 4> inks{0xFFFFFFFF, 0xC0C0C0C0, 0x80808080, 0x40404040};
    for (int i = 0; i < 4; ++i) {
        const int x = 44 + i % 2 * 388;
        const int y = 392 + i / 2 * 72;
        DrawWord(canvas, x + 2, y + 2, skin.lettering, 4, 0x60000000);
        DrawWord(canvas, x, y, skin.lettering, 4, inks[static_cast<std::size_t>(i)]);
    }
    return canvas;
}

}  // namespace lacquer::examples
