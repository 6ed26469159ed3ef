// Calls of the system that take more than a line.
#include "window/window_class.h"

namespace lacquer::examples {

void RegisterWindowClass(const wchar_t *name, WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name;
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        throw std::runtime_error("RegisterClassExW failed");
}

void ShapeWindow(HWND window, const Texture &texture) {
    const HRGN region = CreateTextureRgn(texture, nullptr);
    if (region == nullptr) throw std::runtime_error("CreateTextureRgn failed");
    // The window owns the region now.
    if (SetWindowRgn(window, region, TRUE) == 0) {
        DeleteObject(region);
        throw std::runtime_error("SetWindowRgn failed");
    }
}

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

}  // namespace lacquer::examples
