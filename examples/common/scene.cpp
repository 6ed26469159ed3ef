// What the mouse does, and what has to be painted again after it.
#include "common/scene.h"

#include <algorithm>

namespace lacquer::examples {

Scene::Scene(const Skin &skin, SIZE size, bool hasMaximise) : skin_(skin), hasMaximise_(hasMaximise) { Resize(size); }

void Scene::Resize(SIZE size, Scale px, bool isMaximised) {
    if (!controls_ || controls_->px().factor() != px.factor()) controls_ = std::make_unique<Controls>(skin_, px);
    const SIZE least = px(kLeastSize);
    size = {std::max(size.cx, least.cx), std::max(size.cy, least.cy)};
    layout_ = Layout(size, px, hasMaximise_, isMaximised);
    list_.Place(layout_, *controls_);
    SetHot(TargetAt(mouse_));
    invalid_ = {Box(0, 0, size.cx, size.cy)};
}

// ---- Places --------------------------------------------------------------------------------------------------------

RECT Scene::PlaceOf(Target target) const {
    switch (target.kind) {
        case Kind::kRow: return list_.PlaceOf(target.index);
        case Kind::kThumb: return list_.Thumb();
        case Kind::kEntry: return isPopupOpen_ ? layout_.PlaceOf(target) : RECT{};
        default: return layout_.PlaceOf(target);
    }
}

POINT Scene::MiddleOf(Target target) const {
    const RECT place = PlaceOf(target);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

Area Scene::AreaAt(POINT position) const {
    const Area area = layout_.AreaAt(position);
    return area == Area::kTitle && TargetAt(position).kind != Kind::kNothing ? Area::kClient : area;
}

/// Where the ring of a target's focus is drawn. A button's shadow is left out.
RECT Scene::RingOf(Target target) const {
    const Scale &px = layout_.px();
    const int inset = target.kind == Kind::kButton ? px(3) : target.kind == Kind::kList ? -px(3) : 0;
    return Inset(PlaceOf(target), inset);
}

bool Scene::IsEnabled(Target target) const {
    if (target == Target{Kind::kButton, kWipe}) return coats_ > 0;
    if (target == Target{Kind::kButton, kCoat}) return coats_ < kMaxCoats;
    return true;
}

Target Scene::TargetAt(POINT position) const {
    const auto search = [&](Kind kind, int count) {
        for (int i = 0; i < count; ++i)
            if (Contains(PlaceOf({kind, i}), position) && IsEnabled({kind, i})) return Target{kind, i};
        return Target{};
    };
    // Nothing below an open menu can be reached.
    if (isPopupOpen_) return search(Kind::kEntry, kFinishCount);
    const std::pair<Kind, int> kinds[] = {{Kind::kCaptionButton, 3},
                                          {Kind::kButton, 4},
                                          {Kind::kBox, 2},
                                          {Kind::kThumb, 1},
                                          {Kind::kRow, static_cast<int>(Colours().size())}};
    for (const auto &[kind, count] : kinds)
        if (const Target found = search(kind, count); found.kind != Kind::kNothing) return found;
    return {};
}

// ---- Changes -------------------------------------------------------------------------------------------------------

void Scene::Invalidate(const RECT &rect) {
    if (!IsEmpty(rect)) invalid_.push_back(rect);
}

void Scene::InvalidateList() {
    Invalidate(layout_.Rows());
    Invalidate(layout_.Track());
}

/// What depends on whether the menu is open: itself and the button that opens it.
void Scene::InvalidatePopup() {
    Invalidate(ShadowOf(layout_.Popup(), layout_.px()));
    Invalidate(PlaceOf({Kind::kButton, kFinish}));
}

/// What depends on the number of coats.
void Scene::InvalidateCoats() {
    Invalidate(layout_.Preview());
    Invalidate(layout_.Bar());
    Invalidate(PlaceOf({Kind::kButton, kWipe}));
    Invalidate(PlaceOf({Kind::kButton, kCoat}));
}

void Scene::SetHot(Target target) {
    const Target before = std::exchange(hot_, target);
    if (before == hot_) return;
    list_.SetHot(hot_.kind == Kind::kRow ? hot_.index : ColourList::kNone);
    Invalidate(PlaceOf(before));
    Invalidate(PlaceOf(hot_));
}

/// Moves the focus by a call of one of its functions.
template <typename Move>
void Scene::MoveFocus(Move move) {
    const auto invalidateRing = [this](Target target) {
        if (focus_.IsShownAt(target)) Invalidate(RingOf(target));
    };
    invalidateRing(focus_.target());
    move();
    invalidateRing(focus_.target());
}

void Scene::SetCoats(int coats) {
    coats_ = coats;
    InvalidateCoats();
    // A button that is disabled loses the focus.
    MoveFocus([this] { focus_.Settle([this](Target target) { return IsEnabled(target); }); });
}

void Scene::Choose(int row) {
    list_.Choose(row);
    Invalidate(layout_.Rows());
    Invalidate(layout_.Preview());
}

void Scene::OpenPopup() {
    isPopupOpen_ = true;
    InvalidatePopup();
}

void Scene::ClosePopup() {
    InvalidatePopup();
    isPopupOpen_ = false;
    SetHot(TargetAt(mouse_));
}

// ---- Mouse ---------------------------------------------------------------------------------------------------------

void Scene::MoveTo(POINT position) {
    mouse_ = position;
    if (pressed_.kind == Kind::kThumb) {
        if (list_.DragThumbTo(position.y - grip_)) InvalidateList();
    } else {
        SetHot(TargetAt(position));
    }
}

void Scene::Press() {
    Cancel();
    SetHot(TargetAt(mouse_));
    if (isPopupOpen_ && hot_.kind != Kind::kEntry) return ClosePopup();
    pressed_ = hot_;
    grip_ = mouse_.y - PlaceOf(pressed_).top;
    MoveFocus([&] { focus_.Take(pressed_); });
    Invalidate(PlaceOf(pressed_));
}

void Scene::Release() {
    const Target target = pressed_;
    Cancel();
    if (target == hot_) Use(target);
    MoveTo(mouse_);
}

void Scene::Cancel() {
    Invalidate(PlaceOf(std::exchange(pressed_, {})));
    Invalidate(PlaceOf(hot_));
    isPressedByKey_ = false;
}

void Scene::Scroll(int rows) {
    if (isPopupOpen_ || !list_.Scroll(rows)) return;
    InvalidateList();
    // Another row is under the mouse now.
    MoveTo(mouse_);
}

void Scene::Use(Target target) {
    constexpr Wish wishes[] = {Wish::kMinimise, Wish::kMaximise, Wish::kClose};
    switch (target.kind) {
        case Kind::kButton:
            switch (target.index) {
                case kWipe: return SetCoats(0);
                case kCoat: return SetCoats(coats_ + 1);
                case kFinish: return OpenPopup();
                default: wish_ = Wish::kAbout; return;
            }
        case Kind::kCaptionButton: wish_ = wishes[target.index]; return;
        case Kind::kBox:
            isOn_[target.index] = !isOn_[target.index];
            Invalidate(PlaceOf(target));
            return Invalidate(layout_.Preview());
        case Kind::kRow: return Choose(target.index);
        case Kind::kEntry:
            finish_ = target.index;
            Invalidate(layout_.Preview());
            return ClosePopup();
        default: return;
    }
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

void Scene::KeyDown(Key key) {
    if (isPopupOpen_) return KeyInPopup(key);
    const auto filter = [this](Target target) { return IsEnabled(target); };
    const int step = key == Key::kPrevious || key == Key::kUp || key == Key::kLeft ? -1 : 1;
    switch (key) {
        case Key::kNext:
        case Key::kPrevious: Cancel(); return MoveFocus([&] { focus_.Step(step, filter); });
        case Key::kSpace:
            if (pressed_.kind != Kind::kNothing) return;
            pressed_ = focus_.target();
            isPressedByKey_ = true;
            Invalidate(PlaceOf(hot_));
            return Invalidate(PlaceOf(pressed_));
        case Key::kEnter: return Use(focus_.target());
        case Key::kCancel: wish_ = Wish::kClose; return;
        default: break;
    }
    if (focus_.target().kind == Kind::kList) return KeyInList(key);
    Cancel();
    if (key <= Key::kRight) MoveFocus([&] { focus_.StepInGroup(step, filter); });
}

void Scene::KeyUp(Key key) {
    if (key != Key::kSpace || !isPressedByKey_) return;
    const Target target = pressed_;
    Cancel();
    Use(target);
}

void Scene::KeyInList(Key key) {
    const int count = static_cast<int>(Colours().size());
    const int page = list_.PageLength();
    int row = list_.chosen();
    switch (key) {
        case Key::kUp: row -= 1; break;
        case Key::kDown: row += 1; break;
        case Key::kPageUp: row -= page; break;
        case Key::kPageDown: row += page; break;
        case Key::kHome: row = 0; break;
        case Key::kEnd: row = count - 1; break;
        default: return;
    }
    Choose(row);
    if (list_.Reveal(list_.chosen())) InvalidateList();
    if (pressed_.kind != Kind::kThumb) MoveTo(mouse_);
}

void Scene::KeyInPopup(Key key) {
    const int entry = hot_.kind == Kind::kEntry ? hot_.index : finish_;
    switch (key) {
        case Key::kUp: return SetHot({Kind::kEntry, (entry + kFinishCount - 1) % kFinishCount});
        case Key::kDown: return SetHot({Kind::kEntry, (entry + 1) % kFinishCount});
        case Key::kSpace:
        case Key::kEnter: return Use({Kind::kEntry, entry});
        case Key::kNext:
        case Key::kPrevious:
        case Key::kCancel: return ClosePopup();
        default: return;
    }
}

}  // namespace lacquer::examples
