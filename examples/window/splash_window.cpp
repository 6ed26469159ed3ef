// A timer shows the frames.
#include "window/splash_window.h"

#include "window/showing.h"

namespace lacquer::examples {

namespace {

constexpr UINT kFramePause = 33;  // milliseconds
constexpr UINT_PTR kTimer = 1;

}  // namespace

SplashWindow::SplashWindow(const Skin &skin, const Lottie &animation, HWND owner, Scale px)
    : animation_(animation), picture_(skin, px), canvas_(MakeCanvas(picture_.size().cx, picture_.size().cy)) {
    RECT place{};
    GetWindowRect(owner, &place);
    const SIZE size = picture_.size();
    const POINT corner{(place.left + place.right - size.cx) / 2, (place.top + place.bottom - size.cy) / 2 - px(20)};
    Create(L"LacquerExampleSplash", L"About", WS_POPUP, WS_EX_LAYERED, Box(corner.x, corner.y, size.cx, size.cy),
           owner);
    ShowFrame();
    ShowWindow(handle(), SW_SHOWNOACTIVATE);
    SetTimer(handle(), kTimer, kFramePause, nullptr);
}

LRESULT SplashWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER: ShowFrame(); return 0;
        case WM_LBUTTONUP: DestroyWindow(handle()); return 0;
        default: return NativeWindow::Handle(message, wParam, lParam);
    }
}

void SplashWindow::ShowFrame() {
    const double seconds = static_cast<double>(GetTickCount64() - start_) / 1000;
    picture_.Paint(canvas_, animation_, animation_.FrameAt(seconds));
    ShowLayered(handle(), canvas_);
}

}  // namespace lacquer::examples
