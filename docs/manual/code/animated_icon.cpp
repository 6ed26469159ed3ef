// An icon that moves: the frames of an animation, each drawn once and kept as a texture.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <utility>
#include <vector>

namespace {

class AnimatedIcon {
public:
    AnimatedIcon(const char *path, int iconSide) : animation(lq::Lottie::FromFile(path)), side(iconSide) {
        if (const auto info = animation.Info()) frames.resize(static_cast<size_t>(info->frameCount));
    }

    // False when the file can't be read.
    explicit operator bool() const { return !frames.empty(); }

    // Draws what the icon shows `seconds` after its beginning; it plays again and again.
    void Draw(lq::Canvas &canvas, int x, int y, double seconds) {
        const auto index = static_cast<size_t>(animation.FrameAt(seconds));
        if (index >= frames.size()) return;
        lq::Texture &frame = frames[index];
        if (!frame) {
            lq::Canvas page = lq::Canvas::Create(static_cast<DWORD>(side), static_cast<DWORD>(side));
            const auto size = static_cast<float>(side);
            DrawLottie(page, animation, static_cast<float>(index), 0, 0, size, size);
            page.SetDrawMode(LACQUER_DRAW_OVER);  // keeps its alpha as a texture, which is drawn over
            frame = lq::Texture::From(std::move(page));
        }
        canvas.Draw(frame, {x, y, x + side, y + side});
    }

private:
    lq::Lottie animation;
    int side;
    std::vector<lq::Texture> frames;
};

}  // namespace

int main() {
    AnimatedIcon icon("drop.json", 64);
    if (!icon) return 1;
    lq::Canvas canvas = lq::Canvas::Create(432, 80);
    canvas.Fill({0, 0, 432, 80}, 0xFFF4EEDD);
    for (int i = 0; i < 6; ++i) icon.Draw(canvas, 8 + i * 72, 8, i * 0.25);
    return lq::SavePng(canvas, "animated_icon.png") ? 0 : 1;
}
