// The list of colours. Its rows are on a canvas of their own, which scrolls in place: only the strip that comes into
// sight is painted.
#pragma once

#include <span>
#include <string_view>

#include "common/controls.h"
#include "common/layout.h"

namespace lacquer::examples {

struct Colour {
    std::string_view name;
    std::uint32_t word;
};

std::span<const Colour> Colours();

class ColourList {
public:
    static constexpr int kNone = -1;

    /// Takes the place that a layout has for it, and paints all rows that are in sight. `controls`, at the layout's
    /// scale, must outlive the list or its next placing.
    void Place(const Layout &layout, const Controls &controls);

    /// The part of a row that is in sight, in the window's coordinates; empty when there is none.
    RECT PlaceOf(int row) const;

    /// The place of the thumb, in the window's coordinates.
    RECT Thumb() const;

    /// The colour of the chosen row.
    const Colour &colour() const { return Colours()[static_cast<std::size_t>(chosen_)]; }
    int chosen() const { return chosen_; }

    /// Chooses a row, the first or last one for a number beyond.
    void Choose(int row);

    /// The row under the mouse, or kNone.
    void SetHot(int row);

    // The functions that scroll tell whether anything has moved.

    /// Scrolls by rows, down for positive numbers.
    bool Scroll(int rows) { return ScrollTo(position_ + rows * rowHeight_); }

    /// Scrolls to where the thumb's top is at y, in the window's coordinates.
    bool DragThumbTo(LONG y);

    /// Scrolls as little as brings a row into sight.
    bool Reveal(int row);

    /// How many rows the list shows as a whole, at least 1.
    int PageLength() const;

    /// What is in sight, at (0, 0).
    const Canvas &canvas() const { return canvas_; }

    /// Shows it in the window.
    void Paint(const Canvas &window) const;

private:
    LONG Height() const { return rows_.bottom - rows_.top; }
    int LastPosition() const;
    bool ScrollTo(int position);
    void PaintRow(int row);
    void PaintBand(LONG top, LONG bottom);

    const Controls *controls_ = nullptr;
    RECT rows_{}, track_{};
    int rowHeight_ = 1;
    Canvas canvas_;
    int position_ = 0;  // of the topmost pixel in sight
    int chosen_ = 0;
    int hot_ = kNone;
};

}  // namespace lacquer::examples
