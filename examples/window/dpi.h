// The resolution of the screen that a window is on. The program's manifest says that its windows follow it.
#pragma once

#include "common/painting.h"

namespace lacquer::examples {

/// The scale of a window that was designed for 96 DPI.
Scale ScaleOf(HWND window);

}  // namespace lacquer::examples
