// Keys and the wheel.
#include "window/input.h"

#include <algorithm>

namespace lacquer::examples {

std::optional<Key> KeyOf(WPARAM virtualKey, bool shift) {
    switch (virtualKey) {
        case VK_TAB: return shift ? Key::kPrevious : Key::kNext;
        case VK_UP: return Key::kUp;
        case VK_DOWN: return Key::kDown;
        case VK_LEFT: return Key::kLeft;
        case VK_RIGHT: return Key::kRight;
        case VK_PRIOR: return Key::kPageUp;
        case VK_NEXT: return Key::kPageDown;
        case VK_HOME: return Key::kHome;
        case VK_END: return Key::kEnd;
        case VK_SPACE: return Key::kSpace;
        case VK_RETURN: return Key::kEnter;
        case VK_ESCAPE: return Key::kCancel;
        default: return std::nullopt;
    }
}

int Wheel::Turn(int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    // A setting of "a page" is a very large number.
    rest_ -= delta * static_cast<int>(std::min(lines, 10u));
    const int rows = rest_ / WHEEL_DELTA;
    rest_ -= rows * WHEEL_DELTA;
    return rows;
}

}  // namespace lacquer::examples
