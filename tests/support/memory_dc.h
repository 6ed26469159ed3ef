// A memory device context with a bitmap of the test's own, as a caller of the library has one.
#pragma once

#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <vector>

namespace lacquer {

/// The header of a DIB without a colour table.
inline BITMAPINFO HeaderOf(LONG width, LONG height, WORD bitsPerPixel) {
    return {{sizeof(BITMAPINFOHEADER), width, height, 1, bitsPerPixel, BI_RGB, 0, 0, 0, 0, 0}, {}};
}

/// A DIB section, or null; `height` is negative for a top-down one. Below 16 bits per pixel the colour table has the
/// colours given, and black after them.
HBITMAP NewSection(int width, int height, WORD bitsPerPixel, void **bits = nullptr,
                   const std::vector<RGBQUAD> &colours = {});

/// A DIB section. Positive heights make it top-down, negative ones bottom-up.
class Dib {
public:
    Dib(int width, int height, WORD bitsPerPixel = 32, const std::vector<RGBQUAD> &colours = {});
    ~Dib() { DeleteObject(handle_); }
    Dib(const Dib &) = delete;
    Dib &operator=(const Dib &) = delete;

    HBITMAP Handle() const { return handle_; }

    /// The pixels in memory order, whichever way the rows run.
    SurfaceView View() const;

private:
    const HBITMAP handle_;
};

/// A memory device context, with a bitmap selected that outlives it.
class MemoryDC {
public:
    explicit MemoryDC(HBITMAP bitmap);
    ~MemoryDC();
    MemoryDC(const MemoryDC &) = delete;
    MemoryDC &operator=(const MemoryDC &) = delete;

    operator HDC() const { return dc_; }

private:
    HDC dc_ = nullptr;
    HGDIOBJ previous_ = nullptr;
};

/// Makes the clip of a device context the rectangle without `hole`, which may be empty, in device coordinates.
void SelectClipWithHole(HDC dc, const RECT &rect, const RECT &hole);

}  // namespace lacquer
