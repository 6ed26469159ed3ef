// Every exported function against every kind of wrong handle. A wrong handle gives the documented failure and changes
// nothing: no object, no out-record, no slot of the handle table.

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <set>
#include <string>

#include "handle_calls.h"
#include "handle_world.h"

namespace lacquer {
namespace {

constexpr const char *kExportsWithoutHandles[] = {
    "AHSLColorize",
    "AHSLtoARGB",
    "ARGBColorize",
    "ARGBtoAHSL",
    "CreateCanvasFromDC",
    "CreateMemBitmap",
    "CreateMemBitmapEx",
    "CreateSystemBitmap",
    "CreateTexture",
    "CreateTextureEx",
    "e_NewHandleEntry",
    "GetStretchKernelMode",
    "GetTextureFromVelCanvas",
    "GradientAddColorStop",
    "GradientCreateLinear",
    "GradientCreateRadial",
    "GradientDestroy",
    "HSLColorize",
    "HSLtoRGB",
    "PathAddArc",
    "PathAddCircle",
    "PathAddEllipse",
    "PathAddRectangle",
    "PathArcTo",
    "PathBegin",
    "PathBezierCurveTo",
    "PathClose",
    "PathCreate",
    "PathDestroy",
    "PathGetBounds",
    "PathLineTo",
    "PathMoveTo",
    "PathOvalCurveTo",
    "PathQuadraticCurveTo",
    "PathSetFillType",
    "RGBColorize",
    "RGBtoHSL",
    "SetStretchKernelMode",
};

// Exported under names that encode their argument types, so not in the list of plain names.
constexpr const char *kDecoratedExports[] = {"DrawTexture9Grid", "DrawTextureCenter", "DrawTextureTile",
                                             "DrawTextureTopTile"};

TEST(BadHandleTest, TheTableKnowsEveryExport) {
    std::ifstream file(LACQUER_EXPORTS_FILE);
    std::set<std::string> exported(std::begin(kDecoratedExports), std::end(kDecoratedExports)), known;
    for (std::string name; std::getline(file, name);) {
        if (!name.empty() && name.back() == '\r') name.pop_back();
        exported.insert(name);
    }
    for (const HandleCall &row : HandleCalls())
        EXPECT_TRUE(known.insert(row.name).second) << row.name << " has two rows";
    for (const char *name : kExportsWithoutHandles) EXPECT_TRUE(known.insert(name).second) << name;
    EXPECT_EQ(exported, known);
}

std::string Described(const HandleCall::Values &values) {
    char text[64];
    std::snprintf(text, sizeof text, "handles %llx %llx", static_cast<unsigned long long>(values[0]),
                  static_cast<unsigned long long>(values[1]));
    return text;
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
    cases.push_back({});
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
