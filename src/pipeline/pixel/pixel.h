// Pixel words 0xAARRGGBB: access at any byte address, and arithmetic on two channels at a time.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace lacquer {

inline constexpr uint32_t kOpaque = 0xFF000000u, kWhite = 0xFFFFFFFFu;
inline constexpr uint32_t kColours = ~kOpaque;  ///< the channels beside alpha
inline constexpr uint32_t kPair = 0x00FF00FFu;
inline constexpr int kPixelBytes = 4;

/// The word at `pixel`, which needs no alignment: foreign pixels may start at any byte.
inline uint32_t LoadPixel(const BYTE *pixel) {
    uint32_t word;
    std::memcpy(&word, pixel, sizeof word);
    return word;
}

inline void StorePixel(BYTE *pixel, uint32_t word) { std::memcpy(pixel, &word, sizeof word); }

constexpr uint32_t Alpha(uint32_t word) { return word >> 24; }

/// The low halves of a pair product per channel: blue and red of `word`.
constexpr uint32_t BlueRed(uint32_t word) { return word & kPair; }

/// Green and alpha of `word`, moved down into the pair lanes.
constexpr uint32_t GreenAlpha(uint32_t word) { return word >> 8 & kPair; }

/// The word of two pairs whose results stand in the upper byte of each 16-bit lane.
constexpr uint32_t JoinUpper(uint32_t blueRed, uint32_t greenAlpha) {
    return (blueRed >> 8 & kPair) | (greenAlpha & ~kPair);
}

/// The word of two pairs whose results stand in the lower byte of each lane; carries above that byte are dropped.
constexpr uint32_t JoinLower(uint32_t blueRed, uint32_t greenAlpha) {
    return BlueRed(blueRed) | BlueRed(greenAlpha) << 8;
}

/// Each channel × factor >> 8, truncated. `factor`: 0..256.
constexpr uint32_t Scale(uint32_t word, uint32_t factor) {
    return JoinUpper(BlueRed(word) * factor, GreenAlpha(word) * factor);
}

/// Each channel x × y >> 8, truncated, where y is the channel of `factors` plus one.
constexpr uint32_t Multiply(uint32_t word, uint32_t factors) {
    const auto channel = [=](int shift) {
        return ((word >> shift & 0xFF) * ((factors >> shift & 0xFF) + 1) >> 8) << shift;
    };
    return channel(0) | channel(8) | channel(16) | channel(24);
}

/// The channels of the two words added, each modulo 256.
constexpr uint32_t AddModulo(uint32_t a, uint32_t b) {
    return JoinLower(BlueRed(a) + BlueRed(b), GreenAlpha(a) + GreenAlpha(b));
}

/// The colours of one word with the alpha of another.
constexpr uint32_t WithAlphaOf(uint32_t alpha, uint32_t colours) { return (alpha & kOpaque) | (colours & kColours); }

/// Whether no channel exceeds alpha.
constexpr bool IsPremultiplied(uint32_t word) {
    const uint32_t alpha = Alpha(word);
    return (word & 0xFF) <= alpha && (word >> 8 & 0xFF) <= alpha && (word >> 16 & 0xFF) <= alpha;
}

/// Straight colours multiplied by their alpha: c × (A + 1) >> 8.
constexpr uint32_t Premultiplied(uint32_t word) { return WithAlphaOf(word, Scale(word, Alpha(word) + 1)); }

/// The grey level of a word: a quarter of B + 2 G + R, truncated.
constexpr uint32_t GreyOf(uint32_t word) { return ((word & 0xFF) + 2 * (word >> 8 & 0xFF) + (word >> 16 & 0xFF)) >> 2; }

/// A word with one level in its three colours, and no alpha.
constexpr uint32_t Grey(uint32_t level) { return level * 0x010101u; }

}  // namespace lacquer
