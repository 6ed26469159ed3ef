// WebP through libwebp. Of an animation the first frame is shown, on a transparent canvas.

#include <webp/decode.h>
#include <webp/demux.h>

#include <cstring>
#include <memory>

#include "codec.h"

namespace lacquer::image {
namespace {

constexpr size_t kRiffHeaderSize = 12;

struct EndDemuxer {
    void operator()(WebPDemuxer *demuxer) const { WebPDemuxDelete(demuxer); }
};

bool RefuseBy(VP8StatusCode status, Fault &fault) {
    switch (status) {
        case VP8_STATUS_OUT_OF_MEMORY: return Refuse(fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short.");
        case VP8_STATUS_UNSUPPORTED_FEATURE:
            return Refuse(fault, LACQUER_IMAGE_UNSUPPORTED, "This kind of WebP is not supported.");
        case VP8_STATUS_NOT_ENOUGH_DATA: return RefuseEarlyEnd(fault);
        default: return Refuse(fault, LACQUER_IMAGE_DAMAGED, "The WebP file is damaged.");
    }
}

bool Matches(Bytes file) {
    return file.size >= kRiffHeaderSize && std::memcmp(file.data, "RIFF", 4) == 0 &&
           std::memcmp(file.data + 8, "WEBP", 4) == 0;
}

bool ReadHeader(Bytes file, Header &header, Fault &fault) {
    WebPBitstreamFeatures features;
    const VP8StatusCode status = WebPGetFeatures(file.data, file.size, &features);
    if (status != VP8_STATUS_OK) return RefuseBy(status, fault);
    header.format = LACQUER_IMAGE_WEBP;
    header.width = static_cast<DWORD>(features.width);
    header.height = static_cast<DWORD>(features.height);
    header.isAnimated = features.has_animation ? 1 : 0;
    // A frame may leave parts of its canvas as they are.
    header.hasAlpha = features.has_alpha || features.has_animation ? 1 : 0;
    header.bitsPerPixel = header.hasAlpha ? 32 : 24;
    return true;
}

/// Decodes a still picture into the top left corner of a view.
bool DecodeStill(Bytes file, const SurfaceView &to, Fault &fault) {
    WebPDecoderConfig config;
    if (!WebPInitDecoderConfig(&config)) return RefuseBy(VP8_STATUS_UNSUPPORTED_FEATURE, fault);
    config.output.colorspace = to.bitsPerPixel == 24 ? MODE_BGR : MODE_BGRA;
    config.output.is_external_memory = 1;
    config.output.u.RGBA.rgba = static_cast<uint8_t *>(to.bits);
    config.output.u.RGBA.stride = to.stride;
    config.output.u.RGBA.size = static_cast<size_t>(to.stride) * static_cast<size_t>(to.height - 1) + RowBytes(to);
    const VP8StatusCode status = WebPDecode(file.data, file.size, &config);
    return status == VP8_STATUS_OK || RefuseBy(status, fault);
}

bool DecodeFirstFrame(Bytes file, const SurfaceView &to, Fault &fault) {
    for (LONG y = 0; y < to.height; ++y) std::memset(RowOf(to, y), 0, RowBytes(to));
    const WebPData data{file.data, file.size};
    const std::unique_ptr<WebPDemuxer, EndDemuxer> demuxer(WebPDemux(&data));
    WebPIterator frame;
    // The demuxer does not say whether memory was short.
    if (!demuxer || !WebPDemuxGetFrame(demuxer.get(), 1, &frame)) return RefuseBy(VP8_STATUS_BITSTREAM_ERROR, fault);
    SurfaceView part = to;
    part.width = frame.width;
    part.height = frame.height;
    part.bits = RowOf(to, frame.y_offset) + static_cast<ptrdiff_t>(frame.x_offset) * 4;
    const bool isInside = frame.x_offset >= 0 && frame.y_offset >= 0 && frame.width <= to.width - frame.x_offset &&
                          frame.height <= to.height - frame.y_offset;
    const bool decoded = isInside ? DecodeStill({frame.fragment.bytes, frame.fragment.size}, part, fault)
                                  : RefuseBy(VP8_STATUS_BITSTREAM_ERROR, fault);
    WebPDemuxReleaseIterator(&frame);
    return decoded;
}

bool Decode(Bytes file, const Header &header, const SurfaceView &to, Fault &fault) {
    size_t size = 0;
    for (size_t i = 4; i-- > 0;) size = size << 8 | file.data[4 + i];
    if (size > file.size - 8) return RefuseEarlyEnd(fault);
    return header.isAnimated ? DecodeFirstFrame(file, to, fault) : DecodeStill(file, to, fault);
}

}  // namespace

const Codec kWebp{Matches, ReadHeader, Decode};

}  // namespace lacquer::image
