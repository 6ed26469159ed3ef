// Masks of glyphs, kept for all canvases of the process, up to a number of bytes.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>

#include "buffer.h"
#include "clip.h"
#include "lock.h"

namespace lacquer::vel {

/// How much of each pixel a glyph covers, 0 to 255.
struct GlyphMask {
    static constexpr int kBlock = 16;

    Clip box{0, 0, 0, 0};  ///< of its pixels, seen from the one in which the glyph's origin lies
    int stride = 0;        ///< bytes from row to row: the width, and zeros up to a multiple of kBlock
    std::unique_ptr<uint8_t[]> rows;

    size_t Bytes() const { return static_cast<size_t>(stride) * static_cast<size_t>(box.bottom - box.top); }
};

/// What a mask is of: a face, a size in pixels, a glyph, and how many quarters of a pixel its origin lies to the right.
struct GlyphKey {
    uint64_t face = 0;
    float size = 0;
    uint16_t glyph = 0, quarter = 0;

    bool operator==(const GlyphKey &) const = default;
};

class GlyphCache {
public:
    /// One call's use of the cache, by one thread.
    class Reader;

    /// `bound`: the bytes that the masks may take. More are there only as long as readers use them.
    explicit constexpr GlyphCache(size_t bound) : bound_(bound) {}
    ~GlyphCache() { End(); }
    GlyphCache(const GlyphCache &) = delete;
    GlyphCache &operator=(const GlyphCache &) = delete;

    size_t Bytes();
    /// Frees what no reader uses, and from now on each mask when its last reader is gone. It waits for nobody: when
    /// the lock is held, maybe by a thread that the system ended, nothing is done.
    void End();

private:
    struct Entry;
    static constexpr unsigned kBucketBits = 13;

    static size_t BucketOf(const GlyphKey &key);
    Entry *Find(const GlyphKey &key) const;
    /// Null when memory is short.
    Entry *Add(const GlyphKey &key, GlyphMask mask);
    void Use(Entry *entry);
    void Release(Entry *entry);
    void AppendToIdle(Entry *entry);
    void RemoveFromIdle(Entry *entry);
    /// Drops idle masks, those first that were used longest ago, until the rest fits.
    void Shrink();

    Lock lock_;
    size_t bound_, bytes_ = 0;
    Entry *oldest_ = nullptr, *newest_ = nullptr;  ///< of the idle ones: what nobody uses, by when that began
    std::unique_ptr<Entry *[]> buckets_;           ///< there is none before the first mask
};

/// Holds the cache's lock until Unlock, so that a call takes it once and not for each glyph.
class GlyphCache::Reader {
public:
    explicit Reader(GlyphCache &cache) : cache_(cache), guard_(cache.lock_) {}
    ~Reader();
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    /// The mask, which stays until the reader is gone. One that is missing is asked of `make`, to which other threads
    /// are not kept waiting: it fills in a GlyphMask and gives false when it can not. Null then, and when memory is
    /// short.
    template <class Make>
    const GlyphMask *Find(const GlyphKey &key, Make make) {
        Entry *entry = cache_.Find(key);
        if (!entry) {
            GlyphMask made;
            guard_.unlock();
            const bool isMade = make(made);
            guard_.lock();
            if (!isMade) return nullptr;
            entry = cache_.Find(key);
            if (!entry) entry = cache_.Add(key, std::move(made));
        }
        return entry ? Use(entry) : nullptr;
    }

    /// Lets other threads go on. Nothing more can be found.
    void Unlock() { guard_.unlock(); }

private:
    const GlyphMask *Use(Entry *entry);

    GlyphCache &cache_;
    std::unique_lock<Lock> guard_;
    Buffer<Entry *> used_;
};

/// Bounded by 8 MiB.
GlyphCache &ProcessGlyphCache();

}  // namespace lacquer::vel
