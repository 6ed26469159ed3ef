// The handle table: which slot a handle gets, when a handle is current, and the lock.

#include "core/handle_table.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <optional>
#include <thread>

namespace lacquer {
namespace {

constexpr int kCanvas = 1, kBitmap = 2, kTexture = 3;

int objects[4];

struct OpenTable : HandleTable {
    OpenTable() { Open(); }
    ~OpenTable() { Close(); }
};

uint32_t IndexOf(uint32_t handle) { return handle & 0xFFFF; }

TEST(HandleTableTest, HandlesNameTypeGenerationAndIndex) {
    OpenTable table, other;
    EXPECT_EQ(0x01020001u, table.NewHandleEntry(kBitmap, &objects[0]));
    EXPECT_EQ(0x01010001u, other.NewHandleEntry(kCanvas, &objects[1]));
    EXPECT_EQ(&objects[0], table.LookupHandleEntry(0x01020001));
    EXPECT_EQ(&objects[1], other.LookupHandleEntry(0x01010001));
    // Only the low byte of the type counts.
    EXPECT_EQ(0x01FF0002u, table.NewHandleEntry(-1, &objects[0]));
}

TEST(HandleTableTest, WithoutATypeOrAnObjectAnEntryIsNeverCurrent) {
    OpenTable table;
    const uint32_t untyped = table.NewHandleEntry(0x100, &objects[0]), empty = table.NewHandleEntry(kBitmap, nullptr);
    EXPECT_EQ(0x01000001u, untyped);
    EXPECT_EQ(0x01020002u, empty);
    EXPECT_EQ(0x01010002u, table.NewHandleEntry(kCanvas, &objects[1])) << "only a slot with an object is held";
    for (const uint32_t handle : {untyped, empty}) {
        EXPECT_EQ(nullptr, table.LookupHandleEntry(handle));
        EXPECT_FALSE(table.DelHandleEntry(handle));
    }
}

TEST(HandleTableTest, ReusesTheSlotFreedLastThenTheLowestFreeOne) {
    OpenTable table;
    for (int i = 0; i < 6; ++i) table.NewHandleEntry(kBitmap, &objects[0]);
    for (const uint32_t index : {2u, 5u, 3u}) EXPECT_TRUE(table.DelHandleEntry(0x01020000 | index));
    EXPECT_EQ(0x02030003u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x02030002u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x02030005u, table.NewHandleEntry(kTexture, &objects[1]));
    EXPECT_EQ(0x01030007u, table.NewHandleEntry(kTexture, &objects[1]));
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
        const uint32_t next = freed == 0 ? 2 : static_cast<uint32_t>(std::bit_width(freed)) * kObjects;
        EXPECT_EQ(0x02020000u | next, table.NewHandleEntry(kBitmap, &objects[3]));
    }
}

TEST(HandleTableTest, IsEmptyAndFullBeforeItOpensAndAfterItClosesWhateverHoldsTheLock) {
    for (const bool held : {false, true}) {
        HandleTable table;
        EXPECT_EQ(0u, table.NewHandleEntry(kBitmap, &objects[0]));
        EXPECT_EQ(nullptr, table.LookupHandleEntry(0x01020001));
        table.Open();
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

}  // namespace
}  // namespace lacquer
