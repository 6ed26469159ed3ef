// Reading back and comparing.
#include "window/screen.h"

#include <algorithm>
#include <fstream>

namespace lacquer::examples {

namespace {

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

}  // namespace

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
    const auto pixels = Locked(canvas);
    Pixels result{.width = pixels.Width(), .height = pixels.Height(), .words = {}};
    for (int y = 0; y < pixels.Height(); ++y)
        result.words.insert(result.words.end(), pixels.Row(y).begin(), pixels.Row(y).end());
    return result;
}

void Overlay(Pixels &under, const Pixels &above, POINT corner) {
    for (LONG y = std::max(-corner.y, 0L); y < std::min(above.height, under.height - corner.y); ++y) {
        for (LONG x = std::max(-corner.x, 0L); x < std::min(above.width, under.width - corner.x); ++x) {
            const DWORD word = above.words[static_cast<std::size_t>(y * above.width + x)];
            if (word != 0) under.words[static_cast<std::size_t>((y + corner.y) * under.width + x + corner.x)] = word;
        }
    }
}

std::size_t CountDifferences(const Pixels &screen, const Pixels &expected) {
    if (screen.width != expected.width || screen.height != expected.height)
        return std::max(screen.words.size(), expected.words.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < screen.words.size(); ++i)
        count += expected.words[i] != 0 && ((screen.words[i] ^ expected.words[i]) & kColours) != 0;
    return count;
}

std::size_t CountColours(const Pixels &pixels) {
    std::vector<DWORD> colours = pixels.words;
    std::sort(colours.begin(), colours.end());
    return static_cast<std::size_t>(std::unique(colours.begin(), colours.end()) - colours.begin());
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

}  // namespace lacquer::examples
