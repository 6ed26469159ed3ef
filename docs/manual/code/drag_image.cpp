// A window with an icon that can be dragged. While the mouse holds it, a translucent picture of it follows the mouse
// in a layered window of its own, also outside of the window that it comes from.
#include <stdlib.h>
#include <windows.h>
#include <windowsx.h>
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

constexpr SIZE kSize = {320, 200};

struct Window {
    lq::Canvas canvas = lq::Canvas::CreateSystem(kSize.cx, kSize.cy);
    lq::Canvas image = lq::Canvas::CreateSystem(64, 64);  // what is dragged, translucent
    lq::Texture icon = lq::LoadTexture("icon.png");
    RECT place = {32, 32, 96, 96};
    SIZE grip = {};       // from the icon's corner to the mouse
    HWND drag = nullptr;  // the window that follows the mouse
};

// A window that shows the image, lets the mouse through and takes no focus.
HWND ShowDragImage(HWND owner, const lq::Canvas &image, POINT corner) {
    constexpr DWORD kStyle = WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_TOPMOST | WS_EX_NOACTIVATE;
    const HWND window =
        CreateWindowExW(kStyle, L"STATIC", L"", WS_POPUP, corner.x, corner.y, 64, 64, owner, nullptr, nullptr, nullptr);
    SIZE size = {64, 64};
    POINT origin = {0, 0};
    BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    UpdateLayeredWindow(window, nullptr, nullptr, &size, GetCanvasHandle(image), &origin, 0, &blend, ULW_ALPHA);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    return window;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto *self = reinterpret_cast<Window *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    const POINT mouse = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    POINT corner = {mouse.x - self->grip.cx, mouse.y - self->grip.cy};
    switch (message) {
        case WM_LBUTTONDOWN:
            if (!PtInRect(&self->place, mouse)) return 0;
            self->grip = {mouse.x - self->place.left, mouse.y - self->place.top};
            corner = {self->place.left, self->place.top};
            ClientToScreen(window, &corner);
            self->drag = ShowDragImage(window, self->image, corner);
            SetCapture(window);
            return 0;
        case WM_MOUSEMOVE:
            if (!self->drag) return 0;
            ClientToScreen(window, &corner);
            SetWindowPos(self->drag, nullptr, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            return 0;
        case WM_LBUTTONUP:
            if (!self->drag) return 0;
            self->place = {corner.x, corner.y, corner.x + 64, corner.y + 64};
            ReleaseCapture();
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        case WM_CAPTURECHANGED:  // the drag has ended, or something has interrupted it
            if (self->drag) DestroyWindow(self->drag);
            self->drag = nullptr;
            return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            const RECT all = {0, 0, kSize.cx, kSize.cy};
            self->canvas.Fill(all, 0xFFF4EEDD);
            self->canvas.Draw(self->icon, self->place);
            PAINTSTRUCT paint;
            BitBlt(BeginPaint(window, &paint), 0, 0, kSize.cx, kSize.cy, GetCanvasHandle(self->canvas), 0, 0, SRCCOPY);
            EndPaint(window, &paint);
            return 0;
        }
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
    SetProcessDPIAware();
    Window self;
    if (!self.icon || !self.image.Draw(self.icon, {0, 0, 64, 64}, LACQUER_BILINEAR, 160)) return 1;
    if (__argc > 1) return lq::SavePng(self.image, __argv[1]) ? 0 : 1;  // drag_image FILE.png only saves the image

    WNDCLASSW kind = {};
    kind.lpfnWndProc = Procedure;
    kind.hInstance = instance;
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    kind.lpszClassName = L"DragImage";
    RegisterClassW(&kind);
    RECT size = {0, 0, kSize.cx, kSize.cy};
    AdjustWindowRect(&size, WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU, FALSE);
    const HWND window = CreateWindowExW(0, kind.lpszClassName, L"Drag", WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU,
                                        CW_USEDEFAULT, CW_USEDEFAULT, size.right - size.left, size.bottom - size.top,
                                        nullptr, nullptr, instance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&self));
    ShowWindow(window, show);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return 0;
}
