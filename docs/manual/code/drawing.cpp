// Samplers, alpha, clip and origins.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

bool Samplers() {
    lq::Canvas canvas = lq::Canvas::Create(472, 112);
    canvas.Fill({0, 0, 472, 112}, 0xFFF4EEDD);
    lq::Texture sheet = lq::LoadTexture("check.png");
    // [samplers]
    const RECT box = {24, 0, 48, 24};
    sheet.SetSlices({&box, 1});
    int x = 8;
    for (const DWORD sampler : {LACQUER_NEAREST, LACQUER_BILINEAR, LACQUER_BICUBIC}) {
        canvas.Draw(sheet, {x, 8, x + 96, 104}, sampler);
        x += 104;
    }
    // [/samplers]

    // [area]
    lq::Canvas rings = lq::Canvas::Create(384, 384);
    rings.Fill({0, 0, 384, 384}, 0xFFFFFFFF);
    SetDrawStyle(rings, VEL_STYLE_STROKE);
    for (int radius = 5; radius < 190; radius += 5) DrawCircle(rings, 192, 192, static_cast<float>(radius));
    const lq::BitmapAlias picture = rings.AsBitmap();
    canvas.Draw(picture, {332, 26, 392, 86}, LACQUER_BILINEAR);  // reads 4 pixels for each, and skips the others
    canvas.Draw(picture, {404, 26, 464, 86}, LACQUER_AREA);      // reads them all
    // [/area]
    return lq::SavePng(canvas, "samplers.png");
}

bool ClipAndOrigin() {
    lq::Canvas canvas = lq::Canvas::Create(320, 96);
    canvas.Fill({0, 0, 320, 96}, 0xFFF4EEDD);
    const lq::Texture icon = lq::LoadTexture("icon.png");

    // [alpha]
    canvas.Draw(icon, {16, 16, 80, 80}, LACQUER_BILINEAR, 128);
    // [/alpha]

    // [clip]
    {
        const lq::ScopedClip clip(canvas, {112, 32, 160, 64});
        canvas.Fill({0, 0, 320, 96}, 0x40963232);  // only the clip is filled
        canvas.Draw(icon, {104, 16, 168, 80});     // only its middle shows
    }
    // [/clip]

    // [origin]
    for (int i = 0; i < 3; ++i) {
        const lq::ScopedOrigin origin(canvas, 184 + i * 44, 28);
        canvas.Fill({0, 0, 40, 40}, 0xFF39415A);
        canvas.Draw(icon, {4, 4, 36, 36});
    }
    // [/origin]
    return lq::SavePng(canvas, "clip_and_origin.png");
}

}  // namespace

int main() { return Samplers() && ClipAndOrigin() ? 0 : 1; }
