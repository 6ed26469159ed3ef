// What a window shows, and what the mouse does to it: a board is chosen a colour, and coated. Knows nothing of the
// system's windows; whoever shows the scene hands it the mouse, and paints what it says is invalid.
#pragma once

#include <string>
#include <vector>

#include "common/controls.h"

namespace lacquer::examples {

class Scene {
public:
    /// The parts of the window that a system gives a meaning to.
    enum class Area { kClient, kTitle, kLeft, kTop, kRight, kBottom, kTopLeft, kTopRight, kBottomLeft, kBottomRight };

    /// What reacts to the mouse; rows, entries, boxes and buttons are told apart by an index.
    enum class Kind { kNothing, kButton, kCaptionButton, kBox, kRow, kThumb, kEntry };
    struct Target {
        Kind kind = Kind::kNothing;
        int index = 0;
        bool operator==(const Target &) const = default;
    };
    enum Button { kWipe, kCoat, kAbout, kFinish };
    enum CheckBox { kDusk, kVisitor };

    /// What is left to the one who shows the scene.
    enum class Wish { kNothing, kMinimise, kClose, kAbout };

    static constexpr SIZE kLeastSize{560, 380};

    /// `skin` must outlive the scene. Throws std::runtime_error on failure, as all functions here do.
    Scene(const Skin &skin, SIZE size);

    SIZE size() const { return size_; }

    /// Gives the window another size, pixels, at least kLeastSize. Everything becomes invalid.
    void Resize(SIZE size);

    /// Paints everything inside the canvas's clip, and replaces what was there. The window's corner is at (0, 0).
    void Paint(const Canvas &canvas) const;

    /// The rectangles that have to be painted again, and forgets them.
    std::vector<RECT> TakeInvalid() { return std::exchange(invalid_, {}); }

    Area AreaAt(POINT position) const;

    /// The mouse is at a position; outside of the window, at (-1, -1).
    void MoveTo(POINT position);

    /// The button goes down, or comes up, at the last position. What was pressed and is still there takes effect.
    void Press();
    void Release();

    /// Scrolls the list by rows, downwards for positive numbers.
    void Scroll(int rows);

    Wish TakeWish() { return std::exchange(wish_, Wish::kNothing); }

    /// The place of a target, empty while it can't be seen, and the middle of it.
    RECT PlaceOf(Target target) const;
    POINT MiddleOf(Target target) const;

    /// The part of the list that shows rows.
    RECT Rows() const;

private:
    RECT Preview() const;
    RECT List() const;
    RECT Track() const;
    RECT Bar() const;
    RECT Popup() const;
    int MostScroll() const;

    bool IsEnabled(Target target) const;
    Target TargetAt(POINT position) const;
    ButtonState StateOf(Target target) const;
    void Invalidate(const RECT &rect);
    void InvalidateTarget(Target target);
    void InvalidatePopup();
    void InvalidateCoats();
    void Use(Target target);
    void ScrollTo(int position);
    void PaintRows(LONG top, LONG bottom);

    void PaintPreview(const Canvas &canvas) const;
    void PaintList(const Canvas &canvas) const;
    void PaintControls(const Canvas &canvas) const;
    void PaintPopup(const Canvas &canvas) const;

    const Skin &skin_;
    const Controls controls_;
    SIZE size_{};
    Canvas rows_;  // what Rows() shows; scrolled in place
    std::vector<RECT> invalid_;
    Target hot_, pressed_;
    POINT mouse_{-1, -1};
    LONG grip_ = 0;   // from the top of the thumb to where the mouse holds it
    int scroll_ = 0;  // pixels
    int chosen_ = 0;
    int finish_ = 2;
    int coats_ = 2;
    bool isOn_[2] = {true, false};
    bool isPopupOpen_ = false;
    Wish wish_ = Wish::kNothing;
};

}  // namespace lacquer::examples
