// What only textures have: slices and layout records.

#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include "objects.h"

namespace lacquer {
namespace {

constexpr int kNone = -1;

Rect SliceOf(HGTEXTURE texture) {
    RECT slice{};
    EXPECT_EQ(1, GetTextureCurSlice(texture, &slice));
    return slice;
}

class SliceTest : public testing::Test {
protected:
    const RECT slices_[3] = {{10, 0, 40, 20}, {0, 0, 5, 6}, {1, 2, 3, 4}};
    const OwnedTexture texture_{CreateTexture(100, 50)};
};

TEST_F(SliceTest, TheLastOfANewListIsCurrent) {
    EXPECT_EQ(kNone, SetTextureCurSlice(texture_, 0));
    EXPECT_EQ(Rect(0, 0, 100, 50), SliceOf(texture_)) << "without a list the texture stands for itself";
    EXPECT_EQ((Size{100, 50}), SizeOf(texture_));
    EXPECT_EQ(3u, SetTextureSlice(texture_, 3, slices_));
    EXPECT_EQ(3u, GetTextureSliceCount(texture_));
    EXPECT_EQ(Rect(slices_[2]), SliceOf(texture_));
    EXPECT_EQ(2, SetTextureCurSlice(texture_, 0));
    EXPECT_EQ((Size{30, 20}), SizeOf(texture_));
    for (const int wrong : {3, -1, INT_MIN, INT_MAX}) EXPECT_EQ(kNone, SetTextureCurSlice(texture_, wrong));
    for (const DWORD count : {0u, 5u}) EXPECT_EQ(0u, SetTextureSlice(texture_, count, nullptr));
    EXPECT_EQ(3u, GetTextureSliceCount(texture_));
    EXPECT_EQ(Rect(slices_[0]), SliceOf(texture_));
}

TEST_F(SliceTest, AnEmptyListKeepsTheOldIndex) {
    ASSERT_EQ(3u, SetTextureSlice(texture_, 3, slices_));
    EXPECT_EQ(0u, SetTextureSlice(texture_, 0, slices_));
    EXPECT_EQ(0u, GetTextureSliceCount(texture_));
    EXPECT_EQ((Size{-7, -8}), SizeOf(texture_)) << "nothing is told";
    EXPECT_EQ(Rect(0, 0, 100, 50), SliceOf(texture_));
    EXPECT_EQ(kNone, SetTextureCurSlice(texture_, 0));
    EXPECT_EQ(3u, SetTextureSlice(texture_, 3, slices_));
    EXPECT_EQ(2, SetTextureCurSlice(texture_, 1));

    const OwnedTexture never(CreateTexture(4, 4));
    EXPECT_EQ(0u, SetTextureSlice(never, 0, slices_));
    EXPECT_EQ((Size{-7, -8}), SizeOf(never)) << "an empty list is a list";
}

TEST(TextureTest, KeepsItsLayoutRecordByteForByteAndItsProductsHaveNone) {
    const OwnedTexture texture = NoisyTexture(6, 4, 1);
    const RECT slice{0, 0, 2, 2};
    SetTextureSlice(texture, 1, &slice);
    TextureMode none, mode{7, 0x12345678, {1, -2, INT_MAX, INT_MIN}}, stored;
    std::memset(&none, 0, sizeof none);
    EXPECT_EQ(1, SetTextureMode(texture, &mode));
    EXPECT_EQ(1, GetTextureMode(texture, &stored));
    EXPECT_EQ(0, std::memcmp(&mode, &stored, sizeof mode));
    const OwnedTexture resized(ResizeTexture(texture, 12, 8, 0)), turned(TransformTexture(texture, 3));
    for (const HGTEXTURE made : {HGTEXTURE(resized), HGTEXTURE(turned)}) {
        EXPECT_EQ(1, GetTextureMode(made, &stored));
        EXPECT_EQ(0, std::memcmp(&none, &stored, sizeof none));
        EXPECT_EQ(0u, GetTextureSliceCount(made));
    }
    EXPECT_EQ((Size{4, 6}), SizeOf(turned)) << "the whole texture, not the slice";
}

}  // namespace
}  // namespace lacquer
