// The objects behind GDI handles, and the table that maps a handle to its object. A handle packs a table index and the
// index's generation, so that a stale or made-up one is recognised. One lock guards the table and every object.
#pragma once

#include <lacquer/headless_gdi.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>

#include "platform/headless/region.h"

namespace lacquer::headless {

/// Held by every exported function for as long as it uses an object. Once the library has ended, nothing is found and
/// nothing can be added while it is held.
class GdiLock {
public:
    GdiLock();

private:
    std::lock_guard<std::mutex> guard_;
};

struct FreeDeleter {
    void operator()(void *block) const;
};
/// A block of malloc.
template <class T>
using MallocPtr = std::unique_ptr<T, FreeDeleter>;

struct Bitmap {
    LONG width = 0, height = 0;
    /// Bytes from one row in memory to the next.
    LONG stride = 0;
    WORD bitsPerPixel = 0;
    /// Whether the first row in memory is the top one.
    bool topDown = true;
    /// Whether the caller reaches the pixels.
    bool isSection = false;
    MallocPtr<uint8_t> bits;
    /// For 1 and 8 bits per pixel: 2 and 256 entries.
    MallocPtr<RGBQUAD> colours;
    /// The device context that the bitmap is selected into, or null.
    HDC selectedInto = nullptr;
    /// Deleted while it was selected: goes when it is no longer selected.
    bool isDoomed = false;
    /// The default bitmap: every device context may hold it, and it is never deleted.
    bool isDefault = false;
};

/// A device context's attributes, as SaveDC pushes them.
struct DrawState {
    HBITMAP bitmap = nullptr;
    POINT viewportOrg{}, windowOrg{};
    int stretchMode = BLACKONWHITE;
    bool hasClip = false;
    Region clip;

    /// False when memory is short.
    bool CopyFrom(const DrawState &other);
};

struct SavedState {
    DrawState state;
    SavedState *below = nullptr;
};

struct DeviceContext {
    DrawState state;
    /// The object behind state.bitmap.
    Bitmap *bitmap = nullptr;
    SavedState *saved = nullptr;
    int savedCount = 0;

    DeviceContext() = default;
    DeviceContext(const DeviceContext &) = delete;
    DeviceContext &operator=(const DeviceContext &) = delete;
    ~DeviceContext();

    /// What is added to a logical coordinate to make it a device coordinate.
    int64_t OffsetX() const { return int64_t{state.viewportOrg.x} - state.windowOrg.x; }
    int64_t OffsetY() const { return int64_t{state.viewportOrg.y} - state.windowOrg.y; }

    /// A logical rectangle, corners in any order, in device coordinates, ordered and cut to the 32-bit range.
    RECT ToDevice(const RECT &logical) const;

    /// The whole bitmap.
    RECT BitmapRect() const { return RECT{0, 0, bitmap->width, bitmap->height}; }

    /// Whether a device point can be drawn.
    bool IsVisible(int64_t x, int64_t y) const;

    /// The part of a device rectangle that can be drawn. False when memory is short.
    bool VisiblePart(const RECT &device, Region &out) const;
};

/// Registers an object, which then belongs to the table. Null for null, and when the table is full; the object is then
/// deleted.
HDC AddDC(std::unique_ptr<DeviceContext> dc);
HBITMAP AddBitmap(std::unique_ptr<Bitmap> bitmap);
HRGN AddRegion(std::unique_ptr<Region> region);

/// The object of a current handle of the right kind, or null.
DeviceContext *FindDC(const void *handle);
Bitmap *FindBitmap(const void *handle);
Region *FindRegion(const void *handle);

/// The kind of a current handle's object: OBJ_MEMDC, OBJ_BITMAP, OBJ_REGION; 0 for others.
DWORD KindOf(const void *handle);

/// Frees a current handle's index and deletes its object.
void DestroyObject(const void *handle);

/// The handle of the default bitmap, which is made on first use; null when memory is short.
HBITMAP DefaultBitmap();

/// A new bitmap, zero-filled, its rows padded to four bytes. Null when the size is not positive or memory is short.
std::unique_ptr<Bitmap> NewBitmap(LONG width, LONG height, WORD bitsPerPixel);

}  // namespace lacquer::headless
