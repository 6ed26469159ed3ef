// Vector drawing for the examples: owners of its objects, and text in the system's fonts.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "common/handles.h"

namespace lacquer::examples {

Path MakePath();

struct ColourStop {
    float offset;
    std::uint32_t colour;  // straight
};

Gradient MakeLinearGradient(velPointF from, velPointF to, std::initializer_list<ColourStop> stops);
Gradient MakeRadialGradient(velPointF centre, float radius, std::initializer_list<ColourStop> stops);

/// Lets shapes be filled or stroked from now on, in a straight colour or a gradient.
void FillWith(const Canvas &canvas, std::uint32_t colour);
void FillWith(const Canvas &canvas, const Gradient &gradient);
void StrokeWith(const Canvas &canvas, std::uint32_t colour, float width);
void StrokeWith(const Canvas &canvas, const Gradient &gradient, float width);

/// The glyphs of a line of text, each with its origin on the baseline.
struct GlyphRun {
    std::vector<WORD> glyphs;
    std::vector<velPointF> origins;
    float width = 0;
};

enum class Family { kSans, kSerif, kMono };

/// A font at one size, pixels, with its style (VEL_FONT_... bits). Text is UTF-8.
class Typeface {
public:
    /// Throws std::runtime_error when the system has no font for the family. Each has a second choice, which belongs to
    /// every Windows.
    Typeface(Family family, float size, DWORD style = 0);

    /// The name of the font that was found. ASCII.
    std::string_view name() const { return name_; }
    float size() const { return size_; }

    /// How far the font reaches above and below the baseline, and the distance of two baselines.
    float ascent() const { return ascent_; }
    float descent() const { return descent_; }
    float lineHeight() const { return lineHeight_; }

    /// The glyphs of a text that begins at (x, y) on the baseline.
    GlyphRun Lay(float x, float y, std::string_view text) const;

    float Width(std::string_view text) const { return Lay(0, 0, text).width; }

    /// The width of a text as a run: shaped, in the order of its directions, with other fonts for what this one lacks.
    float RunWidth(std::string_view text) const;
    /// Whether any font of the system has the characters of a text.
    bool CanShow(std::string_view text) const;

    /// Draws glyphs of this font in the canvas's present colour or gradient.
    void Draw(const Canvas &canvas, const GlyphRun &run) const;

    /// Draws a text in a straight colour, from (x, y) on the baseline: glyph by glyph, or as a run. The vector state
    /// stays as it was.
    void DrawRun(const Canvas &canvas, float x, float y, std::string_view text, std::uint32_t colour) const;
    void Draw(const Canvas &canvas, float x, float y, std::string_view text, std::uint32_t colour) const;
    void DrawCentred(const Canvas &canvas, float x, float y, std::string_view text, std::uint32_t colour) const;

private:
    void Select(const Canvas &canvas) const;

    lq::VectorCanvas measure_;  // has the font, and no pixels
    std::string_view name_;
    float size_;
    DWORD style_;
    float ascent_ = 0, descent_ = 0, lineHeight_ = 0;
};

}  // namespace lacquer::examples
