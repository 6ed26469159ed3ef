// Every exported function against every kind of wrong handle. A wrong handle gives the documented failure and changes
// nothing: no object, no out-record, no slot of the handle table.

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "handle_calls.h"
#include "handle_world.h"

namespace lacquer {
namespace {

// Exported under names that encode their argument types, so not in the list of plain names.
constexpr const char *kDecoratedExports = "DrawTexture9Grid DrawTextureCenter DrawTextureTile DrawTextureTopTile";

/// Adds the words of a text, each of them once.
void AddWords(std::istream &&text, std::set<std::string> &words) {
    for (std::string word; text >> word;) EXPECT_TRUE(words.insert(word).second) << word;
}

TEST(BadHandleTest, TheTableKnowsEveryExport) {
    std::set<std::string> exported, known;
    AddWords(std::ifstream(LACQUER_EXPORTS_FILE), exported);
    AddWords(std::istringstream(kDecoratedExports), exported);
    for (const HandleCall &row : HandleCalls()) AddWords(std::istringstream(row.name), known);
    EXPECT_EQ(exported, known);
}

std::string Described(const HandleCall::Values &values) {
    std::ostringstream text;
    text << std::hex << "handles " << values[0] << ' ' << values[1];
    return text.str();
}

class BadHandleTest : public testing::TestWithParam<HandleCall> {};

TEST_P(BadHandleTest, IsRefusedAndChangesNothing) {
    const HandleCall &row = GetParam();
    const HandleWorld world;
    const std::vector<uint32_t> before = world.Snapshot();
    const size_t count = std::strlen(row.handles);
    std::vector<HandleCall::Values> cases;
    for (size_t argument = 0; argument < count; ++argument) {
        for (const uintptr_t wrong : world.Wrong(row.handles[argument], argument)) {
            HandleCall::Values handles{};
            for (size_t i = 0; i < count; ++i) handles[i] = world.Valid(row.handles[i], i);
            handles[argument] = wrong;
            cases.push_back(handles);
        }
    }
    if (count > 0) cases.push_back({});
    for (const HandleCall::Values &handles : cases) {
        out.Reset();
        ASSERT_EQ(row.refused, row.call(handles)) << Described(handles);
        ASSERT_TRUE(out.IsUntouched()) << Described(handles);
        ASSERT_EQ(before, world.Snapshot()) << Described(handles);
    }
}

TEST_P(BadHandleTest, UpperBitsOfAGoodOneDoNotCount) {
    const HandleCall &row = GetParam();
    for (const uintptr_t upper : {uintptr_t{0}, kUpperGarbage, ~uintptr_t{0xFFFFFFFF}}) {
        const HandleWorld world;
        HandleCall::Values handles{};
        for (size_t i = 0; i < std::strlen(row.handles); ++i) handles[i] = world.Valid(row.handles[i], i) | upper;
        const uint64_t result = row.call(handles);
        EXPECT_TRUE(row.worked ? row.worked(result, handles) : result != row.refused) << Described(handles);
    }
}

INSTANTIATE_TEST_SUITE_P(Exports, BadHandleTest, testing::ValuesIn(HandleCalls()),
                         [](const testing::TestParamInfo<HandleCall> &row) { return std::string(row.param.name); });

}  // namespace
}  // namespace lacquer
