// A pool of idle DIB sections. This library makes and deletes them directly, so its own pool is always disabled.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/platform.h"

namespace lacquer {

/// A 32-bit top-down DIB section of its own, zero-filled. Result: null on failure; `description` is then left as it
/// was.
HBITMAP MakeDibSection(int width, int height, BITMAP *description);

/// While enabled it hands out idle DIB sections of the wanted size again, keeps at most 64 entries of 8,388,608 bytes
/// together, and deletes what has been idle for more than five minutes, looking at most once a minute. Times are tick
/// counts in milliseconds, which wrap. Not guarded against threads.
class DibSectionCache {
public:
    constexpr DibSectionCache(bool enabled, DWORD now) : enabled_(enabled), lastTrim_(now) {}
    ~DibSectionCache();
    DibSectionCache(const DibSectionCache &) = delete;
    DibSectionCache &operator=(const DibSectionCache &) = delete;

    /// A DIB section of this size and its description; a reused one keeps its old pixels. Result: null on failure.
    HBITMAP Acquire(int width, int height, DWORD now, BITMAP *description);

    /// Gives back what Acquire gave.
    void Release(HBITMAP bitmap, DWORD now);

    int Count() const { return count_; }
    int64_t Bytes() const { return bytes_; }

private:
    struct Entry {
        HBITMAP bitmap;
        BITMAP description;
        DWORD lastUse;
        DWORD useCount;
    };
    static constexpr int kMaxEntries = 64;
    static constexpr int64_t kMaxBytes = 8388608;

    static int64_t BytesOf(const Entry &entry);
    int FirstOfSize(int width, int height) const;
    void Insert(int place, const Entry &entry);
    void Trim(DWORD now);

    bool enabled_;
    DWORD lastTrim_;
    int count_ = 0;
    int64_t bytes_ = 0;
    Entry entries_[kMaxEntries]{};
};

/// The library's own cache, disabled.
DibSectionCache &ProcessDibSectionCache();

}  // namespace lacquer
