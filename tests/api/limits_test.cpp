// The ends of what can be made: sizes, depths, memory, handles.

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "objects.h"
#include "support/memory_dc.h"

namespace lacquer {
namespace {

/// An index that the next object will take: the same before and after what leaves no object behind.
uintptr_t NextIndex() {
    const HGBITMAP bitmap = CreateMemBitmap(1, 1);
    DeleteBitmap(bitmap);
    return bitmap.value & 0xFFFF;
}

class LimitsTest : public testing::Test {
protected:
    const OwnedBitmap bitmap_ = NoisyBitmap(2, 2, 1);
    const OwnedBitmap system_{CreateSystemBitmap(2, 2)};
    const OwnedTexture texture_ = NoisyTexture(2, 2, 1);
    /// Everything that makes an object of a size; the result is a handle of any type.
    const std::map<const char *, std::function<uintptr_t(DWORD width, DWORD height)>> creators_ = {
        {"CreateSystemBitmap", [](DWORD w, DWORD h) { return CreateSystemBitmap(w, h).value; }},
        {"CreateMemBitmap", [](DWORD w, DWORD h) { return CreateMemBitmap(w, h).value; }},
        {"CreateMemBitmapEx", [](DWORD w, DWORD h) { return CreateMemBitmapEx(w, h, 8, 16).value; }},
        {"CreateTexture", [](DWORD w, DWORD h) { return CreateTexture(w, h).value; }},
        {"CreateTextureEx", [](DWORD w, DWORD h) { return CreateTextureEx(w, h, 24, 0).value; }},
        {"CreateCanvas", [](DWORD w, DWORD h) { return CreateCanvas(w, h, {}).value; }},
        {"CreateSystemCanvas", [](DWORD w, DWORD h) { return CreateSystemCanvas(w, h, {}).value; }},
        {"ResizeBitmap", [this](DWORD w, DWORD h) { return ResizeBitmap(bitmap_, w, h, 0).value; }},
        {"ResizeBitmap of a system bitmap", [this](DWORD w, DWORD h) { return ResizeBitmap(system_, w, h, 1).value; }},
        {"ResizeTexture", [this](DWORD w, DWORD h) { return ResizeTexture(texture_, w, h, 1).value; }},
    };
};

TEST_F(LimitsTest, SidesBeyondTheRangeAreRefused) {
    const uintptr_t next = NextIndex();
    for (const auto &[name, make] : creators_) {
        for (const DWORD wrong : {0u, 32768u, 65537u, 0x7FFFFFFFu, 0x80000001u, 0xFFFFFFFFu}) {
            EXPECT_EQ(0u, make(wrong, 1)) << name << ' ' << wrong;
            EXPECT_EQ(0u, make(1, wrong)) << name << ' ' << wrong;
            EXPECT_EQ(0u, make(wrong, wrong)) << name << ' ' << wrong;
        }
    }
    EXPECT_EQ(next, NextIndex());
}

TEST_F(LimitsTest, TheLongestSidesAreNot) {
    for (const auto &[name, make] : creators_) {
        for (const uintptr_t made : {make(32767, 1), make(1, 32767)}) {
            EXPECT_NE(0u, made) << name;
            DeleteAny(made);
        }
    }
    const OwnedTexture longest(CreateTexture(32767, 1)), turned(TransformTexture(longest, 1));
    EXPECT_EQ((std::array<LONG, 2>{1, 32767}), SizeOf(turned));
}

TEST_F(LimitsTest, MemoryThatNoMachineHasIsAFailure) {
    const uintptr_t next = NextIndex();
    EXPECT_FALSE(CreateMemBitmapEx(32767, 32767, 65535, 0));
    const OwnedBitmap wide(CreateMemBitmapEx(32767, 1, 65535, 0));
    EXPECT_EQ(next, NextIndex() - 1) << "nothing but the last one";
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

    size_t Count() const { return handles_.size(); }
    void FreeOne() {
        EXPECT_EQ(1, e_DelHandleEntry(nullptr, handles_.back()));
        handles_.pop_back();
    }

private:
    std::vector<DWORD> handles_;
};

TEST_F(LimitsTest, AFullTableFailsEveryCreationAndLeavesNothing) {
    const Dib dib(2, 2);
    const MemoryDC dc(dib.Handle());
    const HGCANVAS canvas = CreateCanvas(2, 2, {});
    SetCanvasParent(canvas, canvas);
    FullTable full;
    EXPECT_EQ(32767u - 4, full.Count());
    for (const auto &[name, make] : creators_) EXPECT_EQ(0u, make(4, 4)) << name;
    EXPECT_FALSE(CreateCanvasFromDC(dc));
    EXPECT_FALSE(TransformBitmap(bitmap_, 1));
    EXPECT_FALSE(RotateBitmap(system_, 1));
    EXPECT_FALSE(FlipBitmap(bitmap_, 4));
    EXPECT_FALSE(TransformTexture(texture_, 1));
    EXPECT_FALSE(GetBitmap(canvas));
    EXPECT_FALSE(GetTexture(canvas));
    EXPECT_FALSE(GetCanvasParent(canvas));
    EXPECT_EQ(4u, PixelsIn(canvas).size()) << "the canvas has its pixels still";

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
