// The public header alone in C++17: its handle types.
#include <lacquer/lacquer.h>

#include <gtest/gtest.h>

#include <type_traits>

static_assert(__cplusplus < 202000L, "this file is for C++17");
static_assert(std::is_trivial_v<HGBITMAP> && std::is_standard_layout_v<HGBITMAP>);
static_assert(std::is_trivial_v<HGTEXTURE> && std::is_standard_layout_v<HGTEXTURE>);
static_assert(std::is_trivial_v<HGCANVAS> && std::is_standard_layout_v<HGCANVAS>);
static_assert(!std::is_convertible_v<HGBITMAP, bool> && !std::is_convertible_v<HGBITMAP, HGTEXTURE>);
static_assert(!std::is_convertible_v<uintptr_t, HGCANVAS>);
static_assert(std::is_standard_layout_v<SurfaceView> && std::is_standard_layout_v<TextureMode>);

TEST(HeaderTest, HandlesCompareInCxx17) {
    const HGBITMAP none{}, first{0x01020001}, same{0x01020001}, second{0x01020002};
    EXPECT_TRUE(!none && first && first == same && first != second && !(first == second) && !(first != same));
}
