// A run of the window without a user: it is shown, used and resized, and after each step its pixels are read back from
// the screen and compared with those of the canvas.
#pragma once

#include "window/skinned_window.h"

namespace lacquer::examples {

/// Writes a line for each step to standard output, and the last picture read back to `screenshot` (a BMP file) unless
/// that is empty. Returns true when every step showed the canvas's pixels and changed what it should. Throws
/// std::runtime_error when the check can't be done.
bool SelfCheck(SkinnedWindow &window, const Scene &scene, const std::string &screenshot);

}  // namespace lacquer::examples
