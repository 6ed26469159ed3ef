// Which sampler and which rule a draw gets, and the draws that get none.

#include "kernel_check.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {
namespace {

constexpr DWORD kKeyColour = 0x00336699;

/// A source in which many pixels are the key, and as many the key with another alpha.
TestImage KeyedSource(Random &random, SIZE size, int depth) {
    TestImage source = RandomSource(random, size.cx, size.cy, depth);
    std::vector<DWORD> words;
    for (int i = 0; i < 256; ++i)
        words.push_back(random.Of<DWORD>({random.PremultipliedWord(), kKeyColour, 0xFF000000 | kKeyColour}));
    if (depth == 8) {
        source.SetPalette(words);
    } else {
        source.FillBy([&](int, int) { return words[random.Word() % 256]; });
    }
    return source;
}

/// A few pixels that are all alike, premultiplied or not, or all but the last.
TestImage AlikeSource(Random &random, int depth) {
    TestImage source(3, 2, depth);
    source.Fill(random);
    const uint32_t pixel = random.Of({random.Word(), random.PremultipliedWord(), 0x80402010u, 0x00102030u});
    source.FillBy([&](int x, int y) { return x + y < 3 || random.Coin() ? pixel : pixel ^ 0x01; });
    return source;
}

/// What a draw is made of, and whether its sizes differ, its source is small and its pixels alike, and only a part of
/// it is visible.
struct Draw {
    DWORD mode, kernelMode;
    BYTE alpha;
    int depth;
    bool stretch, alike, clipped;
};

/// Which sampler a stretched draw gets, and which rule.
std::pair<SamplerKind, CombineKind> Selected(const Draw &draw) {
    if (draw.mode == LACQUER_DRAW_MODULATE) return {SamplerKind::Nearest, CombineKind::Modulate};
    if (draw.mode == LACQUER_DRAW_BEHIND) return {SamplerKind::Nearest, CombineKind::Behind};
    const SamplerKind filtered = draw.kernelMode == 4 ? SamplerKind::Bicubic : SamplerKind::Bilinear;
    const SamplerKind sampler = draw.kernelMode == 0 ? SamplerKind::Nearest : filtered;
    if (draw.alpha < 255) return {sampler, CombineKind::ConstAlpha};
    if (draw.mode == LACQUER_DRAW_COLOR_KEY && (draw.depth == 24 || !draw.stretch)) {
        return {SamplerKind::Nearest, CombineKind::ColorKey};
    }
    // A filtered key is that of draws over.
    if (draw.mode == LACQUER_DRAW_COLOR_KEY && draw.kernelMode == 0) return {sampler, CombineKind::ColorKey};
    const bool isOver = draw.mode == LACQUER_DRAW_OVER || draw.mode == LACQUER_DRAW_COLOR_KEY;
    if (isOver) return {sampler, CombineKind::Over};
    // Copies alone have the area sampler.
    return {draw.kernelMode == 5 ? SamplerKind::Area : sampler, CombineKind::Copy};
}

testing::AssertionResult DrawsAsSelected(const Draw &draw) {
    static int number = 0;
    Random random = CaseRandom(number++);
    TestImage dest(21, 9);
    dest.Fill(random);
    const SIZE full = draw.clipped ? SIZE{40, 30} : SIZE{21, 9};
    const POINT offset = draw.clipped ? POINT{11, 13} : POINT{0, 0};
    const TestImage source = draw.alike ? AlikeSource(random, draw.depth)
                                        : KeyedSource(random, draw.stretch ? SIZE{57, 31} : full, draw.depth);
    const auto [sampler, combine] = Selected(draw);
    const DWORD key = draw.depth == 24 ? kKeyColour | 0xFF000000 : kKeyColour;
    const CpuFeatures &features = CachedCpuFeatures();
    const Expected expected = {draw.stretch ? sampler : SamplerKind::SameSize,
                               combine,
                               WeightFormOf(features),
                               kHasTiers && features.mmx ? Overflow::Saturates : Overflow::Carries,
                               full,
                               offset,
                               combine == CombineKind::ColorKey ? key : draw.alpha};
    return DrawsAs(expected, dest, source, [&](const SurfaceView *to, const SurfaceView *from) {
        const DWORD modeWord = draw.mode << 24 | kKeyColour;
        return draw.clipped ? BlitSubRect(to, from, full, offset, modeWord, draw.kernelMode, draw.alpha)
                            : BlitSameRect(to, from, modeWord, draw.kernelMode, draw.alpha);
    });
}

TEST(Dispatch, PicksSamplerAndRule) {
    for (const DWORD mode : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 255u}) {
        for (const DWORD kernelMode : {0u, 1u, 2u, 4u, 5u, 77u}) {
            for (const BYTE alpha : {BYTE{0}, BYTE{100}, BYTE{255}}) {
                for (int i = 0; i < 90; ++i) {
                    const Draw draw{mode, kernelMode, alpha, kDepths[i % 3], i % 9 >= 3, i % 9 >= 6, i % 18 >= 9};
                    EXPECT_TRUE(DrawsAsSelected(draw)) << mode << ' ' << kernelMode << ' ' << int{alpha} << ' ' << i;
                }
            }
        }
    }
}

TEST(Dispatch, RefusesNullViewsAndDrawsNothingForWhatHasNoKernel) {
    TestImage source(8, 8), dest(8, 8);
    source.FillWith(0xFFFFFFFF);
    dest.FillWith(0x12345678);
    const TestImage before = dest;
    const SurfaceView destView = dest.View(), sourceView = source.View();
    EXPECT_EQ(BlitSameRect(nullptr, &sourceView, 0, 0, 255), 0);
    EXPECT_EQ(BlitSameRect(&destView, nullptr, 0, 0, 255), 0);
    EXPECT_EQ(BlitSubRect(nullptr, &sourceView, {8, 8}, {0, 0}, 0, 0, 255), 0);
    EXPECT_EQ(FillView(nullptr, 0xFF000000, 0), 0);

    const auto expectNothing = [&](const SurfaceView &to, const SurfaceView &from, const RowArguments &arguments,
                                   bool isPartOnly = false) {
        for (const Kernel &kernel : AllKernels()) {
            if (isPartOnly && kernel.extent != Extent::Part) continue;
            // A fill asks nothing of the source.
            if (kernel.takesColour && &to == &destView) continue;
            EXPECT_EQ(kernel.call(Kernels(), &to, &from, arguments), 1) << kernel.name;
            ASSERT_TRUE(dest == before) << kernel.name;
        }
    };
    const RowArguments whole{.parameter = 200, .fullSize = {8, 8}};
    const auto expectNothingFor = [&](auto change) {
        SurfaceView changedDest = destView, changedSource = sourceView;
        change(changedDest);
        change(changedSource);
        expectNothing(changedDest, sourceView, whole);
        expectNothing(destView, changedSource, whole);
    };
    for (const WORD depth : std::initializer_list<WORD>{0, 1, 4, 16, 64}) {
        expectNothingFor([=](SurfaceView &view) { view.bitsPerPixel = depth; });
    }
    for (const LONG size : {0, -1, static_cast<int>(INT32_MIN)}) {
        expectNothingFor([=](SurfaceView &view) { view.width = size; });
        expectNothingFor([=](SurfaceView &view) { view.height = size; });
    }
    for (const WORD depth : std::initializer_list<WORD>{8, 24}) {
        SurfaceView shallow = destView;
        shallow.bitsPerPixel = depth;
        expectNothing(shallow, sourceView, whole);
    }
    // A window that is not inside the full size, at sizes where sums of 32 bits would wrap.
    for (const POINT offset :
         {POINT{-1, 0}, POINT{0, -1}, POINT{1, 0}, POINT{0, 1}, POINT{INT32_MAX, 0}, POINT{0, INT32_MIN}}) {
        expectNothing(destView, sourceView, {.parameter = 200, .fullSize = {8, 8}, .visibleOffset = offset}, true);
        for (const SurfaceView &from : {sourceView, source.View({0, 0, 1, 1})}) {
            EXPECT_EQ(BlitSubRect(&destView, &from, {8, 8}, offset, 0, 0, 255), 1);
        }
        EXPECT_TRUE(dest == before) << offset.x << ", " << offset.y;
    }
}

}  // namespace
}  // namespace lacquer
