// Views of memory, and locks that give an object's pixels for as long as they live.
#ifndef LACQUER_PIXELS_HPP
#define LACQUER_PIXELS_HPP

#include <lacquer/lacquer.h>

#include <cstddef>

#if __cplusplus >= 202002L || (defined(_MSVC_LANG) && _MSVC_LANG >= 202002L)
#include <span>
#endif

namespace lq {

// Some elements in a row, which belong to somebody else. In C++20 it is taken for a std::span wherever one is wanted.
template <typename Element>
class Span {
public:
    // No elements.
    constexpr Span() noexcept = default;

    // `size` elements from `begin` on.
    constexpr Span(Element *begin, size_t size) noexcept : first(begin), count(size) {}

    // All elements of an array.
    template <size_t length>
    constexpr Span(Element (&array)[length]) noexcept : first(array), count(length) {}

    // The first element, null without any; how many there are; whether there is none; for range-based loops.
    constexpr Element *data() const noexcept { return first; }
    constexpr size_t size() const noexcept { return count; }
    constexpr bool empty() const noexcept { return count == 0; }
    constexpr Element *begin() const noexcept { return first; }
    constexpr Element *end() const noexcept { return first + count; }

    // Element `index`, which must be below size().
    constexpr Element &operator[](size_t index) const noexcept { return first[index]; }

private:
    Element *first = nullptr;
    size_t count = 0;
};

namespace detail {

// The C functions that lock and unlock, by the type of the handle. Canvases use the lock that takes those made from a
// device context, too.
inline int LockBits(HGBITMAP bitmap, SurfaceView *out, const RECT *rect) { return LockBitmapBitsEx(bitmap, out, rect); }
inline int LockBits(HGTEXTURE texture, SurfaceView *out, const RECT *rect) {
    return LockTextureBitsEx(texture, out, rect);
}
inline int LockBits(HGCANVAS canvas, SurfaceView *out, const RECT *rect) { return LockCanvasBits(canvas, out, rect); }
inline int UnlockBits(HGBITMAP bitmap) { return UnlockBitmapBits(bitmap); }
inline int UnlockBits(HGTEXTURE texture) { return UnlockTextureBits(texture); }
inline int UnlockBits(HGCANVAS canvas) { return UnlockCanvasBits(canvas); }

}  // namespace detail

// The pixels of an object, or of a rectangle of it, locked until the end of the scope. Made by lq::Lock. It must end
// before the object does.
template <typename Handle>
class PixelLock {
public:
    // Locks everything, or the rectangle `rect`, which must not be empty and must lie inside. A canvas made from a
    // device context needs a rectangle. When the lock is refused it holds no pixels: false, size 0.
    explicit PixelLock(Handle handle, const RECT *rect = nullptr) noexcept {
        if (detail::LockBits(handle, &view, rect)) locked = handle;
    }

    PixelLock(PixelLock &&other) noexcept : locked(other.locked), view(other.view) { other.Forget(); }
    PixelLock &operator=(PixelLock &&other) noexcept {
        if (this != &other) {
            Unlock();
            locked = other.locked;
            view = other.view;
            other.Forget();
        }
        return *this;
    }
    ~PixelLock() { Unlock(); }

    // Whether there are pixels.
    explicit operator bool() const noexcept { return static_cast<bool>(locked); }

    // The size in pixels, the distance of two rows in bytes, and the bits of one pixel; all 0 without pixels.
    LONG Width() const noexcept { return view.width; }
    LONG Height() const noexcept { return view.height; }
    LONG Stride() const noexcept { return view.stride; }
    WORD BitsPerPixel() const noexcept { return view.bitsPerPixel; }

    // The pixels of row `y`, from the top. `Pixel` is DWORD (0xAARRGGBB) for 32 bits, RGBRecord for 24 and BYTE (an
    // index) for 8. No pixels where `y` is outside, and where the size of `Pixel` is not that of the pixels.
    template <typename Pixel = DWORD>
    Span<Pixel> Row(LONG y) const noexcept {
        if (y < 0 || y >= view.height || view.bitsPerPixel != 8 * sizeof(Pixel)) return {};
        BYTE *const row = static_cast<BYTE *>(view.bits) + static_cast<ptrdiff_t>(y) * view.stride;
        return {reinterpret_cast<Pixel *>(row), static_cast<size_t>(view.width)};
    }

    // The palette of a bitmap or texture, words 0xAARRGGBB; empty when it has none, and for canvases.
    Span<DWORD> Palette() const noexcept { return {view.palette, view.palette ? view.paletteCount : 0}; }

    // The record of the C interface.
    const SurfaceView &View() const noexcept { return view; }

    // Ends the lock before the scope does; nothing without pixels.
    void Unlock() noexcept {
        if (locked) detail::UnlockBits(locked);
        Forget();
    }

private:
    void Forget() noexcept {
        locked = Handle{};
        view = SurfaceView{};
    }

    Handle locked{};
    SurfaceView view{};
};

// Locks a bitmap, texture or canvas, by owner or handle; see PixelLock.
[[nodiscard]] inline PixelLock<HGBITMAP> Lock(HGBITMAP bitmap, const RECT *rect = nullptr) noexcept {
    return PixelLock<HGBITMAP>(bitmap, rect);
}
[[nodiscard]] inline PixelLock<HGTEXTURE> Lock(HGTEXTURE texture, const RECT *rect = nullptr) noexcept {
    return PixelLock<HGTEXTURE>(texture, rect);
}
[[nodiscard]] inline PixelLock<HGCANVAS> Lock(HGCANVAS canvas, const RECT *rect = nullptr) noexcept {
    return PixelLock<HGCANVAS>(canvas, rect);
}

}  // namespace lq

#if defined(__cpp_lib_ranges)
template <typename Element>
inline constexpr bool std::ranges::enable_borrowed_range<lq::Span<Element>> = true;
#endif

#endif
