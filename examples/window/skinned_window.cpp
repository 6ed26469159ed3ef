// The window's messages.
#include "window/skinned_window.h"

#include <windowsx.h>

#include "window/dpi.h"
#include "window/frame.h"
#include "window/showing.h"

namespace lacquer::examples {

SkinnedWindow::SkinnedWindow(const Skin &skin, const Lottie &animation, Scene &scene)
    : skin_(skin), animation_(animation), scene_(scene) {
    const SIZE size = scene.size();
    Create(L"LacquerExampleWindow", L"Coats of lacquer", kFrameStyle, WS_EX_APPWINDOW, Box(0, 0, size.cx, size.cy),
           nullptr);
    px_ = ScaleOf(handle());
    const SIZE scaled = px_(size);
    SetWindowPos(handle(), nullptr, (GetSystemMetrics(SM_CXSCREEN) - scaled.cx) / 2,
                 (GetSystemMetrics(SM_CYSCREEN) - scaled.cy) / 3, scaled.cx, scaled.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    ThrowFailure();
}

LRESULT SkinnedWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto result = HandleFrame(message, lParam)) return *result;
    if (HandleMouse(message, wParam, lParam) || HandleKey(message, wParam)) {
        Update();
        return 0;
    }
    switch (message) {
        case WM_ERASEBKGND: return 1;  // every pixel is painted
        case WM_PAINT: Paint(); return 0;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) Resize({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_DPICHANGED: ChangeDpi(HIWORD(wParam), *reinterpret_cast<const RECT *>(lParam)); return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: return NativeWindow::Handle(message, wParam, lParam);
    }
}

/// The skin takes the place of the system's frame.
std::optional<LRESULT> SkinnedWindow::HandleFrame(UINT message, LPARAM lParam) {
    switch (message) {
        case WM_NCCALCSIZE:  // the client area is the whole window
        case WM_NCPAINT: return 0;
        case WM_NCACTIVATE: return TRUE;
        case WM_NCHITTEST: {
            POINT position{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            ScreenToClient(handle(), &position);
            return HitCode(scene_.AreaAt(position));
        }
        case WM_GETMINMAXINFO:
            LimitSize(handle(), px_(Scene::kLeastSize), *reinterpret_cast<MINMAXINFO *>(lParam));
            return 0;
        default: return std::nullopt;
    }
}

bool SkinnedWindow::HandleMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_MOUSEMOVE:
            TrackMouse();
            scene_.MoveTo({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return true;
        case WM_MOUSELEAVE:
            isTracking_ = false;
            scene_.MoveTo({-1, -1});
            return true;
        case WM_LBUTTONDOWN:
            splash_.reset();
            SetCapture(handle());
            scene_.Press();
            return true;
        case WM_LBUTTONUP:
            scene_.Release();
            ReleaseCapture();
            return true;
        case WM_CAPTURECHANGED: scene_.Cancel(); return true;
        case WM_MOUSEWHEEL: scene_.Scroll(wheel_.Turn(GET_WHEEL_DELTA_WPARAM(wParam))); return true;
        default: return false;
    }
}

bool SkinnedWindow::HandleKey(UINT message, WPARAM wParam) {
    if (message == WM_KILLFOCUS) scene_.Cancel();
    if (message != WM_KEYDOWN && message != WM_KEYUP) return message == WM_KILLFOCUS;
    const std::optional<Key> key = KeyOf(wParam, GetKeyState(VK_SHIFT) < 0);
    if (!key) return false;
    if (message == WM_KEYUP) {
        scene_.KeyUp(*key);
    } else if (splash_ && splash_->handle() != nullptr) {
        splash_.reset();
    } else {
        scene_.KeyDown(*key);
    }
    return true;
}

void SkinnedWindow::Resize(SIZE size) {
    const bool isMaximised = IsZoomed(handle()) != 0;
    const Layout &before = scene_.layout();
    if (canvas_ && size.cx == before.size().cx && size.cy == before.size().cy && isMaximised == before.isMaximised() &&
        px_.factor() == before.px().factor())
        return;
    scene_.Resize(size, px_, isMaximised);
    canvas_ = MakeCanvas(scene_.size().cx, scene_.size().cy);
    // The frame's own corners shape the window.
    scene_.Paint(canvas_);
    ShapeWindow(handle(), isMaximised ? nullptr : &canvas_);
    Update();
}

/// The window is on a screen of another resolution now, which wants it at another place.
void SkinnedWindow::ChangeDpi(WORD dpi, const RECT &place) {
    px_ = Scale(lq::ScaleForDpi(dpi));
    splash_.reset();
    SetWindowPos(handle(), nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    // Also when the size has stayed the same.
    RECT client{};
    GetClientRect(handle(), &client);
    Resize({client.right, client.bottom});
}

void SkinnedWindow::Paint() {
    const PaintSession session(handle());
    for (const RECT &part : session.parts()) {
        Check(SetCanvasClipRect(canvas_, &part), "SetCanvasClipRect");
        scene_.Paint(canvas_);
    }
    session.Show(canvas_);
}

/// Asks the system to tell when the mouse leaves the window.
void SkinnedWindow::TrackMouse() {
    if (isTracking_) return;
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = handle();
    isTracking_ = TrackMouseEvent(&track) != 0;
}

/// Hands the scene's changes and wishes on to the system.
void SkinnedWindow::Update() {
    for (const RECT &rect : scene_.TakeInvalid()) InvalidateRect(handle(), &rect, FALSE);
    switch (scene_.TakeWish()) {
        case Scene::Wish::kMinimise: ShowWindow(handle(), SW_MINIMIZE); break;
        case Scene::Wish::kMaximise: ShowWindow(handle(), IsZoomed(handle()) ? SW_RESTORE : SW_MAXIMIZE); break;
        case Scene::Wish::kAbout: splash_ = std::make_unique<SplashWindow>(skin_, animation_, handle(), px_); break;
        case Scene::Wish::kClose: DestroyWindow(handle()); break;
        default: break;
    }
}

}  // namespace lacquer::examples
