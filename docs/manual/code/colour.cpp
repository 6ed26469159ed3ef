// Tinting, the wrong way and the right way; blurs of several strengths; a glow.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <utility>

namespace {

bool Tinting() {
    lq::Canvas canvas = lq::Canvas::Create(272, 80);
    canvas.Fill({0, 0, 272, 80}, 0xFFF4EEDD);
    const lq::Texture icon = lq::LoadTexture("icon.png");
    canvas.Draw(icon, {8, 8, 72, 72});

    // [wrong]
    lq::Texture wrong = lq::LoadTexture("icon.png");
    ColorizeTexture(wrong, 0.5f, 0, 0.4f);  // counts the channels as straight, but they are premultiplied
    // [/wrong]
    canvas.Draw(wrong, {104, 8, 168, 72});

    // [right]
    lq::Texture right = lq::LoadTexture("icon.png");
    lq::Tint(right, 0.5f, 0, 0.4f);  // straightens, colorizes and premultiplies again
    // [/right]
    canvas.Draw(right, {200, 8, 264, 72});
    return lq::SavePng(canvas, "tinting.png");
}

bool Blurs() {
    lq::Canvas page = lq::Canvas::Create(592, 136);
    page.Fill({0, 0, 592, 136}, 0xFFF4EEDD);
    const lq::Texture photo = lq::LoadTexture("photo.png");
    int x = 8;
    for (const float deviation : {3.0f, 6.0f, 16.0f}) {
        lq::Canvas canvas = lq::Canvas::Create(192, 120);
        canvas.Draw(photo, {0, 0, 192, 120});
        // [blur]
        if (!lq::Blur(canvas, deviation)) return false;
        // [/blur]
        page.Blend({x, 8, x + 184, 128}, canvas, {4, 0, 188, 120});
        x += 196;
    }
    return lq::SavePng(page, "blur.png");
}

bool Glow() {
    lq::Canvas canvas = lq::Canvas::Create(208, 112);
    canvas.Fill({0, 0, 208, 112}, 0xFF39415A);
    const lq::Texture icon = lq::LoadTexture("icon.png");
    canvas.Draw(icon, {24, 24, 88, 88});

    // [glow]
    lq::Canvas room = lq::Canvas::Create(80, 80);  // a halo needs room around the picture
    room.SetDrawMode(LACQUER_DRAW_OVER);           // keeps its alpha when it becomes a texture
    room.Draw(icon, {8, 8, 72, 72});
    lq::Texture halo = lq::Texture::From(std::move(room));
    LightTexture(halo);  // a soft white halo in the shape of the alpha
    halo.SetDrawMode(LACQUER_DRAW_OVER);
    canvas.Draw(halo, {112, 16, 192, 96});
    canvas.Draw(icon, {120, 24, 184, 88});
    // [/glow]
    return lq::SavePng(canvas, "glow.png");
}

}  // namespace

int main() { return Tinting() && Blurs() && Glow() ? 0 : 1; }
