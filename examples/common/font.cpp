// Text from a sheet of glyphs. The draw of a glyph is an ordinary draw of the texture's current slice.
#include "common/font.h"

#include <vector>

namespace lacquer::examples {

namespace {

// The order of the characters on the sheet.
constexpr std::string_view kCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.,:-+=/%()#*!?'&";
constexpr int kColumns = 13;
constexpr int kCellWidth = 6;
constexpr int kCellHeight = 9;
constexpr int kSpaceWidth = 4;

bool HasInk(const Image &sheet, int x, int top) {
    for (int y = top; y < top + kCellHeight; ++y)
        if (sheet.word(x, y) >> 24 >= 128) return true;
    return false;
}

}  // namespace

Font::Font(const Image &sheet) {
    constexpr int rows = static_cast<int>(kCharacters.size()) / kColumns;
    if (sheet.width != kColumns * kCellWidth || sheet.height != rows * kCellHeight)
        throw std::runtime_error("the font's sheet has another size");
    sliceOf_.fill(-1);
    widthOf_.fill(kSpaceWidth);
    std::vector<RECT> slices;
    for (std::size_t i = 0; i < kCharacters.size(); ++i) {
        const int left = static_cast<int>(i) % kColumns * kCellWidth;
        const int top = static_cast<int>(i) / kColumns * kCellHeight;
        int first = left;
        int end = left + kCellWidth;
        while (first < end - 1 && !HasInk(sheet, first, top)) ++first;
        while (end > first + 1 && !HasInk(sheet, end - 1, top)) --end;
        const auto character = static_cast<unsigned char>(kCharacters[i]);
        sliceOf_[character] = static_cast<int>(i);
        widthOf_[character] = end - first + 1;
        slices.push_back({first, top, end, top + kCellHeight});
    }

    Image ink{
        .width = sheet.width, .height = sheet.height, .bitsPerPixel = 8, .pixels = {}, .palette = {0, 0xFFFFFFFF}};
    for (int y = 0; y < sheet.height; ++y)
        for (int x = 0; x < sheet.width; ++x) ink.pixels.push_back(sheet.word(x, y) >> 24 >= 128);
    texture_ = MakeTexture(ink);
    SetDrawMode(texture_, LACQUER_DRAW_OVER);
    SetSlices(texture_, slices);
}

int Font::Width(std::string_view text, int scale) const {
    int width = 0;
    for (const char c : text) width += widthOf_[static_cast<unsigned char>(c)];
    return (width - (text.empty() ? 0 : 1)) * scale;
}

void Font::Draw(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour, int scale) const {
    Locked(texture_).Palette()[1] = PremultipliedWord(colour);
    for (const char c : text) {
        const auto character = static_cast<unsigned char>(c);
        if (sliceOf_[character] >= 0) {
            const RECT dest = Box(x, y, (widthOf_[character] - 1) * scale, kCellHeight * scale);
            DrawSlice(canvas, dest, texture_, sliceOf_[character], LACQUER_NEAREST);
        }
        x += widthOf_[character] * scale;
    }
}

void Font::DrawCentred(const Canvas &canvas, int x, int y, std::string_view text, std::uint32_t colour,
                       int scale) const {
    Draw(canvas, x - Width(text, scale) / 2, y, text, colour, scale);
}

}  // namespace lacquer::examples
