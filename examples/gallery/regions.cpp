// regions.png: the shapes that textures would give to windows. Each piece is beside its region, whose rectangles are
// painted in turns of colour.
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <array>
#include <vector>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

/// The rectangles of the region of a texture's visible pixels.
std::vector<RECT> ShapeOf(const Texture &texture) {
    const HRGN region = CreateTextureRgn(texture, nullptr);
    if (region == nullptr) throw std::runtime_error("CreateTextureRgn failed");
    const DWORD size = GetRegionData(region, 0, nullptr);
    std::vector<RECT> rects((size + sizeof(RECT) - 1) / sizeof(RECT));
    auto *data = reinterpret_cast<RGNDATA *>(rects.data());
    const DWORD written = GetRegionData(region, size, data);
    DeleteObject(region);
    if (written != size) throw std::runtime_error("GetRegionData failed");
    // The header is as long as two rectangles.
    static_assert(sizeof(RGNDATAHEADER) == 2 * sizeof(RECT));
    const DWORD count = data->rdh.nCount;
    rects.erase(rects.begin(), rects.begin() + 2);
    rects.resize(count);
    return rects;
}

}  // namespace

Canvas PaintRegions(const Skin &skin) {
    Canvas canvas = MakePage(skin, 752, 436, "Regions", "The rectangles of the region of a texture's visible pixels");
    const auto draw = [&](int x, int y, std::string_view name, const Texture &source, int scale) {
        const Texture piece = CopyOf(source);
        const SIZE size = SizeOf(piece);
        const int width = size.cx * scale;
        FillChecker(canvas, Box(x, y, width, size.cy * scale), 8);
        DrawInto(canvas, Box(x, y, width, size.cy * scale), piece, LACQUER_NEAREST);
        const std::vector<RECT> rects = ShapeOf(piece);
        constexpr std::array<DWORD, 3> colours{0xFFE2B04A, 0xFFD2703A, 0xFFB43A3A};
        const int left = x + width + 8;
        FillBox(canvas, Box(left, y, width, size.cy * scale), 0x30FFFFFF);
        for (std::size_t i = 0; i < rects.size(); ++i) {
            const RECT &r = rects[i];
            FillBox(canvas, {left + r.left * scale, y + r.top * scale, left + r.right * scale, y + r.bottom * scale},
                    colours[i % colours.size()]);
        }
        skin.font.Draw(canvas, x, y - 14, name, kInk);
        skin.font.Draw(canvas, left, y - 14,
                       std::to_string(rects.size()) + (rects.size() == 1 ? " rectangle" : " rectangles"), kFaintInk);
    };
    draw(20, 86, "splash, 32 bit", skin.splash, 1);
    Texture sprite = MakeTexture([&] {
        // Premultiplied, the sprite's clear pixels are 0.
        Image image{.width = 64, .height = 64, .bitsPerPixel = 32, .pixels = {}, .palette = {}};
        const auto pixels = Locked(skin.ladybird32);
        for (int y = 0; y < 64; ++y) {
            const auto *bytes = reinterpret_cast<const BYTE *>(pixels.Row(y).data());
            image.pixels.insert(image.pixels.end(), bytes, bytes + 256);
        }
        Premultiply(image);
        return image;
    }());
    SetDrawMode(sprite, LACQUER_DRAW_OVER);
    draw(20, 288, "ladybird, 32 bit", sprite, 2);
    draw(308, 288, "knob, 8 bit", skin.knob, 2);
    draw(596, 86, "drop", skin.icon, 1);
    draw(596, 187, "frame", skin.frame, 1);
    draw(596, 288, "a copy", skin.wood, 1);
    return canvas;
}

}  // namespace lacquer::examples
