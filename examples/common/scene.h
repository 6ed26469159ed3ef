// A window that paints itself: a board that is given coats of lacquer. The scene knows nothing of the system's windows;
// whoever shows it hands it the mouse and the keys, and paints what it says is invalid.
#pragma once

#include <memory>
#include <vector>

#include "common/colour_list.h"
#include "common/focus.h"

namespace lacquer::examples {

/// Keys with a meaning.
enum class Key {
    kNext,
    kPrevious,
    kUp,
    kDown,
    kLeft,
    kRight,
    kPageUp,
    kPageDown,
    kHome,
    kEnd,
    kSpace,
    kEnter,
    kCancel
};

class Scene {
public:
    /// What is left to the one who shows the scene. kMaximise also undoes it.
    enum class Wish { kNothing, kMinimise, kMaximise, kClose, kAbout };

    /// The least size at 96 DPI.
    static constexpr SIZE kLeastSize{560, 380};
    static constexpr int kMaxCoats = 5;

    /// A scene at 96 DPI, with a button that maximises it or without. `skin` must outlive it. Throws std::runtime_error
    /// on failure, as all functions here do.
    Scene(const Skin &skin, SIZE size, bool hasMaximise = false);

    const Layout &layout() const { return layout_; }
    SIZE size() const { return layout_.size(); }

    /// Gives the window another size, pixels, at least kLeastSize at its scale. Everything becomes invalid.
    void Resize(SIZE size, Scale px = Scale(), bool isMaximised = false);

    /// Paints everything inside the canvas's clip, and replaces what was there. The window's corner is at (0, 0).
    void Paint(const Canvas &canvas) const;

    /// The rectangles that have to be painted again, and forgets them.
    std::vector<RECT> TakeInvalid() { return std::exchange(invalid_, {}); }

    /// What a place in the window is to the system.
    Area AreaAt(POINT position) const;

    /// The mouse is at a position; outside of the window, at (-1, -1).
    void MoveTo(POINT position);

    /// The button goes down, or comes up, at the last position. What was pressed and is still there takes effect.
    void Press();
    void Release();

    /// A key goes down, again and again while it is held, or comes up.
    void KeyDown(Key key);
    void KeyUp(Key key);

    /// What was pressed takes no effect: something else has got the mouse or the keyboard.
    void Cancel();

    /// Scrolls the list by rows, downwards for positive numbers.
    void Scroll(int rows);

    Wish TakeWish() { return std::exchange(wish_, Wish::kNothing); }

    /// The place of a target, empty while it can't be seen, and the middle of it.
    RECT PlaceOf(Target target) const;
    POINT MiddleOf(Target target) const;

private:
    bool IsEnabled(Target target) const;
    Target TargetAt(POINT position) const;
    ButtonState StateOf(Target target) const;
    RECT RingOf(Target target) const;

    void Invalidate(const RECT &rect);
    void InvalidateList();
    void InvalidatePopup();
    void InvalidateCoats();

    void SetHot(Target target);
    void Use(Target target);
    void SetCoats(int coats);
    void Choose(int row);
    void OpenPopup();
    void ClosePopup();
    template <typename Move>
    void MoveFocus(Move move);
    void KeyInList(Key key);
    void KeyInPopup(Key key);

    void PaintPreview(const Canvas &canvas) const;
    void PaintBoard(const Canvas &canvas, const RECT &board) const;
    void PaintList(const Canvas &canvas) const;
    void PaintBar(const Canvas &canvas) const;
    void PaintControls(const Canvas &canvas) const;
    void PaintPopup(const Canvas &canvas) const;

    const Skin &skin_;
    const bool hasMaximise_;
    std::unique_ptr<const Controls> controls_;  // made again for another scale
    Layout layout_;
    ColourList list_;
    Focus focus_;
    std::vector<RECT> invalid_;
    Target hot_, pressed_;
    bool isPressedByKey_ = false;
    POINT mouse_{-1, -1};
    LONG grip_ = 0;  // from the top of the thumb to where the mouse holds it
    int finish_ = 2;
    int coats_ = 2;
    bool isOn_[2] = {true, false};
    bool isPopupOpen_ = false;
    Wish wish_ = Wish::kNothing;
};

}  // namespace lacquer::examples
