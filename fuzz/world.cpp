// Pixels of the objects of a program, and the end of the objects.

#include "world.h"

#include <algorithm>
#include <new>

namespace fuzz {
namespace {

size_t BytesInRow(const SurfaceView &view) { return static_cast<size_t>(view.width) * view.bitsPerPixel / 8; }

std::byte *RowAt(const SurfaceView &view, LONG y) {
    return static_cast<std::byte *>(view.bits) + static_cast<ptrdiff_t>(view.stride) * y;
}

void Premultiply(uint32_t *pixels, size_t count) {
    uint32_t wrong = 0;
    for (size_t i = 0; i < count; ++i) wrong |= pixels[i] ^ Premultiplied(pixels[i]);
    // The shared palette, which is never wrong, can't be written.
    for (size_t i = 0; wrong != 0 && i < count; ++i) pixels[i] = Premultiplied(pixels[i]);
}

void Premultiply(const SurfaceView &view) {
    if (view.palette) Premultiply(reinterpret_cast<uint32_t *>(view.palette), view.paletteCount);
    for (LONG y = 0; view.bitsPerPixel == 32 && y < view.height; ++y) {
        Premultiply(reinterpret_cast<uint32_t *>(RowAt(view, y)), static_cast<size_t>(view.width));
    }
}

}  // namespace

bool IsLive(HGCANVAS canvas) {
    DWORD filter = 0;
    return GetCanvasFilter(canvas, &filter) != 0;
}
bool IsLive(HGBITMAP bitmap) { return UnlockBitmapBits(bitmap) != 0; }
bool IsLive(HGTEXTURE texture) { return UnlockTextureBits(texture) != 0; }

const void *PixelsOf(HBITMAP bitmap, SurfaceView &view) {
    BITMAP described{};
    if (!GetObjectW(bitmap, sizeof described, &described) || !described.bmBits) return nullptr;
    view = {0,      described.bmWidth,     described.bmHeight, described.bmWidthBytes,
            1,      described.bmBitsPixel, described.bmBits,   0,
            nullptr};
    return view.bits;
}
const void *PixelsOf(HDC dc, SurfaceView &view) {
    return PixelsOf(static_cast<HBITMAP>(GetCurrentObject(dc, OBJ_BITMAP)), view);
}
const void *PixelsOf(HGCANVAS canvas, SurfaceView &view) {
    SIZE size{};
    if (!IsLive(canvas)) return nullptr;
    if (!GetCanvasSize(canvas, &size)) return PixelsOf(GetCanvasHandle(canvas), view);
    // Without a rectangle, origins play no part.
    return LockCanvasBitsEx(canvas, &view, nullptr) && UnlockCanvasBits(canvas) ? view.bits : nullptr;
}
const void *PixelsOf(HGBITMAP bitmap, SurfaceView &view) {
    return LockBitmapBitsEx(bitmap, &view, nullptr) && UnlockBitmapBits(bitmap) ? view.bits : nullptr;
}
const void *PixelsOf(HGTEXTURE texture, SurfaceView &view) {
    return LockTextureBitsEx(texture, &view, nullptr) && UnlockTextureBits(texture) ? view.bits : nullptr;
}

World::World(const Rules &rulesToKeep) : rules(rulesToKeep) { SetStretchKernelMode(1); }
World::~World() { Clear(); }

void *World::Buffer(size_t size) {
    buffers_.emplace_back(new std::byte[size]());
    return buffers_.back().get();
}

void World::PaintView(const SurfaceView &view, uint32_t seed) const {
    enum { Noise, Solid, OpaqueNoise, TranslucentNoise };
    uint64_t state = seed;
    const unsigned style = seed % 4;
    const auto word = static_cast<uint32_t>(NextRandom(state));
    for (LONG y = 0; y < view.height; ++y) {
        std::byte *row = RowAt(view, y);
        size_t size = BytesInRow(view);
        for (uint64_t next = word; size > 0; next >>= 32) {
            if (style != Solid && next >> 32 == 0) next = NextRandom(state);
            auto pixel = style == Solid ? word : static_cast<uint32_t>(next);
            if (style == OpaqueNoise) pixel |= 0xFF000000;
            if (style == TranslucentNoise) pixel &= 0x7F3F7F1F;
            if (rules.comparable) pixel = Premultiplied(pixel);
            const size_t part = std::min<size_t>(size, 4);
            std::memcpy(row, &pixel, part);
            row += part;
            size -= part;
        }
    }
    const bool isShared = view.paletteCount == 256 && view.palette && view.palette[1] == 0xFF010101;
    for (DWORD i = 0; view.palette && !isShared && i < view.paletteCount; ++i) {
        const auto entry = static_cast<uint32_t>(NextRandom(state));
        view.palette[i] = rules.comparable ? Premultiplied(entry) : entry;
    }
}

uint64_t World::PixelDigest() {
    Digest all;
    size_t place = 0;
    const auto addAll = [&](const auto &pool) {
        for (const auto &handle : pool) {
            if (seen_.size() == place) seen_.push_back(0);
            uint64_t &seen = seen_[place++];
            SurfaceView view{};
            Digest digest;
            if (PixelsOf(handle, view)) {
                digest.Add(static_cast<uint64_t>(view.width) << 32 | static_cast<uint32_t>(view.height));
                for (LONG y = 0; y < view.height; ++y) digest.AddBytes(RowAt(view, y), BytesInRow(view));
                if (view.palette) digest.AddBytes(view.palette, view.paletteCount * sizeof(DWORD));
                if (digest.Value() != seen) Premultiply(view);
            }
            seen = digest.Value();
            all.Add(seen);
        }
    };
    addAll(PoolOf<HGCANVAS>());
    addAll(PoolOf<HGBITMAP>());
    addAll(PoolOf<HGTEXTURE>());
    addAll(PoolOf<HBITMAP>());
    addAll(PoolOf<HDC>());
    return all.Value();
}

bool World::Clear() {
    views.clear();
    for (const auto &[handle, section] : received_) {
        if (section == Section::Lent) e_DelHandleEntry(nullptr, handle);
        Delete(HGCANVAS{handle});
        Delete(HGBITMAP{handle});
        Delete(HGTEXTURE{handle});
    }
    const auto clear = [](auto &pool) {
        for (size_t i = 0; i < pool.Count(Section::Own); ++i) {
            if (IsLive(pool[i])) Delete(pool[i]);
        }
        pool = {};
    };
    std::apply([&](auto &...pools) { (clear(pools), ...); }, pools_);
    buffers_.clear();

    // An empty table gives its slots in order, from the first one or with the one freed last before the others.
    DWORD last = 0;
    for (const auto &[handle, section] : received_) last = std::max(last, handle & 0xFFFF);
    received_.clear();
    bool isEmpty = true;
    std::vector<DWORD> entries;
    for (DWORD i = 0; i <= last; ++i) entries.push_back(e_NewHandleEntry(nullptr, 9, this));
    for (const DWORD entry : entries) isEmpty = isEmpty && (entry & 0xFFFF) >= 1 && (entry & 0xFFFF) <= last + 1;
    // The first slot is the one freed last, and so the next program begins as this one did.
    std::sort(entries.begin(), entries.end(), [](DWORD a, DWORD b) { return (a & 0xFFFF) > (b & 0xFFFF); });
    for (const DWORD entry : entries) e_DelHandleEntry(nullptr, entry);
    return isEmpty;
}

}  // namespace fuzz
