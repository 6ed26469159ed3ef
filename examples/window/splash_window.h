// A layered window: a picture with a translucent shadow and an animation over another window. A click closes it.
#pragma once

#include "common/splash.h"
#include "window/native_window.h"

namespace lacquer::examples {

class SplashWindow : public NativeWindow {
public:
    /// Shows the splash over the middle of its owner. `animation`, which may be an empty owner, must outlive it. Throws
    /// std::runtime_error on failure.
    SplashWindow(const Skin &skin, const Lottie &animation, HWND owner, Scale px);

    /// What is shown.
    const Canvas &canvas() const { return canvas_; }

protected:
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void ShowFrame();

    const Lottie &animation_;
    const SplashPicture picture_;
    Canvas canvas_;
    const ULONGLONG start_ = GetTickCount64();
};

}  // namespace lacquer::examples
