// The ends of what can be made: sizes, depths, memory, handles.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "handle_world.h"

namespace lacquer {
namespace {

class LimitsTest : public testing::Test {
protected:
    /// Calls everything that makes an object of a size.
    void ForEachOfSize(DWORD width, DWORD height,
                       const std::function<void(const ExportedCall &, uint64_t)> &check) const {
        for (const ExportedCall &row : ExportedCalls()) {
            std::vector<Argument> arguments = world_.ArgumentsFor(row);
            const std::string_view name = row.name;
            const auto size = std::find_if(arguments.begin(), arguments.end(),
                                           [](const Argument &argument) { return argument.letter == 'n'; });
            if ((!name.starts_with("Create") && !name.starts_with("Resize")) || size == arguments.end()) continue;
            size[0].number = width;
            size[1].number = height;
            check(row, row.call(arguments));
        }
    }

    const HandleWorld world_;
};

TEST_F(LimitsTest, SidesBeyondTheRangeAreRefused) {
    const std::vector<uint32_t> before = world_.Snapshot();
    for (const DWORD wrong : {0u, 32768u, 65537u, 0x7FFFFFFFu, 0x80000001u, 0xFFFFFFFFu}) {
        for (const SIZE &size : {SIZE{0, 1}, SIZE{1, 0}, SIZE{0, 0}}) {
            ForEachOfSize(
                size.cx == 0 ? wrong : 1, size.cy == 0 ? wrong : 1,
                [&](const ExportedCall &row, uint64_t result) { EXPECT_EQ(0u, result) << row.name << ' ' << wrong; });
        }
    }
    EXPECT_EQ(before, world_.Snapshot());
}

TEST_F(LimitsTest, TheLongestSidesAreNot) {
    const auto check = [&](const ExportedCall &row, uint64_t result) {
        EXPECT_TRUE(HasWorked(row, result, row.arguments)) << row.name;
    };
    ForEachOfSize(32767, 1, check);
    ForEachOfSize(1, 32767, check);
    const OwnedTexture longest(CreateTexture(32767, 1)), turned(TransformTexture(longest, 1));
    EXPECT_EQ((Size{1, 32767}), SizeOf(turned));
}

TEST_F(LimitsTest, MemoryThatNoMachineHasIsAFailure) {
    const std::vector<uint32_t> before = world_.Snapshot();
    EXPECT_FALSE(CreateMemBitmapEx(32767, 32767, 65535, 0));
    EXPECT_EQ(before, world_.Snapshot());
    const OwnedBitmap wide(CreateMemBitmapEx(32767, 1, 65535, 0));
}

/// Takes every free slot of the handle table.
class FullTable {
public:
    FullTable() {
        while (const DWORD handle = e_NewHandleEntry(nullptr, 2, this)) handles_.push_back(handle);
    }
    ~FullTable() {
        for (const DWORD handle : handles_) e_DelHandleEntry(nullptr, handle);
    }
    FullTable(const FullTable &) = delete;
    FullTable &operator=(const FullTable &) = delete;

    void FreeOne() {
        EXPECT_EQ(1, e_DelHandleEntry(nullptr, handles_.back()));
        handles_.pop_back();
    }

private:
    std::vector<DWORD> handles_;
};

TEST_F(LimitsTest, AFullTableFailsEveryCreationAndLeavesNothing) {
    const HGCANVAS canvas = CreateCanvas(2, 2, {});
    std::vector<std::vector<Argument>> arguments;
    for (const ExportedCall &row : ExportedCalls()) arguments.push_back(world_.ArgumentsFor(row));
    FullTable full;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const ExportedCall &row = ExportedCalls()[i];
        const bool makes = std::string_view("cbt").find(row.result) != std::string_view::npos;
        if (makes && !std::string_view(row.name).starts_with("CanvasTo") &&
            row.name != std::string_view("BitmapToTexture")) {
            EXPECT_EQ(0u, row.call(arguments[i])) << row.name;
        }
    }
    EXPECT_EQ(0u, e_NewHandleEntry(nullptr, 2, &full)) << "nothing has freed a slot";

    // What consumes an object takes over its slot.
    const HGBITMAP bitmap = CanvasToBitmap(canvas);
    EXPECT_TRUE(bitmap);
    const HGTEXTURE texture = BitmapToTexture(bitmap);
    EXPECT_TRUE(texture);
    EXPECT_EQ(0u, CreateTexture(1, 1).value);
    DeleteTexture(texture);
    const OwnedTexture last(CanvasToTexture(CreateCanvas(1, 1, {})));
}

TEST_F(LimitsTest, FailedSystemObjectsGiveTheirGdiObjectsBack) {
    FullTable full;
    // More than GDI lets a program have.
    for (int i = 0; i < 33000; ++i) {
        ASSERT_FALSE(CreateSystemBitmap(1, 1));
        ASSERT_FALSE(CreateSystemCanvas(1, 1, {}));
    }
    full.FreeOne();
    const OwnedCanvas canvas(CreateSystemCanvas(1, 1, {}));
    EXPECT_NE(nullptr, GetCanvasHandle(canvas));
}

}  // namespace
}  // namespace lacquer
