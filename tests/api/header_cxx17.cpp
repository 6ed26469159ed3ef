// The public header alone in C++17: its handle types.
#include <lacquer/lacquer.h>

#include <gtest/gtest.h>

#include <type_traits>

static_assert(__cplusplus < 202000L, "this file is for C++17");
static_assert(std::is_trivial_v<HGBITMAP> && std::is_standard_layout_v<HGBITMAP>);
static_assert(!std::is_convertible_v<HGBITMAP, bool> && !std::is_convertible_v<HGBITMAP, HGTEXTURE>);

TEST(HeaderTest, HandlesCompareInCxx17) {
    const HGBITMAP none{}, first{0x01020001}, same{0x01020001}, second{0x01020002};
    EXPECT_TRUE(!none && first && first == same && first != second && !(first == second) && !(first != same));
}
