// The pixels of bitmaps and textures: every depth, locks, copies, resampling, turns, the move into a DIB section.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "objects.h"

namespace lacquer {
namespace {

constexpr DWORD kFilter = 0x02000003, kOtherFilter = 0x11111111;

/// The functions that bitmaps and textures have under names of their own.
#define SURFACE_FUNCTIONS(Object, HANDLE, create)                 \
    struct Object##Functions {                                    \
        using Handle = HANDLE;                                    \
        static constexpr auto Create = create;                    \
        static constexpr auto Delete = Delete##Object;            \
        static constexpr auto Lock = Lock##Object##Bits;          \
        static constexpr auto LockEx = Lock##Object##BitsEx;      \
        static constexpr auto SetFilter = Set##Object##Filter;    \
        static constexpr auto GetDepth = Get##Object##BitsPixel;  \
        static constexpr auto GetGdiHandle = Get##Object##Handle; \
        static constexpr auto FromCanvas = CanvasTo##Object;      \
        static constexpr auto Copy = Copy##Object;                \
        static constexpr auto Resize = Resize##Object;            \
        static constexpr auto Transform = Transform##Object;      \
        static constexpr auto Rotate = Rotate##Object;            \
        static constexpr auto Flip = Flip##Object;                \
    }
SURFACE_FUNCTIONS(Bitmap, HGBITMAP, CreateMemBitmapEx);
SURFACE_FUNCTIONS(Texture, HGTEXTURE, CreateTextureEx);

struct Format {
    DWORD depth, palette = 0;
    bool isSystem = false;
};

bool HasKernel(DWORD depth) { return depth == 8 || depth == 24 || depth == 32; }

template <class Functions>
class SurfaceTest : public testing::Test {
protected:
    using Object = lq::Owner<typename Functions::Handle, Functions::Delete>;
    /// Products of textures are in memory always, those of bitmaps where the bitmap is.
    static constexpr bool kKeepsStorage = std::is_same_v<typename Functions::Handle, HGBITMAP>;

    /// A surface full of noise, with a filter word.
    static Object Make(const Format &format, DWORD width, DWORD height, uint32_t seed, DWORD filter = kFilter) {
        Object made(format.isSystem ? Functions::FromCanvas(CreateSystemCanvas(width, height, {}))
                                    : Functions::Create(width, height, format.depth, format.palette));
        Functions::SetFilter(made, filter);
        return Noisy(std::move(made), seed, format.palette > 0);
    }

    static DWORD DepthOf(const Object &object) {
        BYTE depth = 0;
        EXPECT_EQ(1, Functions::GetDepth(object, &depth));
        return depth;
    }

    /// Whether the pixels are in a DIB section; they are afterwards.
    static bool IsSystem(const Object &object) {
        const void *bits = ViewOf(object).bits;
        EXPECT_NE(nullptr, Functions::GetGdiHandle(object));
        return bits == ViewOf(object).bits;
    }
};
using BitmapsAndTextures = testing::Types<BitmapFunctions, TextureFunctions>;
TYPED_TEST_SUITE(SurfaceTest, BitmapsAndTextures);

std::vector<uint32_t> PaletteOf(const SurfaceView &view) { return {view.palette, view.palette + view.paletteCount}; }

std::vector<uint32_t> GreyRamp() {
    std::vector<uint32_t> greys(256);
    for (uint32_t i = 0; i < 256; ++i) greys[i] = 0xFF000000 + i * 0x010101;
    return greys;
}

/// Of a BITMAP, up to the hole before its pointer.
constexpr size_t kBytesBeforePadding = offsetof(BITMAP, bmBitsPixel) + sizeof(WORD);

TYPED_TEST(SurfaceTest, EveryDepthHasItsStrideItsPaletteAndItsLocks) {
    struct Layout {
        DWORD width, height, depth, palette;
        LONG stride;
        DWORD entries;
    };
    constexpr Layout kLayouts[] = {{3, 2, 24, 0, 12, 0},       {5, 2, 8, 16, 8, 16},    {5, 3, 8, 300, 8, 256},
                                   {5, 3, 8, 65535, 8, 256},   {4, 1, 8, 0, 4, 256},    {1, 1, 32, 9, 4, 0},
                                   {7, 5, 24, 256, 24, 0},     {3, 3, 16, 7, 8, 0},     {3, 2, 9, 70000, 4, 0},
                                   {2, 2, 65535, 1, 16384, 0}, {1, 32767, 24, 0, 4, 0}, {3, 2, 65544, 70000, 4, 256},
                                   {9, 2, 0, 5, 0, 0},         {9, 2, 4, 99, 0, 0}};
    for (const Layout &layout : kLayouts) {
        SCOPED_TRACE(layout.depth);
        const DWORD depth = layout.depth & 0xFFFF;
        const typename TestFixture::Object object(
            TypeParam::Create(layout.width, layout.height, layout.depth, layout.palette));
        EXPECT_EQ((Size{static_cast<LONG>(layout.width), static_cast<LONG>(layout.height)}), SizeOf(object));
        EXPECT_EQ(depth & 0xFF, TestFixture::DepthOf(object));
        EXPECT_EQ(0u, FilterOf(object));
        SurfaceView view{}, plain{};
        ASSERT_EQ(depth >= 8, TypeParam::LockEx(object, &view, nullptr));
        std::vector<uint32_t> colours;
        if (depth >= 8) {
            EXPECT_EQ(0, view.type);
            EXPECT_EQ(1, view.planes);
            EXPECT_EQ(layout.stride, view.stride);
            EXPECT_EQ(depth, view.bitsPerPixel);
            EXPECT_EQ(layout.entries, view.paletteCount);
            EXPECT_EQ(layout.entries > 0, view.palette != nullptr);
            // Every byte of the rows and of the palette is there: an exact block shows under the sanitizer.
            std::memset(view.bits, 0x5A, static_cast<size_t>(view.stride) * layout.height);
            if (layout.palette > 0) std::fill_n(view.palette, layout.entries, 0xA5A5A5A5);
            if (depth == 8 && layout.palette == 0) {
                EXPECT_EQ(GreyRamp(), PaletteOf(view));
            }
            // The plain lock writes a BITMAP and no more.
            plain.palette = &view.paletteCount;
            EXPECT_EQ(1, TypeParam::Lock(object, &plain, nullptr));
            EXPECT_EQ(0, std::memcmp(&view, &plain, sizeof(BITMAP)));
            EXPECT_EQ(&view.paletteCount, plain.palette);
        }
        // The pixels become those of a DIB section where there is a kernel.
        if (HasKernel(depth)) colours = ColoursOf(view);
        HBITMAP bitmap = TypeParam::GetGdiHandle(object);
        ASSERT_EQ(HasKernel(depth), bitmap != nullptr);
        EXPECT_EQ(bitmap, TypeParam::GetGdiHandle(object));
        if (!bitmap) continue;
        EXPECT_EQ(1, TypeParam::LockEx(object, &view, nullptr));
        EXPECT_EQ(colours, PixelsOf(view));
        EXPECT_EQ(nullptr, view.palette);
        BITMAP description{};
        ASSERT_NE(0, GetObjectW(bitmap, sizeof description, &description));
        EXPECT_EQ(0, std::memcmp(&description, &view, kBytesBeforePadding));
        EXPECT_EQ(description.bmBits, view.bits);
    }
}

constexpr Format kFormats[] = {{8, 0}, {8, 16}, {8, 256}, {16}, {24}, {32}, {32, 0, true}};
constexpr LONG kWidth = 7, kHeight = 5;

/// `put` in the common top-left part of `to` and `from`, `around` elsewhere.
std::vector<uint32_t> Placed(const std::vector<uint32_t> &around, const RECT &to, const std::vector<uint32_t> &put,
                             const RECT &from) {
    std::vector<uint32_t> expected = around;
    const LONG width = std::min(to.right - to.left, from.right - from.left),
               height = std::min(to.bottom - to.top, from.bottom - from.top);
    for (LONG y = 0; y < height; ++y) {
        for (LONG x = 0; x < width; ++x) {
            expected[static_cast<size_t>((to.top + y) * kWidth + to.left + x)] =
                put[static_cast<size_t>((from.top + y) * kWidth + from.left + x)];
        }
    }
    return expected;
}

TYPED_TEST(SurfaceTest, CopiesOfEqualFormatsArePlainOthersConvertToWords) {
    const RECT whole{0, 0, kWidth, kHeight}, outside{0, 0, kWidth + 1, 2};
    const std::pair<RECT, RECT> places[] = {{whole, whole},
                                            {{2, 1, 6, 4}, {0, 0, 4, 3}},
                                            {{1, 1, 7, 5}, {3, 2, 5, 3}},
                                            {{5, 3, 7, 4}, {1, 0, 6, 5}},
                                            {outside, whole},
                                            {whole, outside}};
    for (const Format &destFormat : kFormats) {
        for (const Format &sourceFormat : kFormats) {
            for (const auto &[to, from] : places) {
                SCOPED_TRACE(testing::Message() << destFormat.depth << '/' << destFormat.palette << " from "
                                                << sourceFormat.depth << '/' << sourceFormat.palette);
                const auto dest = TestFixture::Make(destFormat, kWidth, kHeight, 1, kOtherFilter),
                           source = TestFixture::Make(sourceFormat, kWidth, kHeight, 2);
                const SurfaceView destView = ViewOf(dest), sourceView = ViewOf(source);
                const std::vector<uint32_t> before = PixelsOf(destView), pixels = PixelsOf(sourceView),
                                            palette = PaletteOf(destView);
                EXPECT_EQ(1, TypeParam::Copy(dest, &to, source, &from));

                const bool locks = to.right <= kWidth && from.right <= kWidth;
                const bool alike =
                    locks && destFormat.depth == sourceFormat.depth && palette.size() == PaletteOf(sourceView).size();
                const bool converts = locks && !alike && destFormat.depth == 32;
                std::vector<uint32_t> expected = before;
                if (alike) expected = Placed(before, to, pixels, from);
                if (converts && HasKernel(sourceFormat.depth)) {
                    expected = Placed(before, to, ColoursOf(sourceView), from);
                }
                EXPECT_EQ(expected, PixelsOf(destView));
                EXPECT_EQ(alike && destFormat.palette > 0 ? PaletteOf(sourceView) : palette, PaletteOf(destView));
                EXPECT_EQ(alike || converts ? kFilter : kOtherFilter, FilterOf(dest));
            }
        }
    }
}

TYPED_TEST(SurfaceTest, ResizedOnesHave32Bits) {
    for (const Format &format : kFormats) {
        SCOPED_TRACE(format.depth);
        const auto source = TestFixture::Make(format, kWidth, kHeight, 4);
        const typename TestFixture::Object twice(TypeParam::Resize(source, 2 * kWidth, 2 * kHeight, 0));
        EXPECT_EQ(32u, TestFixture::DepthOf(twice));
        EXPECT_EQ(kFilter, FilterOf(twice));
        for (LONG i = 0; HasKernel(format.depth) && i < 4 * kWidth * kHeight; ++i) {
            const LONG x = i % (2 * kWidth), y = i / (2 * kWidth);
            ASSERT_EQ(ColourAt(ViewOf(source), x / 2, y / 2), PixelAt(ViewOf(twice), x, y));
        }
        EXPECT_EQ(format.isSystem && TestFixture::kKeepsStorage, TestFixture::IsSystem(twice));
    }
}

/// What a code does: exchanges the sides first, then mirrors columns or rows.
constexpr struct {
    bool swaps, mirrorsColumns, mirrorsRows;
} kCodes[] = {{},
              {true, true, false},
              {false, true, true},
              {true, false, true},
              {false, false, true},
              {false, true, false},
              {true, false, false},
              {true, true, true}};

void ExpectTurned(const SurfaceView &from, const SurfaceView &to, DWORD code) {
    const auto [swaps, mirrorsColumns, mirrorsRows] = kCodes[code];
    ASSERT_EQ(swaps ? from.height : from.width, to.width);
    ASSERT_EQ(swaps ? from.width : from.height, to.height);
    ASSERT_EQ(from.bitsPerPixel, to.bitsPerPixel);
    ASSERT_EQ(PaletteOf(from), PaletteOf(to));
    for (LONG y = 0; y < from.height; ++y) {
        for (LONG x = 0; x < from.width; ++x) {
            const LONG column = swaps ? y : x, row = swaps ? x : y;
            ASSERT_EQ(PixelAt(from, x, y), PixelAt(to, mirrorsColumns ? to.width - 1 - column : column,
                                                   mirrorsRows ? to.height - 1 - row : row))
                << "code " << code << ' ' << x << ' ' << y;
        }
    }
}

TYPED_TEST(SurfaceTest, TurnsMoveEveryPixelAsTheCodeSays) {
    using Surface = typename TestFixture::Object;
    // The thinnest sizes, those of one tile with and without whole blocks, results of more than 16 kB, which take tiles
    // of 16, 32 or 64 pixels, whose edges they pass by, and a large one.
    constexpr SIZE kSizes[] = {{1, 1},   {1, 7},   {7, 1},   {3, 2},   {1, 33},  {65, 1},    {31, 33},  {32, 32},
                               {33, 31}, {65, 34}, {64, 65}, {63, 81}, {97, 95}, {130, 129}, {513, 257}};
    for (const SIZE &size : kSizes) {
        for (const Format &format : kFormats) {
            SCOPED_TRACE(testing::Message() << size.cx << 'x' << size.cy << ' ' << format.depth);
            const Surface source =
                TestFixture::Make(format, static_cast<DWORD>(size.cx), static_cast<DWORD>(size.cy), 7);
            for (DWORD code = 1; format.depth != 16 && code <= 7; ++code) {
                const Surface turned(TypeParam::Transform(source, code));
                ExpectTurned(ViewOf(source), ViewOf(turned), code);
                EXPECT_EQ(kFilter, FilterOf(turned));
                EXPECT_EQ(format.isSystem && TestFixture::kKeepsStorage,
                          format.depth == 32 && TestFixture::IsSystem(turned));
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

// Results that go past the caches: rows begin at cache lines, and the last tiles are not whole.
TEST(HugeSurfaceTest, TurnsAreWhole) {
    for (const DWORD depth : {8u, 32u}) {
        const OwnedBitmap source = Noisy(OwnedBitmap(CreateMemBitmapEx(2068, depth == 8 ? 2112 : 1040, depth, 0)), 3);
        for (const DWORD code : {1u, 3u, 5u, 6u, 7u}) {
            ExpectTurned(ViewOf(source), ViewOf(OwnedBitmap(TransformBitmap(source, code))), code);
        }
    }
}

TYPED_TEST(SurfaceTest, RotateAndFlipTakeTheirOwnCodesOnly) {
    const auto source = TestFixture::Make({8, 16}, 3, 2, 4);
    for (const int code : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 33}) {
        const DWORD word = static_cast<DWORD>(code);
        const auto transformed = TypeParam::Transform(source, word), rotated = TypeParam::Rotate(source, code),
                   flipped = TypeParam::Flip(source, word);
        EXPECT_EQ(code >= 1 && code <= 7, static_cast<bool>(transformed)) << code;
        EXPECT_EQ(code >= 1 && code <= 3, static_cast<bool>(rotated)) << code;
        EXPECT_EQ(code == 4 || code == 5, static_cast<bool>(flipped)) << code;
        EXPECT_TRUE(!rotated || PixelsIn(transformed) == PixelsIn(rotated));
        EXPECT_TRUE(!flipped || PixelsIn(transformed) == PixelsIn(flipped));
        for (const auto made : {transformed, rotated, flipped}) DeleteAny(made);
    }
}

}  // namespace
}  // namespace lacquer
