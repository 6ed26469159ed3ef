/// @file
/// Text in a rectangle: lines broken where they are full, aligned, and cut with an ellipsis, over DrawTextRun and
/// MeasureTextRun. The canvas's font, colour and style draw it.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_TEXT_HPP
#define LACQUER_TEXT_HPP

#include <lacquer/lacquer.h>
#include <lacquer/line_breaks.hpp>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <optional>

namespace lq {

/// @addtogroup cpp
/// @param canvas the canvas in whose font it is measured; a wrong handle is refused
/// @param width of the rectangle, pixels; infinity for no limit
/// @param height of the rectangle, pixels; infinity for no limit
/// @{

/// How a text stands in its rectangle.
struct TextStyle {
    /// Where lines stand.
    enum class Align {
        Left,    ///< at the left edge
        Centre,  ///< in the middle
        Right    ///< at the right edge
    };
    /// Where all lines together stand.
    enum class VerticalAlign {
        Top,     ///< at the top edge
        Middle,  ///< in the middle
        Bottom   ///< at the bottom edge
    };

    Align align = Align::Left;                    ///< where lines stand
    VerticalAlign vertical = VerticalAlign::Top;  ///< where all lines together stand
    bool wrap = true;                             ///< whether lines that are too wide are broken
    bool ellipsis = true;  ///< whether what does not fit is replaced by U+2026; otherwise it is drawn outside
    int maxLines = 0;      ///< how many lines there may be; 0 for any number
};

/// How much room a text takes.
struct TextSize {
    float width;    ///< of the widest line, pixels
    float height;   ///< from the top of the first line to the bottom of the last, pixels
    int lines;      ///< how many there are
    bool complete;  ///< whether all of the text is shown, without an ellipsis or lines left out
};

/// A text, which belongs to somebody else and stays as long as this does, and how to set it.
///
/// Lines end at line ends (U+000A, U+000D, both together, U+2028, U+2029). A line that is wider than the rectangle is
/// broken after spaces, after hyphens inside a word, and between Chinese, Japanese and Korean characters but not before
/// closing or after opening punctuation; a word that is wider than the rectangle, between characters. Spaces at the end
/// of a line take no room. Each line takes its direction from its own first strong character. An empty text is one
/// empty line.
class Text {
public:
    /// A text and its style. Nothing is measured yet.
    /// @param text in UTF-16, which must stay
    /// @param style how it is set
    explicit Text(TextView text, const TextStyle &style = {}) noexcept : units(text), setting(style) {}

    /// Visits each line, from the top, that a rectangle shows. The height counts when there is an ellipsis, and leaves
    /// at least one line.
    /// @param visit called as `visit(TextView line, float width)`, returns whether to go on. A line that was cut ends
    /// with the ellipsis and lasts for the call; the others are parts of the text, without the spaces at their ends.
    /// @return what was visited; none when the canvas refuses to measure (wrong handle, made from a device context, no
    /// such font, more than 65,535 units in a line that is not to be broken) and when memory is short
    template <typename Visit>
    std::optional<TextSize> ForEachLine(HGCANVAS canvas, float width, float height, Visit &&visit) const {
        float ascent = 0, descent = 0, lineHeight = 0;
        if (!GetFontMetrics(canvas, &ascent, &descent, &lineHeight)) return std::nullopt;
        const int allowed = AllowedLines(height, ascent + descent, lineHeight);
        Runs runs{canvas, units, width};
        TextSize size{0, ascent + descent, 0, true};
        for (size_t begin = 0; begin != TextView::npos;) {
            const size_t end = detail::LineEnd(units, begin);
            const size_t fit = setting.wrap ? FirstLine(runs, begin, end) : end;
            size_t next = fit < end ? fit : detail::AfterLineEnd(units, end);
            const bool last = size.lines + 1 == allowed && next != TextView::npos;
            const bool isCut =
                setting.ellipsis && (last || (!setting.wrap && runs.Longest(begin, end, detail::IsClusterStart) < end));
            const TextView line = isCut ? runs.Cut(begin, end) : runs.Part(begin, fit);
            const float advance = runs.Advance(line);
            if (runs.failed) return std::nullopt;
            if (isCut) size.complete = false;
            if (last) {
                size.complete = false;
                next = TextView::npos;
            }
            if (advance > size.width) size.width = advance;
            if (size.lines++ > 0) size.height += lineHeight;
            if (!visit(line, advance)) break;
            begin = next;
        }
        return size;
    }

    /// How much room the text takes in a rectangle. Nothing is drawn.
    /// @return its size; none as for ForEachLine
    std::optional<TextSize> Measure(HGCANVAS canvas, float width = std::numeric_limits<float>::infinity(),
                                    float height = std::numeric_limits<float>::infinity()) const {
        return ForEachLine(canvas, width, height, [](TextView, float) { return true; });
    }

    /// Draws the text. What is larger than the rectangle reaches beyond it: see ScopedClip.
    /// @param box the rectangle, logical pixels
    /// @return true for done; false when a line can't be measured or drawn: those above it are drawn
    bool Draw(HGCANVAS canvas, const RECT &box) const {
        const float width = static_cast<float>(box.right) - static_cast<float>(box.left);
        const float height = static_cast<float>(box.bottom) - static_cast<float>(box.top);
        float ascent = 0, lineHeight = 0, top = static_cast<float>(box.top);
        if (!GetFontMetrics(canvas, &ascent, nullptr, &lineHeight)) return false;
        if (setting.vertical != TextStyle::VerticalAlign::Top) {
            const std::optional<TextSize> size = Measure(canvas, width, height);
            if (!size) return false;
            top += (height - size->height) * (setting.vertical == TextStyle::VerticalAlign::Middle ? 0.5f : 1.0f);
        }
        float baseline = top + ascent;
        bool drawn = true;
        const auto drawLine = [&](TextView line, float advance) {
            float x = static_cast<float>(box.left);
            if (setting.align == TextStyle::Align::Centre) x += (width - advance) * 0.5f;
            if (setting.align == TextStyle::Align::Right) x += width - advance;
            drawn = line.empty() || DrawTextRun(canvas, line.data(), static_cast<int>(line.size()), x, baseline) != 0;
            baseline += lineHeight;
            return drawn;
        };
        return ForEachLine(canvas, width, height, drawLine) && drawn;
    }

private:
    // Measures parts of a text, and remembers when that was refused.
    struct Runs {
        HGCANVAS canvas;
        TextView text;
        float width;
        bool failed = false;
        std::unique_ptr<WCHAR[]> buffer;  // a line with its ellipsis
        size_t capacity = 0;

        Runs(HGCANVAS canvasToAsk, TextView whole, float room) : canvas(canvasToAsk), text(whole), width(room) {}

        // The units from `begin` to `end` without the spaces at their end.
        TextView Part(size_t begin, size_t end) const {
            while (end > begin && detail::IsSpace(text[end - 1])) --end;
            return text.substr(begin, end - begin);
        }

        float Advance(TextView line) {
            velTextExtent extent{};
            if (!line.empty() && !failed) {
                failed = line.size() > kLongestRun ||
                         !MeasureTextRun(canvas, line.data(), static_cast<int>(line.size()), &extent);
            }
            return extent.advance;
        }

        // A part with an ellipsis in place of the rest; empty when memory is short.
        TextView WithEllipsis(TextView part) {
            if (part.size() + 1 > capacity) {
                capacity = 2 * part.size() + 64;
                buffer.reset(new (std::nothrow) WCHAR[capacity]);
            }
            failed = failed || !buffer;
            if (failed) return {};
            part.copy(buffer.get(), part.size());
            buffer[part.size()] = 0x2026;
            return {buffer.get(), part.size() + 1};
        }

        bool Fits(TextView line) { return line.size() <= kLongestRun && Advance(line) <= width && !failed; }

        // How far the text from `begin` on fits, broken by a rule.
        template <typename MayBreakAt>
        size_t Longest(size_t begin, size_t end, MayBreakAt mayBreak) {
            return detail::LongestFit(text, begin, end, mayBreak, [&](size_t to) { return Fits(Part(begin, to)); });
        }

        // The longest line with an ellipsis that fits; the ellipsis alone when none does.
        TextView Cut(size_t begin, size_t end) {
            const auto fits = [&](size_t to) { return Fits(WithEllipsis(Part(begin, to))); };
            return WithEllipsis(Part(begin, detail::LongestFit(text, begin, end, detail::IsClusterStart, fits)));
        }
    };

    // Where the line that begins at `begin` is broken, `end` being that of its paragraph.
    static size_t FirstLine(Runs &runs, size_t begin, size_t end) {
        size_t fit = runs.Longest(begin, end, detail::MayBreak);
        // Not even a word, or nothing but the spaces before it.
        if (runs.Part(begin, fit).empty()) fit = runs.Longest(begin, end, detail::IsClusterStart);
        if (fit == begin && fit < end) fit = detail::NextBreak(runs.text, begin + 1, end, detail::IsClusterStart);
        while (fit < end && detail::IsSpace(runs.text[fit])) ++fit;
        return fit;
    }

    // How many lines there may be: of the style, and of the height when the rest is cut. INT_MAX when
    // there is no limit.
    int AllowedLines(float height, float first, float following) const {
        const int lines = setting.maxLines > 0 ? setting.maxLines : INT_MAX;
        if (!setting.ellipsis || !(following > 0)) return lines;
        // A height that was measured may be a little less than the sum that it is compared with.
        const float fitting = std::floor((height - first) / following + 0.001f) + 1;
        if (!(fitting > 1)) return 1;
        return fitting < static_cast<float>(lines) ? static_cast<int>(fitting) : lines;
    }

    TextView units;
    TextStyle setting;
};

/// @}

}  // namespace lq

#endif
