// Text: glyphs and measures of the DejaVu fonts, which the tests need installed, and how runs are drawn. Pictures of
// text are in the gallery.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

constexpr int kSize = 64;

/// Draws a line of text with its origin at (x, y).
int DrawText(velCanvas *canvas, const char *text, float x, float y) {
    const std::vector<WCHAR> units = Utf16(text);
    const int length = static_cast<int>(units.size()) - 1;
    std::vector<WORD> glyphs(units.size());
    std::vector<velPointF> positions(units.size());
    if (!velCanvasGetGlyphs(canvas, units.data(), length, glyphs.data(), positions.data())) return 0;
    for (velPointF &position : positions) {
        const float advance = position.x;
        position = {x, y};
        x += advance;
    }
    return velCanvasDrawPosTextByGlyphs(canvas, glyphs.data(), length, positions.data());
}

TEST(VelTextTest, MeasuresAreTheFonts) {
    Painting painting;
    SetFont(painting, kSans, 100);
    constexpr float kExpected[] = {92.82f, 23.58f, 116.41f};
    float measures[3];
    ASSERT_EQ(1, velCanvasGetFontMetrics(painting, measures, measures + 1, measures + 2));
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(kExpected[i], measures[i], 0.01f);
    EXPECT_EQ(1, velCanvasGetFontMetrics(painting, nullptr, nullptr, nullptr));

    const WCHAR text[] = {'i', 'W', ' ', 0xD83D, 0xDE00, 0xE123, 0x20AC};
    WORD glyphs[7];
    velPointF advances[7];
    ASSERT_EQ(1, velCanvasGetGlyphs(painting, text, 7, glyphs, advances));
    constexpr float kAdvances[] = {27.78f, 98.88f, 31.79f};
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(kAdvances[i], advances[i].x, 0.01f);
    EXPECT_EQ(0.0f, advances[1].y);
    EXPECT_EQ('W' - 'i', glyphs[1] - glyphs[0]);
    EXPECT_EQ(0, glyphs[3] | glyphs[4] | glyphs[5]);
    EXPECT_NE(0, glyphs[6]);
    EXPECT_EQ(1, velCanvasGetGlyphs(painting, text, 0, glyphs, nullptr));
    EXPECT_EQ(0, velCanvasGetGlyphs(painting, text, -1, glyphs, nullptr) |
                     velCanvasGetGlyphs(painting, nullptr, 1, glyphs, nullptr) |
                     velCanvasGetGlyphs(painting, text, 1, nullptr, nullptr));
}

TEST(VelTextTest, GlyphsStandOnTheBaselineAndItalicsLeanRight) {
    const auto boxOf = [](const char *text, const char *family, DWORD style, float x = 3, float size = 40) {
        Painting painting(kSize, kSize);
        SetFont(painting, family, size, style);
        EXPECT_EQ(1, velCanvasTranslate(painting, 2, 5));
        DrawText(painting, text, x, 30);
        return painting.Box();
    };
    EXPECT_EQ(kSize, boxOf("H", "DejaVu Sans", 0, kSize - 4, 8).right) << "an edge cuts it";
    EXPECT_EQ(35, boxOf("H", "DejaVu Sans", 0).bottom);
    for (const char *family : {"DejaVu Sans", "DejaVu Math TeX Gyre"}) {
        // The last one has no italics, which are imitated; where it is not installed there is nothing to see.
        if (boxOf("l", family, 0).right == 0) continue;
        EXPECT_GT(boxOf("l", family, VEL_FONT_ITALIC).right, boxOf("l", family, 0).right + 1) << family;
    }
}

TEST(VelTextTest, WhatCannotBeSetOrDrawnIsRefused) {
    const WORD glyphs[] = {40, 0xFFFF, 0};
    const struct {
        const char *name, *family;
        const WORD *glyphs;
        int count;
        std::vector<velPointF> positions;
    } kRuns[] = {{"missing font", "No Such Family", glyphs, 1, {{2, 20}}},
                 {"count", "DejaVu Sans", glyphs, -1, {{}}},
                 {"NaN", "DejaVu Sans", glyphs, 2, {{1, 1}, {NAN, 1}}},
                 {"distant", "DejaVu Sans", glyphs, 3, {{1, 1}, {2, 2}, {2e6f, 0}}},
                 {"no glyphs", "DejaVu Sans", nullptr, 1, {{}}},
                 {"no positions", "DejaVu Sans", glyphs, 1, {}}};
    for (const auto &run : kRuns) {
        ExpectRefused(run.name, [&](velCanvas *canvas) {
            SetFont(canvas, run.family, 12);
            return velCanvasDrawPosTextByGlyphs(canvas, run.glyphs, run.count, run.positions.data());
        });
    }
    Painting painting;
    SetFont(painting, "No Such Family", 12);
    float number = -1;
    EXPECT_EQ(0, velCanvasGetFontMetrics(painting, &number, &number, &number));
    EXPECT_EQ(-1.0f, number);
    EXPECT_EQ(0, DrawText(painting, "x", 1, 20));
    for (const size_t length : {31u, 32u, 1000u}) {
        EXPECT_EQ(length == 31, velCanvasSetFontFaceName(painting, Utf16(std::string(length, 'x')).data()));
    }
    // Glyphs that the font lacks draw nothing; sizes at the limit draw what can be seen.
    SetFont(painting, kSans, 12);
    const velPointF origin{1, 1};
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs, 0, &origin));
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs + 1, 1, &origin));
    EXPECT_TRUE(painting.IsEmpty());
    SetFont(painting, kSans, 32767, VEL_FONT_BOLD | VEL_FONT_UNDERLINE | VEL_FONT_STRIKE_OUT);
    EXPECT_EQ(1, DrawText(painting, "MMM", -5000, 12000));
    EXPECT_FALSE(painting.IsEmpty());
}

TEST(VelTextTest, SmallGlyphsAreLargeOnesSeenFromAfar) {
    constexpr int kFactor = 16, kSmall = 24;
    Painting small(kSmall, kSmall), large(kSmall * kFactor, kSmall * kFactor);
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789&@%";
    int largest = 0;
    for (const char letter : alphabet) {
        for (const float quarter : {0.0f, 0.25f, 0.5f, 0.75f}) {
            for (const Painting *each : {&small, &large}) {
                const float scale = each == &large ? kFactor : 1;
                SetFont(*each, letter % 3 ? kSans : kSerif, 12 * scale, static_cast<DWORD>(letter) % 4);
                // The small one is moved to the place of the large one: to a quarter of a column, and to a row.
                const float aside = each == &large ? 0 : 0.1f;
                const std::string text(1, letter);
                EXPECT_EQ(1, DrawText(*each, text.c_str(), (5 + quarter + aside) * scale, (17 - 4 * aside) * scale));
            }
            for (int i = 0; i < kSmall * kSmall; ++i) {
                int sum = 0;
                for (int k = 0; k < kFactor * kFactor; ++k) {
                    sum += static_cast<int>(
                        large.AlphaAt(i % kSmall * kFactor + k % kFactor, i / kSmall * kFactor + k / kFactor));
                }
                const int average = (sum + kFactor * kFactor / 2) / (kFactor * kFactor);
                largest =
                    std::max(largest, std::abs(average - static_cast<int>(small.AlphaAt(i % kSmall, i / kSmall))));
            }
            small.Fill(0);
            large.Fill(0);
        }
    }
    EXPECT_LE(largest, 17) << "more than one of the fifteen lines that the renderer samples a row with";

    // Text that is a little larger is no mask any more. Where the bar crosses a glyph, sums are more than unions.
    Painting mask(260, 330), outline(260, 330);
    for (const auto &[letter, most] : {std::pair("R", 9), std::pair("g", 70)}) {
        for (const float quarter : {0.0f, 0.25f, 0.5f, 0.75f}) {
            for (const Painting *each : {&mask, &outline}) {
                SetFont(*each, kSans, each == &mask ? 256 : std::nextafter(256.0f, 300.0f), VEL_FONT_UNDERLINE);
                EXPECT_EQ(1, DrawText(*each, letter, 5 + quarter, each == &mask ? 239.6f : 240));
            }
            EXPECT_EQ(0, Differing(mask, outline, most)) << letter << ' ' << quarter;
            mask.Fill(0);
            outline.Fill(0);
        }
    }
}

TEST(VelTextTest, TextOfOneCallIsOneShape) {
    // Full blocks that meet within pixels leave no gap and no darker spot.
    const std::vector<WCHAR> block{0x2588};
    WORD glyph;
    velPointF advance;
    Painting blocks(kSize, kSize);
    SetFont(blocks, "DejaVu Sans Mono", 9.3f, VEL_FONT_UNDERLINE);
    ASSERT_EQ(1, velCanvasGetGlyphs(blocks, block.data(), 1, &glyph, &advance));
    const std::vector<WORD> glyphs(6, glyph);
    std::vector<velPointF> positions;
    for (int i = 0; i < 6; ++i) positions.push_back({5 + std::round(4 * advance.x) / 4 * static_cast<float>(i), 30});
    ASSERT_EQ(1, velCanvasSetColor(blocks, 0x80000000));
    ASSERT_EQ(1, velCanvasDrawPosTextByGlyphs(blocks, glyphs.data(), 6, positions.data()));
    for (int x = 6; x < 36; ++x) EXPECT_NEAR(0x80, static_cast<int>(blocks.AlphaAt(x, 27)), 1) << x;

    // A large text, painted in parts, looks like its glyphs.
    Painting together(700, 500), apart(700, 500);
    std::vector<WORD> letters;
    positions.clear();
    for (int i = 0; i < 30 * 20; ++i) {
        letters.push_back(static_cast<WORD>(36 + i % 50));
        const auto column = static_cast<float>(i % 30), row = static_cast<float>(i / 30);
        positions.push_back({column * 23.3f, row * 25 + column * 0.01f});
    }
    const int count = static_cast<int>(letters.size());
    for (const Painting *each : {&together, &apart}) {
        SetFont(*each, kSans, 15, VEL_FONT_STRIKE_OUT);
        ASSERT_EQ(1, velCanvasClipRect(*each, 7, 3, 690, 481));
    }
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(together, letters.data(), count, positions.data()));
    for (size_t i = 0; i < letters.size(); ++i)
        EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(apart, &letters[i], 1, &positions[i]));
    EXPECT_FALSE(apart.IsEmpty());
    EXPECT_EQ(together.Pixels(), apart.Pixels());
    // Here what is drawn changes all the rest, too.
    together.Fill(0xFF000000);
    ASSERT_EQ(1, velCanvasSetBlendMode(together, VEL_BLEND_DESTINATION_IN));
    ASSERT_EQ(1, velCanvasDrawPosTextByGlyphs(together, letters.data(), count, positions.data()));
    for (int y = 3; y < 481; ++y) {
        for (int x = 7; x < 690; ++x) ASSERT_EQ(apart.At(x, y), together.At(x, y)) << x << ' ' << y;
    }
}

TEST(VelTextTest, EveryModeAndStyleColoursWhatIsCovered) {
    constexpr int kWidth = 22, kHeight = 16;
    Painting coverage(kWidth, kHeight);
    const auto drawText = [](const Painting &on) {
        SetFont(on, kSans, 13, VEL_FONT_UNDERLINE);
        return DrawText(on, "Rg", 0.6f, 11);
    };
    ASSERT_EQ(1, drawText(coverage));
    for (DWORD mode = VEL_BLEND_SOURCE_OVER; mode <= VEL_BLEND_EXCLUSION; ++mode) {
        for (const DWORD style : {VEL_STYLE_FILL, VEL_STYLE_GRADIENT_FILL}) {
            Painting text(kWidth, kHeight, 0x80204060), pixels(kWidth, kHeight, 0x80204060);
            for (const Painting *each : {&text, &pixels}) {
                ASSERT_EQ(1, velCanvasTranslate(*each, 2, 1));
                ASSERT_EQ(1, velCanvasClipRect(*each, 1, 1, 18, 12));
                ASSERT_EQ(1, velCanvasTranslate(*each, -2, -1));
                UseGradient(*each, velGradientCreateLinear(0, 0, 20, 5), {{0, 0xC0E01040}, {1, 0xFF10A0F0}});
                ASSERT_EQ(1, velCanvasSetColor(*each, 0xD0F0A030) && velCanvasSetDrawStyle(*each, style) &&
                                 velCanvasSetBlendMode(*each, mode) && velCanvasSetBlendValue(*each, 200));
            }
            ASSERT_EQ(1, drawText(text));
            // The same pixel by pixel, each covered by a bar as wide as its part of the pixel.
            for (int i = 0; i < kWidth * kHeight; ++i) {
                const int x = i % kWidth, y = i / kWidth;
                const float width = static_cast<float>(coverage.AlphaAt(x, y)) / 255;
                ASSERT_EQ(1,
                          velCanvasSave(pixels) && velCanvasClipRect(pixels, x, y, x + 1, y + 1) &&
                              velCanvasDrawRectangle(pixels, static_cast<float>(x), static_cast<float>(y), width, 1) &&
                              velCanvasRestore(pixels));
            }
            EXPECT_EQ(0, Differing(text, pixels, 3)) << mode << ' ' << style;
        }
    }
}

TEST(VelTextTest, NoTextTakesLong) {
    constexpr int kCount = 65535, kLarge = 2000;
    const struct {
        float size;
        int kinds;  ///< of glyphs
        DWORD style;
        int smooth, result;
    } kTexts[] = {{12, 60, 15, 1, 1},   {12, 60, 0, 0, 0}, {100, 3000, 0, 1, 1}, {256, 60, 0, 1, 1},
                  {256, 6000, 0, 1, 0}, {300, 1, 0, 1, 1}, {300, 60, 0, 1, 0},   {5000, 60, 0, 1, 0}};
    std::vector<WORD> glyphs(kCount);
    std::vector<velPointF> positions;
    for (unsigned i = 0; i < kCount; ++i) {
        positions.push_back({static_cast<float>(i * 7919 % 8000) / 4, static_cast<float>(i * 10007 % kLarge)});
    }
    for (const auto &[size, kinds, style, smooth, result] : kTexts) {
        for (size_t i = 0; i < glyphs.size(); ++i) glyphs[i] = static_cast<WORD>(36 + i % static_cast<size_t>(kinds));
        Painting painting(kLarge, kLarge);
        SetFont(painting, kSans, size, style);
        EXPECT_EQ(1, velCanvasSetSmooth(painting, smooth));
        const PageClock clock;
        EXPECT_EQ(result, velCanvasDrawPosTextByGlyphs(painting, glyphs.data(), kCount, positions.data())) << size;
        EXPECT_FALSE(clock.IsLong()) << size << ' ' << kinds;
        EXPECT_EQ(result == 0, painting.IsEmpty()) << size << ' ' << kinds;
    }
}

}  // namespace
}  // namespace lacquer
