// The splash is painted once; its window only shows it.
#include "window/splash_window.h"

#include "window/window_class.h"

namespace lacquer::examples {

namespace {

constexpr wchar_t kClassName[] = L"LacquerExampleSplash";

}  // namespace

// By way of the other constructor, so that the destructor runs when something here throws.
SplashWindow::SplashWindow(const Skin &skin, HWND owner) : SplashWindow() {
    canvas_ = MakeSplash(skin);
    RegisterWindowClass(kClassName, Procedure);
    RECT place{};
    GetWindowRect(owner, &place);
    const Texture texture = Need(canvas_.AsTexture(), "GetTexture");
    const SIZE size = SizeOf(texture);
    CreateWindowExW(0, kClassName, L"About", WS_POPUP, (place.left + place.right - size.cx) / 2,
                    (place.top + place.bottom - size.cy) / 2 - 40, size.cx, size.cy, owner, nullptr,
                    GetModuleHandleW(nullptr), this);
    if (window_ == nullptr) throw std::runtime_error("CreateWindowExW failed");
    SetDrawMode(texture, LACQUER_DRAW_OVER);
    ShapeWindow(window_, texture);
    ShowWindow(window_, SW_SHOWNOACTIVATE);
}

SplashWindow::~SplashWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

LRESULT CALLBACK SplashWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy) {
    if (message == WM_NCCREATE) {
        auto *created = static_cast<SplashWindow *>(reinterpret_cast<CREATESTRUCTW *>(lengthy)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto *self = reinterpret_cast<SplashWindow *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wide, lengthy);
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: try { PaintSession(window).Show(self->canvas_);
            } catch (const std::exception &) {
                // Shown at the next chance; an exception must not pass through the system's frames.
            }
            return 0;
        case WM_LBUTTONUP: DestroyWindow(window); return 0;
        case WM_NCDESTROY:
            self->window_ = nullptr;
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            return DefWindowProcW(window, message, wide, lengthy);
        default: return DefWindowProcW(window, message, wide, lengthy);
    }
}

}  // namespace lacquer::examples
