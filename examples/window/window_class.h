// What the example's windows share: their classes, their shapes, and painting of the invalid part.
#pragma once

#include "common/painting.h"

namespace lacquer::examples {

/// Registers a window class, unless it has been before. Throws std::runtime_error on failure, as the others do.
void RegisterWindowClass(const wchar_t *name, WNDPROC procedure);

/// Gives a window the shape of a texture's visible pixels.
void ShapeWindow(HWND window, const Texture &texture);

/// The handling of WM_PAINT: validates what is invalid.
class PaintSession {
public:
    explicit PaintSession(HWND window);
    PaintSession(const PaintSession &) = delete;
    PaintSession &operator=(const PaintSession &) = delete;
    ~PaintSession();

    /// The bounds of what is invalid, client coordinates.
    const RECT &part() const { return paint_.rcPaint; }

    /// Brings the canvas's pixels of that part to the screen.
    void Show(const Canvas &canvas) const;

private:
    HWND window_;
    PAINTSTRUCT paint_{};
};

}  // namespace lacquer::examples
