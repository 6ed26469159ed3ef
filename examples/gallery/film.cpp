// film.png: animations as strips of their frames, and one frame at several opacities, clipped, stretched and blended.
#include <array>

#include "films_json.h"
#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

constexpr int kSide = 88;
constexpr int kStep = kSide + 8;

void DrawFrame(const Canvas &canvas, const Lottie &animation, int frame, const RECT &rect) {
    if (!animation) return;  // in a build without an animation library
    Check(DrawLottie(canvas, animation, static_cast<float>(frame), static_cast<float>(rect.left),
                     static_cast<float>(rect.top), static_cast<float>(rect.right - rect.left),
                     static_cast<float>(rect.bottom - rect.top)),
          "DrawLottie");
}

/// A piece of film with its perforation, cut out by the even-odd rule.
void DrawFilm(const Canvas &canvas, int left, int top, int frames) {
    const ScopedState keep(canvas);
    const Path path = MakePath();
    const int width = frames * kStep + 8;
    Check(PathSetFillType(path, VEL_FILL_EVEN_ODD), "PathSetFillType");
    Check(PathAddRectangle(path, static_cast<float>(left), static_cast<float>(top), static_cast<float>(width),
                           kSide + 44),
          "PathAddRectangle");
    for (int x = left + 7; x + 10 < left + width; x += 16)
        for (const int y : {top + 6, top + kSide + 28})
            Check(PathAddRectangle(path, static_cast<float>(x), static_cast<float>(y), 9, 10), "PathAddRectangle");
    FillWith(canvas, 0xFF0C0D11);
    Check(DrawPath(canvas, path), "DrawPath");
}

void DrawStrip(const Canvas &canvas, const Skin &skin, const Lottie &animation, const std::array<int, 8> &frames,
               int left, int top) {
    DrawFilm(canvas, left, top, static_cast<int>(frames.size()));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const int x = left + 8 + static_cast<int>(i) * kStep;
        const RECT rect = Box(x, top + 22, kSide, kSide);
        FillGradient(canvas, rect, 0xFFFBF8F0, 0xFFDCE4EC);
        DrawFrame(canvas, animation, frames[i], rect);
        skin.font.DrawCentred(canvas, x + kSide / 2, top + kSide + 54, "frame " + std::to_string(frames[i]), kFaintInk);
    }
}

/// What layers can do to each other.
void DrawLayers(const Canvas &canvas, const Skin &skin, int left, int top) {
    struct Film {
        std::string_view json, name;
        std::array<int, 8> frames;
    };
    constexpr std::array<Film, 4> films{
        Film{kLanternJson, "mattes: by alpha, the opposite, and by brightness", {0, 8, 16, 24, 30, 38, 46, 54}},
        Film{kOrbitsJson, "compositions inside each other, at their own times", {0, 7, 14, 21, 28, 36, 44, 52}},
        Film{kSpringsJson, "easing beyond both ends", {2, 6, 10, 15, 20, 26, 33, 50}},
        Film{kShutterJson, "masks that add, cut out and intersect", {0, 8, 15, 22, 30, 38, 45, 52}}};
    for (const Film &film : films) {
        skin.font.Draw(canvas, left, top - 14, film.name, kInk);
        DrawStrip(canvas, skin, Lottie::FromData(film.json), film.frames, left, top);
        top += kSide + 92;
    }
}

/// What DrawLottie obeys: the opacity, the blend mode, the clip, and the rectangle that it stretches the frame to.
void DrawVariants(const Canvas &canvas, const Skin &skin, const Lottie &animation, int left, int top) {
    constexpr int height = 130;
    constexpr int frame = 28;
    const auto ground = [&](int x, int width, std::string_view name) {
        FillGradient(canvas, Box(x, top, width, height), 0xFF8FC6E8, 0xFFF0C890);
        skin.font.Draw(canvas, x, top - 14, name, kInk);
    };
    const ScopedState keep(canvas);
    constexpr std::array<DWORD, 3> opacities{255, 160, 64};
    for (std::size_t i = 0; i < opacities.size(); ++i) {
        const int x = left + static_cast<int>(i) * 110;
        ground(x, 104, "opacity " + std::to_string(opacities[i]));
        Check(SetBlendValue(canvas, opacities[i]), "SetBlendValue");
        DrawFrame(canvas, animation, frame, Box(x + 2, top + 15, 100, 100));
    }
    Check(SetBlendValue(canvas, 255), "SetBlendValue");
    ground(left + 330, 104, "multiply");
    Check(SetBlendMode(canvas, VEL_BLEND_MULTIPLY), "SetBlendMode");
    DrawFrame(canvas, animation, frame, Box(left + 332, top + 15, 100, 100));
    Check(SetBlendMode(canvas, VEL_BLEND_SOURCE_OVER), "SetBlendMode");
    ground(left + 440, 104, "clipped");
    {
        const ScopedClip clip(canvas, Box(left + 448, top + 8, 88, 60));
        DrawFrame(canvas, animation, frame, Box(left + 410, top - 40, 170, 170));
    }
    OutlineBox(canvas, Box(left + 447, top + 7, 90, 62), 0xFF3B4252);
    ground(left + 550, 60, "stretched");
    DrawFrame(canvas, animation, frame, Box(left + 556, top + 4, 48, 122));
    ground(left + 616, 160, "");
    DrawFrame(canvas, animation, frame, Box(left + 620, top + 36, 152, 58));
}

}  // namespace

Canvas PaintFilm(const Skin &skin) {
    const Lottie animation = Lottie::FromData(kDropJson);
    Canvas canvas = MakePage(skin, 816, 1142, "Film",
                             animation ? "Frames of an animation, drawn with DrawLottie"
                                       : "Empty: this build has no animation library, so DrawLottie draws nothing");
    DrawStrip(canvas, skin, animation, {0, 11, 17, 21, 25, 30, 38, 56}, 20, 72);
    DrawVariants(canvas, skin, animation, 20, 258);
    DrawLayers(canvas, skin, 20, 424);
    return canvas;
}

}  // namespace lacquer::examples
