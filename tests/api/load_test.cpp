// Loading and unloading the library over and over, with objects alive.

#include <gtest/gtest.h>
#include <lacquer/lacquer.h>
#ifndef _WIN32
#include <dlfcn.h>
#endif

// What the library leaves behind when it is unloaded with objects alive is no leak of this program.
extern "C" const char *__asan_default_options() { return "detect_leaks=0"; }

namespace lacquer {
namespace {

/// A loaded library, until it goes out of scope.
class Library {
public:
#ifdef _WIN32
    explicit Library(const char *path) : module_(LoadLibraryA(path)) {}
    ~Library() { FreeLibrary(module_); }
    void *Find(const char *name) const { return reinterpret_cast<void *>(GetProcAddress(module_, name)); }
    bool IsLoaded() const { return module_; }
#else
    explicit Library(const char *path) : module_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {}
    ~Library() { dlclose(module_); }
    void *Find(const char *name) const { return dlsym(module_, name); }
    bool IsLoaded() const { return module_; }
#endif
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

private:
#ifdef _WIN32
    HMODULE module_;
#else
    void *module_;
#endif
};

#define LACQUER_CALL(function) reinterpret_cast<decltype(&::function)>(library.Find(#function))

/// Makes objects of every kind, draws, and deletes none of them. Result: the handle of the first.
uintptr_t LeaveObjectsBehind(const Library &library) {
    const RECT rect{1, 1, 20, 15};
    const HGCANVAS canvas = LACQUER_CALL(CreateCanvas)(16, 16, {}),
                   system = LACQUER_CALL(CreateSystemCanvas)(16, 16, {});
    EXPECT_EQ(1, LACQUER_CALL(DrawBitmap)(canvas, &rect, LACQUER_CALL(CreateMemBitmap)(8, 8), 4));
    EXPECT_EQ(1, LACQUER_CALL(DrawBitmap)(system, &rect, LACQUER_CALL(CreateSystemBitmap)(8, 8), 1));
    EXPECT_EQ(1, LACQUER_CALL(DrawTexture)(canvas, &rect, LACQUER_CALL(CreateTexture)(4, 4), 5));
    EXPECT_EQ(1, LACQUER_CALL(DrawTexture)(system, &rect, LACQUER_CALL(GetTexture)(canvas), 0));
    return canvas.value;
}

TEST(LoadTest, AHundredTimesWithObjectsAlive) {
    for (int round = 0; round < 100; ++round) {
        const Library library(LACQUER_LIBRARY_FILE);
        ASSERT_TRUE(library.IsLoaded());
        // The first handle of a table that is new: the library was really unloaded in between.
        ASSERT_EQ(0x01010001u, LeaveObjectsBehind(library)) << "round " << round;
    }
}

TEST(LoadTest, TheProgramMayEndWithObjectsAlive) {
    static const Library *const loadedForGood = new Library(LACQUER_LIBRARY_FILE);
    ASSERT_TRUE(loadedForGood->IsLoaded());
    EXPECT_EQ(0x01010001u, LeaveObjectsBehind(*loadedForGood));
}

}  // namespace
}  // namespace lacquer
