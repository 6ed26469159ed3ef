// The combine rules, fills and mixes over all combinations of source channel, destination channel and alpha. A word's
// channels run through the 256 values in different orders, so that each lane meets every combination and its neighbours
// differ from it.

#include <gtest/gtest.h>

#include "row_check.h"

namespace lacquer {
namespace {

constexpr int kValues = 256;

/// A word of alpha `alpha` whose colour channels are permutations of `value`.
uint32_t Lanes(int value, uint32_t alpha) {
    const uint32_t v = static_cast<uint32_t>(value);
    return v | ((v * 5 + 3) & 255) << 8 | ((v * 11 + 1) & 255) << 16 | alpha << 24;
}

/// Pixel (x, y) becomes word(x, y).
template <class Word>
void FillImage(TestImage &image, const Word &word) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) image.Set(x, y, word(x, y));
    }
}

/// Compares the result of `draw(destView)` with `wanted(x, y)`, given the destination's pixels before.
template <class Before, class Draw, class Wanted>
testing::AssertionResult Matches(TestImage &dest, const Before &before, const Draw &draw, const Wanted &wanted) {
    FillImage(dest, before);
    const SurfaceView view = dest.View();
    if (draw(&view) != 1) return testing::AssertionFailure() << "result is not 1";
    for (int y = 0; y < dest.height(); ++y) {
        for (int x = 0; x < dest.width(); ++x) {
            if (dest.At(x, y) != wanted(x, y)) {
                return testing::AssertionFailure()
                       << std::hex << "pixel (0x" << x << ", 0x" << y << ") is 0x" << dest.At(x, y) << ", wanted 0x"
                       << wanted(x, y) << ", was 0x" << before(x, y);
            }
        }
    }
    return testing::AssertionSuccess();
}

/// A 256 × 256 source of a depth, pixel (x, y) being Lanes(y, alpha) for 8- and 32-bit sources, and opaque for 24-bit
/// ones.
TestImage LaneSource(int bitsPerPixel, uint32_t alpha) {
    TestImage source(kValues, kValues, bitsPerPixel);
    std::vector<DWORD> palette(kValues);
    for (int i = 0; i < kValues; ++i) palette[static_cast<std::size_t>(i)] = Lanes(i, alpha);
    if (bitsPerPixel == 8) {
        source.SetPalette(std::move(palette));
        for (int y = 0; y < kValues; ++y) {
            for (int x = 0; x < kValues; ++x) source.SetIndex(x, y, static_cast<BYTE>(y));
        }
    } else {
        FillImage(source, [&](int, int y) { return Lanes(y, alpha); });
    }
    return source;
}

class Channels : public testing::TestWithParam<std::size_t> {
protected:
    const TableUnderTest &Table() const { return TablesUnderTest()[GetParam()]; }

    /// Runs a 1:1 row over `source` with destination word(x, y).
    template <class Word>
    testing::AssertionResult RowMatches(Row row, const TestImage &source, const Word &word, uint32_t parameter = 0) {
        const SurfaceView sourceView = source.View();
        if (!Table().Replaces(row, sourceView.bitsPerPixel)) return testing::AssertionSuccess();
        const Overflow overflow = Table().OverflowOf(row, sourceView.bitsPerPixel);
        return Matches(
            dest_, word,
            [&](const SurfaceView *view) {
                return CallRow(Table().table, row, view, &sourceView, {.parameter = parameter});
            },
            [&](int x, int y) {
                return ModelCombine(TraitsOf(row).combine, source.At(x, y), word(x, y), parameter, overflow);
            });
    }

    TestImage dest_{kValues, kValues};
};
INSTANTIATE_TEST_SUITE_P(Tables, Channels, testing::Range(std::size_t{0}, TablesUnderTest().size()),
                         [](const auto &test) { return TablesUnderTest()[test.param].name; });

/// Destination words for a source alpha: x runs through the channel values, the alpha through a permutation of them.
uint32_t AnyAlpha(int x, int y) { return Lanes(x, static_cast<uint32_t>(x ^ y)); }

TEST_P(Channels, OverForEverySourceChannelDestinationChannelAndSourceAlpha) {
    for (const int depth : kDepths) {
        for (uint32_t alpha = depth == 24 ? 255 : 0; alpha < kValues; alpha += kSlice) {
            ASSERT_TRUE(RowMatches(Row::OverRow, LaneSource(depth, alpha), AnyAlpha)) << "source alpha " << alpha;
        }
    }
}

TEST_P(Channels, BehindForEverySourceChannelDestinationChannelAndDestinationAlpha) {
    for (const int depth : kDepths) {
        for (uint32_t alpha = 0; alpha < kValues; alpha += kSlice) {
            const TestImage source = LaneSource(depth, alpha ^ 0x81);
            ASSERT_TRUE(RowMatches(Row::BehindRow, source, [&](int x, int) { return Lanes(x, alpha); }))
                << "destination alpha " << alpha;
        }
    }
}

TEST_P(Channels, ConstantAlphaForEveryAlphaSourceAlphaAndChannel) {
    // First every (alpha, source alpha, source channel), then every (alpha, source alpha, destination channel).
    TestImage source(kValues, kValues);
    for (uint32_t alpha = 1; alpha < 255; alpha += kSlice) {
        FillImage(source, [](int x, int y) { return Lanes(x, static_cast<uint32_t>(y)); });
        const auto mixed = [&](int x, int y) {
            return Lanes((x * 7 + y * 13) & 255, (static_cast<uint32_t>(x) + alpha) & 255);
        };
        ASSERT_TRUE(RowMatches(Row::ConstAlphaRow, source, mixed, alpha)) << "alpha " << alpha;
        FillImage(source, [&](int x, int y) {
            return Lanes((x * 5 + static_cast<int>(alpha)) & 255, static_cast<uint32_t>(y));
        });
        ASSERT_TRUE(RowMatches(Row::ConstAlphaRow, source, AnyAlpha, alpha)) << "alpha " << alpha;
        ASSERT_TRUE(RowMatches(Row::ConstAlphaRow, LaneSource(24, 0), AnyAlpha, alpha)) << "alpha " << alpha;
        ASSERT_TRUE(RowMatches(Row::ConstAlphaRow, LaneSource(8, alpha ^ 0x33), AnyAlpha, alpha)) << "alpha " << alpha;
    }
}

TEST_P(Channels, ModulateAndCopyForEveryPairOfChannels) {
    for (const int depth : kDepths) {
        for (const uint32_t alpha : {0u, 1u, 128u, 255u}) {
            const TestImage source = LaneSource(depth, alpha);
            ASSERT_TRUE(RowMatches(Row::ModulateRow, source, AnyAlpha));
            ASSERT_TRUE(RowMatches(Row::CopyRow, source, AnyAlpha));
        }
    }
}

TEST_P(Channels, ColorKeyComparesWholeWords) {
    for (const int depth : kDepths) {
        const TestImage source = LaneSource(depth, 0);
        const uint32_t depthAlpha = depth == 24 ? 255 : 0;
        for (const uint32_t key :
             {Lanes(0, depthAlpha), Lanes(77, depthAlpha), Lanes(77, depthAlpha ^ 255), Lanes(78, depthAlpha) ^ 1}) {
            ASSERT_TRUE(RowMatches(Row::ColorKeyRow, source, AnyAlpha, key)) << std::hex << key;
        }
        // The key does skip a line of pixels, so the comparison above is not one of copies.
        const SurfaceView destView = dest_.View(), sourceView = source.View();
        dest_.FillWith(0x01020304);
        CallRow(Table().table, Row::ColorKeyRow, &destView, &sourceView, {.parameter = Lanes(77, depthAlpha)});
        EXPECT_EQ(dest_.At(9, 77), 0x01020304u);
        EXPECT_EQ(dest_.At(9, 76), Lanes(76, depthAlpha));
    }
}

/// A fill with a translucent colour depends on its channel, its alpha and the destination's channel.
TEST_P(Channels, FillOverForEveryColourChannelAlphaAndDestinationChannel) {
    const auto slot = [](const KernelTable &of) { return of.fillOver; };
    if (!Table().Replaces(slot)) return;
    const Overflow overflow = Table().OverflowOf(slot);
    TestImage line(kValues, 1);
    for (uint32_t alpha = 0; alpha < kValues; alpha += kSlice) {
        for (int channel = 0; channel < kValues; ++channel) {
            const uint32_t colour = Lanes(channel, alpha);
            ASSERT_TRUE(Matches(
                line, AnyAlpha, [&](const SurfaceView *view) { return slot(Table().table)(view, colour); },
                [&](int x, int y) { return ModelCombine(CombineKind::Over, colour, AnyAlpha(x, y), 0, overflow); }))
                << std::hex << "colour 0x" << colour;
        }
    }
}

/// All single slots: for every channel of the colour or the source, every one of the destination, and every weight or
/// else every alpha of the destination.
TEST_P(Channels, SingleSlotsForEveryPairOfChannelsAndParameter) {
    const TestImage source = LaneSource(32, 0xB7);
    const SurfaceView sourceView = source.View();
    TestImage line(kValues, 1);
    ForEachSlot([&](const char *name, auto member, CombineKind rule) {
        const auto slot = [=](const KernelTable &of) { return of.*member; };
        if (!Table().Replaces(slot)) return;
        const bool fills = std::is_same_v<decltype(slot(KernelTable())), FillKernel>;
        const bool mixesColour = std::is_same_v<decltype(slot(KernelTable())), MixColorKernel>;
        const Overflow overflow = Table().OverflowOf(slot);
        const auto matches = [&](TestImage &dest, uint32_t colour, int parameter) {
            const auto before = [=](int x, int y) { return Lanes(x, static_cast<uint32_t>(fills ? y : x ^ y)); };
            return Matches(
                dest, before,
                [&](const SurfaceView *view) {
                    return CallSlot(slot(Table().table), *view, sourceView, colour, static_cast<BYTE>(parameter));
                },
                [&](int x, int y) {
                    const uint32_t s = fills || mixesColour ? colour : source.At(x, y);
                    return ModelCombine(rule, s, before(x, y), static_cast<uint32_t>(parameter), overflow);
                });
        };
        for (int value = 0; value < kValues; value += kSlice) {
            const uint32_t colour = Lanes(value, static_cast<uint32_t>(value ^ 0x96));
            for (int weight = 0; mixesColour && weight < kValues; weight += kSlice) {
                ASSERT_TRUE(matches(line, colour, weight)) << name << std::hex << ", colour 0x" << colour;
            }
            if (mixesColour) continue;
            ASSERT_TRUE(matches(dest_, colour, value)) << name << ", " << value;
        }
    });
}

TEST_P(Channels, OpaqueStaysOpaqueTransparentLeavesAndOpaqueReplaces) {
    // All source alphas, and with constant alpha all pairs; the source's colour is the largest premultiplied one.
    TestImage source(kValues, kValues);
    FillImage(source, [](int, int y) { return static_cast<uint32_t>(y) * 0x01010101u; });
    const SurfaceView destView = dest_.View(), sourceView = source.View();
    const auto opaque = [](int x, int) { return Lanes(x, 255); };
    FillImage(dest_, opaque);
    CallRow(Table().table, Row::OverRow, &destView, &sourceView, {});
    for (int x = 0; x < kValues; ++x) {
        EXPECT_EQ(dest_.At(x, 0), opaque(x, 0)) << "transparent over";
        EXPECT_EQ(dest_.At(x, 255), 0xFFFFFFFFu) << "opaque over";
        for (int y = 0; y < kValues; ++y) ASSERT_EQ(dest_.At(x, y) >> 24, 255u) << "source alpha " << y;
    }
    for (DWORD alpha = 1; alpha < 255; ++alpha) {
        FillImage(dest_, opaque);
        CallRow(Table().table, Row::ConstAlphaRow, &destView, &sourceView, {.parameter = alpha});
        for (int y = 0; y < kValues; ++y) ASSERT_EQ(dest_.At(3, y) >> 24, 255u) << "alpha " << alpha << " source " << y;
    }
    FillImage(dest_, opaque);
    CallRow(Table().table, Row::BehindRow, &destView, &sourceView, {});
    for (int y = 0; y < kValues; ++y) ASSERT_EQ(dest_.At(200, y), opaque(200, y)) << "behind opaque";
}

TEST_P(Channels, PremultipliedPixelsGivePremultipliedPixels) {
    Random random = CaseRandom(0);
    TestImage source(kValues, kValues);
    const SurfaceView destView = dest_.View(), sourceView = source.View();
    for (int round = 0; round < 12; ++round) {
        for (const Row row : {Row::OverRow, Row::BehindRow, Row::ConstAlphaRow, Row::ModulateRow}) {
            source.Fill(random);
            dest_.Fill(random);
            CallRow(Table().table, row, &destView, &sourceView,
                    {.parameter = static_cast<DWORD>(Between(random, 1, 254))});
            for (int y = 0; y < kValues; ++y) {
                for (int x = 0; x < kValues; ++x) {
                    const uint32_t d = dest_.At(x, y), alpha = d >> 24;
                    ASSERT_TRUE(ChannelOf(d, 0) <= alpha && ChannelOf(d, 1) <= alpha && ChannelOf(d, 2) <= alpha)
                        << TraitsOf(row).name << ": 0x" << std::hex << d << " from s 0x" << source.At(x, y);
                }
            }
        }
    }
}

/// A pixel whose colour exceeds its alpha: the base tier's word sum carries from one channel into the next; the tiers
/// above stop at 255, at the end of a row and inside it.
TEST_P(Channels, SumsCarryOrStopAt255) {
    const bool carries = Table().OverflowOf(Row::OverRow, 32) == Overflow::Carries;
    TestImage source(5, 1), dest(5, 1);
    source.FillWith(0x80'00'00'F0);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    dest.FillWith(0xFF'10'20'FF);
    CallRow(Table().table, Row::OverRow, &destView, &sourceView, {});
    // Blue 0xF0 + 0x7F = 0x16F: green gets the 1.
    for (const int x : {0, 4}) EXPECT_EQ(dest.At(x, 0), carries ? 0xFF'08'11'6Fu : 0xFF'08'10'FFu);
    dest.FillWith(0x80'00'00'F0);
    EXPECT_EQ(Table().table.fillBehind(&destView, 0xFF'00'00'FF), 1);
    for (const int x : {0, 4}) EXPECT_EQ(dest.At(x, 0), carries ? 0xFF'00'01'6Fu : 0xFF'00'00'FFu);
    EXPECT_EQ(carries, Table().below == nullptr || Table().below->below == nullptr || !kHasTiers);
}

}  // namespace
}  // namespace lacquer
