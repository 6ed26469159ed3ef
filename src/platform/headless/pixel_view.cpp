// Loading, storing and converting single pixels.
#include "platform/headless/pixel_view.h"

namespace lacquer::headless {
namespace {

/// Five bits to eight: the high bits fill the low ones.
constexpr uint32_t Widened(uint32_t five) { return five << 3 | five >> 2; }

uint32_t TableColour(const RGBQUAD &entry) {
    return uint32_t{entry.rgbRed} << 16 | uint32_t{entry.rgbGreen} << 8 | entry.rgbBlue;
}

int SquaredDistance(uint32_t first, uint32_t second) {
    int sum = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const int difference = static_cast<int>(first >> shift & 0xFF) - static_cast<int>(second >> shift & 0xFF);
        sum += difference * difference;
    }
    return sum;
}

uint32_t NearestEntry(const PixelView &view, uint32_t colour) {
    const uint32_t count = 1u << view.bitsPerPixel;
    uint32_t best = 0;
    int bestDistance = INT32_MAX;
    for (uint32_t entry = 0; entry < count && bestDistance > 0; ++entry) {
        const int distance = SquaredDistance(TableColour(view.colours[entry]), colour);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = entry;
        }
    }
    return best;
}

}  // namespace

PixelView ViewOf(const Bitmap &bitmap) {
    const ptrdiff_t stride = bitmap.stride;
    uint8_t *bits = bitmap.bits.get();
    return PixelView{bitmap.topDown ? bits : bits + stride * (bitmap.height - 1),
                     bitmap.topDown ? stride : -stride,
                     0,
                     bitmap.width,
                     bitmap.height,
                     bitmap.bitsPerPixel,
                     bitmap.colours.get()};
}

bool HaveSameFormat(const PixelView &first, const PixelView &second) {
    if (first.bitsPerPixel != second.bitsPerPixel) return false;
    if (first.bitsPerPixel > 8) return true;
    return std::memcmp(first.colours, second.colours, sizeof(RGBQUAD) << first.bitsPerPixel) == 0;
}

uint32_t LoadRaw(const PixelView &view, const uint8_t *row, LONG x) {
    const size_t index = static_cast<size_t>(x);
    switch (view.bitsPerPixel) {
        case 32: {
            uint32_t word;
            std::memcpy(&word, row + index * 4, sizeof(word));
            return word;
        }
        case 24: {
            const uint8_t *pixel = row + index * 3;
            return uint32_t{pixel[2]} << 16 | uint32_t{pixel[1]} << 8 | pixel[0];
        }
        case 16: {
            uint16_t word;
            std::memcpy(&word, row + index * 2, sizeof(word));
            return word;
        }
        case 8: return row[index];
        default: return row[index / 8] >> (7 - index % 8) & 1u;
    }
}

void StoreRaw(const PixelView &view, uint8_t *row, LONG x, uint32_t raw) {
    const size_t index = static_cast<size_t>(x);
    switch (view.bitsPerPixel) {
        case 32: std::memcpy(row + index * 4, &raw, sizeof(raw)); break;
        case 24: {
            uint8_t *pixel = row + index * 3;
            pixel[0] = static_cast<uint8_t>(raw);
            pixel[1] = static_cast<uint8_t>(raw >> 8);
            pixel[2] = static_cast<uint8_t>(raw >> 16);
            break;
        }
        case 16: {
            const auto word = static_cast<uint16_t>(raw);
            std::memcpy(row + index * 2, &word, sizeof(word));
            break;
        }
        case 8: row[index] = static_cast<uint8_t>(raw); break;
        default: {
            const auto bit = static_cast<uint8_t>(0x80u >> index % 8);
            uint8_t &byte = row[index / 8];
            byte = static_cast<uint8_t>((raw & 1) != 0 ? byte | bit : byte & ~bit);
            break;
        }
    }
}

uint32_t ColourOf(const PixelView &view, uint32_t raw) {
    switch (view.bitsPerPixel) {
        case 16: return Widened(raw >> 10 & 31) << 16 | Widened(raw >> 5 & 31) << 8 | Widened(raw & 31);
        case 8:
        case 1: return TableColour(view.colours[raw]);
        default: return raw;
    }
}

uint32_t RawOf(const PixelView &view, uint32_t colour) {
    switch (view.bitsPerPixel) {
        case 32: return colour;
        case 24: return colour & 0xFFFFFF;
        case 16: return (colour >> 9 & 0x7C00) | (colour >> 6 & 0x03E0) | (colour >> 3 & 0x001F);
        default: return NearestEntry(view, colour);
    }
}

uint32_t RawOfTrueColour(const PixelView &view, uint32_t colour) {
    return RawOf(view, view.bitsPerPixel == 8 ? (colour & 0xF8F8F8) | 0x040404 : colour);
}

}  // namespace lacquer::headless
