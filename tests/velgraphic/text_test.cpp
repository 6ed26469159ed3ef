// Text: glyphs and measures of the DejaVu fonts, which the tests need installed, and how runs are drawn. Pictures of
// text are in the gallery.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

constexpr int kSize = 64;

void SetFont(velCanvas *canvas, float size, DWORD style = 0, const char *family = "DejaVu Sans") {
    ASSERT_EQ(1, velCanvasSetFontStyle(canvas, style));
    ASSERT_EQ(1, velCanvasSetFontFaceName(canvas, Utf16(family).data()));
    ASSERT_EQ(1, velCanvasSetTextSize(canvas, size));
}

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
    SetFont(painting, 100);
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
        SetFont(painting, size, style, family);
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
            SetFont(canvas, 12, 0, run.family);
            return velCanvasDrawPosTextByGlyphs(canvas, run.glyphs, run.count, run.positions.data());
        });
    }
    Painting painting;
    SetFont(painting, 12, 0, "No Such Family");
    float number = -1;
    EXPECT_EQ(0, velCanvasGetFontMetrics(painting, &number, &number, &number));
    EXPECT_EQ(-1.0f, number);
    EXPECT_EQ(0, DrawText(painting, "x", 1, 20));
    for (const size_t length : {31u, 32u, 1000u}) {
        EXPECT_EQ(length == 31, velCanvasSetFontFaceName(painting, Utf16(std::string(length, 'x')).data()));
    }
    // Glyphs that the font lacks draw nothing; sizes at the limit draw what can be seen.
    SetFont(painting, 12);
    const velPointF origin{1, 1};
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs, 0, &origin));
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs + 1, 1, &origin));
    EXPECT_TRUE(painting.IsEmpty());
    SetFont(painting, 32767, VEL_FONT_BOLD | VEL_FONT_UNDERLINE | VEL_FONT_STRIKE_OUT);
    EXPECT_EQ(1, DrawText(painting, "MMM", -5000, 12000));
    EXPECT_FALSE(painting.IsEmpty());
}

TEST(VelTextTest, FontsAndGlyphsComeOutAsOnANewCanvas) {
    // More faces than a canvas keeps, and glyphs that share places in a face's memory; also cut off at an edge.
    Painting used(kSize, 32);
    for (const char *family : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"}) {
        for (const DWORD style : {0u, 1u, 2u, 3u}) {
            for (const int glyph : {36, 36 + 256, 36 + 512, 127, 36}) {
                const WORD word = static_cast<WORD>(glyph);
                const velPointF origin{static_cast<float>(glyph % 50 - 4), 20};
                Painting fresh(kSize, 32);
                used.Fill(0);
                for (const Painting *each : {&used, &fresh}) {
                    SetFont(*each, 14, style, family);
                    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(*each, &word, 1, &origin));
                }
                EXPECT_EQ(fresh.Pixels(), used.Pixels()) << family << ' ' << style << ' ' << glyph;
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
