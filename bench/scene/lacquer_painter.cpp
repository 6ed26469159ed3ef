// The scene's verbs by Lacquer, on a canvas in process memory.
#include <cstring>
#include <lacquer/lacquer.hpp>
#include <stdexcept>

#include "scene_painter.h"

namespace lacquer::bench {

namespace {

RECT RectOf(const Place &place) { return {place.x, place.y, place.x + place.width, place.y + place.height}; }

lq::Texture MakeTexture(const PieceOfSkin &piece) {
    lq::Texture texture = lq::Texture::Create(static_cast<DWORD>(piece.width), static_cast<DWORD>(piece.height));
    const auto pixels = lq::Lock(texture);
    if (!pixels) throw std::runtime_error("can't make a texture");
    const SurfaceView &view = pixels.View();
    for (int y = 0; y < piece.height; ++y) {
        std::memcpy(static_cast<BYTE *>(view.bits) + std::ptrdiff_t{y} * view.stride,
                    &piece.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(piece.width)],
                    static_cast<std::size_t>(piece.width) * sizeof(std::uint32_t));
    }
    texture.SetDrawMode(piece.isOpaque ? LACQUER_DRAW_COPY : LACQUER_DRAW_OVER);
    return texture;
}

class LacquerPainter final : public ScenePainter {
public:
    LacquerPainter(int width, int height, Pictures pictures)
        : canvas_(lq::Canvas::Create(static_cast<DWORD>(width), static_cast<DWORD>(height))) {
        for (const PieceOfSkin &picture : pictures) {
            const auto &[left, top, right, bottom] = picture.margins;
            pieces_.push_back({MakeTexture(picture), {picture.width, picture.height}, {left, top, right, bottom}});
        }
    }

    const char *Name() const override { return "lacquer"; }

    void Fill(const Place &place, std::uint32_t colour) override {
        const RECT rect = RectOf(place);
        FillSolidRectEx(canvas_, colour, &rect, DWORD{LACQUER_DRAW_COPY} << 24);
    }
    void Blend(const Place &place, std::uint32_t colour) override {
        const RECT rect = RectOf(place);
        FillSolidRect(canvas_, colour, &rect);
    }
    void Picture(Piece piece, const Place &place) override { Stretch(piece, place); }
    void Stretch(Piece piece, const Place &place) override {
        const RECT rect = RectOf(place);
        DrawTexture(canvas_, &rect, Of(piece).texture, LACQUER_BILINEAR);
    }
    void NineGrid(Piece piece, const Place &place, int scale) override {
        constexpr DWORD kAll = LACQUER_SCALE_LEFT | LACQUER_SCALE_TOP | LACQUER_SCALE_RIGHT | LACQUER_SCALE_BOTTOM;
        const RECT rect = RectOf(place);
        const TexturePiece &grid = Of(piece);
        DrawTexture9Grid(canvas_, &rect, grid.texture, nullptr, &grid.margins, LACQUER_BILINEAR, 0, 255, kAll,
                         static_cast<float>(scale), 0);
    }
    void Tile(Piece piece, const Place &place) override {
        // Whole cells, cut by the clip: a cell that the rectangle cuts would stay cut in the rows that follow.
        const TexturePiece &tile = Of(piece);
        const auto whole = [](int length, int cell) { return (length + cell - 1) / cell * cell; };
        const RECT rect =
            RectOf({place.x, place.y, whole(place.width, tile.size.cx), whole(place.height, tile.size.cy)});
        const lq::ScopedClip clip(canvas_, RectOf(place));
        DrawTextureTile(canvas_, &rect, tile.texture, nullptr, LACQUER_BILINEAR, 255, 0, 1);
    }

    std::vector<std::uint32_t> Pixels() const override {
        const auto locked = lq::Lock(canvas_);
        const SurfaceView &view = locked.View();
        std::vector<std::uint32_t> pixels;
        AppendRows(pixels, view.bits, view.stride, view.width, view.height);
        return pixels;
    }

private:
    struct TexturePiece {
        lq::Texture texture;
        SIZE size;
        RECT margins;
    };
    const TexturePiece &Of(Piece piece) const { return pieces_[static_cast<std::size_t>(piece)]; }

    lq::Canvas canvas_;
    std::vector<TexturePiece> pieces_;
};

}  // namespace

std::unique_ptr<ScenePainter> MakeLacquerPainter(int width, int height, Pictures pictures) {
    return std::make_unique<LacquerPainter>(width, height, pictures);
}

}  // namespace lacquer::bench
