// The pool of DIB sections on made-up tick counts.

#include "core/dib_section_cache.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace lacquer {
namespace {

constexpr DWORD kTrimInterval = 60000, kIdleLimit = 300001;

bool Exists(HBITMAP bitmap) {
    BITMAP description{};
    return GetObjectW(bitmap, sizeof description, &description) != 0;
}

HBITMAP Take(DibSectionCache &cache, int width, int height, DWORD now) {
    BITMAP description{};
    HBITMAP section = cache.Acquire(width, height, now, &description);
    EXPECT_NE(nullptr, section);
    EXPECT_EQ(width, description.bmWidth);
    EXPECT_EQ(height, description.bmHeight);
    EXPECT_NE(nullptr, description.bmBits);
    return section;
}

/// Uses and gives back a section of a size that no test looks at, which lets the cache trim.
void Touch(DibSectionCache &cache, DWORD now) { cache.Release(Take(cache, 3, 1, now), now); }

TEST(DibSectionCacheTest, DisabledOrWithoutASectionItKeepsNothing) {
    DibSectionCache disabled(false, 0), enabled(true, 0);
    HBITMAP first = Take(disabled, 4, 4, 0);
    disabled.Release(first, 0);
    EXPECT_FALSE(Exists(first));
    BITMAP description{};
    description.bmWidth = 77;
    EXPECT_EQ(nullptr, enabled.Acquire(0, 5, 0, &description));
    EXPECT_EQ(77, description.bmWidth);
    EXPECT_EQ(0, disabled.Count() + disabled.Bytes() + enabled.Count() + enabled.Bytes());
}

TEST(DibSectionCacheTest, ReusesIdleSectionsOfTheSameSizeOnlyTheLatestFirstAndDeletesAllAtItsEnd) {
    std::vector<HBITMAP> made;
    {
        DibSectionCache cache(true, 0);
        for (const auto &[width, height] : {std::pair{8, 4}, {4, 8}, {8, 4}, {2, 2}}) {
            made.push_back(Take(cache, width, height, 0));
        }
        EXPECT_EQ(3 * 128 + 16, cache.Bytes());
        for (const size_t i : {0u, 1u, 2u}) cache.Release(made[i], 1);
        EXPECT_EQ(made[2], Take(cache, 8, 4, 2));
        EXPECT_EQ(made[0], Take(cache, 8, 4, 2));
        EXPECT_EQ(4, cache.Count());
        made.push_back(Take(cache, 8, 4, 2));
        EXPECT_EQ(5, cache.Count());
    }
    for (HBITMAP bitmap : made) EXPECT_FALSE(Exists(bitmap));
}

TEST(DibSectionCacheTest, BeyondItsLimitsSectionsAreNotKept) {
    DibSectionCache many(true, 0);
    for (int width = 1; width <= 64; ++width) Take(many, width, 1, 0);
    EXPECT_EQ(64, many.Count());
    HBITMAP oneMore = Take(many, 65, 1, 0);
    EXPECT_EQ(64, many.Count());
    many.Release(oneMore, 0);
    EXPECT_FALSE(Exists(oneMore));

    DibSectionCache large(true, 0);
    Take(large, 2047, 1024, 0);
    Take(large, 1023, 1, 0);
    Take(large, 8, 8, 0);
    HBITMAP tooMuch = Take(large, 1, 1, 0);
    EXPECT_EQ(3, large.Count());
    large.Release(tooMuch, 0);
    EXPECT_FALSE(Exists(tooMuch));
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
        HBITMAP idle = Take(cache, 8, 8, lastUse);
        HBITMAP used = Take(cache, 9, 9, lastUse);
        cache.Release(idle, lastUse);
        for (const auto &[now, exists] : looks) {
            Touch(cache, now);
            EXPECT_EQ(exists, Exists(idle)) << now - lastUse;
        }
        EXPECT_TRUE(Exists(used));
        EXPECT_EQ(2, cache.Count());
        EXPECT_EQ(9 * 9 * 4 + 3 * 4, cache.Bytes());
    }
}

}  // namespace
}  // namespace lacquer
