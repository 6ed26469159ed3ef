// The pool of DIB sections: sizes, use counts, trimming.

#include "core/dib_section_cache.h"

#include <algorithm>

#include "platform/pixel_block.h"

namespace lacquer {
namespace {

constexpr DWORD kTrimInterval = 60000;
constexpr DWORD kIdleLimit = 300001;

/// A last use that lies after `now` was before the tick count wrapped.
bool IsOld(DWORD lastUse, DWORD now) { return lastUse <= now ? now - lastUse >= kIdleLimit : now >= kIdleLimit; }

}  // namespace

HBITMAP MakeDibSection(int width, int height, BITMAP *description) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    info.bmiHeader.biSizeImage = static_cast<DWORD>(static_cast<int64_t>(width) * height * 4);
    void *bits = nullptr;
    const auto create = [&] { return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0); };
    HBITMAP bitmap = create();
    if (!bitmap && FreeSparePixels()) bitmap = create();
    if (!bitmap) return nullptr;
    BITMAP made{};
    if (GetObjectW(bitmap, sizeof made, &made) == 0 || !made.bmBits) {
        DeleteObject(bitmap);
        return nullptr;
    }
    *description = made;
    return bitmap;
}

DibSectionCache::~DibSectionCache() {
    for (int i = 0; i < count_; ++i) DeleteObject(entries_[i].bitmap);
}

int64_t DibSectionCache::BytesOf(const Entry &entry) {
    return static_cast<int64_t>(entry.description.bmHeight) * entry.description.bmWidthBytes;
}

int DibSectionCache::FirstOfSize(int width, int height) const {
    const Entry *end = entries_ + count_;
    return static_cast<int>(std::find_if(entries_, end,
                                         [&](const Entry &entry) {
                                             return entry.description.bmWidth == width &&
                                                    entry.description.bmHeight == height;
                                         }) -
                            entries_);
}

void DibSectionCache::Insert(int place, const Entry &entry) {
    std::copy_backward(entries_ + place, entries_ + count_, entries_ + count_ + 1);
    entries_[place] = entry;
    ++count_;
    bytes_ += BytesOf(entry);
}

HBITMAP DibSectionCache::Acquire(int width, int height, DWORD now, BITMAP *description) {
    if (!enabled_) return MakeDibSection(width, height, description);
    const int first = FirstOfSize(width, height);
    for (int i = first; i < count_; ++i) {
        Entry &entry = entries_[i];
        if (entry.useCount > 0 || entry.description.bmWidth != width || entry.description.bmHeight != height) continue;
        ++entry.useCount;
        entry.lastUse = now;
        *description = entry.description;
        return entry.bitmap;
    }
    HBITMAP bitmap = MakeDibSection(width, height, description);
    if (bitmap && count_ < kMaxEntries && bytes_ < kMaxBytes) Insert(first, {bitmap, *description, now, 1});
    return bitmap;
}

void DibSectionCache::Release(HBITMAP bitmap, DWORD now) {
    Entry *end = entries_ + count_;
    Entry *entry = std::find_if(entries_, end, [&](const Entry &held) { return held.bitmap == bitmap; });
    if (entry == end) {
        DeleteObject(bitmap);
        return;
    }
    if (entry->useCount > 0) --entry->useCount;
    entry->lastUse = now;
    Trim(now);
}

void DibSectionCache::Trim(DWORD now) {
    if (now - lastTrim_ < kTrimInterval) return;
    lastTrim_ = now;
    Entry *end = std::remove_if(entries_, entries_ + count_, [&](const Entry &entry) {
        if (entry.useCount > 0 || !IsOld(entry.lastUse, now)) return false;
        bytes_ -= BytesOf(entry);
        DeleteObject(entry.bitmap);
        return true;
    });
    count_ = static_cast<int>(end - entries_);
}

namespace {

/// Never destroyed, as it never holds anything: calls may come after the library's end.
union ProcessCache {
    constexpr ProcessCache() : cache(false, 0) {}
    ~ProcessCache() {}
    DibSectionCache cache;
};
constinit ProcessCache process;

}  // namespace

DibSectionCache &ProcessDibSectionCache() { return process.cache; }

}  // namespace lacquer
