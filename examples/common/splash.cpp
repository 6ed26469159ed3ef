// Painting the splash.
#include "common/splash.h"

#include "common/vector.h"

namespace lacquer::examples {

namespace {

constexpr int kRoom = 24;      // around everything, for the shadow
constexpr int kSealSize = 88;  // a disc above the middle of the splash
constexpr int kRise = 66;      // how far it stands out

RECT SealOf(SIZE size, Scale px) { return Box((size.cx - px(kSealSize)) / 2, px(kRoom), px(kSealSize), px(kSealSize)); }

void DrawSeal(const Canvas &canvas, const RECT &seal, Scale px) {
    const ScopedState keep(canvas);
    const float radius = static_cast<float>(seal.right - seal.left) / 2;
    const float x = static_cast<float>(seal.left) + radius;
    const float y = static_cast<float>(seal.top) + radius;
    const auto edge = static_cast<float>(px(2));
    FillWith(canvas, MakeLinearGradient({x, y - radius}, {x, y + radius}, {{0, 0xFFFFFDF8}, {1, 0xFFF0E2D0}}));
    Check(DrawCircle(canvas, x, y, radius), "DrawCircle");
    StrokeWith(canvas, 0xFF5A0C10, edge);
    Check(DrawCircle(canvas, x, y, radius - edge / 2), "DrawCircle");
}

/// The shadow of a layer's visible pixels, whatever their shape.
Canvas ShadowOfLayer(const Canvas &layer, SIZE size, Scale px) {
    const RECT whole = Box(0, 0, size.cx, size.cy);
    Canvas shadow = MakeCanvas(size.cx, size.cy);
    DrawLayer(shadow, 0, 0, layer);
    Check(FillSolidRectEx(shadow, 0xFF000000, &whole, LACQUER_DRAW_MODULATE << 24), "FillSolidRectEx");
    // Blurs add up by the squares of their widths.
    const int passes = px(px(9));
    const Canvas scratch = MakeCanvas(size.cx, size.cy);
    for (int i = 0; i < passes; ++i) Check(GaussianBlurCanvas(shadow, nullptr, scratch, nullptr), "GaussianBlurCanvas");
    return shadow;
}

}  // namespace

Canvas MakeSplash(const Skin &skin, Scale px) {
    const SIZE size = px(SizeOf(skin.splash));
    const float f = px.factor();
    Canvas canvas = MakeCanvas(size.cx, size.cy);
    DrawInto(canvas, Box(0, 0, size.cx, size.cy), skin.splash);
    const Typeface title(Family::kSerif, 40 * f, VEL_FONT_BOLD);
    const Typeface line(Family::kSans, 12 * f);
    const float centre = static_cast<float>(size.cx) / 2;
    title.DrawCentred(canvas, centre, 64 * f, "Lacquer", 0xB0400008);
    {
        const ScopedState keep(canvas);
        const Gradient shine = MakeLinearGradient(
            {0, 32 * f}, {0, 64 * f}, {{0, 0xFFFFFFFF}, {0.5f, 0xFFFFF4EC}, {0.5f, 0xFFFFD8C8}, {1, 0xFFFFECE0}});
        FillWith(canvas, shine);
        title.Draw(canvas, title.Lay(centre - title.Width("Lacquer") / 2, 62 * f, "Lacquer"));
    }
    line.DrawCentred(canvas, centre, 84 * f, "paints windows, pixel by pixel", 0xFFFFE0C8);
    return canvas;
}

SplashPicture::SplashPicture(const Skin &skin, Scale px) : px_(px) {
    const SIZE bare = px(SizeOf(skin.splash));
    size_ = {bare.cx + 2 * px(kRoom), bare.cy + px(2 * kRoom + kRise)};
    const Canvas splash = MakeCanvas(size_.cx, size_.cy);
    DrawLayer(splash, px(kRoom), px(kRoom + kRise), MakeSplash(skin, px));
    DrawSeal(splash, SealOf(size_, px), px);
    Canvas picture = MakeCanvas(size_.cx, size_.cy);
    DrawLayer(picture, 0, px(5), ShadowOfLayer(splash, size_, px), 200);
    DrawLayer(picture, 0, 0, splash);
    // Other canvases lose their alpha on the way.
    picture.SetDrawMode(LACQUER_DRAW_OVER);
    still_ = Need(Texture::From(std::move(picture)), "CanvasToTexture");
    SetDrawMode(still_, LACQUER_DRAW_COPY);
}

void SplashPicture::Paint(const Canvas &canvas, const Lottie &animation, float frame) const {
    DrawAt(canvas, 0, 0, still_);
    if (!animation) return;
    const RECT film = Inset(SealOf(size_, px_), px_(9));
    const auto side = static_cast<float>(film.right - film.left);
    Check(DrawLottie(canvas, animation, frame, static_cast<float>(film.left), static_cast<float>(film.top), side, side),
          "DrawLottie");
}

}  // namespace lacquer::examples
