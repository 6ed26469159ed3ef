// Which sampler and which rule a draw gets: named cases against the model, clipped draws against whole ones, and fills.

#include <gtest/gtest.h>

#include "pipeline/table/blit_dispatch.h"
#include "row_check.h"

namespace lacquer {
namespace {

constexpr DWORD kModes[] = {0, 1, 2, 3, 4, 5, 6, 7, 200};
constexpr DWORD kKernelModes[] = {0, 1, 2, 3, 4, 5, 6, 0xFFFFFFFF};
constexpr BYTE kAlphas[] = {0, 1, 100, 254, 255};
constexpr DWORD kKeyColour = 0x00336699;

WeightForm ProcessForm() { return WeightFormOf(CachedCpuFeatures()); }
Overflow ProcessOverflow() { return kHasTiers && CachedCpuFeatures().mmx ? Overflow::Saturates : Overflow::Carries; }

/// A source in which about a third of the pixels are the key of its depth.
TestImage KeyedSource(Random &random, int width, int height, int depth) {
    TestImage source = RandomSource(random, width, height, depth, true);
    std::vector<DWORD> palette(256);
    for (DWORD &entry : palette) entry = random() % 3 ? PremultipliedWord(random) : kKeyColour;
    if (depth == 8) source.SetPalette(palette);
    for (int i = 0; i < width * height / 3 && depth != 8; ++i) {
        source.Set(Between(random, 0, width - 1), Between(random, 0, height - 1), kKeyColour);
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

void ExpectSelection(const Selection &wanted, bool stretch, bool clipped) {
    Random random = CaseRandom(stretch ? 1 : 0);
    TestImage dest(21, 9);
    const SIZE full = clipped ? SIZE{40, 30} : SIZE{21, 9};
    const POINT offset = clipped ? POINT{11, 13} : POINT{0, 0};
    const SIZE size = stretch ? SIZE{57, 31} : full;
    const TestImage source = KeyedSource(random, size.cx, size.cy, wanted.depth);
    dest.Fill(random);
    const TestImage before = dest.Copy();
    const SurfaceView destView = dest.View(), sourceView = source.View();
    const DWORD modeWord = wanted.mode << 24 | kKeyColour;
    const BYTE alpha = static_cast<BYTE>(wanted.alpha);
    const int result = clipped ? BlitSubRect(&destView, &sourceView, full, offset, modeWord, wanted.kernelMode, alpha)
                               : BlitSameRect(&destView, &sourceView, modeWord, wanted.kernelMode, alpha);
    EXPECT_EQ(result, 1);
    // Without a stretch the key holds whatever the kernel mode.
    const CombineKind combine =
        !stretch && wanted.mode == 2 && wanted.alpha == 255 ? CombineKind::ColorKey : wanted.combine;
    DWORD parameter = alpha;
    if (combine == CombineKind::ColorKey) parameter = wanted.depth == 24 ? kKeyColour | 0xFF000000 : kKeyColour;
    for (int y = 0; y < dest.height(); ++y) {
        for (int x = 0; x < dest.width(); ++x) {
            const uint32_t s = ModelSample(stretch ? wanted.stretched : SamplerKind::SameSize, source, full,
                                           int64_t{offset.x} + x, int64_t{offset.y} + y, ProcessForm());
            ASSERT_EQ(dest.At(x, y), ModelCombine(combine, s, before.At(x, y), parameter, ProcessOverflow()))
                << (stretch ? "stretched" : "same size") << (clipped ? ", clipped" : "") << " (" << x << ", " << y
                << ")";
        }
    }
}

TEST(Dispatch, PicksSamplerAndRule) {
    for (const Selection &selection : kSelections) {
        SCOPED_TRACE(selection.what);
        for (const bool stretch : {false, true}) {
            for (const bool clipped : {false, true}) ExpectSelection(selection, stretch, clipped);
        }
    }
}

TEST(Dispatch, AlphaZeroDrawsNothingExceptModulateAndBehind) {
    Random random = CaseRandom(2);
    for (const DWORD mode : kModes) {
        for (const int size : {8, 5}) {
            const TestImage source = RandomSource(random, size, size, 32, true);
            TestImage dest(8, 8);
            dest.FillWith(0x80402010);
            const TestImage before = dest.Copy();
            const SurfaceView destView = dest.View(), sourceView = source.View();
            EXPECT_EQ(BlitSameRect(&destView, &sourceView, mode << 24, 1, 0), 1);
            EXPECT_EQ(BlitSubRect(&destView, &sourceView, {16, 16}, {4, 4}, mode << 24, 1, 0), 1);
            EXPECT_EQ(dest == before, mode != 3 && mode != 6) << "mode " << mode;
        }
    }
}

TEST(Dispatch, OpaqueKeyColoursOfPixelsWithAlphaMatchNothing) {
    TestImage source(4, 4), dest(4, 4);
    source.FillWith(0xFF000000 | kKeyColour);
    dest.FillWith(0x01010101);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    BlitSameRect(&destView, &sourceView, 2u << 24 | kKeyColour, 0, 255);
    EXPECT_TRUE(dest == source);
}

TEST(Dispatch, ClippedDrawsEqualTheWholeDraw) {
    for (int number = 0; number < 6 / kSlice + 1; ++number) {
        Random random = CaseRandom(number);
        const SIZE full = {Between(random, 1, 60), Between(random, 1, 40)};
        const RECT part = [&] {
            const int left = Between(random, 0, full.cx - 1), top = Between(random, 0, full.cy - 1);
            return RECT{left, top, Between(random, left + 1, full.cx), Between(random, top + 1, full.cy)};
        }();
        const SIZE sizes[] = {full, {full.cx, full.cy + 1}, {Between(random, 1, 200), Between(random, 1, 90)}};
        for (const SIZE size : sizes) {
            for (const int depth : kDepths) {
                const TestImage source = KeyedSource(random, size.cx, size.cy, depth);
                TestImage ground(full.cx, full.cy, 32, 3);
                ground.Fill(random);
                for (const DWORD mode : kModes) {
                    for (const DWORD kernelMode : kKernelModes) {
                        for (const BYTE alpha : kAlphas) {
                            TestImage whole = ground.Copy(), clipped = ground.Copy(), wanted = ground.Copy();
                            const SurfaceView wholeView = whole.View(), partView = clipped.View(part),
                                              sourceView = source.View();
                            const DWORD modeWord = mode << 24 | kKeyColour;
                            ASSERT_EQ(BlitSameRect(&wholeView, &sourceView, modeWord, kernelMode, alpha), 1);
                            ASSERT_EQ(BlitSubRect(&partView, &sourceView, full, {part.left, part.top}, modeWord,
                                                  kernelMode, alpha),
                                      1);
                            for (int y = part.top; y < part.bottom; ++y) {
                                for (int x = part.left; x < part.right; ++x) wanted.Set(x, y, whole.At(x, y));
                            }
                            ASSERT_TRUE(clipped == wanted)
                                << "mode " << mode << ", kernel mode " << kernelMode << ", alpha " << int{alpha}
                                << ", depth " << depth << ", source " << size.cx << " x " << size.cy << ", full "
                                << full.cx << " x " << full.cy << ", part " << part.left << ", " << part.top << ", "
                                << part.right << ", " << part.bottom
                                << "; replay with --gtest_random_seed=" << CaseNumber(number);
                        }
                    }
                }
            }
        }
    }
}

TEST(Dispatch, RefusesNullViewsAndDrawsNothingForWhatHasNoKernel) {
    TestImage source(8, 8), dest(8, 8);
    source.FillWith(0xFFFFFFFF);
    dest.FillWith(0x12345678);
    const TestImage before = dest.Copy();
    const SurfaceView destView = dest.View(), sourceView = source.View();
    EXPECT_EQ(BlitSameRect(nullptr, &sourceView, 0, 0, 255), 0);
    EXPECT_EQ(BlitSameRect(&destView, nullptr, 0, 0, 255), 0);
    EXPECT_EQ(BlitSubRect(nullptr, &sourceView, {8, 8}, {0, 0}, 0, 0, 255), 0);
    EXPECT_EQ(BlitSubRect(&destView, nullptr, {8, 8}, {0, 0}, 0, 0, 255), 0);
    EXPECT_EQ(FillView(nullptr, 0xFF000000, 0), 0);

    const auto changed = [](SurfaceView view, auto change) {
        change(view);
        return view;
    };
    std::vector<std::pair<SurfaceView, SurfaceView>> pairs;
    for (const int depth : {0, 1, 4, 16, 64}) {
        pairs.push_back(
            {destView, changed(sourceView, [&](SurfaceView &v) { v.bitsPerPixel = static_cast<WORD>(depth); })});
    }
    for (const int depth : {0, 8, 16, 24, 64}) {
        pairs.push_back(
            {changed(destView, [&](SurfaceView &v) { v.bitsPerPixel = static_cast<WORD>(depth); }), sourceView});
    }
    for (const LONG size : {0, -1, static_cast<int>(INT32_MIN)}) {
        pairs.push_back({destView, changed(sourceView, [&](SurfaceView &v) { v.width = size; })});
        pairs.push_back({destView, changed(sourceView, [&](SurfaceView &v) { v.height = size; })});
        pairs.push_back({changed(destView, [&](SurfaceView &v) { v.width = size; }), sourceView});
        pairs.push_back({changed(destView, [&](SurfaceView &v) { v.height = size; }), sourceView});
        pairs.push_back({changed(destView, [&](SurfaceView &v) { v.width = v.height = size; }),
                         changed(sourceView, [&](SurfaceView &v) { v.width = v.height = size; })});
    }
    const KernelTable &kernels = Kernels();
    for (const auto &[d, s] : pairs) {
        for (const DWORD mode : kModes) {
            for (const DWORD kernelMode : {0u, 1u, 4u, 5u}) {
                EXPECT_EQ(BlitSameRect(&d, &s, mode << 24, kernelMode, 255), 1);
                EXPECT_EQ(BlitSubRect(&d, &s, {8, 8}, {0, 0}, mode << 24, kernelMode, 200), 1);
                EXPECT_EQ(BlitSubRect(&d, &s, {13, 14}, {0, 0}, mode << 24, kernelMode, 255), 1);
            }
        }
        ConvertCopy(d, s);
        const bool fills = d.bitsPerPixel == 32 && d.width > 0 && d.height > 0;
        ForEachSlot([&, d = d, s = s](const char *, auto member, CombineKind) {
            using Kernel = std::decay_t<decltype(kernels.*member)>;
            if (fills && (std::is_same_v<Kernel, FillKernel> || std::is_same_v<Kernel, MixColorKernel>)) return;
            for (const BYTE weight : {BYTE{100}, BYTE{255}})
                EXPECT_EQ(CallSlot(kernels.*member, d, s, 0xFF000000, weight), 1);
        });
        if (!fills) {
            EXPECT_EQ(FillView(&d, 0xFF000000, 0), 1);
        }
        ASSERT_TRUE(dest == before);
    }
    // A window that is not inside the full size, at sizes where sums of 32 bits would wrap.
    for (const POINT offset :
         {POINT{-1, 0}, POINT{0, -1}, POINT{1, 0}, POINT{0, 1}, POINT{INT32_MAX, 0}, POINT{0, INT32_MIN}}) {
        EXPECT_EQ(BlitSubRect(&destView, &sourceView, {8, 8}, offset, 0, 0, 255), 1);
        EXPECT_EQ(BlitSubRect(&destView, &sourceView, {8, 9}, {offset.x, offset.y + (offset.y > 0)}, 0, 1, 255), 1);
        EXPECT_TRUE(dest == before) << offset.x << ", " << offset.y;
    }
}

TEST(Dispatch, FillsByMode) {
    const struct {
        DWORD mode, colour, before, after;
    } cases[] = {
        {0, 0x00000000, 0xFF808080, 0x00000000},   // copies, whatever the alpha
        {0, 0x40102030, 0xFF808080, 0x40102030},   // the same
        {1, 0x00102030, 0xFF808080, 0xFF808080},   // alpha 0 draws nothing
        {1, 0x01000000, 0xFF808080, 0xFF7F7F7F},   // 0x80 × 255 >> 8
        {1, 0x80402010, 0xFF808080, 0xFF806050},   // 0x80 × 128 >> 8 = 0x40 more, alpha 0x80 + 0x7F
        {1, 0xFE000000, 0xFF808080, 0xFF010101},   // 0x80 × 2 >> 8
        {1, 0xFF402010, 0x80808080, 0xFF402010},   // opaque replaces
        {2, 0x80402010, 0xFF808080, 0xFF806050},   // other modes are over
        {99, 0xFF402010, 0x80808080, 0xFF402010},  // the same
        {3, 0xFFFFFFFF, 0x80706050, 0x80706050},   // white changes nothing
        {3, 0x00000000, 0x80706050, 0x00000000},   // 0 clears
        {3, 0x7FFFFFFF, 0x80706050, 0x40706050},   // 0x80 × 0x80 >> 8
        {4, 0xFFFFFFFF, 0x80706050, 0x80706050},   // the shortcuts of mode 3, where OR would say otherwise
        {4, 0x00000000, 0x80706050, 0x00000000},   // the same
        {4, 0x0F0F0F0F, 0x80706050, 0x8F7F6F5F},   // OR
        {5, 0x00FFFFFF, 0xFF706050, 0xFF706050},   // no alpha, no tint
        {5, 0x01000000, 0x00706050, 0x00706050},   // grey 0x60 × 1 >> 8 is 0
        {5, 0xFF123456, 0xFF706050, 0xFF5F5F5F},   // grey 0x60 × 255 >> 8
        {5, 0x80000000, 0x00F0F0F0, 0x00686868},   // 0xF0 + 0x78, modulo 256
        {6, 0xFFFFFFFF, 0xFF706050, 0xFF706050},   // an opaque pixel hides what is behind it
        {6, 0x40302010, 0x00000000, 0x40302010},   // a transparent one does not
    };
    for (const auto &c : cases) {
        TestImage dest(5, 3, 32, 4, 1);
        dest.FillWith(c.before);
        const SurfaceView view = dest.View();
        EXPECT_EQ(FillView(&view, c.colour, c.mode << 24 | 0x00ABCDEF), 1);
        for (const POINT at : {POINT{0, 0}, POINT{4, 2}}) {
            EXPECT_EQ(dest.At(at.x, at.y), c.after) << std::hex << "mode " << c.mode << " colour 0x" << c.colour;
        }
        EXPECT_TRUE(dest.GuardsAreIntact());
    }
}

TEST(Dispatch, ConversionsCopyTheCommonPart) {
    Random random = CaseRandom(3);
    for (const int depth : kDepths) {
        TestImage source(9, 7, depth);
        source.Fill(random, false);
        for (const SIZE size : {SIZE{9, 7}, SIZE{4, 3}, SIZE{12, 2}, SIZE{3, 11}}) {
            for (const int padding : {0, 2}) {
                TestImage dest(size.cx, size.cy, 32, padding);
                dest.FillWith(0xDEADBEEF);
                ConvertCopy(dest.View(), source.View());
                for (int y = 0; y < size.cy; ++y) {
                    for (int x = 0; x < size.cx; ++x) {
                        ASSERT_EQ(dest.At(x, y), x < 9 && y < 7 ? source.At(x, y) : 0xDEADBEEF) << x << ", " << y;
                    }
                }
                EXPECT_TRUE(dest.GuardsAreIntact());
            }
        }
    }
}

TEST(Dispatch, ResamplingPicksTheSamplerByKernelMode) {
    Random random = CaseRandom(4);
    const TestImage source = RandomSource(random, 20, 16, 24, true);
    const std::pair<DWORD, SamplerKind> kinds[] = {{0, SamplerKind::Nearest},  {1, SamplerKind::Bilinear},
                                                   {3, SamplerKind::Bilinear}, {4, SamplerKind::Bicubic},
                                                   {5, SamplerKind::Area},     {6, SamplerKind::Bilinear}};
    for (const auto &[kernelMode, sampler] : kinds) {
        for (const SIZE size : {SIZE{20, 16}, SIZE{9, 5}, SIZE{30, 5}}) {
            TestImage dest(size.cx, size.cy);
            ResampleCopy(dest.View(), source.View(), kernelMode);
            const SamplerKind wanted = size.cx == 20 ? SamplerKind::SameSize : sampler;
            for (int y = 0; y < size.cy; ++y) {
                for (int x = 0; x < size.cx; ++x) {
                    ASSERT_EQ(dest.At(x, y), ModelSample(wanted, source, size, x, y, ProcessForm())) << kernelMode;
                }
            }
        }
    }
}

TEST(Dispatch, ForcingOpaqueKeepsTheColours) {
    TestImage image(7, 5, 32, 4);
    Random random = CaseRandom(5);
    image.Fill(random);
    const TestImage before = image.Copy();
    ForceOpaqueView(image.View());
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 7; ++x) EXPECT_EQ(image.At(x, y), before.At(x, y) | 0xFF000000);
    }
    TestImage twice(14, 20);
    const SurfaceView twiceView = twice.View(), beforeView = before.View();
    EXPECT_EQ(Kernels().stretchOpaque(&twiceView, &beforeView), 1);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 14; ++x) EXPECT_EQ(twice.At(x, y), before.At(x / 2, y / 4) | 0xFF000000);
    }
}

}  // namespace
}  // namespace lacquer
