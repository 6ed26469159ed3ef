// A companion library that draws nothing and writes down what it is asked for, in the order of the calls.
#pragma once

#include <lacquer/lacquer.h>

#include <set>
#include <string>
#include <vector>

namespace lacquer {

struct Recorder {
    /// Every call as "name(arguments)", with pointers as "null" or by the kind of object. Those that only ask which
    /// pixels a canvas has are left out.
    std::vector<std::string> calls;

    /// Functions that refuse: their result is 0 or null.
    std::set<std::string> refusing;

    /// What the last attached bitmap described.
    velBitmapData pixels{};

    /// Locks that velCanvasLockBits granted, and calls of velCanvasUnlockBits.
    int locks = 0, unlocks = 0;

    /// Objects made and not destroyed.
    int canvases = 0, bitmaps = 0, paths = 0, gradients = 0;

    /// The calls since the last time.
    std::vector<std::string> Take();
};

extern Recorder recorder;

/// What the companion's functions answer when they don't refuse.
constexpr int kAnswer = 7;

}  // namespace lacquer
