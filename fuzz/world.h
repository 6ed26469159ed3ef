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

struct PoolShape {
    const char *name;
    size_t own, lent;
};
template <class Handle>
inline constexpr PoolShape kShape{};
template <>
inline constexpr PoolShape kShape<HGCANVAS>{"canvas", 6, 2};
template <>
inline constexpr PoolShape kShape<HGBITMAP>{"bitmap", 6, 2};
template <>
inline constexpr PoolShape kShape<HGTEXTURE>{"texture", 6, 0};
template <>
inline constexpr PoolShape kShape<DWORD>{"entry", 3, 0};
template <>
inline constexpr PoolShape kShape<HDC>{"dc", 4, 2};
template <>
inline constexpr PoolShape kShape<HBITMAP>{"gdiBitmap", 4, 2};
template <>
inline constexpr PoolShape kShape<HRGN>{"region", 4, 0};
template <>
inline constexpr PoolShape kShape<velPath *>{"path", 3, 0};
template <>
inline constexpr PoolShape kShape<velGradient *>{"gradient", 2, 0};
template <>
inline constexpr PoolShape kShape<velLottie *>{"lottie", 2, 0};
template <>
inline constexpr PoolShape kShape<velCanvas *>{"vel", 2, 0};
template <>
inline constexpr PoolShape kShape<velBitmap *>{"velBitmap", 2, 0};

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
inline bool IsLive(DWORD entry) { return entry != 0; }
template <class Object>
bool IsLive(Object *handle) {
    if constexpr (kIsGdiHandle<Object *>) {
        return GetObjectType(handle) != 0;
    } else {
        return handle != nullptr;
    }
}

inline void Delete(HGCANVAS canvas) { DeleteCanvas(canvas); }
inline void Delete(HGBITMAP bitmap) { DeleteBitmap(bitmap); }
inline void Delete(HGTEXTURE texture) { DeleteTexture(texture); }
inline void Delete(DWORD entry) { e_DelHandleEntry(nullptr, entry); }
inline void Delete(HDC dc) { DeleteDC(dc); }
inline void Delete(HBITMAP bitmap) { DeleteObject(bitmap); }
inline void Delete(HRGN region) { DeleteObject(region); }
inline void Delete(velPath *path) { velPathDestroy(path); }
inline void Delete(velGradient *gradient) { velGradientDestroy(gradient); }
inline void Delete(velLottie *lottie) { velLottieDestroy(lottie); }
inline void Delete(velCanvas *canvas) { velCanvasDestroy(canvas); }
inline void Delete(velBitmap *bitmap) { velBitmapDestroy(bitmap); }

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
            received_.emplace_back(static_cast<DWORD>(handle.value), section);
        } else if constexpr (std::is_same_v<Handle, DWORD>) {
            received_.emplace_back(handle, Section::Lent);
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
    std::tuple<Pool<HGCANVAS>, Pool<HGBITMAP>, Pool<HGTEXTURE>, Pool<DWORD>, Pool<HDC>, Pool<HBITMAP>, Pool<HRGN>,
               Pool<velPath *>, Pool<velGradient *>, Pool<velLottie *>, Pool<velCanvas *>, Pool<velBitmap *>>
        pools_{};
    std::vector<std::pair<DWORD, Section>> received_;  ///< every library handle
    std::vector<std::unique_ptr<std::byte[]>> buffers_;
    std::vector<uint64_t> seen_;  ///< checksums of single surfaces, by place
};

}  // namespace fuzz
