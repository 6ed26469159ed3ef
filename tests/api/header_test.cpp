// The public header from other dialects: what header_c.c and header_cxx17.cpp compiled to.

#include <gtest/gtest.h>

#include <cstdint>

extern "C" uint32_t DrawFromC(void);
bool HandleOperatorsWork();

namespace lacquer {
namespace {

TEST(HeaderTest, WorksFromC11AndCxx17) {
    EXPECT_EQ(0xFF336699u, DrawFromC());
    EXPECT_TRUE(HandleOperatorsWork());
}

}  // namespace
}  // namespace lacquer
