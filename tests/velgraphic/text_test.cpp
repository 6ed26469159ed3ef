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
    float ascent = 0, descent = 0, lineHeight = 0;
    ASSERT_EQ(1, velCanvasGetFontMetrics(painting, &ascent, &descent, &lineHeight));
    EXPECT_NEAR(92.82f, ascent, 0.01f);
    EXPECT_NEAR(23.58f, descent, 0.01f);
    EXPECT_NEAR(116.41f, lineHeight, 0.01f);
    EXPECT_EQ(1, velCanvasGetFontMetrics(painting, nullptr, nullptr, nullptr));

    const WCHAR text[] = {'i', 'W', ' ', 0xD83D, 0xDE00, 0xE123, 0x20AC};
    WORD glyphs[7];
    velPointF advances[7];
    ASSERT_EQ(1, velCanvasGetGlyphs(painting, text, 7, glyphs, advances));
    EXPECT_NEAR(27.78f, advances[0].x, 0.01f);
    EXPECT_NEAR(98.88f, advances[1].x, 0.01f);
    EXPECT_NEAR(31.79f, advances[2].x, 0.01f);
    EXPECT_EQ(0.0f, advances[1].y);
    EXPECT_EQ('W' - 'i', glyphs[1] - glyphs[0]);
    EXPECT_EQ(0, glyphs[3] | glyphs[4] | glyphs[5]);
    EXPECT_NE(0, glyphs[6]);
    EXPECT_EQ(1, velCanvasGetGlyphs(painting, text, 0, glyphs, nullptr));
    EXPECT_EQ(0, velCanvasGetGlyphs(painting, text, -1, glyphs, nullptr));
    EXPECT_EQ(0, velCanvasGetGlyphs(painting, nullptr, 1, glyphs, nullptr));
    EXPECT_EQ(0, velCanvasGetGlyphs(painting, text, 1, nullptr, nullptr));
}

TEST(VelTextTest, GlyphsStandOnTheBaselineAndItalicsLeanRight) {
    const auto boxOf = [](const char *text, const char *family, DWORD style, float x = 3, float size = 40) {
        Painting painting(kSize, kSize);
        SetFont(painting, size, style, family);
        EXPECT_EQ(1, velCanvasTranslate(painting, 2, 5));
        EXPECT_EQ(1, DrawText(painting, text, x, 30));
        return painting.Box();
    };
    // Also where an edge cuts them.
    EXPECT_EQ(kSize, boxOf("H", "DejaVu Sans", 0, kSize - 4, 8).right);
    EXPECT_EQ(0, boxOf("H", "DejaVu Sans", 0, -20).left);
    const RECT box = boxOf("H", "DejaVu Sans", 0);
    EXPECT_EQ(35, box.bottom);
    EXPECT_NEAR(35 - 0.729 * 40, box.top, 1);  // the height of its capitals
    EXPECT_NEAR(2 + 3 + 0.098 * 40, box.left, 1);
    for (const char *family : {"DejaVu Sans", "DejaVu Math TeX Gyre"}) {
        // The last one has no italics, which are imitated; it is not installed everywhere.
        const Painting probe;
        SetFont(probe, 40, 0, family);
        if (!velCanvasGetFontMetrics(probe, nullptr, nullptr, nullptr)) continue;
        EXPECT_GT(boxOf("l", family, VEL_FONT_ITALIC).right, boxOf("l", family, 0).right + 1) << family;
    }
}

TEST(VelTextTest, BarsJoinWithTheGlyphsToOneShape) {
    // Half transparent: where the bar crosses a glyph, nothing is drawn twice, and the bar has no seams.
    for (const DWORD bar : {VEL_FONT_UNDERLINE, VEL_FONT_STRIKE_OUT}) {
        Painting painting(80, 60);
        SetFont(painting, 48, bar);
        EXPECT_EQ(1, velCanvasSetColor(painting, 0x80000000));
        EXPECT_EQ(1, DrawText(painting, "gjp", 3.3f, 45));
        int wholeRow = -1;
        for (int y = 0; y < painting.Height(); ++y) {
            const auto row = painting.Pixels().begin() + y * painting.Width();
            const auto isWhole = [](uint32_t pixel) { return pixel >> 24 == 0x80; };
            EXPECT_TRUE(std::all_of(row, row + 80, [](uint32_t pixel) { return pixel >> 24 <= 0x80; })) << y;
            if (std::all_of(row + 4, row + 76, isWhole)) wholeRow = y;
        }
        EXPECT_EQ(bar == VEL_FONT_UNDERLINE, wholeRow > 45) << "under the baseline";
        EXPECT_GT(wholeRow, 10);
    }
}

TEST(VelTextTest, GradientsAndOpacityColourGlyphs) {
    Painting painting(60, 30);
    SetFont(painting, 30);
    UseGradient(painting, velGradientCreateLinear(0, 0, 60, 0), {{0, 0xFFFF0000}, {1, 0xFF0000FF}});
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_STROKE));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 128));
    EXPECT_EQ(1, DrawText(painting, "IMI", 2, 26));
    const uint32_t first = painting.At(6, 15);  // in the stem of the first letter
    EXPECT_EQ(128u, first >> 24);
    EXPECT_GT(first >> 16 & 0xFF, (first & 0xFF) * 3);
}

TEST(VelTextTest, FontsThatAreMissingDrawNothingAndHarmNothing) {
    ExpectRefused("no font", [](velCanvas *canvas) { return DrawText(canvas, "x", 1, 20); });
    for (const DWORD style : {0u, 15u}) {
        ExpectRefused("missing", [&](velCanvas *canvas) {
            SetFont(canvas, 12, style, "No Such Family");
            const WORD glyph = 40;
            const velPointF origin{2, 20};
            float number = -1;
            EXPECT_EQ(0, velCanvasGetFontMetrics(canvas, &number, &number, &number));
            EXPECT_EQ(-1.0f, number);
            EXPECT_EQ(0, DrawText(canvas, "x", 1, 20));
            return velCanvasDrawPosTextByGlyphs(canvas, &glyph, 1, &origin);
        });
    }
    for (const size_t length : {0u, 32u, 1000u}) {
        ExpectRefused("name", [&](velCanvas *canvas) {
            return velCanvasSetFontFaceName(canvas, Utf16(std::string(length, 'x')).data());
        });
    }
    const Painting painting;
    EXPECT_EQ(1, velCanvasSetFontFaceName(painting, Utf16(std::string(31, 'x')).data()));
}

TEST(VelTextTest, RunsBeyondReasonAreRefused) {
    const WORD glyphs[] = {40, 0xFFFF, 0};
    const struct {
        const char *name;
        const WORD *glyphs;
        int count;
        std::vector<velPointF> positions;
    } kRuns[] = {{"count", glyphs, -1, {{}}},
                 {"NaN", glyphs, 2, {{1, 1}, {NAN, 1}}},
                 {"far", glyphs, 3, {{1, 1}, {2, 2}, {2e6f, 0}}},
                 {"no glyphs", nullptr, 1, {{}}},
                 {"no positions", glyphs, 1, {}}};
    for (const auto &run : kRuns) {
        ExpectRefused(run.name, [&](velCanvas *canvas) {
            SetFont(canvas, 12);
            return velCanvasDrawPosTextByGlyphs(canvas, run.glyphs, run.count, run.positions.data());
        });
    }
    // Glyphs that the font lacks draw nothing; sizes at the limit draw what can be seen.
    Painting painting;
    SetFont(painting, 12);
    const velPointF origin{1, 1};
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs, 0, &origin));
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs + 1, 1, &origin));
    EXPECT_TRUE(painting.IsEmpty());
    SetFont(painting, 32767, VEL_FONT_BOLD | VEL_FONT_UNDERLINE | VEL_FONT_STRIKE_OUT);
    EXPECT_EQ(1, DrawText(painting, "MMM", -5000, 12000));
    EXPECT_FALSE(painting.IsEmpty());
    SetFont(painting, 1e-6f, 15);
    EXPECT_EQ(1, DrawText(painting, "MMM", 5, 5));
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
