// Where everything in the window is, at any size and scale, and which parts of its frame move and resize it.
#pragma once

#include "common/painting.h"

namespace lacquer::examples {

/// The parts of the window that a system gives a meaning to.
enum class Area { kClient, kTitle, kLeft, kTop, kRight, kBottom, kTopLeft, kTopRight, kBottomLeft, kBottomRight };

/// What reacts to the mouse or the keyboard; rows, entries, boxes and buttons are told apart by an index.
enum class Kind { kNothing, kButton, kCaptionButton, kBox, kList, kRow, kThumb, kEntry };
struct Target {
    Kind kind = Kind::kNothing;
    int index = 0;
    bool operator==(const Target &) const = default;
};
enum Button { kWipe, kCoat, kAbout, kFinish };
enum CheckBox { kDusk, kVisitor };
enum CaptionButton { kMinimise, kMaximise, kClose };

inline constexpr int kFinishCount = 3;

class Layout {
public:
    Layout() = default;

    /// The layout of a window of `size` pixels. Only some windows have a button that maximises them, and a maximised
    /// one can't be resized by its edges.
    Layout(SIZE size, Scale px, bool hasMaximise, bool isMaximised);

    SIZE size() const { return size_; }
    const Scale &px() const { return px_; }
    bool isMaximised() const { return isMaximised_; }

    RECT Preview() const;  // the picture of the board
    RECT Bar() const;      // the progress bar
    RECT List() const;     // with its edge
    RECT Rows() const;     // the part of the list that shows rows
    RECT Track() const;    // what the list's thumb moves in
    RECT Popup() const;    // the menu of finishes, when it is open

    /// The place of a target, empty for rows and the thumb, which the list places.
    RECT PlaceOf(Target target) const;

    /// What a place in the window is to the system, apart from the targets in its title bar.
    Area AreaAt(POINT position) const;

private:
    SIZE size_{};
    Scale px_;
    bool hasMaximise_ = false;
    bool isMaximised_ = false;
};

}  // namespace lacquer::examples
