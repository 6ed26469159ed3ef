// From a file in memory to a bitmap.

#include "load.h"

#include <algorithm>

#include "orientation.h"

namespace lacquer::image {
namespace {

constexpr DWORD kLargestSide = 32767;
constexpr uint64_t kUsualBytes = 256 << 20;

/// Null, with the reason written, when the file is of no known format or its header is damaged.
const Codec *ReadHeader(Bytes file, Header &header, Fault &fault) {
    for (const Codec *codec : {&kPng, &kJpeg, &kWebp}) {
        if (!codec->matches(file)) continue;
        header = {};
        header.orientation = 1;
        return codec->readHeader(file, header, fault) ? codec : nullptr;
    }
    Refuse(fault, LACQUER_IMAGE_BAD_FORMAT, "The file is neither PNG nor JPEG nor WebP.");
    return nullptr;
}

bool IsWithin(const Header &header, const ImageLoadOptions &options) {
    return std::max(header.width, header.height) <= options.maxSide &&
           uint64_t{header.width} * header.height <= options.maxBytes / 4;
}

/// Whether some pixel, or an entry of the palette, lets anything through.
bool IsTranslucent(const SurfaceView &view) {
    if (view.bitsPerPixel == 8)
        return std::any_of(view.palette, view.palette + view.paletteCount,
                           [](DWORD word) { return word < 0xFF000000; });
    if (view.bitsPerPixel != 32) return false;
    for (LONG y = 0; y < view.height; ++y) {
        const uint8_t *row = RowOf(view, y);
        for (LONG x = 0; x < view.width; ++x)
            if (row[static_cast<ptrdiff_t>(x) * 4 + 3] != 255) return true;
    }
    return false;
}

/// The pixels of a file at the depth of the options, upright or not, straight.
lq::Bitmap DecodeBitmap(const Codec &codec, Bytes file, const Header &header, DWORD flags, Fault &fault) {
    const bool keepsDepth = (flags & LACQUER_IMAGE_KEEP_DEPTH) != 0;
    lq::Bitmap bitmap = lq::Bitmap::Create(header.width, header.height, keepsDepth ? header.bitsPerPixel : 32,
                                           keepsDepth ? header.paletteCount : 0);
    const auto lock = lq::Lock(bitmap);
    if (!lock) {
        Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short, or no handle is free.");
        return {};
    }
    return codec.decode(file, header, lock.View(), fault) ? std::move(bitmap) : lq::Bitmap();
}

}  // namespace

ImageLoadOptions Complete(const ImageLoadOptions *options) {
    ImageLoadOptions complete = options ? *options : ImageLoadOptions{};
    if (complete.maxSide == 0 || complete.maxSide > kLargestSide) complete.maxSide = kLargestSide;
    if (complete.maxBytes == 0) complete.maxBytes = kUsualBytes;
    return complete;
}

bool ReadInfo(Bytes file, ImageFileInfo &info, Fault &fault) {
    Header header;
    if (!ReadHeader(file, header, fault)) return false;
    info = header;
    if (header.orientation > 4) std::swap(info.width, info.height);
    return true;
}

lq::Bitmap LoadBitmap(Bytes file, const ImageLoadOptions &options, Fault &fault) {
    Header header;
    const Codec *codec = ReadHeader(file, header, fault);
    if (!codec) return {};
    if (!IsWithin(header, options)) {
        Refuse(fault, LACQUER_IMAGE_TOO_LARGE, "The picture has more pixels than the limits allow.");
        return {};
    }
    lq::Bitmap bitmap = DecodeBitmap(*codec, file, header, options.flags, fault);
    if (!bitmap) return {};
    if ((options.flags & LACQUER_IMAGE_STRAIGHT) == 0 && IsTranslucent(lq::Lock(bitmap).View())) {
        NormalizeBitmap(bitmap);
        bitmap.SetDrawMode(LACQUER_DRAW_OVER);
    }
    const DWORD turn = (options.flags & LACQUER_IMAGE_KEEP_ORIENTATION) == 0 ? TurnOf(header.orientation) : 0;
    if (turn == 0) return bitmap;
    lq::Bitmap turned = bitmap.Transformed(turn);
    if (!turned) Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short, or no handle is free.");
    return turned;
}

}  // namespace lacquer::image
