// What the window shows, and what the mouse does to it: a skinned panel over a picture. Knows nothing of the system's
// windows.
#pragma once

#include <array>

#include "common/skin.h"

namespace lacquer::examples {

class Scene {
public:
    /// `skin` must outlive the scene.
    explicit Scene(const Skin &skin) : skin_(skin) {}

    /// Paints everything onto a canvas of this size, pixels.
    void Paint(const Canvas &canvas, SIZE size) const;

    // What follows returns true when the picture has changed. Positions are pixels of the canvas painted last.

    /// The mouse is at a position; outside of the window, at (-1, -1).
    bool MoveTo(POINT position);

    /// The button goes down at the last position.
    bool Press();

    /// The button comes up at the last position. What was pressed there takes effect.
    bool Release();

    /// Whether the "Close" button has been used.
    bool isClosed() const { return closed_; }

    /// The middle of the button that adds a coat, and of the first check box.
    POINT addButton() const;
    POINT firstCheckBox() const;

private:
    enum Item { kNothing = -1, kWipe, kCoat, kClose, kGlossy, kShadow, kVisitor, kItemCount };

    RECT PlaceOf(int item) const;
    bool isOn(Item box) const { return on_[static_cast<std::size_t>(box - kGlossy)]; }
    bool isEnabled(int item) const;
    ButtonState StateOf(int item) const;
    void Use(int item);

    const Skin &skin_;
    mutable POINT corner_{};  // of the panel, since the last paint
    int hot_ = kNothing;
    int pressed_ = kNothing;
    int coats_ = 2;
    std::array<bool, 3> on_{true, true, false};
    bool closed_ = false;
};

}  // namespace lacquer::examples
