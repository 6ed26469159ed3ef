// Which sampler and which rule a draw gets, and the draws that get none.

#include "draw/draw_rules.h"
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

struct Selection {
    const char *what;
    DWORD mode, kernelMode;
    int alpha, depth;
    SamplerKind stretched;
    CombineKind combine;
};

// Named draws and what each must be. `stretched` is the sampler where the sizes differ.
const Selection kSelections[] = {
    {"copy, nearest", 0, 0, 255, 32, SamplerKind::Nearest, CombineKind::Copy},
    {"copy, bilinear", 0, 1, 255, 32, SamplerKind::Bilinear, CombineKind::Copy},
    {"copy, unknown kernel mode", 0, 77, 255, 32, SamplerKind::Bilinear, CombineKind::Copy},
    {"copy, bicubic", 0, 4, 255, 24, SamplerKind::Bicubic, CombineKind::Copy},
    {"copy, area", 0, 5, 255, 32, SamplerKind::Area, CombineKind::Copy},
    {"mode 4 is a copy", 4, 5, 255, 8, SamplerKind::Area, CombineKind::Copy},
    {"mode 5 is a copy", 5, 2, 255, 32, SamplerKind::Bilinear, CombineKind::Copy},
    {"mode 255 is a copy", 255, 0, 255, 32, SamplerKind::Nearest, CombineKind::Copy},
    {"alpha 0 draws nothing", 1, 1, 0, 32, SamplerKind::Bilinear, CombineKind::ConstAlpha},
    {"over, nearest", 1, 0, 255, 32, SamplerKind::Nearest, CombineKind::Over},
    {"over, bicubic", 1, 4, 255, 8, SamplerKind::Bicubic, CombineKind::Over},
    {"over has no area", 1, 5, 255, 32, SamplerKind::Bilinear, CombineKind::Over},
    {"constant alpha, nearest", 1, 0, 9, 32, SamplerKind::Nearest, CombineKind::ConstAlpha},
    {"constant alpha overrides copy", 0, 4, 100, 32, SamplerKind::Bicubic, CombineKind::ConstAlpha},
    {"constant alpha overrides the key", 2, 1, 254, 24, SamplerKind::Bilinear, CombineKind::ConstAlpha},
    {"constant alpha overrides mode 7", 7, 3, 1, 8, SamplerKind::Bilinear, CombineKind::ConstAlpha},
    {"constant alpha has no area", 0, 5, 100, 32, SamplerKind::Bilinear, CombineKind::ConstAlpha},
    {"modulate ignores kernel mode and alpha", 3, 4, 100, 32, SamplerKind::Nearest, CombineKind::Modulate},
    {"modulate ignores alpha 0", 3, 0, 0, 24, SamplerKind::Nearest, CombineKind::Modulate},
    {"behind ignores kernel mode and alpha", 6, 5, 0, 8, SamplerKind::Nearest, CombineKind::Behind},
    {"key, nearest", 2, 0, 255, 32, SamplerKind::Nearest, CombineKind::ColorKey},
    {"key, nearest, palette", 2, 0, 255, 8, SamplerKind::Nearest, CombineKind::ColorKey},
    {"key of opaque pixels, always nearest", 2, 4, 255, 24, SamplerKind::Nearest, CombineKind::ColorKey},
    {"key of opaque pixels, area", 2, 5, 255, 24, SamplerKind::Nearest, CombineKind::ColorKey},
    {"key, filtered, is over", 2, 1, 255, 32, SamplerKind::Bilinear, CombineKind::Over},
    {"key, bicubic, is over", 2, 4, 255, 8, SamplerKind::Bicubic, CombineKind::Over},
    {"key, area, is bilinear over", 2, 5, 255, 32, SamplerKind::Bilinear, CombineKind::Over},
};

testing::AssertionResult DrawsAsSelected(const Selection &wanted, bool stretch, bool clipped) {
    Random random = CaseRandom(stretch ? 1 : 0);
    TestImage dest(21, 9);
    dest.Fill(random);
    const SIZE full = clipped ? SIZE{40, 30} : SIZE{21, 9};
    const POINT offset = clipped ? POINT{11, 13} : POINT{0, 0};
    const TestImage source = KeyedSource(random, stretch ? SIZE{57, 31} : full, wanted.depth);
    // Without a stretch the key holds whatever the kernel mode.
    const bool isKeyed = !stretch && wanted.mode == 2 && wanted.alpha == 255;
    const CombineKind combine = isKeyed ? CombineKind::ColorKey : wanted.combine;
    const DWORD key = wanted.depth == 24 ? kKeyColour | 0xFF000000 : kKeyColour;
    const BYTE alpha = static_cast<BYTE>(wanted.alpha);
    const CpuFeatures &features = CachedCpuFeatures();
    const Expected expected = {stretch ? wanted.stretched : SamplerKind::SameSize,
                               combine,
                               WeightFormOf(features),
                               kHasTiers && features.mmx ? Overflow::Saturates : Overflow::Carries,
                               full,
                               offset,
                               combine == CombineKind::ColorKey ? key : alpha};
    return DrawsAs(expected, dest, source, [&](const SurfaceView *to, const SurfaceView *from) {
        const DWORD modeWord = wanted.mode << 24 | kKeyColour;
        return clipped ? BlitSubRect(to, from, full, offset, modeWord, wanted.kernelMode, alpha)
                       : BlitSameRect(to, from, modeWord, wanted.kernelMode, alpha);
    });
}

TEST(Dispatch, PicksSamplerAndRule) {
    for (const Selection &selection : kSelections) {
        for (const bool stretch : {false, true}) {
            for (const bool clipped : {false, true}) {
                EXPECT_TRUE(DrawsAsSelected(selection, stretch, clipped))
                    << selection.what << (stretch ? ", stretched" : "") << (clipped ? ", clipped" : "");
            }
        }
    }
}

TEST(Dispatch, FillsByMode) {
    Random random = CaseRandom(2);
    for (DWORD mode = 0; mode < 9; ++mode) {
        for (const DWORD colour : {0u, 0x01000000u, 0x40302010u, 0x80402010u, 0xFF402010u, 0xFFFFFFFFu}) {
            TestImage dest(5, 3, 32, 4, 1);
            dest.Fill(random);
            TestImage wanted = dest;
            wanted.FillBy([&](int x, int y) { return Filled(mode, colour, dest.At(x, y)); });
            const SurfaceView view = dest.View();
            EXPECT_EQ(FillView(&view, colour, mode << 24 | 0x00ABCDEF), 1);
            EXPECT_TRUE(dest == wanted) << std::hex << "mode " << mode << " colour 0x" << colour;
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
    EXPECT_EQ(BlitSubRect(&destView, nullptr, {8, 8}, {0, 0}, 0, 0, 255), 0);
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
        expectNothing(changedDest, changedSource, whole);
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
        EXPECT_EQ(BlitSubRect(&destView, &sourceView, {8, 8}, offset, 0, 0, 255), 1);
        EXPECT_TRUE(dest == before) << offset.x << ", " << offset.y;
    }
}

}  // namespace
}  // namespace lacquer
