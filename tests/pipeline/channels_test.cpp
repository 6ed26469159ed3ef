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
    return v | (255 - v) << 8 | (v ^ 0x5A) << 16 | alpha << 24;
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
        const Overflow overflow = OverflowOf(Table().table, row, sourceView.bitsPerPixel);
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

/// Any word and its base fill; sums carry unless a faster tier's kernel saturates.
TEST_P(Channels, FillOverForEveryColourChannelAlphaAndDestinationChannel) {
    const KernelTable &table = Table().table;
    if (!Table().Replaces([](const KernelTable &of) { return of.fillOver; })) return;
    const Overflow overflow =
        table.fillOver == TablesUnderTest()[0].table.fillOver ? Overflow::Carries : Overflow::Saturates;
    // 256 destination channels in a row; the colour's channel and alpha run.
    TestImage row(kValues, 1), result(kValues, 1);
    for (int x = 0; x < kValues; ++x) row.Set(x, 0, AnyAlpha(x, 0x6D));
    const SurfaceView view = result.View(), source = row.View();
    for (uint32_t alpha = 0; alpha < kValues; alpha += kSlice) {
        for (int channel = 0; channel < kValues; ++channel) {
            const uint32_t colour = Lanes(channel, alpha);
            CallRow(table, Row::CopyRow, &view, &source, {});
            ASSERT_EQ(table.fillOver(&view, colour), 1);
            for (int x = 0; x < kValues; ++x) {
                ASSERT_EQ(result.At(x, 0), ModelCombine(CombineKind::Over, colour, row.At(x, 0), 0, overflow))
                    << std::hex << "colour 0x" << colour << ", d 0x" << row.At(x, 0);
            }
        }
    }
}

TEST_P(Channels, FillBehindModulateOrAndCopyForEveryColourChannel) {
    const KernelTable &table = Table().table;
    const Overflow overflow =
        table.fillBehind == TablesUnderTest()[0].table.fillBehind ? Overflow::Carries : Overflow::Saturates;
    const auto before = [](int x, int y) { return Lanes(x, static_cast<uint32_t>(y)); };
    for (int channel = 0; channel < kValues; channel += kSlice) {
        const uint32_t colour = Lanes(channel, static_cast<uint32_t>(channel ^ 0x96));
        const auto fills = [&](FillKernel KernelTable::*kernel, const auto &wanted) {
            if (!Table().Replaces([=](const KernelTable &of) { return of.*kernel; }))
                return testing::AssertionSuccess();
            return Matches(
                dest_, before, [&](const SurfaceView *view) { return (table.*kernel)(view, colour); },
                [&](int x, int y) { return wanted(before(x, y)); });
        };
        ASSERT_TRUE(fills(&KernelTable::fillBehind,
                          [&](uint32_t d) { return ModelCombine(CombineKind::Behind, colour, d, 0, overflow); }))
            << std::hex << "behind 0x" << colour;
        ASSERT_TRUE(fills(&KernelTable::fillModulate,
                          [&](uint32_t d) { return ModelCombine(CombineKind::Modulate, colour, d, 0, overflow); }))
            << std::hex << "modulate 0x" << colour;
        if (channel % 16 != 0) continue;
        ASSERT_TRUE(fills(&KernelTable::fillOr, [&](uint32_t d) { return d | colour; }));
        ASSERT_TRUE(fills(&KernelTable::fillCopy, [&](uint32_t) { return colour; }));
    }
}

TEST_P(Channels, GreyTintForEveryLevelAlphaAndDestinationAlpha) {
    if (!Table().Replaces([](const KernelTable &of) { return of.fillGreyTint; })) return;
    for (uint32_t alpha = 0; alpha < kValues; alpha += kSlice) {
        const uint32_t colour = alpha << 24 | 0x00C0FFEE;
        const auto before = [](int x, int y) {
            const uint32_t blue = static_cast<uint32_t>(x), green = (blue * 5 + 3) & 255, red = (blue * 11 + 1) & 255;
            return blue | green << 8 | red << 16 | static_cast<uint32_t>(y) << 24;
        };
        ASSERT_TRUE(Matches(
            dest_, before, [&](const SurfaceView *view) { return Table().table.fillGreyTint(view, colour); },
            [&](int x, int y) {
                const uint32_t d = before(x, y), keep = 256 - ChannelOf(d, 3);
                const uint32_t grey = (ChannelOf(d, 0) + 2 * ChannelOf(d, 1) + ChannelOf(d, 2)) / 4 * alpha / 256;
                return WordOf(
                    [&](int i) { return i == 3 ? ChannelOf(d, 3) : (ChannelOf(d, i) * keep / 256 + grey) % 256; });
            }))
            << "colour alpha " << alpha;
    }
}

TEST_P(Channels, CrossFadesForEveryAlphaAndPairOfChannels) {
    // The source's alpha is never read: the result is that of an opaque source.
    const TestImage source = LaneSource(32, 0xB7);
    const SurfaceView sourceView = source.View();
    for (uint32_t alpha = 0; alpha < kValues; alpha += kSlice) {
        for (const auto kernel : {&KernelTable::blendSame, &KernelTable::blendStretch}) {
            if (!Table().Replaces([=](const KernelTable &of) { return of.*kernel; })) continue;
            ASSERT_TRUE(Matches(
                dest_, AnyAlpha,
                [&](const SurfaceView *view) {
                    return (Table().table.*kernel)(view, &sourceView, static_cast<BYTE>(alpha));
                },
                [&](int x, int y) {
                    const uint32_t s = source.At(x, y), d = AnyAlpha(x, y);
                    return WordOf([&](int i) {
                        const uint32_t kept = ChannelOf(d, i) * (256 - alpha) / 256;
                        return kept + (i == 3 ? alpha : ChannelOf(s, i) * (alpha + 1) / 256);
                    });
                }))
                << "alpha " << alpha;
        }
    }
}

TEST_P(Channels, MixesForEveryWeightAndPairOfChannels) {
    const TestImage source = LaneSource(32, 0xB7);
    const SurfaceView sourceView = source.View();
    for (uint32_t weight = 0; weight < kValues; weight += kSlice) {
        for (const auto kernel : {&KernelTable::mixSame, &KernelTable::mixStretch}) {
            if (!Table().Replaces([=](const KernelTable &of) { return of.*kernel; })) continue;
            ASSERT_TRUE(Matches(
                dest_, AnyAlpha,
                [&](const SurfaceView *view) {
                    return (Table().table.*kernel)(view, &sourceView, static_cast<BYTE>(weight));
                },
                [&](int x, int y) {
                    const uint32_t s = source.At(x, y), d = AnyAlpha(x, y);
                    if (weight == 0) return d;
                    if (weight == 255) return s;
                    return WordOf([&](int i) {
                        return (ChannelOf(s, i) * (weight + 1) + ChannelOf(d, i) * (255 - weight)) / 256;
                    });
                }))
                << "weight " << weight;
        }
    }
}

TEST_P(Channels, ColourMixesForEveryWeightColourAndChannel) {
    if (!Table().Replaces([](const KernelTable &of) { return of.mixColor; })) GTEST_SKIP() << "as the tier below";
    TestImage line(kValues, 1);
    const auto equal = [](int x, int) { return Lanes(x, static_cast<uint32_t>(x)); };
    for (uint32_t weight = 0; weight < kValues; weight += kSlice) {
        for (int value = 0; value < kValues; value += kSlice) {
            const uint32_t colour = Lanes(value, static_cast<uint32_t>(kValues - 1 - value));
            ASSERT_TRUE(Matches(
                line, equal,
                [&](const SurfaceView *view) {
                    return Table().table.mixColor(view, colour, static_cast<BYTE>(weight));
                },
                [&](int x, int y) {
                    const uint32_t d = equal(x, y);
                    if (weight == 0) return d;
                    if (weight == 255) return colour;
                    return WordOf(
                        [&](int i) { return (ChannelOf(d, i) * (255 - weight) / 256 + ChannelOf(colour, i)) % 256; });
                }))
                << "weight " << weight << std::hex << ", colour 0x" << colour;
        }
    }
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

/// A pixel whose colour exceeds its alpha: the base tier's word sum carries from one channel into the next.
TEST(ChannelCarry, BaseTierCarriesIntoTheNeighbour) {
    const KernelTable table = BuildKernelTable({});
    TestImage source(1, 1), dest(1, 1);
    source.FillWith(0x80'00'00'F0);
    const SurfaceView destView = dest.View(), sourceView = source.View();
    dest.FillWith(0xFF'10'20'FF);
    CallRow(table, Row::OverRow, &destView, &sourceView, {});
    EXPECT_EQ(dest.At(0, 0), 0xFF'08'11'6Fu);  // blue 0xF0 + 0x7F = 0x16F: green gets the 1
    dest.FillWith(0x80'00'00'F0);
    EXPECT_EQ(table.fillBehind(&destView, 0xFF'00'00'FF), 1);
    EXPECT_EQ(dest.At(0, 0), 0xFF'00'01'6Fu);
}

/// The same pixels in the tiers above, at the end of a row and inside it.
TEST(ChannelCarry, FasterTiersStopAt255) {
    for (const TableUnderTest &tier : TablesUnderTest()) {
        if (!tier.below) continue;
        TestImage source(5, 1), dest(5, 1);
        source.FillWith(0x80'00'00'F0);
        const SurfaceView destView = dest.View(), sourceView = source.View();
        dest.FillWith(0xFF'10'20'FF);
        CallRow(tier.table, Row::OverRow, &destView, &sourceView, {});
        for (const int x : {0, 4}) EXPECT_EQ(dest.At(x, 0), 0xFF'08'10'FFu) << tier.name;
        dest.FillWith(0x80'00'00'F0);
        EXPECT_EQ(tier.table.fillBehind(&destView, 0xFF'00'00'FF), 1);
        for (const int x : {0, 4}) EXPECT_EQ(dest.At(x, 0), 0xFF'00'00'FFu) << tier.name;
    }
}

}  // namespace
}  // namespace lacquer
