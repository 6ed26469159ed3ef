// The order of the targets.
#include "common/focus.h"

#include <algorithm>
#include <array>

namespace lacquer::examples {

namespace {

constexpr std::array kOrder{Target{Kind::kList},           Target{Kind::kBox, kDusk},    Target{Kind::kBox, kVisitor},
                            Target{Kind::kButton, kWipe},  Target{Kind::kButton, kCoat}, Target{Kind::kButton, kAbout},
                            Target{Kind::kButton, kFinish}};

}  // namespace

void Focus::Take(Target target) {
    if (target.kind == Kind::kRow || target.kind == Kind::kThumb) target = {Kind::kList};
    if (std::ranges::find(kOrder, target) == kOrder.end()) return;
    target_ = target;
    isShown_ = false;
}

void Focus::Settle(const Filter &filter) {
    if (!filter(target_)) Move(1, filter);
}

void Focus::Step(int step, const Filter &filter) {
    Move(step, filter);
    isShown_ = true;
}

void Focus::StepInGroup(int step, const Filter &filter) {
    const Kind kind = target_.kind;
    Step(step, [&](Target target) { return target.kind == kind && filter(target); });
}

void Focus::Move(int step, const Filter &filter) {
    const auto count = static_cast<int>(kOrder.size());
    auto place = static_cast<int>(std::ranges::find(kOrder, target_) - kOrder.begin());
    do {
        place = (place + (step < 0 ? count - 1 : 1)) % count;
        target_ = kOrder[static_cast<std::size_t>(place)];
    } while (!filter(target_));
}

}  // namespace lacquer::examples
