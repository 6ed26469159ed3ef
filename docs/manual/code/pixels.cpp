// What pixels are: how to reach them, why they are premultiplied, and what a depth means.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <algorithm>
#include <cmath>

namespace {

// A white disc of 24 pixels with a soft edge of 8, as a paint program leaves it: the colour is white everywhere, only
// alpha changes.
lq::Texture SoftDisc() {
    lq::Texture disc = lq::Texture::Create(48, 48);
    // [lock]
    if (auto pixels = lq::Lock(disc)) {
        for (LONG y = 0; y < pixels.Height(); ++y) {
            float x = 0;
            for (DWORD &pixel : pixels.Row(y)) {
                const float dx = x - 23.5f, dy = static_cast<float>(y) - 23.5f;
                const float cover = (24.0f - std::sqrt(dx * dx + dy * dy)) / 8.0f;
                const auto alpha = static_cast<DWORD>(255.0f * std::clamp(cover, 0.0f, 1.0f));
                pixel = alpha << 24 | 0xFFFFFF;  // straight: the colour does not know of alpha
                ++x;
            }
        }
    }
    // [/lock]
    return disc;
}

// A sprite of 8 bits per pixel: four rows of an index each, and a palette that says what the indices look like.
// [palette]
lq::Texture Flag() {
    lq::Texture flag = lq::Texture::Create(64, 48, 8, 3);
    const auto pixels = lq::Lock(flag);
    if (!pixels) return {};
    const lq::Span<DWORD> palette = pixels.Palette();
    palette[0] = 0xFF963232;
    palette[1] = 0xFFF4EEDD;
    palette[2] = 0xFF63C7A0;
    for (LONG y = 0; y < pixels.Height(); ++y) {
        for (BYTE &index : pixels.Row<BYTE>(y)) index = static_cast<BYTE>(y / 16);
    }
    return flag;
}
// [/palette]

}  // namespace

int main() {
    lq::Canvas canvas = lq::Canvas::Create(288, 96);
    canvas.Fill({0, 0, 288, 96}, 0xFF39415A);

    lq::Texture wrong = SoftDisc();
    wrong.SetDrawMode(LACQUER_DRAW_OVER);
    canvas.Draw(wrong, {24, 24, 72, 72});

    // [premultiply]
    lq::Texture right = SoftDisc();
    NormalizeTexture(right);
    right.SetDrawMode(LACQUER_DRAW_OVER);
    canvas.Draw(right, {120, 24, 168, 72});
    // [/premultiply]

    canvas.Draw(Flag(), {208, 24, 272, 72});
    return lq::SavePng(canvas, "pixels.png") ? 0 : 1;
}
