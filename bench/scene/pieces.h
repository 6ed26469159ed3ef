// The pieces of the examples' skin, premultiplied once for all libraries.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace lacquer::bench {

enum class Piece {
    kFrame,
    kShadow,
    kPanel,
    kField,
    kCard,
    kButton,
    kHotButton,
    kBar,
    kFilledBar,
    kTrack,
    kThumb,
    kMinimise,
    kClose,
    kCheck,
    kIcon,
    kKnob,
    kSplash,
    kPhoto,
    kWood,
    kStripes,
    kCount
};

inline constexpr auto kPieceCount = static_cast<std::size_t>(Piece::kCount);

/// The widths of a nine-grid's left column, top row, right column and bottom row.
struct Margins {
    int left = 0, top = 0, right = 0, bottom = 0;
};

struct PieceOfSkin {
    const char *name = "";
    int width = 0, height = 0;
    Margins margins;
    bool isOpaque = false;
    std::vector<std::uint32_t> pixels;  // premultiplied 0xAARRGGBB, row by row without padding
};

/// Where three columns or rows begin, and where the last one ends.
using Cuts = std::array<int, 4>;
inline Cuts CutsOf(int begin, int length, int before, int after) {
    return {begin, begin + before, begin + length - after, begin + length};
}

/// Adds rows of pixels, `stride` bytes apart.
void AppendRows(std::vector<std::uint32_t> &pixels, const void *bits, std::ptrdiff_t stride, int width, int height);

/// All pieces in their order. Throws std::runtime_error when a file can't be read.
std::vector<PieceOfSkin> LoadPieces();

}  // namespace lacquer::bench
