// The window procedure.
#include "window/skinned_window.h"

#include <windowsx.h>

#include "window/window_class.h"

namespace lacquer::examples {

namespace {

constexpr wchar_t kClassName[] = L"LacquerExampleWindow";
// A frame that the system can size, though it never shows: WM_NCCALCSIZE gives its place to the client area.
constexpr DWORD kStyle = WS_POPUP | WS_THICKFRAME | WS_SYSMENU | WS_MINIMIZEBOX;

LRESULT HitCode(Scene::Area area) {
    switch (area) {
        case Scene::Area::kClient: return HTCLIENT;
        case Scene::Area::kTitle: return HTCAPTION;
        case Scene::Area::kLeft: return HTLEFT;
        case Scene::Area::kTop: return HTTOP;
        case Scene::Area::kRight: return HTRIGHT;
        case Scene::Area::kBottom: return HTBOTTOM;
        case Scene::Area::kTopLeft: return HTTOPLEFT;
        case Scene::Area::kTopRight: return HTTOPRIGHT;
        case Scene::Area::kBottomLeft: return HTBOTTOMLEFT;
        case Scene::Area::kBottomRight: return HTBOTTOMRIGHT;
    }
    return HTCLIENT;
}

}  // namespace

SkinnedWindow::SkinnedWindow(const Skin &skin, Scene &scene) : skin_(skin), scene_(scene) {
    RegisterWindowClass(kClassName, Procedure);
    const SIZE size = scene.size();
    const POINT corner{(GetSystemMetrics(SM_CXSCREEN) - size.cx) / 2, (GetSystemMetrics(SM_CYSCREEN) - size.cy) / 3};
    CreateWindowExW(WS_EX_APPWINDOW, kClassName, L"Coats of lacquer", kStyle, corner.x, corner.y, size.cx, size.cy,
                    nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ != nullptr && failure_.empty()) return;
    if (window_ != nullptr) DestroyWindow(window_);
    throw std::runtime_error("CreateWindowExW failed: " + failure_);
}

SkinnedWindow::~SkinnedWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

LRESULT CALLBACK SkinnedWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy) {
    if (message == WM_NCCREATE) {
        auto *self = static_cast<SkinnedWindow *>(reinterpret_cast<CREATESTRUCTW *>(lengthy)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto *self = reinterpret_cast<SkinnedWindow *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wide, lengthy);
    try {
        return self->Handle(message, wide, lengthy);
    } catch (const std::exception &error) {
        // An exception must not pass through the system's frames.
        self->failure_ = error.what();
        ValidateRect(window, nullptr);
        PostQuitMessage(1);
        return 0;
    }
}

LRESULT SkinnedWindow::Handle(UINT message, WPARAM wide, LPARAM lengthy) {
    const POINT position{GET_X_LPARAM(lengthy), GET_Y_LPARAM(lengthy)};
    switch (message) {
        case WM_NCCALCSIZE: return 0;  // the client area is the whole window
        case WM_NCPAINT: return 0;
        case WM_NCACTIVATE: return TRUE;
        case WM_NCHITTEST: return HitTest(position);
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO *>(lengthy)->ptMinTrackSize = {Scene::kLeastSize.cx, Scene::kLeastSize.cy};
            return 0;
        case WM_SIZE:
            if (wide != SIZE_MINIMIZED) Resize({position.x, position.y});
            return 0;
        case WM_ERASEBKGND: return 1;  // every pixel is painted
        case WM_PAINT: Paint(); return 0;
        case WM_MOUSEMOVE: MouseMoved(position); return 0;
        case WM_MOUSELEAVE:
            isTracking_ = false;
            scene_.MoveTo({-1, -1});
            Update();
            return 0;
        case WM_LBUTTONDOWN:
            splash_.reset();
            SetCapture(window_);
            scene_.Press();
            Update();
            return 0;
        case WM_LBUTTONUP:
            ReleaseCapture();
            scene_.Release();
            Update();
            return 0;
        case WM_MOUSEWHEEL:
            scene_.Scroll(-GET_WHEEL_DELTA_WPARAM(wide) * 2 / WHEEL_DELTA);
            Update();
            return 0;
        case WM_KEYDOWN:
            if (wide == VK_ESCAPE) DestroyWindow(window_);
            return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        case WM_NCDESTROY: {
            const HWND window = std::exchange(window_, nullptr);
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            return DefWindowProcW(window, message, wide, lengthy);
        }
        default: return DefWindowProcW(window_, message, wide, lengthy);
    }
}

LRESULT SkinnedWindow::HitTest(POINT screenPosition) const {
    ScreenToClient(window_, &screenPosition);
    return HitCode(scene_.AreaAt(screenPosition));
}

void SkinnedWindow::Resize(SIZE size) {
    if (canvas_ && size.cx == scene_.size().cx && size.cy == scene_.size().cy) return;
    scene_.Resize(size);
    canvas_ = MakeCanvas(scene_.size().cx, scene_.size().cy);
    // The frame's own corners shape the window.
    scene_.Paint(canvas_);
    const Texture texture = Need(canvas_.AsTexture(), "GetTexture");
    SetDrawMode(texture, LACQUER_DRAW_OVER);
    ShapeWindow(window_, texture);
    Update();
}

void SkinnedWindow::Paint() {
    const PaintSession session(window_);
    const RECT &part = session.part();
    if (part.right > part.left && part.bottom > part.top) {
        Check(SetCanvasClipRect(canvas_, &part), "SetCanvasClipRect");
        scene_.Paint(canvas_);
        session.Show(canvas_);
    }
    lastPaint_ = part;
    ++paintCount_;
}

void SkinnedWindow::MouseMoved(POINT position) {
    if (!isTracking_) {
        TRACKMOUSEEVENT track{};
        track.cbSize = sizeof track;
        track.dwFlags = TME_LEAVE;
        track.hwndTrack = window_;
        isTracking_ = TrackMouseEvent(&track) != 0;
    }
    scene_.MoveTo(position);
    Update();
}

/// Hands the scene's changes and wishes on to the system.
void SkinnedWindow::Update() {
    for (const RECT &rect : scene_.TakeInvalid()) InvalidateRect(window_, &rect, FALSE);
    switch (scene_.TakeWish()) {
        case Scene::Wish::kMinimise: ShowWindow(window_, SW_MINIMIZE); break;
        case Scene::Wish::kAbout: splash_ = std::make_unique<SplashWindow>(skin_, window_); break;
        case Scene::Wish::kClose: DestroyWindow(window_); break;
        default: break;
    }
}

}  // namespace lacquer::examples
