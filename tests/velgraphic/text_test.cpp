// Text: glyphs and measures of a font that the tests bring along, and how runs are drawn.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ranges>

#include "painting.h"

namespace lacquer {
namespace {

/// Sets a face of the DejaVu fonts, which the tests need installed.
void SetFont(velCanvas *canvas, float size, DWORD style = 0, const char *family = "DejaVu Sans") {
    ASSERT_EQ(1, velCanvasSetFontFaceName(canvas, Utf16(family).data()));
    ASSERT_EQ(1, velCanvasSetFontStyle(canvas, style));
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

TEST(VelTextTest, GlyphsStandOnTheBaseline) {
    Painting painting(40, 40);
    SetFont(painting, 40);
    EXPECT_EQ(1, velCanvasTranslate(painting, 2, 5));
    EXPECT_EQ(1, DrawText(painting, "H", 3, 30));
    const RECT box = painting.Box();
    EXPECT_EQ(35, box.bottom);
    EXPECT_NEAR(35 - 0.729 * 40, box.top, 1);  // the height of its capitals
    EXPECT_NEAR(2 + 3 + 0.098 * 40, box.left, 1);
}

TEST(VelTextTest, PicturesAgreeWithTheReference) {
    Painting painting(220, 120, 0xFFFFFFFF);
    SetFont(painting, 20);
    EXPECT_EQ(1, DrawText(painting, "Hamburgefonts 019&@", 4.5f, 22));
    SetFont(painting, 11);
    EXPECT_EQ(1, DrawText(painting, "The quick brown fox jumps over it.", 4, 40));
    EXPECT_EQ(1, velCanvasSetColor(painting, 0xC0C02040));
    SetFont(painting, 16, VEL_FONT_BOLD);
    EXPECT_EQ(1, DrawText(painting, "Bold 12%", 4, 60));
    SetFont(painting, 16, VEL_FONT_UNDERLINE, "DejaVu Serif");
    EXPECT_EQ(1, DrawText(painting, "Serif gy", 110, 60));
    SetFont(painting, 16, VEL_FONT_STRIKE_OUT, "DejaVu Sans Mono");
    EXPECT_EQ(1, DrawText(painting, "Mono {}", 4, 82));
    SetFont(painting, 48.5f);
    EXPECT_EQ(1, velCanvasSetColor(painting, 0xFF2040A0));
    EXPECT_EQ(1, DrawText(painting, "Sg", 100.25f, 108.75f));
    ExpectLikeReference(painting, "text", 24);
}

TEST(VelTextTest, ItalicsLeanRight) {
    const auto rightEnd = [](DWORD style) {
        Painting painting(60, 60);
        SetFont(painting, 48, style);
        EXPECT_EQ(1, DrawText(painting, "l", 10, 50));
        return painting.Box().right;
    };
    EXPECT_GT(rightEnd(VEL_FONT_ITALIC), rightEnd(0) + 2);
}

TEST(VelTextTest, BarsJoinWithTheGlyphsToOneShape) {
    // Half transparent: where the bar crosses a glyph, nothing is drawn twice, and the bar has no seams.
    Painting painting(80, 40);
    SetFont(painting, 24, VEL_FONT_UNDERLINE | VEL_FONT_STRIKE_OUT);
    EXPECT_EQ(1, velCanvasSetColor(painting, 0x80000000));
    EXPECT_EQ(1, DrawText(painting, "gjpm", 5.3f, 25));
    for (const uint32_t pixel : painting.Pixels()) EXPECT_LE(pixel >> 24, 0x80u);
    const auto isWholeBar = [&](int y) {
        const auto row = painting.Pixels().begin() + y * 80;
        return std::all_of(row + 8, row + 50, [](uint32_t pixel) { return pixel >> 24 == 0x80; });
    };
    EXPECT_TRUE(std::ranges::any_of(std::views::iota(0, 40), isWholeBar));
}

TEST(VelTextTest, GradientsAndOpacityColourGlyphs) {
    Painting painting(60, 30);
    SetFont(painting, 30);
    UseGradient(painting, velGradientCreateLinear(0, 0, 60, 0), {{0, 0xFFFF0000}, {1, 0xFF0000FF}});
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_GRADIENT_STROKE));
    EXPECT_EQ(1, velCanvasSetBlendValue(painting, 128));
    EXPECT_EQ(1, DrawText(painting, "IMI", 2, 26));
    uint32_t most = 0;
    for (const uint32_t pixel : painting.Pixels()) most = std::max(most, pixel >> 24);
    EXPECT_EQ(128u, most);
    const uint32_t first = painting.At(6, 15);  // in the stem of the first letter
    EXPECT_GT(first >> 16 & 0xFF, (first & 0xFF) * 3);
}

TEST(VelTextTest, AMissingFontDrawsNothingAndHarmsNothing) {
    ExpectRefused("no font", [](velCanvas *canvas) { return DrawText(canvas, "x", 1, 20); });
    for (const DWORD style : {0u, 15u}) {
        ExpectRefused("missing", [&](velCanvas *canvas) {
            SetFont(canvas, 12, style, "No Such Family");
            const WORD glyph = 40;
            const velPointF origin{2, 20};
            float number = -1;
            EXPECT_EQ(0, velCanvasGetFontMetrics(canvas, &number, &number, &number));
            EXPECT_EQ(-1.0f, number);
            return velCanvasDrawPosTextByGlyphs(canvas, &glyph, 1, &origin);
        });
    }
    Painting painting;
    SetFont(painting, 12, 0, "No Such Family");
    EXPECT_EQ(0, DrawText(painting, "x", 1, 20));
    SetFont(painting, 12);
    EXPECT_EQ(1, DrawText(painting, "x", 1, 20));
    EXPECT_FALSE(painting.IsEmpty());
}

TEST(VelTextTest, RunsBeyondReasonAreRefused) {
    const WORD glyphs[] = {40, 0xFFFF, 0};
    const struct {
        const char *name;
        int count;
        velPointF positions[3];
    } kRuns[] = {{"count", -1, {}}, {"NaN", 2, {{1, 1}, {NAN, 1}, {}}}, {"far", 3, {{1, 1}, {2, 2}, {2e6f, 0}}}};
    for (const auto &run : kRuns) {
        ExpectRefused(run.name, [&](velCanvas *canvas) {
            SetFont(canvas, 12);
            return velCanvasDrawPosTextByGlyphs(canvas, glyphs, run.count, run.positions);
        });
    }
    ExpectRefused("null", [&](velCanvas *canvas) {
        SetFont(canvas, 12);
        EXPECT_EQ(0, velCanvasDrawPosTextByGlyphs(canvas, nullptr, 1, kRuns[0].positions));
        return velCanvasDrawPosTextByGlyphs(canvas, glyphs, 1, nullptr);
    });

    // Glyphs that the font lacks draw nothing; sizes at the limit draw what can be seen.
    Painting painting;
    SetFont(painting, 12);
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs, 0, kRuns[0].positions));
    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, glyphs + 1, 1, kRuns[1].positions));
    EXPECT_TRUE(painting.IsEmpty());
    SetFont(painting, 32767, VEL_FONT_BOLD | VEL_FONT_UNDERLINE | VEL_FONT_STRIKE_OUT);
    EXPECT_EQ(1, DrawText(painting, "MMM", -5000, 12000));
    EXPECT_FALSE(painting.IsEmpty());
    painting.Fill(0);
    SetFont(painting, 1e-6f, 15);
    EXPECT_EQ(1, DrawText(painting, "MMM", 5, 5));
}

TEST(VelTextTest, ManyFontsAndGlyphsComeOutTheSameAgain) {
    // More faces than a canvas keeps, and glyphs that share places in a face's memory.
    const char *kFamilies[] = {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"};
    std::vector<std::vector<uint32_t>> pictures;
    Painting painting(64, 32);
    for (int round = 0; round < 2; ++round) {
        size_t index = 0;
        for (const char *family : kFamilies) {
            for (DWORD style = 0; style < 4; ++style) {
                painting.Fill(0);
                SetFont(painting, 14, style, family);
                for (WORD glyph = 36; glyph < 400; glyph = static_cast<WORD>(glyph + 91)) {
                    const velPointF origin{static_cast<float>(glyph % 50), 20};
                    EXPECT_EQ(1, velCanvasDrawPosTextByGlyphs(painting, &glyph, 1, &origin));
                }
                if (round == 0) pictures.push_back(painting.Pixels());
                EXPECT_EQ(pictures[index++], painting.Pixels()) << family << ' ' << style;
            }
        }
    }
}

}  // namespace
}  // namespace lacquer
