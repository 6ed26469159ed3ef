// All numbers are lengths at 96 DPI.
#include "common/layout.h"

#include "common/skin.h"

namespace lacquer::examples {

namespace {

constexpr int kListWidth = 190;
constexpr int kEntryHeight = 26;
constexpr int kTitleHeight = 32;
constexpr int kEdge = 6;  // of the frame, for resizing

}  // namespace

Layout::Layout(SIZE size, Scale px, bool hasMaximise, bool isMaximised)
    : size_(size), px_(px), hasMaximise_(hasMaximise), isMaximised_(isMaximised) {}

RECT Layout::List() const {
    return {size_.cx - px_(18 + kListWidth), px_(44), size_.cx - px_(18), size_.cy - px_(112)};
}

RECT Layout::Rows() const {
    const RECT list = List();
    return {list.left + px_(2), list.top + px_(2), list.right - px_(18), list.bottom - px_(2)};
}

RECT Layout::Track() const {
    const RECT list = List();
    return {list.right - px_(17), list.top + px_(3), list.right - px_(3), list.bottom - px_(3)};
}

RECT Layout::Preview() const { return {px_(18), px_(44), List().left - px_(12), size_.cy - px_(112)}; }

RECT Layout::Bar() const { return {px_(18), size_.cy - px_(98), Preview().right, size_.cy - px_(80)}; }

RECT Layout::Popup() const {
    const RECT list = List();
    const LONG bottom = PlaceOf({Kind::kButton, kFinish}).top + px_(4);
    return {list.left, bottom - px_(kFinishCount * kEntryHeight + 12), list.right, bottom};
}

RECT Layout::PlaceOf(Target target) const {
    const RECT list = List();
    const int index = target.index;
    switch (target.kind) {
        case Kind::kButton: {
            if (index == kFinish)
                return {list.left - px_(6), size_.cy - px_(68), list.right + px_(6), size_.cy - px_(24)};
            constexpr int lefts[] = {12, 104, 238};
            constexpr int widths[] = {96, 138, 96};
            return Box(px_(lefts[index]), size_.cy - px_(68), px_(widths[index]), px_(kButtonSize.cy));
        }
        case Kind::kCaptionButton: {
            if (index == kMaximise && !hasMaximise_) return {};
            const int fromRight = index == kClose ? 36 : index == kMinimise && hasMaximise_ ? 96 : 66;
            return Box(size_.cx - px_(fromRight), px_(6), px_(kCaptionButtonSize.cx), px_(kCaptionButtonSize.cy));
        }
        case Kind::kBox: return Box(list.left + px_(index * 92), size_.cy - px_(101), px_(88), px_(24));
        case Kind::kList: return list;
        case Kind::kEntry: {
            const RECT popup = Popup();
            return Box(popup.left + px_(6), popup.top + px_(6 + index * kEntryHeight),
                       popup.right - popup.left - px_(12), px_(kEntryHeight));
        }
        default: return {};
    }
}

Area Layout::AreaAt(POINT position) const {
    constexpr Area areas[3][3] = {{Area::kTopLeft, Area::kTop, Area::kTopRight},
                                  {Area::kLeft, Area::kClient, Area::kRight},
                                  {Area::kBottomLeft, Area::kBottom, Area::kBottomRight}};
    const auto side = [edge = px_(kEdge)](LONG at, LONG length) { return at < edge ? 0 : at < length - edge ? 1 : 2; };
    const Area area = isMaximised_ ? Area::kClient : areas[side(position.y, size_.cy)][side(position.x, size_.cx)];
    return area == Area::kClient && position.y < px_(kTitleHeight) ? Area::kTitle : area;
}

}  // namespace lacquer::examples
