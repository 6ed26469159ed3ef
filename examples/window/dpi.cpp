// Systems before Windows 10 have one resolution for all screens.
#include "window/dpi.h"

namespace lacquer::examples {

Scale ScaleOf(HWND window) {
    using DpiForWindow = UINT(WINAPI *)(HWND);
    static const auto dpiForWindow = reinterpret_cast<DpiForWindow>(
        reinterpret_cast<void *>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
    if (dpiForWindow != nullptr) return Scale(lq::ScaleForDpi(dpiForWindow(window)));
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return Scale(lq::ScaleForDpi(static_cast<unsigned>(dpi)));
}

}  // namespace lacquer::examples
