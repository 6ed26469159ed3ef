// The same picture as first_picture.c, through the C++ header.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

int main() {
    lq::Canvas canvas = lq::Canvas::Create(160, 96);
    lq::Texture disc = lq::Texture::Create(64, 64);
    canvas.Fill({0, 0, 160, 96}, 0xFFF4EEDD);

    if (auto pixels = lq::Lock(disc)) {
        for (LONG y = 0; y < pixels.Height(); ++y) {
            int x = 0;
            for (DWORD &pixel : pixels.Row(y)) {
                const bool inside = (x - 32) * (x - 32) + (y - 32) * (y - 32) < 31 * 31;
                pixel = inside ? 0xC0961E1E : 0;  // 0xAARRGGBB, the colours premultiplied by alpha
                ++x;
            }
        }
    }

    disc.SetDrawMode(LACQUER_DRAW_OVER);
    canvas.Draw(disc, {48, 16, 112, 80});
    return lq::SavePng(canvas, "first_picture.png") ? 0 : 1;
}
