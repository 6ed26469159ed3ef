// A canvas lies in a DIB section with a device context, from which the system copies.
#include "window/showing.h"

#include <cstring>
#include <memory>

namespace lacquer::examples {

namespace {

struct DeleteRegion {
    using pointer = HRGN;
    void operator()(HRGN region) const { DeleteObject(region); }
};

std::vector<RECT> InvalidPartsOf(HWND window) {
    const std::unique_ptr<HRGN, DeleteRegion> region(CreateRectRgn(0, 0, 0, 0));
    GetUpdateRgn(window, region.get(), FALSE);
    std::vector<BYTE> data(GetRegionData(region.get(), 0, nullptr));
    RGNDATAHEADER header{};
    if (GetRegionData(region.get(), static_cast<DWORD>(data.size()), reinterpret_cast<RGNDATA *>(data.data())) == 0)
        throw std::runtime_error("GetRegionData failed");
    std::memcpy(&header, data.data(), sizeof header);
    std::vector<RECT> parts(header.nCount);
    if (!parts.empty()) std::memcpy(parts.data(), data.data() + sizeof header, parts.size() * sizeof(RECT));
    return parts;
}

}  // namespace

PaintSession::PaintSession(HWND window) : window_(window), parts_(InvalidPartsOf(window)) {
    if (BeginPaint(window, &paint_) == nullptr) throw std::runtime_error("BeginPaint failed");
}

PaintSession::~PaintSession() { EndPaint(window_, &paint_); }

void PaintSession::Show(const Canvas &canvas) const {
    for (const RECT &rect : parts_)
        if (!BitBlt(paint_.hdc, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                    GetCanvasHandle(canvas), rect.left, rect.top, SRCCOPY))
            throw std::runtime_error("BitBlt failed");
    // The canvas's pixels may be written again at once.
    GdiFlush();
}

void ShowLayered(HWND window, const Canvas &canvas) {
    SIZE size = canvas.Size().value_or(SIZE{});
    POINT corner{};
    BLENDFUNCTION blend{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    if (!UpdateLayeredWindow(window, nullptr, nullptr, &size, GetCanvasHandle(canvas), &corner, 0, &blend, ULW_ALPHA))
        throw std::runtime_error("UpdateLayeredWindow failed");
}

}  // namespace lacquer::examples
