// Making and describing the objects of the tests.
#include "gdi_objects.h"

#include <cstdlib>
#include <cstring>

bool operator==(const RECT &first, const RECT &second) {
    return first.left == second.left && first.top == second.top && first.right == second.right &&
           first.bottom == second.bottom;
}

std::ostream &operator<<(std::ostream &out, const RECT &rect) {
    return out << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

namespace lacquer {

std::vector<RECT> OwnedRegion::Rects() const {
    std::vector<char> bytes(GetRegionData(handle_, 0, nullptr));
    if (bytes.size() < sizeof(RGNDATAHEADER)) return {};
    auto *data = reinterpret_cast<RGNDATA *>(bytes.data());
    GetRegionData(handle_, static_cast<DWORD>(bytes.size()), data);
    std::vector<RECT> rects(data->rdh.nCount);
    if (!rects.empty()) std::memcpy(rects.data(), bytes.data() + sizeof(RGNDATAHEADER), rects.size() * sizeof(RECT));
    return rects;
}

RECT OwnedRegion::Box() const {
    RECT box{};
    GetRgnBox(handle_, &box);
    return box;
}

int OwnedRegion::Kind() const {
    RECT box{};
    return GetRgnBox(handle_, &box);
}

HBITMAP NewSection(int width, int height, WORD bitsPerPixel, void **bits, const std::vector<RGBQUAD> &colours) {
    struct {
        BITMAPINFOHEADER header;
        RGBQUAD colours[256];
    } info{};
    info.header = HeaderOf(width, height, bitsPerPixel).bmiHeader;
    for (size_t i = 0; i < colours.size(); ++i) info.colours[i] = colours[i];
    return CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO *>(&info), DIB_RGB_COLORS, bits, nullptr, 0);
}

Picture::Picture(int width, int height, WORD bitsPerPixel, const std::vector<RGBQUAD> &colours)
    : width_(width), height_(std::abs(height)), isTopDown_(height < 0) {
    void *bits = nullptr;
    bitmap_ = NewSection(width, height, bitsPerPixel, &bits, colours);
    bytes_ = static_cast<uint8_t *>(bits);
    previous_ = SelectObject(dc_, bitmap_);
}

Picture::~Picture() {
    SelectObject(dc_, previous_);
    DeleteObject(bitmap_);
}

void Picture::Fill(uint32_t value) const {
    for (int i = 0; i < width_ * height_; ++i) At(i, 0) = value;
}

void Picture::Number(uint32_t first) const {
    for (int i = 0; i < width_ * height_; ++i) At(i, 0) = first + static_cast<uint32_t>(i);
}

std::vector<uint32_t> Picture::Words() const {
    const auto *words = reinterpret_cast<const uint32_t *>(bytes_);
    return std::vector<uint32_t>(words, words + width_ * height_);
}

HDC StaleDC() {
    const HDC dc = CreateCompatibleDC(nullptr);
    DeleteDC(dc);
    return dc;
}

HRGN StaleRegion() {
    const HRGN region = CreateRectRgn(0, 0, 5, 5);
    DeleteObject(region);
    return region;
}

}  // namespace lacquer
