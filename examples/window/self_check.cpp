// Reading a window back, and the steps of the check.
#include "window/self_check.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <vector>

namespace lacquer::examples {

namespace {

struct Pixels {
    LONG width = 0;
    LONG height = 0;
    std::vector<DWORD> words;  // 0x00RRGGBB

    bool operator==(const Pixels &) const = default;
};

constexpr DWORD kColours = 0xFFFFFF;

BITMAPINFOHEADER DescribePixels(const Pixels &pixels) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = pixels.width;
    header.biHeight = -pixels.height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    return header;
}

/// The client area as the screen shows it.
Pixels ReadScreen(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    POINT corner{};
    ClientToScreen(window, &corner);
    Pixels result{.width = client.right, .height = client.bottom, .words = {}};
    BITMAPINFO info{};
    info.bmiHeader = DescribePixels(result);
    void *bits = nullptr;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP section = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    bool read = false;
    if (section != nullptr) {
        const HGDIOBJ previous = SelectObject(memory, section);
        read = BitBlt(memory, 0, 0, result.width, result.height, screen, corner.x, corner.y, SRCCOPY) != 0;
        GdiFlush();
        SelectObject(memory, previous);
        const auto *words = static_cast<const DWORD *>(bits);
        for (LONG i = 0; read && i < result.width * result.height; ++i) result.words.push_back(words[i] & kColours);
        DeleteObject(section);
    }
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (!read) throw std::runtime_error("the screen can't be read");
    return result;
}

Pixels ReadCanvas(const Canvas &canvas) {
    const CanvasPixels pixels(canvas.get());
    Pixels result{.width = pixels.width(), .height = pixels.height(), .words = {}};
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x) result.words.push_back(pixels.words(y)[x] & kColours);
    return result;
}

void WriteBmp(const std::string &path, const Pixels &pixels) {
    const BITMAPINFOHEADER header = DescribePixels(pixels);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof file + sizeof header;
    const auto byteCount = static_cast<DWORD>(pixels.words.size() * sizeof(DWORD));
    file.bfSize = file.bfOffBits + byteCount;
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char *>(&file), sizeof file);
    out.write(reinterpret_cast<const char *>(&header), sizeof header);
    out.write(reinterpret_cast<const char *>(pixels.words.data()), static_cast<std::streamsize>(byteCount));
    if (!out.flush()) throw std::runtime_error("writing " + path + " failed");
}

std::size_t CountColours(const Pixels &pixels) {
    std::vector<DWORD> colours = pixels.words;
    std::sort(colours.begin(), colours.end());
    return static_cast<std::size_t>(std::unique(colours.begin(), colours.end()) - colours.begin());
}

std::size_t CountDifferences(const Pixels &a, const Pixels &b) {
    if (a.width != b.width || a.height != b.height) return std::max(a.words.size(), b.words.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.words.size(); ++i) count += a.words[i] != b.words[i];
    return count;
}

/// Handles what the system has sent, for a while.
void Pump(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    do {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
        Sleep(10);
    } while (GetTickCount() - start < milliseconds);
}

/// Handles messages until the window has been painted more than `paints` times and the screen shows the canvas, for ten
/// seconds at most: the system may bring a painted window to the screen a little later. Returns what the screen shows
/// in the end.
Pixels AwaitScreen(const SkinnedWindow &window, int paints) {
    const DWORD start = GetTickCount();
    Pixels shown;
    do {
        Pump(50);
        if (!window.failure().empty()) throw std::runtime_error(window.failure());
        if (window.handle() == nullptr) throw std::runtime_error("the window was closed");
        if (window.paintCount() <= paints) continue;
        shown = ReadScreen(window.handle());
        if (shown == ReadCanvas(window.canvas())) break;
    } while (GetTickCount() - start < 10000);
    if (window.paintCount() <= paints) throw std::runtime_error("the window was not painted");
    return shown;
}

void MoveMouse(HWND window, POINT position) {
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(position.x, position.y));
}

}  // namespace

bool SelfCheck(SkinnedWindow &window, const Scene &scene, const std::string &screenshot) {
    // A picture of one surface and a few shadows has thousands of colours; a blank or half-painted window has not.
    constexpr std::size_t fewestColours = 2000;
    bool passed = true;
    Pixels before;
    int paints = 0;
    const auto step = [&](const char *name, bool changes) {
        const Pixels shown = AwaitScreen(window, paints);
        const std::size_t differences = CountDifferences(shown, ReadCanvas(window.canvas()));
        const std::size_t colours = CountColours(shown);
        const bool changed = !(shown == before);
        const bool good = differences == 0 && colours >= fewestColours && changed == changes;
        std::printf("%s: %ld x %ld, %zu of %zu pixels differ, %zu colours, %s: %s\n", name, shown.width, shown.height,
                    differences, shown.words.size(), colours, changed ? "changed" : "unchanged", good ? "good" : "BAD");
        passed = passed && good;
        before = shown;
        paints = window.paintCount();
    };

    const HWND handle = window.handle();
    ShowWindow(handle, SW_SHOWNOACTIVATE);
    step("shown", true);

    InvalidateRect(handle, nullptr, FALSE);
    step("painted again", false);

    MoveMouse(handle, scene.firstCheckBox());
    SendMessageW(handle, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    SendMessageW(handle, WM_LBUTTONUP, 0, 0);
    MoveMouse(handle, {0, 0});
    step("box unchecked", true);

    SetWindowPos(handle, nullptr, 0, 0, 760, 560, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    step("resized", true);

    MoveMouse(handle, scene.addButton());
    SendMessageW(handle, WM_LBUTTONDOWN, MK_LBUTTON, 0);
    SendMessageW(handle, WM_LBUTTONUP, 0, 0);
    MoveMouse(handle, {0, 0});
    step("coat added", true);

    if (!screenshot.empty()) WriteBmp(screenshot, before);
    SendMessageW(handle, WM_KEYDOWN, VK_ESCAPE, 0);
    const bool closed = window.handle() == nullptr;
    std::printf("closed by the Escape key: %s\n", closed ? "good" : "BAD");
    return passed && closed;
}

}  // namespace lacquer::examples
