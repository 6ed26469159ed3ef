// PNG files through libpng. It reports an error by a jump back to the last setjmp, so each function that calls setjmp
// owns nothing that needs a destructor.
#include "common/png_file.h"

#include <png.h>

#include <csetjmp>
#include <cstdio>
#include <memory>

namespace lacquer::examples {

namespace {

constexpr png_uint_32 kLargestSide = 32767;

struct CloseFile {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

struct Reader {
    Reader() = default;
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    std::unique_ptr<std::FILE, CloseFile> file;
    png_structp png = nullptr;
    png_infop info = nullptr;
    char reason[100] = "";
};

[[noreturn]] void OnError(png_structp png, png_const_charp message) {
    auto *reader = static_cast<Reader *>(png_get_error_ptr(png));
    std::snprintf(reader->reason, sizeof reader->reason, "%s", message);
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

/// Reads everything before the pixels and asks libpng to deliver one of the image's depths.
bool ReadHeader(Reader &reader, Image &image) {
    png_structp png = reader.png;
    png_infop info = reader.info;
    if (setjmp(png_jmpbuf(png)) != 0) return false;
    png_set_user_limits(png, kLargestSide, kLargestSide);
    png_init_io(png, reader.file.get());
    png_read_info(png, info);
    const int colourType = png_get_color_type(png, info);
    const bool isPalette = colourType == PNG_COLOR_TYPE_PALETTE;
    const bool isGrey = (colourType & PNG_COLOR_MASK_COLOR) == 0;
    const bool hasAlpha =
        (colourType & PNG_COLOR_MASK_ALPHA) != 0 || (!isPalette && png_get_valid(png, info, PNG_INFO_tRNS) != 0);
    png_set_scale_16(png);
    if (isPalette) {
        png_set_packing(png);
    } else if (isGrey && !hasAlpha) {
        png_set_expand_gray_1_2_4_to_8(png);
    } else {
        png_set_expand(png);
        png_set_gray_to_rgb(png);
        png_set_bgr(png);
    }
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    image.width = static_cast<int>(png_get_image_width(png, info));
    image.height = static_cast<int>(png_get_image_height(png, info));
    image.bitsPerPixel = hasAlpha ? 32 : isPalette || isGrey ? 8 : 24;
    if (png_get_rowbytes(png, info) != image.rowBytes()) png_error(png, "unexpected pixel layout");
    return true;
}

void ReadPalette(Reader &reader, Image &image) {
    png_colorp colours = nullptr;
    int count = 0;
    if (png_get_color_type(reader.png, reader.info) != PNG_COLOR_TYPE_PALETTE ||
        png_get_PLTE(reader.png, reader.info, &colours, &count) == 0)
        return;
    png_bytep alphas = nullptr;
    int alphaCount = 0;
    png_get_tRNS(reader.png, reader.info, &alphas, &alphaCount, nullptr);
    for (int i = 0; i < count; ++i) {
        const std::uint32_t alpha = i < alphaCount ? alphas[i] : 255;
        image.palette.push_back(alpha << 24 | std::uint32_t{colours[i].red} << 16 |
                                std::uint32_t{colours[i].green} << 8 | colours[i].blue);
    }
}

bool ReadRows(Reader &reader, std::vector<png_bytep> &rows) {
    if (setjmp(png_jmpbuf(reader.png)) != 0) return false;
    png_read_image(reader.png, rows.data());
    png_read_end(reader.png, nullptr);
    return true;
}

[[noreturn]] void Refuse(const std::string &path, const char *reason) {
    throw std::runtime_error(path + ": " + reason);
}

}  // namespace

Image ReadPng(const std::string &path, Alpha alpha) {
    Reader reader;
    reader.file.reset(std::fopen(path.c_str(), "rb"));
    if (!reader.file) Refuse(path, "can't be opened");
    reader.png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &reader, OnError, OnWarning);
    if (reader.png != nullptr) reader.info = png_create_info_struct(reader.png);
    if (reader.info == nullptr) Refuse(path, "no memory");

    Image image;
    if (!ReadHeader(reader, image)) Refuse(path, reader.reason);
    ReadPalette(reader, image);
    image.pixels.resize(image.rowBytes() * static_cast<std::size_t>(image.height));
    std::vector<png_bytep> rows;
    rows.reserve(static_cast<std::size_t>(image.height));
    for (int y = 0; y < image.height; ++y)
        rows.push_back(image.pixels.data() + static_cast<std::size_t>(y) * image.rowBytes());
    if (!ReadRows(reader, rows)) Refuse(path, reader.reason);
    if (alpha == Alpha::kPremultiplied) Premultiply(image);
    return image;
}

void WritePng(const std::string &path, HGCANVAS canvas, PngKind kind) {
    const auto pixels = Locked(canvas);
    const std::size_t channels = kind == PngKind::kOpaque ? 3 : 4;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(pixels.Width()) * static_cast<std::size_t>(pixels.Height()) * channels);
    for (int y = 0; y < pixels.Height(); ++y) {
        for (int x = 0; x < pixels.Width(); ++x) {
            const std::uint32_t stored = pixels.Row(y)[x];
            const std::uint32_t word = kind == PngKind::kOpaque ? stored : StraightWord(stored);
            for (std::size_t c = 0; c < channels; ++c) bytes.push_back(static_cast<std::uint8_t>(word >> 8 * c & 255));
        }
    }
    png_image file{};
    file.version = PNG_IMAGE_VERSION;
    file.width = static_cast<png_uint_32>(pixels.Width());
    file.height = static_cast<png_uint_32>(pixels.Height());
    file.format = kind == PngKind::kOpaque ? PNG_FORMAT_BGR : PNG_FORMAT_BGRA;
    if (png_image_write_to_file(&file, path.c_str(), 0, bytes.data(), 0, nullptr) == 0) Refuse(path, file.message);
}

}  // namespace lacquer::examples
