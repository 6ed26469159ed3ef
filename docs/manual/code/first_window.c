/* A window that paints itself: it draws on a canvas and copies the canvas to the screen. */
#include <lacquer/lacquer.h>

static HGCANVAS canvas;

/* Paints the whole picture, at the size of the canvas. */
static void Paint(void) {
    SIZE size;
    if (!GetCanvasSize(canvas, &size)) return;
    const RECT all = {0, 0, size.cx, size.cy};
    const RECT card = {24, 24, size.cx - 24, size.cy - 24};
    const ShadowStyle shadow = {
        .colour = 0x60000000, .offsetY = 4, .blur = 16, .radii = {12, 12, 12, 12}, .lightness = 1};

    FillGradualRect(canvas, 0xFF6C7A94, 0xFF39415A, &all, 1);
    DrawShadows(canvas, &card, &shadow, 1);
    GeoRoundRect(canvas, &card, 0xFFFFFFFF, 0xFFF4EEDD, 1, 12);

    SetColor(canvas, 0xFF333845);
    SetTextSize(canvas, 24);
    DrawTextRun(canvas, L"Hello, Lacquer", -1, 48, 72);
}

static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            DeleteCanvas(canvas);
            canvas = CreateSystemCanvas(LOWORD(lParam), HIWORD(lParam), (HGCANVAS){0});
            Paint();
            InvalidateRect(window, NULL, FALSE);
            return 0;
        case WM_ERASEBKGND: return 1; /* the canvas covers everything: nothing to erase, nothing flickers */
        case WM_PAINT: {
            PAINTSTRUCT paint;
            const HDC dc = BeginPaint(window, &paint);
            const RECT *r = &paint.rcPaint;
            BitBlt(dc, r->left, r->top, r->right - r->left, r->bottom - r->top, GetCanvasHandle(canvas), r->left,
                   r->top, SRCCOPY);
            EndPaint(window, &paint);
            return 0;
        }
        case WM_DESTROY:
            DeleteCanvas(canvas);
            PostQuitMessage(0);
            return 0;
        default: return DefWindowProcW(window, message, wParam, lParam);
    }
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR line, int show) {
    (void)previous, (void)line;
    SetProcessDPIAware(); /* one pixel of the canvas is one pixel of the screen */
    const WNDCLASSW kind = {.lpfnWndProc = Procedure,
                            .hInstance = instance,
                            .hCursor = LoadCursorW(NULL, (LPCWSTR)IDC_ARROW),
                            .lpszClassName = L"FirstWindow"};
    RegisterClassW(&kind);
    const HWND window = CreateWindowExW(0, kind.lpszClassName, L"First window", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                        CW_USEDEFAULT, 400, 240, NULL, NULL, instance, NULL);
    ShowWindow(window, show);

    MSG message;
    while (GetMessageW(&message, NULL, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
