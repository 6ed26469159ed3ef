// A window without a frame, with round corners and a soft shadow that shows what is behind it. A click closes it.
#include <stdlib.h>
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

// The card, and the room around it that its shadow needs: 3/2 of the blur, and the offset.
constexpr RECT kCard = {40, 34, 320, 174};
constexpr SIZE kSize = {360, 224};

// Everything is drawn on transparent pixels, so that alpha is right everywhere.
lq::Canvas PaintCard() {
    lq::Canvas canvas = lq::Canvas::CreateSystem(kSize.cx, kSize.cy);
    const ShadowStyle shadow = {0x80000000, 0, 8, 24, 0, {14, 14, 14, 14}, 1, 0};
    DrawShadows(canvas, &kCard, &shadow, 1);
    GeoRoundRect(canvas, &kCard, 0xFFFFFFFF, 0xFFF4EEDD, 1, 14);

    SetColor(canvas, 0xFF333845);
    SetTextSize(canvas, 18);
    lq::TextStyle middle;
    middle.align = lq::TextStyle::Align::Centre;
    middle.vertical = lq::TextStyle::VerticalAlign::Middle;
    lq::Text(L"A window with a shadow", middle).Draw(canvas, kCard);
    return canvas;
}

// Gives the window the canvas's pixels with their alpha. Afterwards the system shows it without any WM_PAINT.
bool Show(HWND window, const lq::Canvas &canvas, BYTE opacity) {
    SIZE size;
    if (!GetCanvasSize(canvas, &size)) return false;
    POINT corner = {0, 0};
    BLENDFUNCTION blend = {AC_SRC_OVER, 0, opacity, AC_SRC_ALPHA};
    GdiFlush();
    return UpdateLayeredWindow(window, nullptr, nullptr, &size, GetCanvasHandle(canvas), &corner, 0, &blend, ULW_ALPHA);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONUP: DestroyWindow(window); return 0;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    SetProcessDPIAware();
    const lq::Canvas canvas = PaintCard();
    if (__argc > 1) return lq::SavePng(canvas, __argv[1]) ? 0 : 1;  // layered_window FILE.png only saves its picture

    WNDCLASSW kind = {};
    kind.lpfnWndProc = Procedure;
    kind.hInstance = instance;
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    kind.lpszClassName = L"LayeredWindow";
    RegisterClassW(&kind);
    const int x = (GetSystemMetrics(SM_CXSCREEN) - kSize.cx) / 2, y = (GetSystemMetrics(SM_CYSCREEN) - kSize.cy) / 2;
    const HWND window = CreateWindowExW(WS_EX_LAYERED, kind.lpszClassName, L"Layered", WS_POPUP, x, y, kSize.cx,
                                        kSize.cy, nullptr, nullptr, instance, nullptr);
    if (!Show(window, canvas, 255)) return 1;
    ShowWindow(window, SW_SHOWNOACTIVATE);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
