// Reading the skin's files, and cutting the states of a button and the like out of them.
#include "pieces.h"

#include <algorithm>
#include <lacquer/image.hpp>
#include <stdexcept>
#include <string>

namespace lacquer::bench {

namespace {

struct Description {
    const char *name, *file;
    RECT part;  // of the file; empty for all of it
    Margins margins = {};
};

constexpr Description kDescriptions[] = {
    {"frame", "frame", {}, {10, 36, 10, 10}},
    {"shadow", "shadow", {}, {30, 32, 30, 28}},
    {"panel", "popup", {}, {7, 7, 7, 7}},
    {"field", "field", {}, {6, 8, 6, 6}},
    {"card", "card", {}, {24, 24, 24, 24}},
    {"button", "button", {0, 0, 104, 44}, {18, 18, 18, 18}},
    {"hot button", "button", {0, 44, 104, 88}, {18, 18, 18, 18}},
    {"bar", "progress", {0, 0, 24, 18}, {8, 8, 8, 8}},
    {"filled bar", "progress", {24, 0, 48, 18}, {8, 8, 8, 8}},
    {"track", "scroll", {0, 0, 14, 24}, {6, 8, 6, 8}},
    {"thumb", "scroll", {14, 0, 28, 24}, {6, 8, 6, 8}},
    {"minimise", "caption", {0, 0, 28, 20}},
    {"close", "caption", {0, 20, 28, 40}},
    {"check", "check", {0, 0, 24, 24}},
    {"icon", "icon", {}},
    {"knob", "knob", {}},
    {"splash", "splash", {}},
    {"photo", "photo", {}},
    {"wood", "wood", {}},
    {"stripes", "stripes", {}},
};
static_assert(std::size(kDescriptions) == kPieceCount);

PieceOfSkin Load(const Description &description) {
    const std::string path = std::string(LACQUER_BENCH_ASSETS) + "/" + description.file + ".png";
    const lq::Bitmap bitmap = lq::LoadBitmapOf(path.c_str());
    const RECT &part = description.part;
    const auto pixels = lq::Lock(bitmap, part.right > 0 ? &part : nullptr);
    if (!pixels || pixels.BitsPerPixel() != 32) throw std::runtime_error("can't read " + path);
    const SurfaceView &view = pixels.View();
    PieceOfSkin piece{description.name, view.width, view.height, description.margins, true, {}};
    AppendRows(piece.pixels, view.bits, view.stride, view.width, view.height);
    piece.isOpaque = std::ranges::all_of(piece.pixels, [](std::uint32_t word) { return word >> 24 == 255; });
    return piece;
}

}  // namespace

void AppendRows(std::vector<std::uint32_t> &pixels, const void *bits, std::ptrdiff_t stride, int width, int height) {
    for (int y = 0; y < height; ++y) {
        const auto *row =
            reinterpret_cast<const std::uint32_t *>(static_cast<const unsigned char *>(bits) + y * stride);
        pixels.insert(pixels.end(), row, row + width);
    }
}

std::vector<PieceOfSkin> LoadPieces() {
    std::vector<PieceOfSkin> pieces;
    for (const Description &description : kDescriptions) pieces.push_back(Load(description));
    return pieces;
}

}  // namespace lacquer::bench
