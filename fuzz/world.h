// What a program works on: a few places for handles of each type, filled and emptied by its calls. A place keeps its
// handle when the object dies, so that stale handles come up by themselves.
#pragma once

#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <lacquer/headless_gdi.h>
#endif

#include <algorithm>
#include <array>
#include <memory>
#include <tuple>
#include <vector>

#include "choices.h"
#include "digest.h"

namespace fuzz {

/// Own: the program deletes it. Lent: it belongs to another object; of library handles, an alias.
enum class Section { Own, Lent };

/// An entry of the handle table that is made by hand.
struct Entry {
    DWORD value;
};

/// Types of handles: the name in programs, how many places there are for own ones and for lent ones, how one is
/// deleted.
#define FUZZ_POOLS(POOL)                                            \
    POOL(HGCANVAS, canvas, 6, 2, DeleteCanvas(handle))              \
    POOL(HGBITMAP, bitmap, 6, 2, DeleteBitmap(handle))              \
    POOL(HGTEXTURE, texture, 6, 0, DeleteTexture(handle))           \
    POOL(HDC, dc, 4, 2, DeleteDC(handle))                           \
    POOL(HBITMAP, gdiBitmap, 4, 2, DeleteObject(handle))            \
    POOL(HRGN, region, 4, 0, DeleteObject(handle))                  \
    POOL(velPath *, path, 3, 0, velPathDestroy(handle))             \
    POOL(velGradient *, gradient, 2, 0, velGradientDestroy(handle)) \
    POOL(velLottie *, lottie, 2, 0, velLottieDestroy(handle))       \
    POOL(velCanvas *, vel, 2, 0, velCanvasDestroy(handle))          \
    POOL(velBitmap *, velBitmap, 2, 0, velBitmapDestroy(handle))

struct PoolShape {
    const char *name;
    size_t own, lent;
};
template <class Handle>
inline constexpr PoolShape kShape{};
#define POOL(Handle, name, own, lent, deletion)                  \
    template <>                                                  \
    inline constexpr PoolShape kShape<Handle>{#name, own, lent}; \
    inline void Delete(Handle handle) { deletion; }
FUZZ_POOLS(POOL)
POOL(Entry, entry, 3, 0, e_DelHandleEntry(nullptr, handle.value))
#undef POOL

template <class Handle>
struct Pool : std::array<Handle, kShape<Handle>.own + kShape<Handle>.lent> {
    static constexpr size_t First(Section section) { return section == Section::Own ? 0 : kShape<Handle>.own; }
    static constexpr size_t Count(Section section) {
        return section == Section::Own ? kShape<Handle>.own : kShape<Handle>.lent;
    }
};

template <class Handle>
inline constexpr bool kIsGdiHandle =
    std::is_same_v<Handle, HDC> || std::is_same_v<Handle, HBITMAP> || std::is_same_v<Handle, HRGN>;

bool IsLive(HGCANVAS canvas);
bool IsLive(HGBITMAP bitmap);
bool IsLive(HGTEXTURE texture);
inline bool IsLive(Entry entry) { return entry.value != 0; }
template <class Object>
bool IsLive(Object *handle) {
    if constexpr (kIsGdiHandle<Object *>) {
        return GetObjectType(handle) != 0;
    } else {
        return handle != nullptr;
    }
}

/// The pixel with an alpha that is at least as much as each channel.
inline DWORD Premultiplied(DWORD pixel) {
    const DWORD most = std::max(std::max(pixel & 0xFF, pixel >> 8 & 0xFF), std::max(pixel >> 16 & 0xFF, pixel >> 24));
    return (pixel & 0xFFFFFF) | most << 24;
}

/// What a program may do.
struct Rules {
    bool comparable = false;  ///< only what has one right result: pixels are premultiplied, draws don't overlap
    bool fineWeights = true;  ///< bicubic samplers are used
    bool plainGdi = false;    ///< GDI is called as its callers should, with numbers of a usual size
    unsigned groups = ~0u;    ///< of calls; see calls.h
};

/// Where the pixels behind a handle begin; null when they can't be reached.
const void *PixelsOf(HGCANVAS canvas, SurfaceView &view);
const void *PixelsOf(HGBITMAP bitmap, SurfaceView &view);
const void *PixelsOf(HGTEXTURE texture, SurfaceView &view);
const void *PixelsOf(HDC dc, SurfaceView &view);
const void *PixelsOf(HBITMAP bitmap, SurfaceView &view);

class World {
public:
    explicit World(const Rules &rulesToKeep);
    ~World();
    World(const World &) = delete;
    World &operator=(const World &) = delete;

    template <class Handle>
    Pool<Handle> &PoolOf() {
        return std::get<Pool<Handle>>(pools_);
    }
    template <class Handle>
    const Pool<Handle> &PoolOf() const {
        return std::get<Pool<Handle>>(pools_);
    }

    /// Puts a new handle into a place; what the program owns there goes first.
    template <class Handle>
    void Put(Handle handle, size_t place, Section section) {
        Handle &kept = PoolOf<Handle>()[place];
        // Library objects whose handle is displaced live on until the end.
        if constexpr (std::is_class_v<Handle>) {
            received_.emplace_back(static_cast<DWORD>(handle.value),
                                   std::is_same_v<Handle, Entry> ? Section::Lent : section);
        } else if (section == Section::Own && IsLive(kept)) {
            views.clear();
            Delete(kept);
        }
        kept = handle;
    }

    /// Memory that lasts as long as the world.
    void *Buffer(size_t size);

    /// Fills the surface with pixels that follow from `seed`.
    template <class Handle>
    void Paint(Handle handle, uint32_t seed) {
        SurfaceView view{};
        if (PixelsOf(handle, view)) PaintView(view, seed);
    }
    void PaintView(const SurfaceView &view, uint32_t seed) const;

    /// Checksum of all pixels that the program can reach. Then makes them premultiplied.
    uint64_t PixelDigest();

    /// Deletes whatever lives. Result: whether the handle table is empty then.
    bool Clear();

    const Rules rules;
    std::vector<SurfaceView> views;  ///< locked, and valid still

private:
#define POOL(Handle, name, own, lent, deletion) Pool<Handle>,
    std::tuple<FUZZ_POOLS(POOL) Pool<Entry>> pools_{};
#undef POOL
    std::vector<std::pair<DWORD, Section>> received_;  ///< every library handle
    std::vector<std::unique_ptr<std::byte[]>> buffers_;
    std::vector<uint64_t> seen_;  ///< checksums of single surfaces, by place
};

}  // namespace fuzz
