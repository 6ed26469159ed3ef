// Which way up a JPEG is meant to be seen: the segments before the pixels are walked up to one with Exif data, which
// are laid out as a TIFF file.

#include "orientation.h"

#include <cstring>

namespace lacquer::image {
namespace {

constexpr uint8_t kScan = 0xDA, kApplication1 = 0xE1;
constexpr char kExif[] = {'E', 'x', 'i', 'f', 0, 0};
constexpr uint32_t kOrientationTag = 0x0112, kShort = 3;

/// Numbers in either order of bytes; 0 beyond the end.
struct Tiff {
    Bytes data;
    bool isLittle;

    uint32_t Number(size_t at, size_t size) const {
        if (at > data.size || size > data.size - at) return 0;
        uint32_t number = 0;
        for (size_t i = 0; i < size; ++i) number = number << 8 | data.data[at + (isLittle ? size - 1 - i : i)];
        return number;
    }
};

DWORD TiffOrientation(Bytes data) {
    const Tiff tiff{data, data.size > 0 && data.data[0] == 'I'};
    const size_t directory = tiff.Number(4, 4);
    const size_t entries = tiff.Number(directory, 2);
    for (size_t i = 0; i < entries; ++i) {
        const size_t entry = directory + 2 + i * 12;
        if (tiff.Number(entry, 2) != kOrientationTag || tiff.Number(entry + 2, 2) != kShort) continue;
        const uint32_t value = tiff.Number(entry + 8, 2);
        return value >= 1 && value <= 8 ? value : 1;
    }
    return 1;
}

}  // namespace

DWORD JpegOrientation(Bytes file) {
    for (size_t at = 2; at + 4 <= file.size && file.data[at] == 0xFF;) {
        const uint8_t marker = file.data[at + 1];
        if (marker == 0xFF) {  // a filler
            ++at;
            continue;
        }
        const size_t length = size_t{file.data[at + 2]} << 8 | file.data[at + 3];
        if (marker == kScan || length > file.size - at - 2) break;
        if (marker == kApplication1 && length >= 2 + sizeof kExif &&
            std::memcmp(file.data + at + 4, kExif, sizeof kExif) == 0)
            return TiffOrientation({file.data + at + 4 + sizeof kExif, length - 2 - sizeof kExif});
        at += 2 + length;
    }
    return 1;
}

DWORD TurnOf(DWORD orientation) {
    constexpr DWORD kTurns[] = {0,
                                0,
                                LACQUER_FLIP_HORIZONTAL,
                                LACQUER_ROTATE_180,
                                LACQUER_FLIP_VERTICAL,
                                LACQUER_TRANSPOSE,
                                LACQUER_ROTATE_90,
                                LACQUER_TRANSVERSE,
                                LACQUER_ROTATE_270};
    return kTurns[orientation];
}

}  // namespace lacquer::image
