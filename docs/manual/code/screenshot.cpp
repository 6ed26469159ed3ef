// Saves what the screen shows of a window: screenshot TITLE FILE.png
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

#include <cstdio>

// The part of the screen inside `area`, screen pixels.
lq::Canvas ReadScreen(const RECT &area) {
    const int width = area.right - area.left, height = area.bottom - area.top;
    lq::Canvas canvas = lq::Canvas::CreateSystem(static_cast<DWORD>(width), static_cast<DWORD>(height));
    const HDC screen = GetDC(nullptr);
    BitBlt(GetCanvasHandle(canvas), 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    ReleaseDC(nullptr, screen);
    GdiFlush();  // GDI has finished drawing when this returns: now the pixels can be read
    return canvas;
}

int main(int count, char **arguments) {
    if (count != 3) return 2;
    SetProcessDPIAware();  // or the screen's pixels are not those of the window's rectangle
    const HWND window = FindWindowA(nullptr, arguments[1]);
    RECT client;
    if (!GetClientRect(window, &client)) {
        std::printf("There is no window with this title.\n");
        return 1;
    }
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT *>(&client), 2);  // to screen coordinates
    const lq::Canvas canvas = ReadScreen(client);
    // GDI leaves no alpha: LACQUER_PNG_OPAQUE saves the colours alone.
    return lq::SavePng(canvas, arguments[2], LACQUER_PNG_OPAQUE) ? 0 : 1;
}
