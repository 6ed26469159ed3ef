// A window with a button of a skin: it lights up under the mouse, goes down when it is pressed, and counts its clicks.
#include <windows.h>
#include <windowsx.h>
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <string>

namespace {

constexpr RECT kPlace = {60, 40, 260, 84};

// What a button needs to know. Its states have the order of the sheet.
struct Button {
    bool hot = false, pressed = false;  // the mouse is over it; the mouse button went down on it
    int State() const { return pressed && hot ? 2 : hot || pressed ? 1 : 0; }
};

struct Window {
    lq::Canvas canvas = lq::Canvas::CreateSystem(320, 124);
    lq::Texture sheet = lq::LoadTexture("button.png");
    lq::SkinPiece piece;
    Button button;
    int clicks = 0;
};

void Paint(Window &self) {
    self.canvas.Fill({0, 0, 320, 124}, 0xFFF4EEDD);
    self.piece.Draw(self.canvas, kPlace, self.button.State());

    const std::wstring caption = L"Clicked " + std::to_wstring(self.clicks) + L" times";
    SetColor(self.canvas, 0xFFFFFFFF);
    SetTextSize(self.canvas, 14);
    lq::TextStyle middle;
    middle.align = lq::TextStyle::Align::Centre;
    middle.vertical = lq::TextStyle::VerticalAlign::Middle;
    lq::Text(caption, middle).Draw(self.canvas, kPlace);
}

// Lets `change` change the button, and paints what it looks like when that is different.
template <typename Change>
void Update(HWND window, Window &self, Change change) {
    const int before = self.button.State();
    change(self.button);
    if (self.button.State() != before) InvalidateRect(window, &kPlace, FALSE);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto *self = reinterpret_cast<Window *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    const POINT mouse = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_MOUSEMOVE: {
            TRACKMOUSEEVENT leave = {sizeof leave, TME_LEAVE, window, 0};
            TrackMouseEvent(&leave);  // asks for WM_MOUSELEAVE
            Update(window, *self, [&](Button &button) { button.hot = PtInRect(&kPlace, mouse); });
            return 0;
        }
        case WM_MOUSELEAVE: Update(window, *self, [](Button &button) { button.hot = false; }); return 0;
        case WM_LBUTTONDOWN:
            SetCapture(window);  // so that the release comes here, wherever the mouse is then
            Update(window, *self, [&](Button &button) { button.pressed = PtInRect(&kPlace, mouse); });
            return 0;
        case WM_LBUTTONUP:
            if (self->button.pressed && self->button.hot) ++self->clicks;
            ReleaseCapture();  // sends WM_CAPTURECHANGED
            return 0;
        case WM_CAPTURECHANGED: Update(window, *self, [](Button &button) { button.pressed = false; }); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            Paint(*self);
            PAINTSTRUCT paint;
            BitBlt(BeginPaint(window, &paint), 0, 0, 320, 124, GetCanvasHandle(self->canvas), 0, 0, SRCCOPY);
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
    if (!self.sheet) return 1;
    self.piece.sheet = self.sheet;
    self.piece.frame = {0, 0, 104, 44};
    self.piece.margins = {18, 18, 18, 18};
    self.piece.states = 4;

    WNDCLASSW kind = {};
    kind.lpfnWndProc = Procedure;
    kind.hInstance = instance;
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    kind.lpszClassName = L"HoverButton";
    RegisterClassW(&kind);
    RECT size = {0, 0, 320, 124};  // of the client area; the frame comes on top
    AdjustWindowRect(&size, WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU, FALSE);
    const HWND window = CreateWindowExW(0, kind.lpszClassName, L"Hover", WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU,
                                        CW_USEDEFAULT, CW_USEDEFAULT, size.right - size.left, size.bottom - size.top,
                                        nullptr, nullptr, instance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&self));
    ShowWindow(window, show);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return 0;
}
