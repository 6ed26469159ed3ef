// The panel: three buttons, three check boxes, and a row of drops, one for each coat.
#include "window/scene.h"

#include <string>

namespace lacquer::examples {

namespace {

constexpr SIZE kPanel{412, 252};
constexpr int kMostCoats = 5;

POINT Middle(const RECT &rect) { return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }

}  // namespace

RECT Scene::PlaceOf(int item) const {
    if (item >= kGlossy) return Box(corner_.x + 34, corner_.y + 58 + (item - kGlossy) * 30, 130, 24);
    return Box(corner_.x + 32 + item * 122, corner_.y + 180, 104, 44);
}

POINT Scene::addButton() const { return Middle(PlaceOf(kCoat)); }

POINT Scene::firstCheckBox() const { return Middle(PlaceOf(kGlossy)); }

bool Scene::isEnabled(int item) const {
    if (item == kWipe) return coats_ > 0;
    return item != kCoat || coats_ < kMostCoats;
}

ButtonState Scene::StateOf(int item) const {
    if (!isEnabled(item)) return ButtonState::kDisabled;
    if (item != hot_) return ButtonState::kNormal;
    return item == pressed_ ? ButtonState::kPressed : ButtonState::kHot;
}

void Scene::Paint(const Canvas &canvas, SIZE size) const {
    corner_ = {(size.cx - kPanel.cx) / 2, (size.cy - kPanel.cy) / 2};
    DrawInto(canvas, Box(0, 0, size.cx, size.cy), skin_.photo, LACQUER_BICUBIC);
    if (isOn(kShadow)) {
        const Texture shade = CopyOf(skin_.vignette);
        SetDrawMode(shade, LACQUER_DRAW_MODULATE);
        DrawInto(canvas, Box(0, 0, size.cx, size.cy), shade, LACQUER_BILINEAR);
    }

    DrawFrame(canvas, skin_, Box(corner_.x, corner_.y, kPanel.cx, kPanel.cy), "Coats of lacquer");
    constexpr std::array<std::string_view, 3> boxes{"Glossy", "Dusk", "Visitor"};
    for (int i = 0; i < 3; ++i) {
        const int item = kGlossy + i;
        const RECT place = PlaceOf(item);
        if (item == hot_) FillBox(canvas, place, 0x14000000);
        const bool on = on_[static_cast<std::size_t>(i)];
        DrawCheckBox(canvas, skin_, place.left, place.top, on ? CheckState::kOn : CheckState::kOff,
                     boxes[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < kMostCoats; ++i) {
        const BYTE strength = i < coats_ ? 255 : 50;
        DrawAt(canvas, corner_.x + 168 + i * 40, corner_.y + 78, skin_.icon, strength);
        if (isOn(kGlossy) && i < coats_)
            FillBox(canvas, Box(corner_.x + 186 + i * 40, corner_.y + 140, 28, 2), 0x50C02028);
    }
    if (isOn(kVisitor)) DrawAt(canvas, corner_.x + 318, corner_.y + 84, skin_.ladybird32);

    constexpr std::array<std::string_view, 3> captions{"Wipe", "Add a coat", "Close"};
    for (int item = kWipe; item <= kClose; ++item) {
        const RECT place = PlaceOf(item);
        DrawButton(canvas, skin_, place.left, place.top, StateOf(item), captions[static_cast<std::size_t>(item)]);
    }
}

bool Scene::MoveTo(POINT position) {
    int found = kNothing;
    for (int item = kWipe; item < kItemCount; ++item) {
        const RECT place = PlaceOf(item);
        if (position.x >= place.left && position.x < place.right && position.y >= place.top &&
            position.y < place.bottom && isEnabled(item))
            found = item;
    }
    return std::exchange(hot_, found) != found;
}

bool Scene::Press() {
    pressed_ = hot_;
    return pressed_ != kNothing;
}

bool Scene::Release() {
    const int item = std::exchange(pressed_, kNothing);
    if (item == kNothing) return false;
    if (item == hot_) Use(item);
    return true;
}

void Scene::Use(int item) {
    switch (item) {
        case kWipe: coats_ = 0; break;
        case kCoat: ++coats_; break;
        case kClose: closed_ = true; break;
        default: {
            bool &on = on_[static_cast<std::size_t>(item - kGlossy)];
            on = !on;
        }
    }
    if (!isEnabled(item)) hot_ = kNothing;
}

}  // namespace lacquer::examples
