// A borderless Win32 window that paints itself with Lacquer: a canvas of its size, of which WM_PAINT paints and shows
// the invalid part only. The scene tells the system which parts move and resize the window.
#pragma once

#include <memory>

#include "common/scene.h"
#include "window/splash_window.h"

namespace lacquer::examples {

class SkinnedWindow {
public:
    /// Creates the window, not yet shown, in the scene's size. `skin` and `scene` must outlive the window. Throws
    /// std::runtime_error on failure.
    SkinnedWindow(const Skin &skin, Scene &scene);
    SkinnedWindow(const SkinnedWindow &) = delete;
    SkinnedWindow &operator=(const SkinnedWindow &) = delete;
    ~SkinnedWindow();

    HWND handle() const { return window_; }

    /// What was painted last.
    const Canvas &canvas() const { return canvas_; }

    /// How often the window has been painted, and the rectangle that was painted last.
    int paintCount() const { return paintCount_; }
    const RECT &lastPaint() const { return lastPaint_; }

    /// The splash that the "About" button shows; null at other times.
    const SplashWindow *splash() const { return splash_.get(); }

    /// What ended the window, when it was a failure; else empty.
    const std::string &failure() const { return failure_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy);
    LRESULT Handle(UINT message, WPARAM wide, LPARAM lengthy);
    LRESULT HitTest(POINT screenPosition) const;
    void Resize(SIZE size);
    void Paint();
    void MouseMoved(POINT position);
    void Update();

    const Skin &skin_;
    Scene &scene_;
    Canvas canvas_;
    HWND window_ = nullptr;
    std::unique_ptr<SplashWindow> splash_;
    bool isTracking_ = false;
    int paintCount_ = 0;
    RECT lastPaint_{};
    std::string failure_;
};

}  // namespace lacquer::examples
