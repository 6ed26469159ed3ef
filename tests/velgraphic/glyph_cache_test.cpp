// The cache of glyph masks, from inside: what it keeps, and that threads can use it at the same time.

#include "glyph_cache.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <random>
#include <thread>
#include <utility>
#include <vector>

namespace lacquer::vel {
namespace {

/// A mask of 16 x `height` bytes that tell its key.
bool MakeMask(const GlyphKey &key, int height, GlyphMask &mask) {
    mask.box = {0, 0, 16, height};
    mask.stride = 16;
    mask.rows.reset(new uint8_t[mask.Bytes()]);
    std::fill_n(mask.rows.get(), mask.Bytes(), static_cast<uint8_t>(key.face * 31 + key.glyph * 7 + key.quarter));
    return true;
}

/// Asks for glyphs in one call. Result: those that had to be made.
std::vector<int> MadeFor(GlyphCache &cache, std::initializer_list<int> glyphs) {
    std::vector<int> made;
    GlyphCache::Reader reader(cache);
    for (const int glyph : glyphs) {
        const GlyphKey key{1, 12, static_cast<uint16_t>(glyph), 0};
        EXPECT_NE(nullptr, reader.Find(key, [&](GlyphMask &mask) {
            made.push_back(glyph);
            return MakeMask(key, 100, mask);
        }));
    }
    return made;
}

TEST(GlyphCacheTest, WhatWasNotUsedForLongestGoesFirst) {
    GlyphCache cache(4 * 1600 + 1599);  // four masks and the records of them
    EXPECT_EQ((std::vector{1, 2, 3, 4}), MadeFor(cache, {1, 2, 3, 4, 1}));
    EXPECT_EQ(std::vector<int>{}, MadeFor(cache, {2}));
    EXPECT_EQ(std::vector<int>{}, MadeFor(cache, {1}));
    EXPECT_EQ((std::vector{5, 6}), MadeFor(cache, {5, 6}));
    EXPECT_EQ((std::vector{3}), MadeFor(cache, {1, 2, 5, 6, 3})) << "3 and 4 are gone, and what is used stays";
    EXPECT_LE(cache.Bytes(), 4 * 1600 + 1599u);

    // What cannot be made is asked for again, and leaves nothing.
    const auto bytes = cache.Bytes();
    EXPECT_EQ(nullptr, GlyphCache::Reader(cache).Find({9, 9, 9, 0}, [](GlyphMask &) { return false; }));
    EXPECT_EQ(bytes, cache.Bytes());
    cache.End();
    EXPECT_EQ(0u, cache.Bytes());
    EXPECT_EQ((std::vector{1}), MadeFor(cache, {1, 1}));
    EXPECT_EQ(0u, cache.Bytes()) << "nothing is kept after the end";
}

TEST(GlyphCacheTest, ThreadsGetTheirMasksAndTheBoundHolds) {
    constexpr size_t kBound = 20000;
    GlyphCache cache(kBound);
    std::atomic<int> wrong{0};
    const auto draw = [&](unsigned seed) {
        std::minstd_rand random(seed);
        for (int call = 0; call < 2000; ++call) {
            GlyphCache::Reader reader(cache);
            std::vector<std::pair<GlyphKey, const GlyphMask *>> masks;
            for (int i = 0; i < 8; ++i) {
                const GlyphKey key{random() % 2, 12, static_cast<uint16_t>(random() % 20),
                                   static_cast<uint16_t>(random() % 4)};
                const int height = static_cast<int>(key.glyph) + 1;
                masks.emplace_back(key, reader.Find(key, [&](GlyphMask &mask) { return MakeMask(key, height, mask); }));
            }
            reader.Unlock();
            for (const auto &[key, mask] : masks) {
                GlyphMask expected;
                MakeMask(key, key.glyph + 1, expected);
                wrong +=
                    !mask || !std::equal(expected.rows.get(), expected.rows.get() + expected.Bytes(), mask->rows.get());
            }
        }
    };
    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= 4; ++seed) threads.emplace_back(draw, seed);
    for (std::thread &thread : threads) thread.join();
    EXPECT_EQ(0, wrong);
    EXPECT_LE(cache.Bytes(), kBound);
}

}  // namespace
}  // namespace lacquer::vel
