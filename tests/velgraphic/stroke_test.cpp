// Dashes: patterns, and limits. How strokes look otherwise is in the pictures.

#include <gtest/gtest.h>

#include <cmath>

#include "painting.h"

namespace lacquer {
namespace {

/// The alpha of a row as a word of '#' (opaque), '.' (transparent) and '+'.
std::string Row(Painting &painting, int y) {
    std::string row;
    for (int x = 0; x < painting.Width(); ++x) {
        const uint32_t alpha = painting.AlphaAt(x, y);
        row += alpha == 255 ? '#' : alpha == 0 ? '.' : '+';
    }
    return row;
}

TEST(VelStrokeTest, PatternsCountInPixels) {
    const struct {
        std::vector<float> lengths;
        float offset;
        const char *row;
    } kPatterns[] = {
        {{4, 2}, 0, "####..####..####..##"},       {{4, 2}, 1, "###..####..####..###"},
        {{4, 2}, -1, ".####..####..####..#"},      {{4, 2}, 6e6f + 1, "###..####..####..###"},
        {{3}, 0, "###...###...###...##"},          {{1, 2, 3}, 0, "#..###.##...#..###.#"},
        {{0, 2, 3, 1}, 0, "..###...###...###..."},
    };
    for (const auto &[lengths, offset, row] : kPatterns) {
        Painting painting(20, 5);
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 3));
        EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_PATTERN));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 2.5f, 20, 2.5f));
        EXPECT_EQ(std::string(20, '#'), Row(painting, 2)) << "solid before there is a pattern";
        EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_SOLID));
        {
            const std::vector<float> copied = lengths;
            EXPECT_EQ(1, velCanvasSetDashPattern(painting, copied.data(), static_cast<int>(copied.size()), offset));
        }
        painting.Fill(0);
        EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 2.5f, 20, 2.5f));
        EXPECT_EQ(std::string(20, '#'), Row(painting, 2)) << "the pattern is not selected";
        painting.Fill(0);
        EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_PATTERN));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 2.5f, 20, 2.5f));
        EXPECT_EQ(row, Row(painting, 2)) << "offset " << offset;
    }
}

TEST(VelStrokeTest, RefusesPatternsBeyondReason) {
    const auto refuses = [](const std::vector<float> &lengths, float offset) {
        ExpectRefused("pattern of " + std::to_string(lengths.size()), [&](velCanvas *canvas) {
            return velCanvasSetDashPattern(canvas, lengths.data(), static_cast<int>(lengths.size()), offset);
        });
    };
    refuses({}, 0);
    refuses({0, 0}, 0);
    refuses({1, -1}, 0);
    refuses({1, NAN}, 0);
    refuses({INFINITY, 1}, 0);
    refuses({32768, 1}, 0);
    refuses({1, 1}, NAN);
    refuses({1, 1}, -INFINITY);
    refuses(std::vector<float>(10001, 1.0f), 0);
    ExpectRefused("null", [](velCanvas *canvas) { return velCanvasSetDashPattern(canvas, nullptr, 2, 0); });

    // Accepted as such, but not where too many of them would be seen.
    const struct {
        float length;
        float line;
        int result;
    } kTries[] = {{32767, 900000, 1}, {1, 21000, 1}, {1, 1e30f, 1}, {1e-3f, 19, 1}, {1e-3f, 900000, 0}, {1e-45f, 1, 0}};
    for (const auto &[length, line, result] : kTries) {
        Painting painting;
        const float lengths[] = {length, length};
        EXPECT_EQ(1, velCanvasSetDashPattern(painting, lengths, 2, 0));
        EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_PATTERN));
        EXPECT_EQ(result, velCanvasDrawLine(painting, 0, 5, line, 5)) << length << ' ' << line;
        EXPECT_EQ(result, velCanvasDrawLine(painting, line, 5, 0, 5)) << length << ' ' << line;
    }
    Painting painting;
    EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_DOT));
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 1e-6f));
    EXPECT_EQ(0, velCanvasDrawLine(painting, 0, 5, 32, 5));
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 0));
    EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 5, 32, 5));
    EXPECT_TRUE(painting.IsEmpty()) << "a stroke without width";
}

}  // namespace
}  // namespace lacquer
