// From a canvas to the screen: the invalid parts of a window, and all of a window with translucent pixels.
#pragma once

#include <vector>

#include "common/painting.h"

namespace lacquer::examples {

/// The handling of WM_PAINT: validates what is invalid.
class PaintSession {
public:
    /// Throws std::runtime_error on failure, as the other functions do.
    explicit PaintSession(HWND window);
    PaintSession(const PaintSession &) = delete;
    PaintSession &operator=(const PaintSession &) = delete;
    ~PaintSession();

    /// The rectangles that are invalid, client coordinates. They may lie far apart.
    const std::vector<RECT> &parts() const { return parts_; }

    /// Brings the canvas's pixels of those parts to the screen.
    void Show(const Canvas &canvas) const;

private:
    HWND window_;
    std::vector<RECT> parts_;
    PAINTSTRUCT paint_{};
};

/// Gives a layered window the size of a canvas, and lays its pixels, premultiplied, over what is behind the window.
void ShowLayered(HWND window, const Canvas &canvas);

}  // namespace lacquer::examples
