// filters.png: each filter before and after, on an opaque picture and on pieces with alpha or a palette.
#include <array>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

void Apply(const Texture &texture, int (*filter)(HGTEXTURE)) { Check(filter(texture), "a filter"); }

/// A texture of the pixels that `paint` leaves on a clear canvas.
Texture Painted(int width, int height, const std::function<void(const Canvas &)> &paint) {
    Canvas canvas = MakeCanvas(width, height);
    Check(SetCanvasFilter(canvas, LACQUER_DRAW_OVER << 24), "SetCanvasFilter");
    paint(canvas);
    Texture texture = Need(Texture::From(std::move(canvas)), "CanvasToTexture");
    SetDrawMode(texture, LACQUER_DRAW_OVER);
    return texture;
}

/// Straight pixels: one red everywhere, alpha falling from left to right.
Texture MakeStraightRamp() {
    Texture ramp = Need(Texture::Create(64, 64), "CreateTexture");
    SetDrawMode(ramp, LACQUER_DRAW_OVER);
    const auto pixels = Locked(ramp);
    for (int y = 0; y < 64; ++y)
        for (DWORD x = 0; x < 64; ++x) pixels.Row(y)[x] = (255 - x * 4) << 24 | 0xD02838;
    return ramp;
}

/// Both blurs need a second texture of the same size.
Texture BlankLike(const Texture &texture) {
    const SIZE size = SizeOf(texture);
    return Need(Texture::Create(static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy)), "CreateTexture");
}

void Blur(const Texture &texture) {
    const Texture other = BlankLike(texture);
    for (int i = 0; i < 2; ++i) {
        Check(BlurTexture(other, texture), "BlurTexture");
        Check(BlurTexture(texture, other), "BlurTexture");
    }
}

}  // namespace

Canvas PaintFilters(const Skin &skin) {
    struct Entry {
        std::string_view name, detail;
        void (*apply)(const Texture &);
        const Texture &first, &second;
        bool isOnDark = false;
    };
    const Texture photo = Painted(
        96, 64, [&](const Canvas &canvas) { DrawInto(canvas, Box(0, 0, 96, 64), skin.photo, LACQUER_BICUBIC); });
    const Texture icon = CopyOf(skin.icon);
    const Texture knob = CopyOf(skin.knob);
    const Texture ramp = MakeStraightRamp();
    const Texture straight = Straightened(skin.icon);
    const Texture sign =
        Painted(96, 64, [&](const Canvas &canvas) { skin.font.DrawCentred(canvas, 48, 22, "Glow", 0xFFC02028, 3); });
    const Texture clear = Painted(96, 64, [&](const Canvas &canvas) {
        DrawInto(canvas, Box(0, 0, 96, 64), skin.vignette);
        const RECT whole = Box(0, 0, 96, 64);
        Check(FillSolidRectEx(canvas, 0xFFFF9030, &whole, LACQUER_DRAW_MODULATE << 24), "FillSolidRectEx");
    });
    const std::array<Entry, 10> entries{
        {{"grey", "(B + 2 G + R) / 4", [](const Texture &t) { Apply(t, GrayTexture); }, photo, knob},
         {"invert", "A - c", [](const Texture &t) { Apply(t, InvertTexture); }, photo, icon},
         {"blur", "3 x 3, four times", Blur, photo, icon},
         {"Gaussian blur", "once",
          [](const Texture &t) {
              const Texture scratch = BlankLike(t);
              Check(GaussianBlurTexture(t, scratch), "GaussianBlurTexture");
          },
          photo, icon},
         {"light", "a white halo", [](const Texture &t) { Apply(t, LightTexture); }, sign, icon, true},
         {"colorize", "a third of the circle",
          [](const Texture &t) { Check(ColorizeTexture(t, 2.0f / 3, 0, 0), "ColorizeTexture"); }, photo, knob},
         {"translate", "red to blue",
          [](const Texture &t) { Check(TranslateTexture(t, 0xFFD8232A, 0xFF2858C8), "TranslateTexture"); },
          skin.ladybird32, skin.ladybird8},
         {"normalize", "straight to premultiplied", [](const Texture &t) { Apply(t, NormalizeTexture); }, ramp,
          straight, true},
         {"shuffle 6", "brightness to alpha", [](const Texture &t) { Check(ShuffleTexture(t, 6), "ShuffleTexture"); },
          clear, icon},
         {"shuffle 1", "alpha to white", [](const Texture &t) { Check(ShuffleTexture(t, 1), "ShuffleTexture"); }, sign,
          icon}}};

    Canvas canvas = MakePage(skin, 1048, 486, "Filters", "Each before and after, in textures of 8, 24 and 32 bits");
    const auto draw = [&](int x, int y, const Texture &piece, bool isOnDark) {
        const SIZE size = SizeOf(piece);
        FillChecker(canvas, Box(x, y, size.cx, size.cy), 8);
        if (isOnDark) FillBox(canvas, Box(x, y, size.cx, size.cy), 0xFF14161C);
        DrawAt(canvas, x, y, piece);
    };
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry &entry = entries[i];
        const int x = 20 + static_cast<int>(i / 5) * 510;
        const int y = 82 + static_cast<int>(i % 5) * 80;
        skin.font.Draw(canvas, x, y + 20, entry.name, kInk);
        skin.font.Draw(canvas, x, y + 34, entry.detail, kFaintInk);
        int left = x + 138;
        for (const Texture *piece : {&entry.first, &entry.second}) {
            const Texture changed = CopyOf(*piece);
            entry.apply(changed);
            const int width = SizeOf(*piece).cx;
            draw(left, y, *piece, entry.isOnDark);
            draw(left + width + 4, y, changed, entry.isOnDark);
            left += 2 * width + 16;
        }
    }
    return canvas;
}

}  // namespace lacquer::examples
