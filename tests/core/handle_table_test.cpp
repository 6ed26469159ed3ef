// The handle table: which slot a handle gets, when a handle is current, and the lock.

#include "core/handle_table.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <optional>
#include <set>
#include <thread>
#include <vector>

namespace lacquer {
namespace {

constexpr int kCanvas = 1, kBitmap = 2, kTexture = 3;
constexpr uint32_t kUsableSlots = 32767;

int objects[4];

struct OpenTable : HandleTable {
    OpenTable() { Open(); }
    ~OpenTable() { Close(); }
};

uint32_t IndexOf(uint32_t handle) { return handle & 0xFFFF; }
uint32_t GenerationOf(uint32_t handle) { return handle >> 24; }

TEST(HandleTableTest, FirstHandlesNameTypeGenerationAndIndex) {
    OpenTable bitmaps, canvases;
    EXPECT_EQ(0x01020001u, bitmaps.NewHandleEntry(kBitmap, &objects[0]));
    EXPECT_EQ(0x01030002u, bitmaps.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x01010001u, canvases.NewHandleEntry(kCanvas, &objects[2]));
    EXPECT_EQ(&objects[0], bitmaps.LookupHandleEntry(0x01020001));
    EXPECT_EQ(&objects[1], bitmaps.LookupHandleEntry(0x01030002));
    EXPECT_EQ(&objects[2], canvases.LookupHandleEntry(0x01010001));
}

TEST(HandleTableTest, OnlyTheLowByteOfTheTypeCounts) {
    OpenTable table;
    EXPECT_EQ(0x01FF0001u, table.NewHandleEntry(-1, &objects[0]));
    EXPECT_EQ(0x01020002u, table.NewHandleEntry(0x7F02, &objects[0]));
}

TEST(HandleTableTest, RefusesWhatIsNotCurrent) {
    OpenTable table;
    const uint32_t handle = table.NewHandleEntry(kBitmap, &objects[0]);
    const std::array<uint32_t, 12> wrong{
        0,
        0x00020001,  // another generation
        0x02020001,
        0x01010001,  // another type
        0x01030001,
        0x01000001,       // no type
        0x01020002,       // a free slot
        0x01020000,       // slot 0
        0x01000000,       // slot 0 as it is tagged
        handle | 0x8000,  // beyond the table
        0x0102FFFF,
        0xFFFFFFFF,
    };
    for (const uint32_t other : wrong) {
        EXPECT_EQ(nullptr, table.LookupHandleEntry(other)) << std::hex << other;
        EXPECT_FALSE(table.DelHandleEntry(other)) << std::hex << other;
    }
    EXPECT_EQ(&objects[0], table.LookupHandleEntry(handle));
    EXPECT_TRUE(table.DelHandleEntry(handle));
    EXPECT_EQ(nullptr, table.LookupHandleEntry(handle));
    EXPECT_FALSE(table.DelHandleEntry(handle));
    EXPECT_FALSE(table.DelHandleEntry(0x02000001)) << "the free slot's own tag";
}

TEST(HandleTableTest, TypeZeroIsNeverCurrent) {
    OpenTable table;
    const uint32_t handle = table.NewHandleEntry(0x100, &objects[0]);
    EXPECT_EQ(0x01000001u, handle);
    EXPECT_EQ(nullptr, table.LookupHandleEntry(handle));
    EXPECT_FALSE(table.DelHandleEntry(handle));
    EXPECT_EQ(2u, IndexOf(table.NewHandleEntry(kBitmap, &objects[1]))) << "the slot is held all the same";
}

TEST(HandleTableTest, ASlotWithoutAnObjectIsHandedOutAgain) {
    OpenTable table;
    const uint32_t empty = table.NewHandleEntry(kBitmap, nullptr);
    EXPECT_EQ(1u, IndexOf(empty));
    EXPECT_EQ(nullptr, table.LookupHandleEntry(empty));
    EXPECT_EQ(0x01010001u, table.NewHandleEntry(kCanvas, &objects[0]));
    EXPECT_EQ(nullptr, table.LookupHandleEntry(empty));
    EXPECT_FALSE(table.DelHandleEntry(empty));
}

TEST(HandleTableTest, ReusesTheSlotFreedLastThenTheLowestFreeOne) {
    OpenTable table;
    std::vector<uint32_t> handles;
    for (int i = 0; i < 6; ++i) handles.push_back(table.NewHandleEntry(kBitmap, &objects[0]));
    EXPECT_EQ(6u, IndexOf(handles.back()));
    for (const size_t i : {1u, 4u, 2u}) EXPECT_TRUE(table.DelHandleEntry(handles[i]));
    EXPECT_EQ(0x02030003u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x02030002u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x02030005u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x01030007u, table.NewHandleEntry(kTexture, &objects[1]));
    for (const size_t i : {1u, 4u, 2u}) EXPECT_EQ(nullptr, table.LookupHandleEntry(handles[i]));
}

TEST(HandleTableTest, GenerationsWrapAfter256Frees) {
    OpenTable table;
    const uint32_t first = table.NewHandleEntry(kBitmap, &objects[0]);
    EXPECT_TRUE(table.DelHandleEntry(first));
    std::set<uint32_t> generations{GenerationOf(first)};
    for (int i = 1; i < 256; ++i) {
        const uint32_t handle = table.NewHandleEntry(kBitmap, &objects[0]);
        EXPECT_EQ(1u, IndexOf(handle));
        EXPECT_EQ(nullptr, table.LookupHandleEntry(first));
        EXPECT_TRUE(generations.insert(GenerationOf(handle)).second) << GenerationOf(handle);
        EXPECT_TRUE(table.DelHandleEntry(handle));
    }
    EXPECT_TRUE(generations.contains(0)) << "generation 0 is not skipped";
    EXPECT_EQ(first, table.NewHandleEntry(kBitmap, &objects[0]));
}

TEST(HandleTableTest, HoldsEveryUsableSlotAndNoMore) {
    OpenTable table;
    std::vector<uint32_t> handles;
    while (const uint32_t handle = table.NewHandleEntry(kBitmap, &objects[0])) {
        ASSERT_LT(handles.size(), kUsableSlots);
        handles.push_back(handle);
    }
    ASSERT_EQ(kUsableSlots, handles.size());
    EXPECT_EQ(0u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(&objects[0], table.LookupHandleEntry(0x01020000 | kUsableSlots));

    EXPECT_TRUE(table.DelHandleEntry(handles[20000]));
    EXPECT_EQ(0x02030000u | (20000 + 1), table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0u, table.NewHandleEntry(kTexture, &objects[1]));

    // The next free slot may lie below or above the hint.
    for (const size_t i : {30000u, 7u, 15000u}) EXPECT_TRUE(table.DelHandleEntry(handles[i]));
    for (const uint32_t index : {15001u, 8u, 30001u, 0u})
        EXPECT_EQ(index, IndexOf(table.NewHandleEntry(kCanvas, &objects[2])));
}

TEST(HandleTableTest, RevokeFreesTheHandlesOfOneObjectWhicheverWereFreedBefore) {
    constexpr size_t kObjects = 3, kHandles = 24;
    for (uint32_t freed = 0; freed < 1u << (kHandles / kObjects); ++freed) {
        OpenTable table;
        std::array<uint32_t, kHandles> handles{};
        for (size_t i = 0; i < kHandles; ++i) {
            handles[i] = table.NewHandleEntry(kCanvas, &objects[i % kObjects]);
            ASSERT_EQ(i + 1, IndexOf(handles[i]));
        }
        // Some handles of every object, the first and the last one in turn.
        for (size_t i = 0; i < kHandles; ++i) {
            if (freed >> i / kObjects & 1) {
                EXPECT_TRUE(table.DelHandleEntry(handles[i]));
            }
        }
        HeldTable(table).Revoke(&objects[1]);
        for (size_t i = 0; i < kHandles; ++i) {
            const bool isGone = i % kObjects == 1 || (freed >> i / kObjects & 1);
            ASSERT_EQ(isGone ? nullptr : &objects[i % kObjects], table.LookupHandleEntry(handles[i])) << freed;
        }
        // The hint is the slot freed by its handle; none that was revoked.
        if (freed == 0) {
            EXPECT_EQ(0x02020002u, table.NewHandleEntry(kBitmap, &objects[3]));
            EXPECT_EQ(0x02020005u, table.NewHandleEntry(kBitmap, &objects[3]));
        } else {
            const auto last = static_cast<uint32_t>(std::bit_width(freed)) * kObjects;
            EXPECT_EQ(0x02020000u | last, table.NewHandleEntry(kBitmap, &objects[3]));
        }
    }
}

TEST(HandleTableTest, IsEmptyAndFullBeforeItOpensAndAfterItClosesWhateverHoldsTheLock) {
    for (const bool held : {false, true}) {
        HandleTable table;
        EXPECT_FALSE(table.IsOpen());
        EXPECT_EQ(0u, table.NewHandleEntry(kBitmap, &objects[0]));
        EXPECT_EQ(nullptr, table.LookupHandleEntry(0x01020001));
        table.Open();
        EXPECT_TRUE(table.IsOpen());
        const uint32_t handle = table.NewHandleEntry(kBitmap, &objects[0]);
        EXPECT_EQ(0x01020001u, handle);
        std::optional<HeldTable> holder;
        if (held) holder.emplace(table);
        std::thread([&] {
            table.Close();
            EXPECT_EQ(0u, table.NewHandleEntry(kBitmap, &objects[0]));
            EXPECT_EQ(nullptr, table.LookupHandleEntry(handle));
            EXPECT_FALSE(table.DelHandleEntry(handle));
            HeldTable(table).Revoke(&objects[0]);
        }).join();
        if (!held) continue;
        EXPECT_EQ(&objects[0], holder->LookupHandleEntry(handle)) << "who is inside goes on with what it has";
        EXPECT_TRUE(holder->DelHandleEntry(handle));
        holder.reset();
        EXPECT_EQ(nullptr, table.LookupHandleEntry(handle));
    }
}

TEST(HandleTableTest, NoHandleIsHandedOutTwiceToThreads) {
    constexpr int kThreads = 4, kRounds = 4000, kHeld = 8;
    OpenTable table;
    std::array<int, kThreads> faults{};
    std::vector<std::thread> threads;
    for (size_t t = 0; t < kThreads; ++t) {
        threads.emplace_back([&table, &fault = faults[t]] {
            std::array<int, kHeld> mine{};
            std::array<uint32_t, kHeld> handles{};
            for (int round = 0; round < kRounds; ++round) {
                const size_t i = static_cast<size_t>(round * 5) % kHeld;
                if (handles[i] != 0) {
                    fault += table.LookupHandleEntry(handles[i]) != &mine[i];
                    fault += !table.DelHandleEntry(handles[i]);
                }
                handles[i] = table.NewHandleEntry(1 + round % 3, &mine[i]);
                fault += table.LookupHandleEntry(handles[i]) != &mine[i];
                if (round % 1000 == 0) HeldTable(table).Revoke(&fault);
            }
            for (const uint32_t handle : handles) fault += !table.DelHandleEntry(handle);
        });
    }
    for (std::thread &thread : threads) thread.join();
    EXPECT_EQ((std::array<int, kThreads>{}), faults);
    size_t free = 0;
    while (table.NewHandleEntry(kBitmap, &objects[0]) != 0) ++free;
    EXPECT_EQ(kUsableSlots, free);
}

}  // namespace
}  // namespace lacquer
