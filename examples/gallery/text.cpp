// text.png: the system's fonts: families, styles and sizes, what is measured of a font, glyphs put where one likes, and
// texts in many scripts.
#include <array>
#include <cmath>

#include "gallery/gallery.h"

namespace lacquer::examples {

namespace {

float Real(int value) { return static_cast<float>(value); }

void DrawFamilies(const Canvas &canvas, const Skin &skin, int left, int top) {
    DrawPanel(canvas, Box(left, top, 440, 156));
    constexpr std::array<Family, 3> families{Family::kSans, Family::kSerif, Family::kMono};
    for (std::size_t i = 0; i < families.size(); ++i) {
        const Typeface face(families[i], 25);
        const int baseline = top + 44 + static_cast<int>(i) * 48;
        skin.font.Draw(canvas, left + 14, baseline - 34, face.name(), kFaintInk);
        face.Draw(canvas, Real(left + 14), Real(baseline), "Glossy coats of paint", kInk);
    }
}

void DrawStyles(const Canvas &canvas, int left, int top) {
    struct Style {
        std::string_view name;
        DWORD style;
        std::uint32_t colour;
    };
    constexpr std::array<Style, 6> styles{{{"Regular", 0, kInk},
                                           {"Bold", VEL_FONT_BOLD, kInk},
                                           {"Underlined", VEL_FONT_UNDERLINE, kGold},
                                           {"Struck out", VEL_FONT_STRIKE_OUT, kRed},
                                           {"Bold underlined", VEL_FONT_BOLD | VEL_FONT_UNDERLINE, kBlue},
                                           {"Italic", VEL_FONT_ITALIC, kGreen}}};
    DrawPanel(canvas, Box(left, top, 334, 156));
    for (std::size_t i = 0; i < styles.size(); ++i) {
        const Typeface face(Family::kSans, 18, styles[i].style);
        const bool isItalic = styles[i].style == VEL_FONT_ITALIC;
        const float x = isItalic ? Real(kItalics.left + 6) : Real(left + 14 + static_cast<int>(i / 3) * 136);
        const float baseline = isItalic ? Real(kItalics.bottom - 10) : Real(top + 40 + static_cast<int>(i % 3) * 46);
        face.Draw(canvas, x, baseline, styles[i].name, styles[i].colour);
    }
}

void DrawSizes(const Canvas &canvas, const Skin &skin, int left, int top) {
    constexpr std::array<int, 9> sizes{8, 10, 12, 14, 17, 21, 26, 34, 46};
    DrawPanel(canvas, Box(left, top, 440, 268));
    const ScopedClip clip(canvas, Box(left + 1, top + 1, 426, 266));
    int baseline = top + 16;
    for (const int size : sizes) {
        const Typeface face(Family::kSerif, Real(size));
        skin.font.Draw(canvas, left + 14, baseline - 7, std::to_string(size), kFaintInk);
        face.Draw(canvas, Real(left + 40), Real(baseline), "The quick brown fox jumps over a lazy dog", kInk);
        baseline += size * 5 / 4 + 6;
    }
}

/// A word with its font's lines, and a mark where each glyph begins.
void DrawMeasures(const Canvas &canvas, const Skin &skin, int left, int top) {
    DrawPanel(canvas, Box(left, top, 334, 150));
    const Typeface face(Family::kSerif, 78);
    const float x = Real(left + 88), baseline = Real(top + 106);
    struct Line {
        std::string_view name;
        float y;
    };
    const std::array<Line, 3> lines{
        {{"ascent", baseline - face.ascent()}, {"baseline", baseline}, {"descent", baseline + face.descent()}}};
    const GlyphRun run = face.Lay(x, baseline, "Glyph");
    const ScopedState keep(canvas);
    for (const Line &line : lines) {
        const float y = std::floor(line.y) + 0.5f;
        StrokeWith(canvas, kBlue, 1);
        Check(DrawLine(canvas, Real(left + 78), y, Real(left + 322), y), "DrawLine");
        skin.font.Draw(canvas, left + 14, static_cast<int>(y) - 4, line.name, kBlue);
    }
    FillWith(canvas, kInk);
    face.Draw(canvas, run);
    StrokeWith(canvas, 0x90E5484D, 1);
    constexpr std::array<float, 2> dots{2, 2};
    Check(SetDashPattern(canvas, dots.data(), 2, 0), "SetDashPattern");
    Check(SetDashStyle(canvas, VEL_DASH_PATTERN), "SetDashStyle");
    const auto mark = [&](float at) {
        const float column = std::floor(at) + 0.5f;
        Check(DrawLine(canvas, column, lines[0].y, column, lines[2].y), "DrawLine");
    };
    for (const velPointF &origin : run.origins) mark(origin.x);
    mark(x + run.width);
    FillWith(canvas, kRed);
    for (const velPointF &origin : run.origins)
        Check(DrawCircle(canvas, std::floor(origin.x) + 0.5f, baseline + 0.5f, 3), "DrawCircle");
}

void DrawScripts(const Canvas &canvas, int left, int top) {
    DrawPanel(canvas, Box(left, top, 334, 108));
    const Typeface face(Family::kSans, 17);
    constexpr std::array<std::string_view, 3> lines{"Größe, façade, žluťoučký, smør", "Лакировка · Λάκα · Ξύλο",
                                                    "½ × 12 € → ∑ ≈ √2 ♥ ☂ ✔"};
    for (std::size_t i = 0; i < lines.size(); ++i)
        face.Draw(canvas, Real(left + 14), Real(top + 30 + static_cast<int>(i) * 32), lines[i], kInk);
}

/// Glyphs on a wave, spaced, filled with a gradient, and translucent on each other.
void DrawPlaced(const Canvas &canvas, int left, int top) {
    DrawPanel(canvas, Box(left, top, 782, 132));
    const ScopedState keep(canvas);

    const Typeface small(Family::kSans, 19, VEL_FONT_BOLD);
    GlyphRun wave = small.Lay(Real(left + 18), Real(top + 40), "Every glyph has a place of its own");
    for (std::size_t i = 0; i < wave.origins.size(); ++i)
        wave.origins[i].y += 9 * std::sin(static_cast<float>(i) * 0.55f);
    FillWith(canvas, MakeLinearGradient({Real(left + 18), 0}, {Real(left + 18) + wave.width, 0},
                                        {{0, kRed}, {0.35f, kGold}, {0.7f, kGreen}, {1, kBlue}}));
    small.Draw(canvas, wave);

    GlyphRun spaced = small.Lay(Real(left + 18), Real(top + 102), "spaced out");
    for (std::size_t i = 0; i < spaced.origins.size(); ++i) spaced.origins[i].x += 14 * static_cast<float>(i);
    FillWith(canvas, kInk);
    small.Draw(canvas, spaced);

    const Typeface large(Family::kSerif, 76, VEL_FONT_BOLD);
    const float x = Real(left + 416), baseline = Real(top + 90);
    for (int i = 3; i > 0; --i) large.Draw(canvas, x + Real(i), baseline + Real(i), "Lacquer", 0x38000000);
    FillWith(canvas, MakeLinearGradient({0, baseline - 58}, {0, baseline + 16},
                                        {{0, 0xFFFFB39E}, {0.5f, 0xFFE5484D}, {0.5f, 0xFFC02430}, {1, 0xFF7A0F1C}}));
    large.Draw(canvas, large.Lay(x, baseline, "Lacquer"));
}

/// Texts drawn from strings: what shaping does to them, and what comes from other fonts.
void DrawRuns(const Canvas &canvas, const Skin &skin, int left, int top) {
    DrawPanel(canvas, Box(left, top, 782, 184));
    const Typeface face(Family::kSans, 23);
    struct Run {
        std::string_view name, text;
    };
    const auto place = [&](int column, int row) {
        constexpr std::array<int, 3> columns{18, 290, 558};
        return POINT{left + columns[static_cast<std::size_t>(column)], top + 46 + row * 58};
    };
    const auto label = [&](POINT at, std::string_view name) {
        skin.font.Draw(canvas, at.x, at.y - 32, name, kFaintInk);
    };

    constexpr std::string_view kerned = "Two AVs. To: W.A. Yo";
    const POINT apart = place(0, 0);
    label(apart, "glyph by glyph");
    face.Draw(canvas, Real(apart.x), Real(apart.y), kerned, kFaintInk);
    constexpr std::array<std::array<Run, 3>, 2> columns{
        {{{{}, {"as a run: kerned", kerned}, {"ligatures, marks", "office, e\u0301le\u0300ve, n\u0303"}}},
         {{{"Arabic", "السلام عليكم ورحمة"},
           {"Hebrew with Latin", "לכה (Lacquer) יפה"},
           {"beyond 16 bits", "😀 😎 😻 😹 😇 😷"}}}}};
    for (int column = 0; column < 2; ++column) {
        for (int row = 0; row < 3; ++row) {
            const auto &[name, text] = columns[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
            if (text.empty()) continue;
            const POINT at = place(column, row);
            label(at, name);
            face.DrawRun(canvas, Real(at.x), Real(at.y), text, kInk);
        }
    }

    // In other fonts, where the system has them: inside of kOtherFonts.
    constexpr std::array<Run, 3> others{
        {{"Devanagari", "हिन्दी में नमस्ते"}, {"Chinese, Japanese", "漆器 うるし"}, {"Korean", "옻칠"}}};
    for (int row = 0; row < 3; ++row) {
        const auto &[name, text] = others[static_cast<std::size_t>(row)];
        if (!face.CanShow(text.substr(0, 3))) continue;
        const POINT at = place(2, row);
        label(at, name);
        face.DrawRun(canvas, Real(at.x), Real(at.y), text, kInk);
    }
}

}  // namespace

Canvas PaintText(const Skin &skin) {
    Canvas canvas = MakePage(skin, 822, 858, "Text", "Fonts of the system, glyph by glyph and from strings");
    DrawFamilies(canvas, skin, 20, 68);
    DrawStyles(canvas, 468, 68);
    DrawSizes(canvas, skin, 20, 234);
    DrawMeasures(canvas, skin, 468, 234);
    DrawScripts(canvas, 468, 394);
    DrawPlaced(canvas, 20, 512);
    DrawRuns(canvas, skin, 20, 654);
    return canvas;
}

}  // namespace lacquer::examples
