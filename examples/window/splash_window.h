// A window in the shape of its picture, above another window; a click closes it.
#pragma once

#include "common/splash.h"

namespace lacquer::examples {

class SplashWindow {
public:
    /// Shows the splash over the middle of its owner. Throws std::runtime_error on failure.
    SplashWindow(const Skin &skin, HWND owner);
    SplashWindow(const SplashWindow &) = delete;
    SplashWindow &operator=(const SplashWindow &) = delete;
    ~SplashWindow();

    /// Null once it has been closed.
    HWND handle() const { return window_; }
    const Canvas &canvas() const { return canvas_; }

private:
    SplashWindow() = default;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy);

    Canvas canvas_;
    HWND window_ = nullptr;
};

}  // namespace lacquer::examples
