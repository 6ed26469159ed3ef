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

TEST_F(LimitsTest, SizesBeyondTheRangeAreRefused) {
    const std::vector<uint32_t> before = world_.Snapshot();
    for (const DWORD wrong : {0u, 32768u, 65537u, 0x7FFFFFFFu, 0x80000001u, 0xFFFFFFFFu}) {
        for (const SIZE &size : {SIZE{0, 1}, SIZE{1, 0}, SIZE{0, 0}}) {
            ForEachOfSize(
                size.cx == 0 ? wrong : 1, size.cy == 0 ? wrong : 1,
                [&](const ExportedCall &row, uint64_t result) { EXPECT_EQ(0u, result) << row.name << ' ' << wrong; });
        }
    }
    EXPECT_FALSE(CreateMemBitmapEx(32767, 32767, 65535, 0)) << "more than any machine has";
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

TEST_F(LimitsTest, AFullTableFailsEveryCreationAndLeavesNothing) {
    const HGCANVAS canvas = CreateCanvas(2, 2, {});
    std::vector<std::vector<Argument>> arguments;
    for (const ExportedCall &row : ExportedCalls()) arguments.push_back(world_.ArgumentsFor(row));
    std::vector<DWORD> entries;
    while (const DWORD entry = e_NewHandleEntry(nullptr, 2, this)) entries.push_back(entry);
    for (size_t i = 0; i < arguments.size(); ++i) {
        const ExportedCall &row = ExportedCalls()[i];
        const bool makes = std::string_view("cbt").find(row.result) != std::string_view::npos;
        if (makes && std::string_view(row.name).find("To") == std::string_view::npos) {
            EXPECT_EQ(0u, row.call(arguments[i])) << row.name;
        }
    }
    // More than GDI lets a program have.
    for (int i = 0; i < 33000; ++i) ASSERT_FALSE(CreateSystemBitmap(1, 1) || CreateSystemCanvas(1, 1, {}));

    // What consumes an object takes over its slot, even now.
    const OwnedTexture texture(BitmapToTexture(CanvasToBitmap(canvas)));
    EXPECT_EQ(0u, e_NewHandleEntry(nullptr, 2, this)) << "nothing has freed a slot";
    for (const DWORD entry : entries) e_DelHandleEntry(nullptr, entry);
    const OwnedCanvas next(CreateSystemCanvas(1, 1, {}));
    EXPECT_NE(nullptr, GetCanvasHandle(next));
}

}  // namespace
}  // namespace lacquer
