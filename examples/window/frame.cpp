// The skin's frame as the system sees it.
#include "window/frame.h"

namespace lacquer::examples {

LRESULT HitCode(Area area) {
    switch (area) {
        case Area::kClient: return HTCLIENT;
        case Area::kTitle: return HTCAPTION;
        case Area::kLeft: return HTLEFT;
        case Area::kTop: return HTTOP;
        case Area::kRight: return HTRIGHT;
        case Area::kBottom: return HTBOTTOM;
        case Area::kTopLeft: return HTTOPLEFT;
        case Area::kTopRight: return HTTOPRIGHT;
        case Area::kBottomLeft: return HTBOTTOMLEFT;
        case Area::kBottomRight: return HTBOTTOMRIGHT;
    }
    return HTCLIENT;
}

void LimitSize(HWND window, SIZE least, MINMAXINFO &limits) {
    limits.ptMinTrackSize = {least.cx, least.cy};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor)) return;
    const RECT &work = monitor.rcWork;
    limits.ptMaxPosition = {work.left - monitor.rcMonitor.left, work.top - monitor.rcMonitor.top};
    limits.ptMaxSize = {work.right - work.left, work.bottom - work.top};
}

void ShapeWindow(HWND window, const Canvas *canvas) {
    HRGN region = nullptr;
    if (canvas != nullptr) {
        const Texture texture = Need(canvas->AsTexture(), "GetTexture");
        SetDrawMode(texture, LACQUER_DRAW_OVER);
        region = Need(CreateTextureRgn(texture, nullptr), "CreateTextureRgn");
    }
    // The window owns the region now.
    if (SetWindowRgn(window, region, TRUE) != 0) return;
    DeleteObject(region);
    throw std::runtime_error("SetWindowRgn failed");
}

}  // namespace lacquer::examples
