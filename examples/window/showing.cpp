// A canvas lies in a DIB section with a device context, from which the system copies.
#include "window/showing.h"

namespace lacquer::examples {

PaintSession::PaintSession(HWND window) : window_(window) {
    if (BeginPaint(window, &paint_) == nullptr) throw std::runtime_error("BeginPaint failed");
}

PaintSession::~PaintSession() { EndPaint(window_, &paint_); }

void PaintSession::Show(const Canvas &canvas) const {
    const RECT &rect = part();
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
