// A borderless window that paints itself: a canvas of its size, of which WM_PAINT paints and shows the invalid parts.
// The scene tells which parts move and resize the window; the window hands it the mouse, the keys and the resolution.
#pragma once

#include <memory>
#include <optional>

#include "common/scene.h"
#include "window/input.h"
#include "window/native_window.h"
#include "window/splash_window.h"

namespace lacquer::examples {

class SkinnedWindow : public NativeWindow {
public:
    /// Creates the window, not yet shown, in the scene's size at the scale of its screen. All arguments must outlive
    /// it. Throws std::runtime_error on failure.
    SkinnedWindow(const Skin &skin, const Lottie &animation, Scene &scene);

    /// What was painted last.
    const Canvas &canvas() const { return canvas_; }

    /// The splash that the "About" button shows; null at other times.
    const SplashWindow *splash() const { return splash_.get(); }

protected:
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::optional<LRESULT> HandleFrame(UINT message, LPARAM lParam);
    bool HandleMouse(UINT message, WPARAM wParam, LPARAM lParam);
    bool HandleKey(UINT message, WPARAM wParam);
    void Place();
    void Resize(SIZE size);
    void ChangeDpi(WORD dpi, const RECT &place);
    void Paint();
    void TrackMouse();
    void Update();

    const Skin &skin_;
    const Lottie &animation_;
    Scene &scene_;
    Scale px_;
    Canvas canvas_;
    Wheel wheel_;
    bool isTracking_ = false;
    std::unique_ptr<SplashWindow> splash_;
};

}  // namespace lacquer::examples
