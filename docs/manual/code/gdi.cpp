// GDI on a canvas: what it does to alpha, how that is put right, regions, and DPI. Paints gdi_alpha.png.
#include <lacquer/image.hpp>
#include <lacquer/lacquer.hpp>

namespace {

// GDI draws into `area` of a canvas and leaves alpha 0 in the pixels that it touches.
void DrawWithGdi(HGCANVAS canvas, RECT area) {
    const HDC dc = GetCanvasHandle(canvas);
    const HBRUSH brush = CreateSolidBrush(RGB(0x96, 0x32, 0x32));
    FillRect(dc, &area, brush);
    DeleteObject(brush);
    GdiFlush();
}

// [repair]
// Makes `area` of a canvas opaque again; its colours stay.
void RepairAlpha(HGCANVAS canvas, const RECT &area) {
    GdiFlush();  // GDI may still be drawing
    FillPreMulColorRectEx(canvas, 0xFF000000, &area, static_cast<DWORD>(LACQUER_DRAW_OR) << 24);
}
// [/repair]

bool Alpha() {
    lq::Canvas page = lq::Canvas::CreateSystem(232, 72);
    page.Fill({0, 0, 232, 72}, 0xFFF4EEDD);
    for (int i = 0; i < 2; ++i) {
        lq::Canvas layer = lq::Canvas::CreateSystem(96, 56);
        layer.SetDrawMode(LACQUER_DRAW_OVER);
        layer.Fill({0, 0, 96, 56}, 0xFF39415A);
        const RECT area = {16, 16, 80, 40};
        DrawWithGdi(layer, area);
        if (i == 1) RepairAlpha(layer, area);
        page.Blend({12 + i * 112, 8, 108 + i * 112, 64}, layer, {0, 0, 96, 56});
    }
    return lq::SavePng(page, "gdi_alpha.png");
}

// [region]
// Gives a window the shape of a picture: what is clear in it is no part of the window.
bool ShapeWindow(HWND window, HGTEXTURE picture) {
    const HRGN region = CreateTextureRgn(picture, nullptr);
    return region && SetWindowRgn(window, region, TRUE);  // the system owns the region from now on
}
// [/region]

// [dpi]
// For a window of a process that is aware of each monitor's DPI: 1 at 96 DPI, 1.5 at 144, and so on.
float ScaleOf(HWND window) { return lq::ScaleForDpi(GetDpiForWindow(window)); }

LRESULT OnDpiChanged(HWND window, LPARAM lParam) {
    // The system suggests where the window should be now. WM_SIZE follows, and makes a canvas of the new size.
    const RECT *place = reinterpret_cast<const RECT *>(lParam);
    SetWindowPos(window, nullptr, place->left, place->top, place->right - place->left, place->bottom - place->top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    return 0;
}
// [/dpi]

// [dc]
// Draws an icon on a device context that is not the library's own: a control's, or one that another part of the program
// gives out.
bool DrawOnContext(HDC dc, HGTEXTURE icon, int x, int y) {
    lq::Canvas canvas = lq::Canvas::FromContext(dc);  // the context must outlive the canvas
    return canvas && canvas.Draw(icon, {x, y, x + 64, y + 64});
}
// [/dc]

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DPICHANGED) return OnDpiChanged(window, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

// Makes a window, shapes it, moves it to another DPI, and draws on its context. False when something did not work.
bool Windows() {
    WNDCLASSW kind = {};
    kind.lpfnWndProc = Procedure;
    kind.lpszClassName = L"ManualGdi";
    RegisterClassW(&kind);
    const HWND window =
        CreateWindowExW(0, kind.lpszClassName, L"GDI", WS_POPUP, 0, 0, 64, 64, nullptr, nullptr, nullptr, nullptr);
    const lq::Texture icon = lq::LoadTexture("icon.png");
    bool done = window && ShapeWindow(window, icon) && ScaleOf(window) > 0;

    const RECT larger = {10, 10, 110, 90};
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&larger));
    RECT place;
    done = done && GetWindowRect(window, &place) && EqualRect(&place, &larger);

    lq::Canvas memory = lq::Canvas::CreateSystem(64, 64);
    done = done && DrawOnContext(GetCanvasHandle(memory), icon, 0, 0);
    DestroyWindow(window);
    return done;
}

}  // namespace

int main() { return Alpha() && Windows() ? 0 : 1; }
