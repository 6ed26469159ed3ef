// The system's keys and wheel as the scene knows them.
#pragma once

#include <optional>

#include "common/scene.h"

namespace lacquer::examples {

/// The scene's key for a virtual key, with or without Shift.
std::optional<Key> KeyOf(WPARAM virtualKey, bool shift);

/// Turns of the wheel as rows, as many for a notch as the user has set. Fine wheels turn by parts of a notch, which add
/// up.
class Wheel {
public:
    /// Rows to scroll, down for positive numbers, after a turn by so many parts of WHEEL_DELTA.
    int Turn(int delta);

private:
    int rest_ = 0;  // rows times WHEEL_DELTA
};

}  // namespace lacquer::examples
