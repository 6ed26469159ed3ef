// Strokes: widths, ends, corners and dashes.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

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

TEST(VelStrokeTest, CapsLengthenTheLine) {
    const struct {
        DWORD cap;
        double more;
    } kCaps[] = {{VEL_CAP_BUTT, 0}, {VEL_CAP_SQUARE, 8 * 8}, {VEL_CAP_ROUND, std::numbers::pi * 16}};
    for (const auto &[cap, more] : kCaps) {
        Painting painting(48, 24);
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 8));
        EXPECT_EQ(1, velCanvasSetStrokeCap(painting, cap));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 14, 12, 34, 12));
        EXPECT_NEAR(160 + more, painting.Area(), 0.6) << "cap " << cap;
        EXPECT_EQ(cap == VEL_CAP_BUTT ? 14 : 10, painting.Box().left);
    }
}

TEST(VelStrokeTest, JoinsShapeTheCorner) {
    // A right angle with its corner at (30, 10), 8 wide: what covers the outer square of 4 x 4 pixels.
    const struct {
        DWORD join;
        double covered;
    } kJoins[] = {{VEL_JOIN_MITER, 16}, {VEL_JOIN_BEVEL, 8}, {VEL_JOIN_ROUND, std::numbers::pi * 4}};
    for (const auto &[join, covered] : kJoins) {
        Painting painting(40, 40);
        EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE));
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 8));
        EXPECT_EQ(1, velCanvasSetStrokeJoin(painting, join));
        velPath *path = velPathCreate();
        EXPECT_EQ(1, velPathMoveTo(path, 10, 10));
        EXPECT_EQ(1, velPathLineTo(path, 30, 10));
        EXPECT_EQ(1, velPathLineTo(path, 30, 30));
        EXPECT_EQ(1, velCanvasDrawPath(painting, path));
        EXPECT_EQ(1, velPathDestroy(path));
        double corner = 0;
        for (int y = 6; y < 10; ++y) {
            for (int x = 30; x < 34; ++x) corner += painting.AlphaAt(x, y) / 255.0;
        }
        EXPECT_NEAR(covered, corner, 0.3) << "join " << join;
    }
}

TEST(VelStrokeTest, AStrokeLiesOnBothSidesOfTheOutline) {
    Painting painting(20, 20);
    EXPECT_EQ(1, velCanvasSetDrawStyle(painting, VEL_STYLE_STROKE));
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 2));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 4, 4, 10, 10));
    EXPECT_EQ(12.0 * 12 - 8 * 8, painting.Area());
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 0));
    EXPECT_EQ(1, velCanvasDrawRectangle(painting, 4, 4, 10, 10));
    EXPECT_TRUE(painting.IsEmpty());
}

TEST(VelStrokeTest, DashStylesCountInStrokeWidths) {
    const char *kRows[] = {"################################", "######..######..######..######..",
                           "##..##..##..##..##..##..##..##..", "######..##..######..##..######..",
                           "######..##..##..######..##..##.."};
    for (DWORD style = 0; style < 5; ++style) {
        Painting painting(32, 4);
        EXPECT_EQ(1, velCanvasSetStrokeWidth(painting, 2));
        EXPECT_EQ(1, velCanvasSetDashStyle(painting, style));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 2, 32, 2));
        EXPECT_EQ(kRows[style], Row(painting, 1)) << "style " << style;
        EXPECT_EQ(kRows[style], Row(painting, 2)) << "style " << style;
    }
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
        painting.Fill(0);
        EXPECT_EQ(1, velCanvasSetDashPattern(painting, lengths.data(), static_cast<int>(lengths.size()), offset));
        EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 2.5f, 20, 2.5f));
        EXPECT_EQ(row, Row(painting, 2)) << "offset " << offset;
    }
}

TEST(VelStrokeTest, APatternIsCopiedAndNotSelected) {
    Painting painting(8, 3);
    {
        const std::vector<float> lengths{2, 2};
        EXPECT_EQ(1, velCanvasSetDashPattern(painting, lengths.data(), 2, 0));
    }
    EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 1.5f, 8, 1.5f));
    EXPECT_EQ("########", Row(painting, 1));
    painting.Fill(0);
    EXPECT_EQ(1, velCanvasSetDashStyle(painting, VEL_DASH_PATTERN));
    EXPECT_EQ(1, velCanvasDrawLine(painting, 0, 1.5f, 8, 1.5f));
    EXPECT_EQ("##..##..", Row(painting, 1));
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

    // Accepted as such, but not where they would be too many.
    const struct {
        float length;
        float line;
        int result;
    } kTries[] = {{32767, 900000, 1}, {1, 19000, 1}, {1, 21000, 0}, {1e-3f, 19, 1}, {1e-3f, 900000, 0}, {1e-45f, 1, 0}};
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
}

}  // namespace
}  // namespace lacquer
