// Loading and unloading the library over and over, with objects alive.

#include <gtest/gtest.h>

#include "library.h"
#include "support/memory_in_use.h"

// What the library leaves behind when it is unloaded with objects alive is no leak of this program.
extern "C" const char *__asan_default_options() { return "detect_leaks=0"; }

namespace lacquer {
namespace {

constexpr RECT kRect{1, 1, 20, 15};

/// Makes objects of every kind, draws, and deletes none of them. Result: the handle of the first.
uintptr_t LeaveObjectsBehind(const Library &library) {
    const HGCANVAS canvas = LACQUER_CALL(CreateCanvas)(16, 16, {}),
                   system = LACQUER_CALL(CreateSystemCanvas)(16, 16, {});
    EXPECT_EQ(1, LACQUER_CALL(DrawBitmap)(system, &kRect, LACQUER_CALL(CreateSystemBitmap)(8, 8), 1));
    EXPECT_EQ(1, LACQUER_CALL(DrawTexture)(canvas, &kRect, LACQUER_CALL(CreateTexture)(4, 4), 5));
    EXPECT_TRUE(LACQUER_CALL(GetTexture)(canvas));
    EXPECT_EQ(1, LACQUER_CALL(SetCanvasParent)(canvas, system));
    EXPECT_TRUE(LACQUER_CALL(GetCanvasParent)(canvas));
    EXPECT_TRUE(LACQUER_CALL(GetCanvasHandle)(canvas));
    EXPECT_TRUE(LACQUER_CALL(GetBitmap)(canvas));
    return canvas.value;
}

/// What is given back when its objects are deleted: pixels large enough to be kept, contexts, regions, the weights.
void DrawAndDelete(const Library &library) {
    const HGBITMAP large = LACQUER_CALL(CreateMemBitmap)(1024, 1024);
    const HGCANVAS canvas = LACQUER_CALL(CreateCanvas)(64, 64, {});
    LACQUER_CALL(SetStretchKernelMode)(0);
    EXPECT_EQ(1, LACQUER_CALL(DrawBitmap)(canvas, &kRect, large, 6));
    HDC dc = LACQUER_CALL(GetCanvasHandle)(canvas);
    EXPECT_NE(0, LACQUER_GDI_CALL(ExcludeClipRect)(dc, 3, 3, 5, 5));
    EXPECT_NE(0, LACQUER_GDI_CALL(StretchBlt)(dc, 0, 0, 9, 9, dc, 20, 20, 5, 5, SRCCOPY));
    LACQUER_CALL(DeleteBitmap)(LACQUER_CALL(CanvasToBitmap)(canvas));
    LACQUER_CALL(DeleteBitmap)(large);
}

/// Loads the library, calls `use` and unloads it, over and over. Result: by how much each round makes memory grow.
template <class Use>
long GrowthPerRound(const char *file, Use use) {
    constexpr int kRounds = 200, kSettled = 20;
    long settled = 0;
    for (int round = 0; round < kRounds; ++round) {
        if (round == kSettled) settled = MemoryInUse();
        const Library library(file);
        EXPECT_TRUE(library.IsLoaded());
        use(library);
    }
    return (MemoryInUse() - settled) / (kRounds - kSettled);
}

TEST(LoadTest, TwoHundredTimesWithObjectsAliveAndNothingElseLeftBehind) {
    // The companion stays: pixman, beneath it, gives back nothing of what it allocates each time it is loaded.
    const Library companion(VELGRAPHIC_LIBRARY_FILE);
    ASSERT_TRUE(companion.IsLoaded());
    // What the objects take, which nobody gives back.
    long objects = 0;
    {
        constexpr long kTimes = 200;
        const Library library(LACQUER_LIBRARY_FILE);
        ASSERT_TRUE(library.IsLoaded());
        LeaveObjectsBehind(library);
        const long before = MemoryInUse();
        for (long i = 0; i < kTimes; ++i) LeaveObjectsBehind(library);
        objects = (MemoryInUse() - before) / kTimes;
    }
    const long unused = GrowthPerRound(LACQUER_LIBRARY_FILE, [](const Library &) {});
    const long used = GrowthPerRound(LACQUER_LIBRARY_FILE, [](const Library &library) {
        // The first handle of a table that is new: the library was really unloaded in between.
        EXPECT_EQ(0x01010001u, LeaveObjectsBehind(library));
        DrawAndDelete(library);
    });
    EXPECT_GT(objects, 2000);
    EXPECT_LE(used - unused, objects + 100);
    // A sanitizer notes some bytes at each load, and Wine does.
    EXPECT_LE(unused, 1000);
}

TEST(LoadTest, TheCompanionLeavesNoFontsBehind) {
    const long growth = GrowthPerRound(VELGRAPHIC_LIBRARY_FILE, [](const Library &library) {
        static uint32_t pixels[64 * 32];
        constexpr WCHAR kText[] = {'T', 'o', 0x5D0, 0x628, 0x915, 0x1F, 0};
        velCanvas *canvas = LACQUER_CALL(velCanvasCreate)();
        velBitmap *bitmap = LACQUER_CALL(velBitmapCreateFromData)(pixels, 64, 32, 256);
        EXPECT_EQ(1, LACQUER_CALL(velCanvasSetBitmap)(canvas, bitmap));
        EXPECT_EQ(1, LACQUER_CALL(velCanvasDrawTextRun)(canvas, kText, -1, 2, 20));
        LACQUER_CALL(velBitmapDestroy)(bitmap);
        LACQUER_CALL(velCanvasDestroy)(canvas);
    });
    EXPECT_LE(growth, 8000);
}

}  // namespace
}  // namespace lacquer
