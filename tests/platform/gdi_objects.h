// GDI objects that clean up after a test.
#pragma once

#include <cstdint>
#include <ostream>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "support/memory_dc.h"
#include "support/pixels.h"

// For failure messages.
bool operator==(const RECT &first, const RECT &second);
std::ostream &operator<<(std::ostream &out, const RECT &rect);

namespace lacquer {

/// Whether it is the system's own GDI that is tested.
#ifdef _WIN32
inline constexpr bool kIsSystem = true;
#else
inline constexpr bool kIsSystem = false;
#endif

/// A region of one rectangle, or a handle that was made elsewhere.
class OwnedRegion {
public:
    explicit OwnedRegion(const RECT &rect) : handle_(CreateRectRgnIndirect(&rect)) {}
    explicit OwnedRegion(HRGN handle) : handle_(handle) {}
    OwnedRegion(OwnedRegion &&other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    ~OwnedRegion() { DeleteObject(handle_); }

    operator HRGN() const { return handle_; }
    std::vector<RECT> Rects() const;
    RECT Box() const;
    int Kind() const;

private:
    HRGN handle_;
};

/// A memory device context.
class OwnedDC {
public:
    OwnedDC() : handle_(CreateCompatibleDC(nullptr)) {}
    ~OwnedDC() { DeleteDC(handle_); }
    OwnedDC(const OwnedDC &) = delete;
    OwnedDC &operator=(const OwnedDC &) = delete;

    operator HDC() const { return handle_; }

private:
    HDC handle_;
};

/// What GetObjectW tells of a bitmap.
inline BITMAP DescriptionOf(HGDIOBJ bitmap) {
    BITMAP description{};
    GetObjectW(bitmap, sizeof(description), &description);
    return description;
}

/// A memory device context with a DIB section selected into it.
class Picture {
public:
    Picture(int width, int height, WORD bitsPerPixel = 32, const std::vector<RGBQUAD> &colours = {})
        : dib_(width, -height, bitsPerPixel, colours) {}

    operator HDC() const { return dc_; }
    HBITMAP Bitmap() const { return dib_.Handle(); }
    uint8_t *Bytes() const { return static_cast<uint8_t *>(view_.bits); }
    int Width() const { return view_.width; }
    int Height() const { return view_.height; }

    /// A 32-bit pixel, y counted in memory order.
    uint32_t &At(int x, int y) const { return reinterpret_cast<uint32_t *>(Bytes())[y * Width() + x]; }

    /// 32 bits per pixel: every pixel becomes `value`; or the words first, first + 1, ... in memory order.
    void Fill(uint32_t value) const { FillWith(view_, value); }
    void Number(uint32_t first = 0) const;
    std::vector<uint32_t> Words() const { return PixelsOf(view_); }

private:
    const Dib dib_;
    const MemoryDC dc_{dib_.Handle()};
    const SurfaceView view_ = dib_.View();
};

/// A handle that was valid once: its object is deleted.
HDC StaleDC();
HRGN StaleRegion();

/// A value that never was a handle.
template <typename Handle>
Handle Garbage() {
    return reinterpret_cast<Handle>(uintptr_t{0x7FF3});
}

}  // namespace lacquer
