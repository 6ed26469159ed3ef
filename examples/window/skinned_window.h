// A Win32 window that paints itself with Lacquer: a canvas of the client area's size, brought to the screen in
// WM_PAINT.
#pragma once

#include "window/scene.h"

namespace lacquer::examples {

class SkinnedWindow {
public:
    /// Creates the window, not yet shown, with a client area of this size, pixels. `scene` must outlive the window.
    /// Throws std::runtime_error on failure.
    SkinnedWindow(Scene &scene, SIZE client);
    SkinnedWindow(const SkinnedWindow &) = delete;
    SkinnedWindow &operator=(const SkinnedWindow &) = delete;
    ~SkinnedWindow();

    HWND handle() const { return window_; }

    /// What was painted last.
    const Canvas &canvas() const { return canvas_; }

    /// How often the window has been painted.
    int paintCount() const { return paintCount_; }

    /// What ended the window, when it was a failure; else empty.
    const std::string &failure() const { return failure_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy);
    LRESULT Handle(UINT message, WPARAM wide, LPARAM lengthy);
    void Paint();
    void MouseMoved(POINT position);
    void RepaintIf(bool changed);

    Scene &scene_;
    Canvas canvas_;
    SIZE canvasSize_{};
    HWND window_ = nullptr;
    bool isTracking_ = false;
    int paintCount_ = 0;
    std::string failure_;
};

}  // namespace lacquer::examples
