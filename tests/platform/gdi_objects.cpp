// Making and describing the objects of the tests.
#include "gdi_objects.h"

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

void Picture::Number(uint32_t first) const {
    for (int i = 0; i < Width() * Height(); ++i) At(i, 0) = first + static_cast<uint32_t>(i);
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
