// A run of the window without a user: it is shown, used, moved and resized, and after each step the screen is compared
// with a picture of the whole scene, painted afresh.
#pragma once

#include "window/skinned_window.h"

namespace lacquer::examples {

/// Writes a line for each step to standard output, and the last picture read back to `screenshot` (a BMP file) unless
/// that is empty. Returns true when every step showed what it should, and painted no more. Throws std::runtime_error
/// when the check can't be done.
bool SelfCheck(SkinnedWindow &window, const Scene &scene, const std::string &screenshot);

}  // namespace lacquer::examples
