// Finding masks, and letting go of those that were not used for longest.

#include "glyph_cache.h"

#include <bit>
#include <new>
#include <utility>

namespace lacquer::vel {

struct GlyphCache::Entry {
    GlyphKey key;
    GlyphMask mask;
    int users = 0;
    Entry *nextInBucket = nullptr;
    Entry *older = nullptr, *newer = nullptr;  ///< among the idle ones

    size_t Bytes() const { return sizeof *this + mask.Bytes(); }
};

size_t GlyphCache::BucketOf(const GlyphKey &key) {
    constexpr uint64_t kSpread = 0x9E3779B97F4A7C15;
    const uint64_t shape =
        uint64_t{std::bit_cast<uint32_t>(key.size)} << 32 | uint64_t{key.glyph} << 16 | uint64_t{key.quarter};
    return (shape + key.face * kSpread) * kSpread >> (64 - kBucketBits);
}

GlyphCache::Entry *GlyphCache::Find(const GlyphKey &key) const {
    Entry *entry = buckets_ ? buckets_[BucketOf(key)] : nullptr;
    while (entry && !(entry->key == key)) entry = entry->nextInBucket;
    return entry;
}

GlyphCache::Entry *GlyphCache::Add(const GlyphKey &key, GlyphMask mask) {
    if (!buckets_) buckets_.reset(new (std::nothrow) Entry *[size_t{1} << kBucketBits] {});
    if (!buckets_) return nullptr;
    Entry *&first = buckets_[BucketOf(key)];
    Entry *entry = new (std::nothrow) Entry{key, std::move(mask), 0, first};
    if (!entry) return nullptr;
    first = entry;
    bytes_ += entry->Bytes();
    AppendToIdle(entry);
    return entry;
}

void GlyphCache::Use(Entry *entry) {
    if (entry->users++ == 0) RemoveFromIdle(entry);
}

void GlyphCache::Release(Entry *entry) {
    if (--entry->users == 0) AppendToIdle(entry);
}

void GlyphCache::AppendToIdle(Entry *entry) {
    entry->older = newest_;
    entry->newer = nullptr;
    (newest_ ? newest_->newer : oldest_) = entry;
    newest_ = entry;
}

void GlyphCache::RemoveFromIdle(Entry *entry) {
    (entry->older ? entry->older->newer : oldest_) = entry->newer;
    (entry->newer ? entry->newer->older : newest_) = entry->older;
}

void GlyphCache::Shrink() {
    while (bytes_ > bound_ && oldest_) {
        Entry *entry = oldest_;
        RemoveFromIdle(entry);
        Entry **link = &buckets_[BucketOf(entry->key)];
        while (*link != entry) link = &(*link)->nextInBucket;
        *link = entry->nextInBucket;
        bytes_ -= entry->Bytes();
        delete entry;
    }
    if (bound_ == 0 && bytes_ == 0) buckets_.reset();
}

size_t GlyphCache::Bytes() {
    const Guard guard(lock_);
    return bytes_;
}

void GlyphCache::End() {
    const std::unique_lock guard(lock_, std::try_to_lock);
    if (!guard) return;
    bound_ = 0;
    Shrink();
}

const GlyphMask *GlyphCache::Reader::Use(Entry *entry) {
    if (!used_.Append(entry)) return nullptr;
    cache_.Use(entry);
    return &entry->mask;
}

GlyphCache::Reader::~Reader() {
    if (!guard_) guard_.lock();
    for (Entry *entry : used_) cache_.Release(entry);
    cache_.Shrink();
}

namespace {

/// Never destroyed: calls may come after the library's end.
union ProcessCache {
    constexpr ProcessCache() : cache(size_t{8} << 20) {}
    ~ProcessCache() {}
    GlyphCache cache;
};
constinit ProcessCache process;

struct ProcessEnd {
    ~ProcessEnd() { process.cache.End(); }
};
ProcessEnd processEnd;

}  // namespace

GlyphCache &ProcessGlyphCache() { return process.cache; }

}  // namespace lacquer::vel
