// JPEG through libjpeg-turbo. It reports an error by a function that must not return: a jump back to the last setjmp.
// Each function that calls setjmp owns nothing that needs a destructor, and returns at once after a jump.

#include <csetjmp>
#include <cstdio>
// jpeglib.h needs what <cstdio> declares.
#include <jpeglib.h>

#include <jerror.h>

#include <algorithm>
#include <climits>

#include "codec.h"
#include "orientation.h"

namespace lacquer::image {
namespace {

/// Encoders write about ten. Thousands, which cost nothing to write, would keep the decoder busy for hours.
constexpr int kMaxScans = 100;

/// What the decoder takes whatever the size, and room for rounding up to whole blocks.
constexpr uint64_t kSmallMemory = 4 << 20;

struct Reader {
    Reader(Bytes from, Fault &reportTo) : file(from), fault(reportTo) {}
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;
    ~Reader() { jpeg_destroy_decompress(&jpeg); }

    Bytes file;
    Fault &fault;
    jmp_buf jump{};
    jpeg_error_mgr errors{};
    jpeg_source_mgr source{};
    jpeg_progress_mgr progress{};
    jpeg_decompress_struct jpeg{};
};

template <class Struct>
Reader &ReaderOf(Struct *jpeg) {
    return *static_cast<Reader *>(jpeg->client_data);
}

[[noreturn]] void OnError(j_common_ptr jpeg) {
    Reader &reader = ReaderOf(jpeg);
    if (reader.fault.status == LACQUER_IMAGE_DONE) {
        char words[JMSG_LENGTH_MAX];
        reader.errors.format_message(jpeg, words);
        switch (reader.errors.msg_code) {
            case JERR_OUT_OF_MEMORY: Refuse(reader.fault, LACQUER_IMAGE_NO_MEMORY, "Memory is short."); break;
            case JERR_NO_BACKING_STORE:
            case JERR_IMAGE_TOO_BIG:
            case JERR_WIDTH_OVERFLOW:
                Refuse(reader.fault, LACQUER_IMAGE_TOO_LARGE, "The JPEG file takes too much memory.", words);
                break;
            case JERR_ARITH_NOTIMPL:
            case JERR_BAD_PRECISION:
            case JERR_CCIR601_NOTIMPL:
            case JERR_CONVERSION_NOTIMPL:
            case JERR_FRACT_SAMPLE_NOTIMPL:
            case JERR_SOF_UNSUPPORTED:
                Refuse(reader.fault, LACQUER_IMAGE_UNSUPPORTED, "This kind of JPEG is not supported.", words);
                break;
            default: Refuse(reader.fault, LACQUER_IMAGE_DAMAGED, "The JPEG file is damaged.", words);
        }
    }
    longjmp(reader.jump, 1);
}

/// The decoder would go on after these and invent pixels; a few of its warnings are about harmless oddities.
void OnMessage(j_common_ptr jpeg, int level) {
    if (level >= 0) return;
    switch (ReaderOf(jpeg).errors.msg_code) {
        case JWRN_ADOBE_XFORM:
        case JWRN_EXTRANEOUS_DATA:
        case JWRN_JFIF_MAJOR:
        case JWRN_NOT_SEQUENTIAL:
        case JWRN_TOO_MUCH_DATA: return;
        default: OnError(jpeg);
    }
}

void OnOutput(j_common_ptr /*jpeg*/) {}

boolean OnMoreWanted(j_decompress_ptr jpeg) {
    RefuseEarlyEnd(ReaderOf(jpeg).fault);
    OnError(reinterpret_cast<j_common_ptr>(jpeg));
}

void OnSkip(j_decompress_ptr jpeg, long count) {
    if (count <= 0) return;
    jpeg_source_mgr &source = *jpeg->src;
    if (static_cast<unsigned long>(count) > source.bytes_in_buffer) OnMoreWanted(jpeg);
    source.next_input_byte += count;
    source.bytes_in_buffer -= static_cast<size_t>(count);
}

void OnBeginning(j_decompress_ptr /*jpeg*/) {}
void OnEnd(j_decompress_ptr /*jpeg*/) {}

void OnProgress(j_common_ptr jpeg) {
    Reader &reader = ReaderOf(jpeg);
    if (reader.jpeg.input_scan_number <= kMaxScans) return;
    Refuse(reader.fault, LACQUER_IMAGE_TOO_LARGE, "The JPEG file has too many scans.");
    OnError(jpeg);
}

/// What is always the same: the callbacks and the source.
void Begin(Reader &reader) {
    jpeg_decompress_struct &jpeg = reader.jpeg;
    jpeg.err = jpeg_std_error(&reader.errors);
    jpeg.client_data = &reader;
    reader.errors.error_exit = OnError;
    reader.errors.emit_message = OnMessage;
    reader.errors.output_message = OnOutput;
    jpeg_create_decompress(&jpeg);
    reader.source = {reader.file.data, reader.file.size,       OnBeginning, OnMoreWanted,
                     OnSkip,           jpeg_resync_to_restart, OnEnd};
    jpeg.src = &reader.source;
    reader.progress.progress_monitor = OnProgress;
    jpeg.progress = &reader.progress;
}

bool Matches(Bytes file) {
    return file.size >= 3 && file.data[0] == 0xFF && file.data[1] == 0xD8 && file.data[2] == 0xFF;
}

bool ReadInfo(Reader &reader) {
    if (setjmp(reader.jump) != 0) return false;
    Begin(reader);
    jpeg_read_header(&reader.jpeg, TRUE);
    return true;
}

bool ReadHeader(Bytes file, Header &header, Fault &fault) {
    Reader reader(file, fault);
    if (!ReadInfo(reader)) return false;
    header.format = LACQUER_IMAGE_JPEG;
    header.width = reader.jpeg.image_width;
    header.height = reader.jpeg.image_height;
    header.bitsPerPixel = reader.jpeg.jpeg_color_space == JCS_GRAYSCALE ? 8 : 24;
    header.orientation = JpegOrientation(file);
    return true;
}

/// Ink to light. What carries an Adobe marker stores how much is left out of each ink.
void WriteInks(const jpeg_decompress_struct &jpeg, const uint8_t *inks, uint8_t *to, int bytesPerPixel) {
    const unsigned invert = jpeg.saw_Adobe_marker ? 0 : 255;
    for (JDIMENSION x = 0; x < jpeg.output_width; ++x, inks += 4, to += bytesPerPixel) {
        const unsigned black = inks[3] ^ invert;
        const unsigned light[] = {inks[2] ^ invert, inks[1] ^ invert, inks[0] ^ invert};
        for (int c = 0; c < 3; ++c) to[c] = static_cast<uint8_t>((light[c] * black + 127) / 255);
        if (bytesPerPixel == 4) to[3] = 255;
    }
}

bool ReadRows(Reader &reader, const SurfaceView &to) {
    jpeg_decompress_struct &jpeg = reader.jpeg;
    if (setjmp(reader.jump) != 0) return false;
    const uint64_t pixels = uint64_t{jpeg.image_width} * jpeg.image_height;
    jpeg.mem->max_memory_to_use = static_cast<long>(std::min<uint64_t>(pixels * 8 + kSmallMemory, LONG_MAX));
    const bool isInk = jpeg.num_components == 4;
    jpeg.out_color_space = isInk                   ? JCS_CMYK
                           : to.bitsPerPixel == 8  ? JCS_GRAYSCALE
                           : to.bitsPerPixel == 24 ? JCS_EXT_BGR
                                                   : JCS_EXT_BGRA;
    jpeg_start_decompress(&jpeg);
    JSAMPARRAY inks = nullptr;
    if (isInk)
        inks = jpeg.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&jpeg), JPOOL_IMAGE, jpeg.output_width * 4, 1);
    while (jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW row = RowOf(to, static_cast<LONG>(jpeg.output_scanline));
        jpeg_read_scanlines(&jpeg, isInk ? inks : &row, 1);
        if (isInk) WriteInks(jpeg, inks[0], row, to.bitsPerPixel / 8);
    }
    jpeg_finish_decompress(&jpeg);
    return true;
}

bool Decode(Bytes file, const Header & /*header*/, const SurfaceView &to, Fault &fault) {
    Reader reader(file, fault);
    return ReadInfo(reader) && ReadRows(reader, to);
}

}  // namespace

const Codec kJpeg{Matches, ReadHeader, Decode};

}  // namespace lacquer::image
