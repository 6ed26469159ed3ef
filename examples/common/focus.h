// The keyboard's focus: which target has it, and where the keys take it.
#pragma once

#include <functional>

#include "common/layout.h"

namespace lacquer::examples {

class Focus {
public:
    /// Whether a target may have the focus now.
    using Filter = std::function<bool(Target)>;

    Target target() const { return target_; }

    /// Whether a target shows the ring. None does before the keyboard is used.
    bool IsShownAt(Target target) const { return isShown_ && target == target_; }

    /// Gives the focus to a target that a click chose, without a ring. Nothing changes when it can't have the focus.
    void Take(Target target);

    /// Goes on to the next target when what has the focus may no longer have it.
    void Settle(const Filter &filter);

    /// Goes on, or back for a negative step, to the next target that may have the focus, and shows the ring.
    void Step(int step, const Filter &filter);

    /// The same among targets of the kind that has it, as arrow keys do.
    void StepInGroup(int step, const Filter &filter);

private:
    void Move(int step, const Filter &filter);

    Target target_{Kind::kList};
    bool isShown_ = false;
};

}  // namespace lacquer::examples
