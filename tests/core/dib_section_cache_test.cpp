// The pool of DIB sections on made-up tick counts.

#include "core/dib_section_cache.h"

#include <gtest/gtest.h>

#include <vector>

namespace lacquer {
namespace {

constexpr DWORD kTrimInterval = 60000, kIdleLimit = 300001;

bool Exists(HBITMAP bitmap) {
    BITMAP description{};
    return GetObjectW(bitmap, sizeof description, &description) != 0;
}

struct Section {
    HBITMAP handle;
    BITMAP description;
};

Section Take(DibSectionCache &cache, int width, int height, DWORD now) {
    Section section{};
    section.handle = cache.Acquire(width, height, now, &section.description);
    EXPECT_NE(nullptr, section.handle);
    EXPECT_EQ(width, section.description.bmWidth);
    EXPECT_EQ(height, section.description.bmHeight);
    EXPECT_EQ(width * 4, section.description.bmWidthBytes);
    EXPECT_NE(nullptr, section.description.bmBits);
    return section;
}

/// Uses and gives back a section of a size that no test looks at, which lets the cache trim.
void Touch(DibSectionCache &cache, DWORD now) { cache.Release(Take(cache, 3, 1, now).handle, now); }

TEST(DibSectionCacheTest, DisabledOrWithoutASectionItKeepsNothing) {
    DibSectionCache disabled(false, 0), enabled(true, 0);
    const Section first = Take(disabled, 4, 4, 0);
    disabled.Release(first.handle, 0);
    EXPECT_FALSE(Exists(first.handle));
    BITMAP description{};
    description.bmWidth = 77;
    EXPECT_EQ(nullptr, enabled.Acquire(0, 5, 0, &description));
    EXPECT_EQ(77, description.bmWidth);
    for (const DibSectionCache *cache : {&disabled, &enabled}) {
        EXPECT_EQ(0, cache->Count());
        EXPECT_EQ(0, cache->Bytes());
    }
}

TEST(DibSectionCacheTest, ReusesIdleSectionsOfTheSameSizeOnly) {
    DibSectionCache cache(true, 0);
    const Section wide = Take(cache, 8, 4, 0), alsoWide = Take(cache, 8, 4, 0), tall = Take(cache, 4, 8, 0);
    EXPECT_NE(wide.handle, alsoWide.handle);
    EXPECT_EQ(3, cache.Count());
    EXPECT_EQ(3 * 128, cache.Bytes());

    cache.Release(wide.handle, 1);
    cache.Release(tall.handle, 1);
    const Section again = Take(cache, 8, 4, 2);
    EXPECT_EQ(wide.handle, again.handle);
    EXPECT_EQ(wide.description.bmBits, again.description.bmBits);
    EXPECT_EQ(3, cache.Count());
    EXPECT_NE(tall.handle, Take(cache, 8, 4, 2).handle);
    EXPECT_EQ(4, cache.Count());
}

TEST(DibSectionCacheTest, ANewSectionGoesBeforeTheOthersOfItsSize) {
    DibSectionCache cache(true, 0);
    const Section older = Take(cache, 8, 4, 0), other = Take(cache, 2, 2, 0), newer = Take(cache, 8, 4, 0);
    for (const Section &section : {older, other, newer}) cache.Release(section.handle, 0);
    EXPECT_EQ(newer.handle, Take(cache, 8, 4, 0).handle);
    EXPECT_EQ(older.handle, Take(cache, 8, 4, 0).handle);
}

TEST(DibSectionCacheTest, BeyondItsLimitsSectionsAreNotKept) {
    DibSectionCache many(true, 0);
    for (int width = 1; width <= 64; ++width) Take(many, width, 1, 0);
    EXPECT_EQ(64, many.Count());
    const Section oneMore = Take(many, 65, 1, 0);
    EXPECT_EQ(64, many.Count());
    many.Release(oneMore.handle, 0);
    EXPECT_FALSE(Exists(oneMore.handle));

    DibSectionCache large(true, 0);
    Take(large, 2047, 1024, 0);
    Take(large, 1023, 1, 0);
    EXPECT_EQ(8388608 - 4, large.Bytes());
    Take(large, 8, 8, 0);
    EXPECT_EQ(3, large.Count()) << "four bytes were left";
    const Section tooMuch = Take(large, 1, 1, 0);
    EXPECT_EQ(3, large.Count());
    large.Release(tooMuch.handle, 0);
    EXPECT_FALSE(Exists(tooMuch.handle));
}

TEST(DibSectionCacheTest, TrimsIdleSectionsAtMostOnceAMinute) {
    struct {
        DWORD made, lastUse;
        struct {
            DWORD now;
            bool exists;
        } looks[3];
    } const cases[] = {
        // One millisecond less than the limit; less than a minute after that trim; a minute after it.
        {0,
         0,
         {{kIdleLimit - 1, true}, {kIdleLimit + kTrimInterval - 2, true}, {kIdleLimit + kTrimInterval - 1, false}}},
        {0, 1000, {{1000, true}, {1000 + kIdleLimit, false}, {1001 + kIdleLimit, false}}},
        // The tick count wraps.
        {0xFFFFF000, 0xFFFFFFF0, {{kTrimInterval, true}, {kIdleLimit - 1, true}, {kIdleLimit + kTrimInterval, false}}}};
    for (const auto &[made, lastUse, looks] : cases) {
        DibSectionCache cache(true, made);
        const Section idle = Take(cache, 8, 8, lastUse), used = Take(cache, 9, 9, lastUse);
        cache.Release(idle.handle, lastUse);
        for (const auto &[now, exists] : looks) {
            Touch(cache, now);
            EXPECT_EQ(exists, Exists(idle.handle)) << now - lastUse;
        }
        EXPECT_TRUE(Exists(used.handle));
        EXPECT_EQ(2, cache.Count());
        EXPECT_EQ(9 * 9 * 4 + 3 * 4, cache.Bytes());
    }
}

TEST(DibSectionCacheTest, ItsEndDeletesEverything) {
    std::vector<HBITMAP> kept;
    {
        DibSectionCache cache(true, 0);
        for (int width = 1; width <= 4; ++width) kept.push_back(Take(cache, width, 1, 0).handle);
        cache.Release(kept[0], 0);
    }
    for (HBITMAP bitmap : kept) EXPECT_FALSE(Exists(bitmap));
}

}  // namespace
}  // namespace lacquer
