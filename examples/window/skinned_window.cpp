// The window procedure.
#include "window/skinned_window.h"

#include <windowsx.h>

namespace lacquer::examples {

namespace {

constexpr wchar_t kClassName[] = L"LacquerExampleWindow";
constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW;

void RegisterWindowClass(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = kClassName;
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        throw std::runtime_error("RegisterClassExW failed");
}

}  // namespace

SkinnedWindow::SkinnedWindow(Scene &scene, SIZE client) : scene_(scene) {
    RegisterWindowClass(Procedure);
    RECT outer{0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&outer, kStyle, FALSE, 0);
    CreateWindowExW(0, kClassName, L"Lacquer", kStyle, CW_USEDEFAULT, CW_USEDEFAULT, outer.right - outer.left,
                    outer.bottom - outer.top, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (window_ == nullptr) throw std::runtime_error("CreateWindowExW failed");
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
    switch (message) {
        case WM_ERASEBKGND: return 1;  // every pixel is painted
        case WM_SIZE: InvalidateRect(window_, nullptr, FALSE); return 0;
        case WM_PAINT: Paint(); return 0;
        case WM_MOUSEMOVE: MouseMoved({GET_X_LPARAM(lengthy), GET_Y_LPARAM(lengthy)}); return 0;
        case WM_MOUSELEAVE:
            isTracking_ = false;
            RepaintIf(scene_.MoveTo({-1, -1}));
            return 0;
        case WM_LBUTTONDOWN:
            SetCapture(window_);
            RepaintIf(scene_.Press());
            return 0;
        case WM_LBUTTONUP:
            ReleaseCapture();
            RepaintIf(scene_.Release());
            if (scene_.isClosed()) DestroyWindow(window_);
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

void SkinnedWindow::Paint() {
    RECT client{};
    GetClientRect(window_, &client);
    if (client.right > 0 && client.bottom > 0) {
        if (client.right != canvasSize_.cx || client.bottom != canvasSize_.cy) {
            canvas_ = MakeCanvas(client.right, client.bottom);
            canvasSize_ = {client.right, client.bottom};
        }
        scene_.Paint(canvas_, canvasSize_);
    }
    PAINTSTRUCT paint{};
    const HDC screen = BeginPaint(window_, &paint);
    const RECT &part = paint.rcPaint;
    const BOOL shown =
        part.right <= part.left || BitBlt(screen, part.left, part.top, part.right - part.left, part.bottom - part.top,
                                          GetCanvasHandle(canvas_.get()), part.left, part.top, SRCCOPY);
    EndPaint(window_, &paint);
    if (!shown) throw std::runtime_error("BitBlt failed");
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
    RepaintIf(scene_.MoveTo(position));
}

void SkinnedWindow::RepaintIf(bool changed) {
    if (changed) InvalidateRect(window_, nullptr, FALSE);
}

}  // namespace lacquer::examples
