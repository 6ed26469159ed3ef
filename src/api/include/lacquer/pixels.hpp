/// @file
/// Views of memory, and locks that give an object's pixels for as long as they live.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_PIXELS_HPP
#define LACQUER_PIXELS_HPP

#include <lacquer/lacquer.h>

#include <cstddef>

#if __cplusplus >= 202002L || (defined(_MSVC_LANG) && _MSVC_LANG >= 202002L)
#include <span>
#endif

namespace lq {

/// @addtogroup cpp
/// @param rect the part that is locked, which must not be empty and must lie inside; null for everything, which a
/// canvas made from a device context refuses
/// @{

/// Some elements in a row, which belong to somebody else. In C++20 it is taken for a std::span wherever one is wanted.
/// @tparam Element their type, const where they are only read
template <typename Element>
class Span {
public:
    /// No elements.
    constexpr Span() noexcept = default;

    /// Elements from a place on.
    /// @param begin the first element; null when there are none
    /// @param size how many there are
    constexpr Span(Element *begin, size_t size) noexcept : first(begin), count(size) {}

    /// All elements of an array.
    /// @param array the array, which must stay
    template <size_t length>
    constexpr Span(Element (&array)[length]) noexcept : first(array), count(length) {}

    /// The first element.
    /// @return a pointer to it; null or beyond the end when there are no elements
    constexpr Element *data() const noexcept { return first; }
    /// How many elements there are.
    /// @return 0 and more
    constexpr size_t size() const noexcept { return count; }
    /// Whether there are no elements.
    /// @return false when there are some
    constexpr bool empty() const noexcept { return count == 0; }
    /// Where a loop over the elements begins.
    /// @return a pointer to the first element; null or beyond the end when there are no elements
    constexpr Element *begin() const noexcept { return first; }
    /// Where a loop over the elements ends.
    /// @return a pointer beyond the last element; null when there are no elements
    constexpr Element *end() const noexcept { return first + count; }

    /// One element.
    /// @param index its place, which must be below size()
    /// @return the element; nothing is checked
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

/// The pixels of an object, or of a rectangle of it, locked until the end of the scope. Made by lq::Lock. It must end
/// before the object does.
/// @tparam Handle HGBITMAP, HGTEXTURE or HGCANVAS
template <typename Handle>
class PixelLock {
public:
    /// Locks everything, or a rectangle. When the lock is refused it holds no pixels: false, size 0.
    /// @param handle the object; a wrong handle is refused
    explicit PixelLock(Handle handle, const RECT *rect = nullptr) noexcept {
        if (detail::LockBits(handle, &view, rect)) locked = handle;
    }

    /// Takes over what another lock holds.
    /// @param other the lock, which holds no pixels afterwards
    PixelLock(PixelLock &&other) noexcept : locked(other.locked), view(other.view) { other.Forget(); }
    /// Ends this lock and takes over what another one holds.
    /// @param other the lock, which holds no pixels afterwards
    /// @return this lock
    PixelLock &operator=(PixelLock &&other) noexcept {
        if (this != &other) {
            Unlock();
            locked = other.locked;
            view = other.view;
            other.Forget();
        }
        return *this;
    }
    /// Ends the lock.
    ~PixelLock() { Unlock(); }

    /// Whether there are pixels.
    /// @return false when the lock was refused or has ended
    explicit operator bool() const noexcept { return static_cast<bool>(locked); }

    /// The width.
    /// @return pixels; 0 without pixels
    LONG Width() const noexcept { return view.width; }
    /// The height.
    /// @return pixels; 0 without pixels
    LONG Height() const noexcept { return view.height; }
    /// The distance of two rows.
    /// @return bytes; 0 without pixels
    LONG Stride() const noexcept { return view.stride; }
    /// The depth.
    /// @return bits of one pixel; 0 without pixels
    WORD BitsPerPixel() const noexcept { return view.bitsPerPixel; }

    /// The pixels of a row.
    /// @tparam Pixel DWORD (0xAARRGGBB) for 32 bits, RGBRecord for 24 and BYTE (an index) for 8
    /// @param y the row, from the top
    /// @return the pixels; none where the row is outside, and where the size of `Pixel` is not that of the pixels
    template <typename Pixel = DWORD>
    Span<Pixel> Row(LONG y) const noexcept {
        if (y < 0 || y >= view.height || view.bitsPerPixel != 8 * sizeof(Pixel)) return {};
        BYTE *const row = static_cast<BYTE *>(view.bits) + static_cast<ptrdiff_t>(y) * view.stride;
        return {reinterpret_cast<Pixel *>(row), static_cast<size_t>(view.width)};
    }

    /// The palette of a bitmap or texture.
    /// @return words 0xAARRGGBB; empty when it has none, and for canvases
    Span<DWORD> Palette() const noexcept { return {view.palette, view.palette ? view.paletteCount : 0}; }

    /// The record of the C interface.
    /// @return the record; all 0 without pixels
    const SurfaceView &View() const noexcept { return view; }

    /// Ends the lock before the scope does; nothing without pixels.
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

/// Locks a bitmap, by owner or handle.
/// @param bitmap the bitmap; a wrong handle is refused
/// @return the lock, which is false when it is refused
[[nodiscard]] inline PixelLock<HGBITMAP> Lock(HGBITMAP bitmap, const RECT *rect = nullptr) noexcept {
    return PixelLock<HGBITMAP>(bitmap, rect);
}
/// Locks a texture, by owner or handle.
/// @param texture the texture; a wrong handle is refused
/// @return the lock, which is false when it is refused
[[nodiscard]] inline PixelLock<HGTEXTURE> Lock(HGTEXTURE texture, const RECT *rect = nullptr) noexcept {
    return PixelLock<HGTEXTURE>(texture, rect);
}
/// Locks a canvas, by owner or handle.
/// @param canvas the canvas; a wrong handle is refused
/// @return the lock, which is false when it is refused
[[nodiscard]] inline PixelLock<HGCANVAS> Lock(HGCANVAS canvas, const RECT *rect = nullptr) noexcept {
    return PixelLock<HGCANVAS>(canvas, rect);
}

/// @}

}  // namespace lq

#if defined(__cpp_lib_ranges)
template <typename Element>
inline constexpr bool std::ranges::enable_borrowed_range<lq::Span<Element>> = true;
#endif

#endif
