// Small files of every kind that the library reads.

#include "pictures.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
// jpeglib.h needs what <cstdio> declares.
#include <jpeglib.h>
#include <png.h>
#include <webp/encode.h>

#include "support/pixels.h"

namespace lacquer {
namespace {

constexpr DWORD kWidth = 13, kHeight = 9;  // no multiple of what passes, blocks and bytes hold

/// A 16-bit channel of a pixel.
unsigned Deep(DWORD index, DWORD channel) { return Noise(channel + 1, index) >> 16; }

uint32_t Word(unsigned a, unsigned r, unsigned g, unsigned b) { return a << 24 | r << 16 | g << 8 | b; }

void AppendTo(png_structp png, png_bytep bytes, size_t count) {
    auto &file = *static_cast<Bytes *>(png_get_io_ptr(png));
    file.insert(file.end(), bytes, bytes + count);
}

/// `isKeyed`: with a transparent colour, that of the first pixel, or transparent entries of the palette. `isShort`: the
/// largest index has no entry in the palette.
Picture Png(int type, int depth, bool isInterlaced, bool isKeyed, bool isShort = false) {
    const bool isIndexed = type == PNG_COLOR_TYPE_PALETTE, hasColour = (type & PNG_COLOR_MASK_COLOR) != 0;
    const bool hasAlpha = (type & PNG_COLOR_MASK_ALPHA) != 0;
    const DWORD most = (1u << depth) - 1, colours = hasColour && !isIndexed ? 3 : 1, channels = colours + hasAlpha;
    Picture picture{"png of type " + std::to_string(type) + ", depth " + std::to_string(depth) +
                        (isInterlaced ? ", interlaced" : "") + (isKeyed ? ", keyed" : ""),
                    {},
                    {LACQUER_IMAGE_PNG, kWidth, kHeight, 8, hasAlpha || isKeyed, 1, 0},
                    {},
                    0};
    if (!isIndexed) picture.info.bitsPerPixel = picture.info.hasAlpha ? 32 : hasColour ? 24 : 8;

    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &picture.file, AppendTo, nullptr);
    png_set_IHDR(png, info, kWidth, kHeight, depth, type, isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_color palette[256];
    png_byte alphas[256];
    for (DWORD i = 0; i <= (isIndexed ? most : 0); ++i) {
        const DWORD word = Noise(99, i);
        palette[i] = {static_cast<png_byte>(word), static_cast<png_byte>(word >> 8), static_cast<png_byte>(word >> 16)};
        alphas[i] = static_cast<png_byte>(isKeyed && i % 3 == 0 ? word >> 24 : 255);
    }
    const auto sample = [&](DWORD i, DWORD channel) { return Deep(i, channel) >> (16 - depth); };
    DWORD entries = isShort ? 0 : most + 1;
    for (DWORD i = 0; i < kWidth * kHeight; ++i) entries = std::max<DWORD>(entries, sample(i, 0));
    png_set_check_for_invalid_index(png, 0);
    if (isIndexed) png_set_PLTE(png, info, palette, static_cast<int>(entries));
    png_color_16 key{};
    key.red = key.gray = static_cast<png_uint_16>(sample(0, 0));
    key.green = static_cast<png_uint_16>(sample(0, 1));
    key.blue = static_cast<png_uint_16>(sample(0, 2));
    if (isKeyed) png_set_tRNS(png, info, isIndexed ? alphas : nullptr, static_cast<int>(most + 1), &key);
    png_write_info(png, info);
    png_set_packing(png);

    std::vector<Bytes> rows(kHeight);
    for (DWORD i = 0; i < kWidth * kHeight; ++i) {
        unsigned scaled[4];
        bool isKey = isKeyed;
        for (DWORD c = 0; c < channels; ++c) {
            const unsigned value = sample(i, c);
            if (depth == 16) rows[i / kWidth].push_back(static_cast<BYTE>(value >> 8));
            rows[i / kWidth].push_back(static_cast<BYTE>(value));
            scaled[c] = (value * 255 + most / 2) / most;
            isKey = isKey && value == sample(0, c);
        }
        const unsigned alpha = hasAlpha ? scaled[channels - 1] : isKey ? 0 : 255, index = sample(i, 0);
        picture.pixels.push_back(
            isIndexed ? Word(alphas[index], palette[index].red, palette[index].green, palette[index].blue)
                      : Word(alpha, scaled[0], scaled[colours / 2], scaled[colours - 1]));
    }
    std::vector<png_bytep> starts;
    for (Bytes &row : rows) starts.push_back(row.data());
    png_write_image(png, starts.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return picture;
}

constexpr DWORD kBlock = 16, kColumns = 3, kLines = 2;

/// Blocks of one colour each survive every kind of compression nearly as they are.
std::vector<uint32_t> FlatBlocks(bool isGrey, bool hasAlpha) {
    std::vector<uint32_t> pixels;
    for (DWORD i = 0; i < kBlock * kColumns * kBlock * kLines; ++i) {
        const DWORD x = i % (kBlock * kColumns) / kBlock, y = i / (kBlock * kColumns) / kBlock;
        const DWORD r = 40 + 80 * x, g = isGrey ? r : 30 + 130 * y, b = isGrey ? r : 220 - 60 * x - 40 * y;
        pixels.push_back(Word(hasAlpha ? 255 - 70 * x : 255, r, g, b));
    }
    return pixels;
}

Picture BlockPicture(const std::string &name, DWORD format, DWORD bits, bool hasAlpha, int tolerance) {
    return {name,
            {},
            {format, kBlock * kColumns, kBlock * kLines, bits, hasAlpha, 1, 0},
            FlatBlocks(bits == 8, hasAlpha),
            tolerance};
}

struct JpegKind {
    const char *name;
    J_COLOR_SPACE space;  ///< of the file
    int sampling;
    bool isProgressive, hasAdobeMarker;
    Bytes application1;
};

Picture Jpeg(const JpegKind &kind) {
    const bool isInk = kind.space == JCS_CMYK || kind.space == JCS_YCCK, isGrey = kind.space == JCS_GRAYSCALE;
    Picture picture = BlockPicture(kind.name, LACQUER_IMAGE_JPEG, isGrey ? 8 : 24, false,
                                   kind.sampling == 1 ? 3 : 48);  // few samples are smoothed where blocks meet
    jpeg_compress_struct jpeg{};
    jpeg_error_mgr errors{};
    jpeg.err = jpeg_std_error(&errors);
    jpeg_create_compress(&jpeg);
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&jpeg, &bytes, &size);
    jpeg.image_width = picture.info.width;
    jpeg.image_height = picture.info.height;
    jpeg.input_components = isInk ? 4 : 3;
    jpeg.in_color_space = isInk ? JCS_CMYK : JCS_RGB;
    jpeg_set_defaults(&jpeg);
    jpeg_set_colorspace(&jpeg, kind.space);
    jpeg_set_quality(&jpeg, 100, TRUE);
    jpeg.write_Adobe_marker = kind.hasAdobeMarker;
    for (int i = 0; i < jpeg.num_components; i += 3)
        jpeg.comp_info[i].h_samp_factor = jpeg.comp_info[i].v_samp_factor = kind.sampling;
    if (kind.isProgressive) jpeg_simple_progression(&jpeg);
    jpeg_start_compress(&jpeg, TRUE);
    if (!kind.application1.empty())
        jpeg_write_marker(&jpeg, JPEG_APP0 + 1, kind.application1.data(),
                          static_cast<unsigned>(kind.application1.size()));
    for (DWORD y = 0; y < picture.info.height; ++y) {
        Bytes row;
        for (DWORD x = 0; x < picture.info.width; ++x) {
            const DWORD word = picture.pixels[y * picture.info.width + x];
            const BYTE r = static_cast<BYTE>(word >> 16), g = static_cast<BYTE>(word >> 8), b = static_cast<BYTE>(word);
            // The most light in a colour is what its black leaves.
            const BYTE light = r > g ? r > b ? r : b : g > b ? g : b;
            BYTE inks[] = {static_cast<BYTE>(r * 255 / light), static_cast<BYTE>(g * 255 / light),
                           static_cast<BYTE>(b * 255 / light), light};
            for (BYTE &ink : inks) ink = static_cast<BYTE>(kind.hasAdobeMarker ? ink : 255 - ink);
            if (isInk)
                row.insert(row.end(), inks, inks + 4);
            else
                row.insert(row.end(), {r, g, b});
        }
        JSAMPROW start = row.data();
        jpeg_write_scanlines(&jpeg, &start, 1);
    }
    jpeg_finish_compress(&jpeg);
    picture.file.assign(bytes, bytes + size);
    std::free(bytes);
    jpeg_destroy_compress(&jpeg);
    return picture;
}

void AppendNumber(Bytes &to, size_t number, size_t bytes) {
    for (; bytes-- > 0; number >>= 8) to.push_back(static_cast<BYTE>(number));
}

void AppendChunk(Bytes &to, const char *name, const Bytes &content) {
    to.insert(to.end(), name, name + 4);
    AppendNumber(to, content.size(), 4);
    to.insert(to.end(), content.begin(), content.end());
    if (content.size() % 2 != 0) to.push_back(0);
}

/// With something after the picture that belongs to the file, too.
Picture Webp(const char *name, bool isLossless, bool hasAlpha) {
    Picture picture = BlockPicture(name, LACQUER_IMAGE_WEBP, hasAlpha ? 32 : 24, hasAlpha, isLossless ? 0 : 48);
    WebPConfig config;
    WebPPicture input;
    WebPMemoryWriter writer;
    WebPConfigInit(&config);
    WebPPictureInit(&input);
    WebPMemoryWriterInit(&writer);
    config.lossless = isLossless;
    config.quality = 100;
    input.use_argb = isLossless;
    input.width = static_cast<int>(picture.info.width);
    input.height = static_cast<int>(picture.info.height);
    input.writer = WebPMemoryWrite;
    input.custom_ptr = &writer;
    const auto *bytes = reinterpret_cast<const BYTE *>(picture.pixels.data());
    WebPPictureImportBGRA(&input, bytes, input.width * 4);
    WebPEncode(&config, &input);
    picture.file.assign(writer.mem, writer.mem + writer.size);
    WebPMemoryWriterClear(&writer);
    WebPPictureFree(&input);
    AppendChunk(picture.file, "junk", Bytes(10));
    Bytes size;
    AppendNumber(size, picture.file.size() - 8, 4);
    std::copy(size.begin(), size.end(), picture.file.begin() + 4);
    return picture;
}

/// Two frames; the first one, seen, leaves an edge of 6 columns and 4 rows transparent at the left and at the top.
Picture AnimatedWebp() {
    const Picture still = Webp("a frame", true, true);
    constexpr size_t kRiffHeader = 12;
    Picture picture = still;
    picture.name = "animated webp";
    picture.info.width += 6;
    picture.info.height += 4;
    picture.info.isAnimated = 1;
    picture.pixels.assign(size_t{picture.info.width} * picture.info.height, 0);
    for (size_t i = 0; i < still.pixels.size(); ++i)
        picture.pixels[(i / still.info.width + 4) * picture.info.width + i % still.info.width + 6] = still.pixels[i];
    Bytes canvas, animation, chunks;
    AppendNumber(canvas, 0x02, 4);  // animated
    AppendNumber(canvas, picture.info.width - 1, 3);
    AppendNumber(canvas, picture.info.height - 1, 3);
    AppendNumber(animation, 0xFF0000FF, 4);  // a background, which does not count
    AppendNumber(animation, 0, 2);
    AppendChunk(chunks, "VP8X", canvas);
    AppendChunk(chunks, "ANIM", animation);
    for (const size_t x : {size_t{3}, size_t{0}}) {  // in steps of two pixels
        Bytes frame;
        AppendNumber(frame, x, 3);
        AppendNumber(frame, 2, 3);
        AppendNumber(frame, still.info.width - 1, 3);
        AppendNumber(frame, still.info.height - 1, 3);
        AppendNumber(frame, 100, 4);
        frame.insert(frame.end(), still.file.begin() + kRiffHeader, still.file.end());
        AppendChunk(chunks, "ANMF", frame);
    }
    Bytes riff{'W', 'E', 'B', 'P'};
    riff.insert(riff.end(), chunks.begin(), chunks.end());
    picture.file.clear();
    AppendChunk(picture.file, "RIFF", riff);
    return picture;
}

}  // namespace

std::vector<Picture> Pictures() {
    std::vector<Picture> pictures;
    const struct {
        int type;
        std::vector<int> depths;
        bool canBeKeyed;
    } kinds[] = {{PNG_COLOR_TYPE_GRAY, {1, 2, 4, 8, 16}, true},
                 {PNG_COLOR_TYPE_PALETTE, {1, 2, 4, 8}, true},
                 {PNG_COLOR_TYPE_RGB, {8, 16}, true},
                 {PNG_COLOR_TYPE_GRAY_ALPHA, {8, 16}, false},
                 {PNG_COLOR_TYPE_RGB_ALPHA, {8, 16}, false}};
    for (const auto &kind : kinds)
        for (const int depth : kind.depths)
            for (const int variant : {0, 1, 2, 3})
                if (variant < 2 || kind.canBeKeyed)
                    pictures.push_back(Png(kind.type, depth, variant % 2 != 0, variant > 1));
    for (const bool isProgressive : {false, true}) {
        pictures.push_back(Jpeg({"grey jpeg", JCS_GRAYSCALE, 1, isProgressive, false, {}}));
        pictures.push_back(Jpeg({"jpeg", JCS_YCbCr, 1, isProgressive, false, {}}));
        pictures.push_back(Jpeg({"jpeg with few colour samples", JCS_YCbCr, 2, isProgressive, false, {}}));
        pictures.push_back(Jpeg({"rgb jpeg", JCS_RGB, 1, isProgressive, true, {}}));
        pictures.push_back(Jpeg({"cmyk jpeg", JCS_CMYK, 1, isProgressive, false, {}}));
        pictures.push_back(Jpeg({"adobe cmyk jpeg", JCS_CMYK, 1, isProgressive, true, {}}));
        pictures.push_back(Jpeg({"ycck jpeg", JCS_YCCK, 1, isProgressive, true, {}}));
    }
    for (const bool hasAlpha : {false, true}) {
        pictures.push_back(Webp("lossless webp", true, hasAlpha));
        pictures.push_back(Webp("webp", false, hasAlpha));
    }
    pictures.push_back(AnimatedWebp());
    return pictures;
}

Picture TurnedJpeg(DWORD orientation, bool isLittleEndian) {
    Bytes exif{'E', 'x', 'i', 'f', 0, 0, 'I', 'I', 42, 0, 8, 0, 0, 0, 2, 0};
    exif.insert(exif.end(), {0, 1, 4, 0, 1, 0, 0, 0, 6, 0, 0, 0});  // a width, to be passed over
    exif.insert(exif.end(), {0x12, 1, 3, 0, 1, 0, 0, 0, static_cast<BYTE>(orientation), 0, 0, 0, 0, 0, 0, 0});
    if (!isLittleEndian)
        exif = {'E', 'x', 'i', 'f', 0,    0, 'M', 'M', 0, 42, 0, 0, 0,
                8,   0,   1,   1,   0x12, 0, 3,   0,   0, 0,  1, 0, static_cast<BYTE>(orientation),
                0,   0,   0,   0,   0,    0};
    Picture picture = Jpeg({"turned jpeg", JCS_YCbCr, 1, false, false, exif});
    picture.info.orientation = orientation;
    return picture;
}

Bytes PngBeyondItsPalette() { return Png(PNG_COLOR_TYPE_PALETTE, 8, false, false, true).file; }

}  // namespace lacquer
