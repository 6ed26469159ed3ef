// The window's layout, its painting, and its reactions.
#include "common/scene.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace lacquer::examples {

namespace {

struct Colour {
    std::string_view name;
    std::uint32_t word;
};
constexpr Colour kColours[] = {
    {"Cinnabar", 0xFFC8321E}, {"Oxblood", 0xFF6A1018},  {"Persimmon", 0xFFE06A28}, {"Amber", 0xFFD8961E},
    {"Honey", 0xFFE8B94A},    {"Straw", 0xFFE2D27C},    {"Moss", 0xFF7A8A2E},      {"Pine", 0xFF1E5C3A},
    {"Jade", 0xFF3A9C74},     {"Lagoon", 0xFF1E8A94},   {"Lake", 0xFF2A6AA8},      {"Indigo", 0xFF2C3480},
    {"Plum", 0xFF5E2A72},     {"Mulberry", 0xFF8E2458}, {"Rose", 0xFFD8708A},      {"Ivory", 0xFFEDE4CC},
    {"Umber", 0xFF5A3A22},    {"Soot", 0xFF22201F},
};
constexpr int kColourCount = static_cast<int>(std::size(kColours));

struct Finish {
    std::string_view name;
    BYTE reflection;  // how strongly the surroundings show in it
    BYTE gloss;       // how strongly light shows on a ball of it
};
constexpr Finish kFinishes[] = {{"Matt", 0, 0}, {"Satin", 44, 110}, {"Gloss", 96, 255}};
constexpr int kFinishCount = static_cast<int>(std::size(kFinishes));

struct Caption {
    Icon icon;
    std::string_view caption;
};
constexpr Caption kButtons[] = {{Icon::kEraser, "Wipe"}, {Icon::kRoller, "Add a coat"}, {Icon::kInformation, "About"}};
constexpr std::string_view kBoxNames[] = {"Dusk", "Visitor"};
constexpr int kMaxCoats = 5;
constexpr int kListWidth = 190;
constexpr int kRowHeight = 24;
constexpr int kEntryHeight = 26;
constexpr int kEdge = 6;  // of the frame, for resizing

bool IsEmpty(const RECT &rect) { return rect.right <= rect.left || rect.bottom <= rect.top; }

bool Contains(const RECT &rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

RECT CutTo(const RECT &rect, const RECT &limits) {
    return {std::max(rect.left, limits.left), std::max(rect.top, limits.top), std::min(rect.right, limits.right),
            std::min(rect.bottom, limits.bottom)};
}

RECT Inset(const RECT &rect, int by) { return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by}; }

}  // namespace

Scene::Scene(const Skin &skin, SIZE size) : skin_(skin), controls_(skin) { Resize(size); }

// ---- Layout --------------------------------------------------------------------------------------------------------

RECT Scene::List() const { return {size_.cx - 18 - kListWidth, 44, size_.cx - 18, size_.cy - 112}; }

RECT Scene::Rows() const {
    const RECT list = List();
    return {list.left + 2, list.top + 2, list.right - 18, list.bottom - 2};
}

RECT Scene::Track() const {
    const RECT list = List();
    return {list.right - 17, list.top + 3, list.right - 3, list.bottom - 3};
}

RECT Scene::Preview() const { return {18, 44, List().left - 12, size_.cy - 112}; }

RECT Scene::Bar() const { return {18, size_.cy - 98, Preview().right, size_.cy - 80}; }

RECT Scene::Popup() const {
    const RECT button = PlaceOf({Kind::kButton, kFinish});
    const LONG bottom = button.top + 4;
    return {List().left, bottom - kFinishCount * kEntryHeight - 12, List().right, bottom};
}

int Scene::MostScroll() const {
    const RECT rows = Rows();
    return std::max<int>(0, kColourCount * kRowHeight - (rows.bottom - rows.top));
}

RECT Scene::PlaceOf(Target target) const {
    switch (target.kind) {
        case Kind::kNothing: return {};
        case Kind::kButton: {
            if (target.index == kFinish) return {List().left - 6, size_.cy - 68, List().right + 6, size_.cy - 24};
            constexpr LONG lefts[] = {12, 104, 238};
            constexpr LONG widths[] = {96, 138, 96};
            return Box(lefts[target.index], size_.cy - 68, widths[target.index], kButtonSize.cy);
        }
        case Kind::kCaptionButton:
            return Box(size_.cx - 66 + target.index * 30, 6, kCaptionButtonSize.cx, kCaptionButtonSize.cy);
        case Kind::kBox: return Box(List().left + target.index * 92, size_.cy - 101, 88, 24);
        case Kind::kRow: {
            const RECT rows = Rows();
            const int top = rows.top + target.index * kRowHeight - scroll_;
            const RECT row = CutTo({rows.left, top, rows.right, top + kRowHeight}, rows);
            return IsEmpty(row) ? RECT{} : row;
        }
        case Kind::kThumb: {
            const RECT track = Track();
            const RECT rows = Rows();
            const int length = track.bottom - track.top;
            const int most = MostScroll();
            const int shown = rows.bottom - rows.top;
            const int thumb = std::min(std::max(length * shown / (kColourCount * kRowHeight), 24), length);
            const int top = most == 0 ? 0 : (length - thumb) * scroll_ / most;
            return Box(track.left, track.top + top, 14, thumb);
        }
        case Kind::kEntry: {
            if (!isPopupOpen_) return {};
            const RECT popup = Popup();
            return Box(popup.left + 6, popup.top + 6 + target.index * kEntryHeight, popup.right - popup.left - 12,
                       kEntryHeight);
        }
    }
    return {};
}

POINT Scene::MiddleOf(Target target) const {
    const RECT place = PlaceOf(target);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

Scene::Area Scene::AreaAt(POINT position) const {
    const bool top = position.y < kEdge;
    const bool bottom = position.y >= size_.cy - kEdge;
    const bool left = position.x < kEdge;
    const bool right = position.x >= size_.cx - kEdge;
    if (top && left) return Area::kTopLeft;
    if (top && right) return Area::kTopRight;
    if (bottom && left) return Area::kBottomLeft;
    if (bottom && right) return Area::kBottomRight;
    if (top) return Area::kTop;
    if (bottom) return Area::kBottom;
    if (left) return Area::kLeft;
    if (right) return Area::kRight;
    const bool isTitle = position.y < kFrameMargins.top && TargetAt(position).kind == Kind::kNothing;
    return isTitle ? Area::kTitle : Area::kClient;
}

bool Scene::IsEnabled(Target target) const {
    if (target == Target{Kind::kButton, kWipe}) return coats_ > 0;
    if (target == Target{Kind::kButton, kCoat}) return coats_ < kMaxCoats;
    return true;
}

Scene::Target Scene::TargetAt(POINT position) const {
    const auto search = [&](Kind kind, int count) {
        for (int i = 0; i < count; ++i)
            if (Contains(PlaceOf({kind, i}), position) && IsEnabled({kind, i})) return Target{kind, i};
        return Target{};
    };
    // Nothing below an open menu can be reached.
    if (isPopupOpen_) return search(Kind::kEntry, kFinishCount);
    constexpr std::pair<Kind, int> kinds[] = {
        {Kind::kCaptionButton, 2}, {Kind::kButton, 4}, {Kind::kBox, 2}, {Kind::kThumb, 1}, {Kind::kRow, kColourCount}};
    for (const auto &[kind, count] : kinds)
        if (const Target found = search(kind, count); found.kind != Kind::kNothing) return found;
    return {};
}

// ---- Changes -------------------------------------------------------------------------------------------------------

void Scene::Invalidate(const RECT &rect) {
    if (!IsEmpty(rect)) invalid_.push_back(rect);
}

void Scene::InvalidateTarget(Target target) {
    if (target.kind == Kind::kRow) {
        const RECT rows = Rows();
        const RECT place = PlaceOf(target);
        PaintRows(place.top - rows.top, place.bottom - rows.top);
    }
    Invalidate(PlaceOf(target));
}

/// What depends on whether the menu is open: itself and the button that opens it.
void Scene::InvalidatePopup() {
    Invalidate(ShadowOf(Popup()));
    Invalidate(PlaceOf({Kind::kButton, kFinish}));
}

/// What depends on the number of coats.
void Scene::InvalidateCoats() {
    Invalidate(Preview());
    Invalidate(Bar());
    Invalidate(PlaceOf({Kind::kButton, kWipe}));
    Invalidate(PlaceOf({Kind::kButton, kCoat}));
}

void Scene::Resize(SIZE size) {
    size_ = {std::max(size.cx, kLeastSize.cx), std::max(size.cy, kLeastSize.cy)};
    const RECT rows = Rows();
    rows_ = MakeCanvas(rows.right - rows.left, rows.bottom - rows.top);
    scroll_ = std::min(scroll_, MostScroll());
    hot_ = TargetAt(mouse_);
    PaintRows(0, rows.bottom - rows.top);
    invalid_ = {Box(0, 0, size_.cx, size_.cy)};
}

void Scene::MoveTo(POINT position) {
    mouse_ = position;
    if (pressed_.kind == Kind::kThumb) {
        const RECT track = Track();
        const RECT thumb = PlaceOf(pressed_);
        const int way = (track.bottom - track.top) - (thumb.bottom - thumb.top);
        if (way > 0) ScrollTo((position.y - grip_ - track.top) * MostScroll() / way);
        return;
    }
    const Target before = std::exchange(hot_, TargetAt(position));
    if (hot_ == before) return;
    InvalidateTarget(before);
    InvalidateTarget(hot_);
}

void Scene::Press() {
    if (isPopupOpen_ && hot_.kind != Kind::kEntry) {
        InvalidatePopup();
        isPopupOpen_ = false;
        MoveTo(mouse_);
        return;
    }
    pressed_ = hot_;
    grip_ = mouse_.y - PlaceOf(pressed_).top;
    InvalidateTarget(pressed_);
}

void Scene::Release() {
    const Target target = std::exchange(pressed_, {});
    InvalidateTarget(target);
    InvalidateTarget(hot_);
    if (target == hot_) Use(target);
    MoveTo(mouse_);
}

void Scene::Use(Target target) {
    switch (target.kind) {
        case Kind::kButton:
            if (target.index == kAbout) wish_ = Wish::kAbout;
            if (target.index == kWipe) coats_ = 0;
            if (target.index == kCoat) ++coats_;
            if (target.index == kWipe || target.index == kCoat) InvalidateCoats();
            if (target.index == kFinish) {
                isPopupOpen_ = true;
                InvalidatePopup();
            }
            break;
        case Kind::kCaptionButton:
            wish_ = target.index == static_cast<int>(CaptionButton::kClose) ? Wish::kClose : Wish::kMinimise;
            break;
        case Kind::kBox:
            isOn_[target.index] = !isOn_[target.index];
            Invalidate(Preview());
            break;
        case Kind::kRow: {
            const int before = std::exchange(chosen_, target.index);
            InvalidateTarget({Kind::kRow, before});
            InvalidateTarget(target);
            Invalidate(Preview());
            break;
        }
        case Kind::kEntry:
            InvalidatePopup();
            finish_ = target.index;
            isPopupOpen_ = false;
            Invalidate(Preview());
            break;
        default: break;
    }
}

void Scene::Scroll(int rows) {
    if (!isPopupOpen_) ScrollTo(scroll_ + rows * kRowHeight);
}

void Scene::ScrollTo(int position) {
    const int before = std::exchange(scroll_, std::clamp(position, 0, MostScroll()));
    const int dy = before - scroll_;
    if (dy == 0) return;
    const RECT rows = Rows();
    const LONG height = rows.bottom - rows.top;
    if (std::abs(dy) < height) {
        Check(CanvasScroll(rows_, 0, dy), "CanvasScroll");
        PaintRows(dy > 0 ? 0 : height + dy, dy > 0 ? dy : height);
    } else {
        PaintRows(0, height);
    }
    Invalidate(rows);
    Invalidate(Track());
    // Another row is under the mouse now.
    if (pressed_.kind != Kind::kThumb) MoveTo(mouse_);
}

// ---- Painting ------------------------------------------------------------------------------------------------------

/// Paints a band of the list's rows onto their own canvas, in its coordinates.
void Scene::PaintRows(LONG top, LONG bottom) {
    const RECT rows = Rows();
    const LONG width = rows.right - rows.left;
    const ScopedClip clip(rows_, {0, top, width, bottom});
    for (int i = 0; i < kColourCount; ++i) {
        const int y = i * kRowHeight - scroll_;
        if (y >= bottom || y + kRowHeight <= top) continue;
        const Target row{Kind::kRow, i};
        FillBox(rows_, Box(0, y, width, kRowHeight), i % 2 == 0 ? 0xFFFBFAF7 : 0xFFF3F1EC);
        if (i == chosen_) FillBox(rows_, Box(0, y, width, kRowHeight), 0xFFA0343C);
        if (row == hot_) FillBox(rows_, Box(0, y, width, kRowHeight), i == chosen_ ? 0x28FFFFFF : 0x30A0343C);
        if (i == chosen_) DrawFocus(rows_, Box(1, y + 1, width - 2, kRowHeight - 2), 0xC0FFFFFF);
        controls_.DrawBall(rows_, 8, y + 4, kColours[i].word, 255);
        controls_.DrawLabel(rows_, 33, y + 12, kColours[i].name, i == chosen_ ? 0xFFFFFFFF : kText);
    }
}

ButtonState Scene::StateOf(Target target) const {
    if (!IsEnabled(target)) return ButtonState::kDisabled;
    if (target == pressed_ && (target == hot_ || target.kind == Kind::kThumb)) return ButtonState::kPressed;
    return target == hot_ && pressed_.kind == Kind::kNothing ? ButtonState::kHot : ButtonState::kNormal;
}

void Scene::Paint(const Canvas &canvas) const {
    const RECT everything = Box(0, 0, size_.cx, size_.cy);
    Check(FillSolidRectEx(canvas, 0, &everything, LACQUER_DRAW_COPY), "FillSolidRectEx");
    controls_.DrawFrame(canvas, everything, "Coats of lacquer");
    DrawInto(canvas, Box(9, 6, 22, 22), skin_.icon);
    PaintPreview(canvas);
    PaintList(canvas);
    PaintControls(canvas);
    if (isPopupOpen_) PaintPopup(canvas);
}

void Scene::PaintPreview(const Canvas &canvas) const {
    const RECT preview = Preview();
    Check(GeoRectangle(canvas, &preview, 0xFF2A2624, 0, 1), "GeoRectangle");
    const RECT board = Inset(preview, 1);
    const ScopedClip clip(canvas, board);
    // Whole tiles; the clip cuts them.
    const SIZE tile = SizeOf(skin_.wood);
    const LONG width = board.right - board.left;
    const LONG height = board.bottom - board.top;
    DrawInto(canvas, Box(board.left, board.top, width + tile.cx - width % tile.cx, height + tile.cy - height % tile.cy),
             skin_.wood);
    const Colour &colour = kColours[chosen_];
    for (int i = 0; i < coats_; ++i) FillBox(canvas, board, (colour.word & 0xFFFFFF) | 0x58000000);
    if (coats_ > 0) {
        const BYTE reflection = kFinishes[finish_].reflection;
        DrawInto(canvas, board, skin_.photo, LACQUER_BILINEAR, static_cast<BYTE>(reflection * coats_ / kMaxCoats));
    }
    if (isOn_[kVisitor]) DrawAt(canvas, board.right - 92, board.bottom - 108, skin_.ladybird32);
    for (int i = 0; i < 3; ++i) DrawAt(canvas, board.left + 12 + i * 74, board.top + 10, skin_.knob);
    if (isOn_[kDusk]) {
        const Texture shade = CopyOf(skin_.vignette);
        SetDrawMode(shade, LACQUER_DRAW_MODULATE);
        DrawInto(canvas, board, shade);
    }
    FillBox(canvas, {board.left, board.bottom - 28, board.right, board.bottom}, 0x90101420);
    controls_.DrawName(canvas, board.left + 10, board.bottom - 14, colour.name, 0xFFFFF0D8);
    std::array<char, 8> code{};
    std::snprintf(code.data(), code.size(), "#%06X", static_cast<unsigned>(colour.word & 0xFFFFFF));
    controls_.DrawCode(canvas, board.right - 10, board.bottom - 14, code.data(), 0xC0FFF0D8);
}

void Scene::PaintList(const Canvas &canvas) const {
    const RECT list = List(), well = Inset(list, 1);
    DrawCard(canvas, list, 4, 0xFF8E8B84, 0xFFFBFAF7);
    DrawWell(canvas, well, 3);
    const RECT rows = Rows();
    const RECT source = Box(0, 0, rows.right - rows.left, rows.bottom - rows.top);
    Check(BlendCanvas(canvas, &rows, rows_, &source, 255), "BlendCanvas");
    const Target thumb{Kind::kThumb};
    DrawScrollBar(canvas, skin_, Track(), PlaceOf(thumb), StateOf(thumb));
}

void Scene::PaintControls(const Canvas &canvas) const {
    const RECT bar = Bar();
    DrawProgress(canvas, skin_, bar, coats_, kMaxCoats);
    const std::string progress = std::to_string(coats_) + " of " + std::to_string(kMaxCoats) + " coats";
    // Light on what is filled, dark on the rest.
    const LONG end = FilledPart(bar, coats_, kMaxCoats).right;
    for (const bool isFilled : {true, false}) {
        const ScopedClip clip(canvas, {isFilled ? bar.left : end, bar.top, isFilled ? end : bar.right, bar.bottom});
        controls_.DrawName(canvas, bar.left + 10, (bar.top + bar.bottom) / 2, progress, isFilled ? 0xFFFFFFFF : kText);
    }

    for (int i = 0; i < 2; ++i) {
        const Target box{Kind::kBox, i};
        controls_.DrawCheckBox(canvas, PlaceOf(box), isOn_[i], box == hot_, kBoxNames[i]);
        const Target caption{Kind::kCaptionButton, i};
        controls_.DrawCaptionButton(canvas, PlaceOf(caption), static_cast<CaptionButton>(i), StateOf(caption));
    }
    for (int i = kWipe; i <= kAbout; ++i) {
        const Target button{Kind::kButton, i};
        controls_.DrawButton(canvas, PlaceOf(button), StateOf(button), kButtons[i].icon, kButtons[i].caption);
    }
    const Target finish{Kind::kButton, kFinish};
    controls_.DrawMenuButton(canvas, PlaceOf(finish), StateOf(finish),
                             "Finish: " + std::string(kFinishes[finish_].name), isPopupOpen_ ? Icon::kDown : Icon::kUp);
}

void Scene::PaintPopup(const Canvas &canvas) const {
    const RECT popup = Popup();
    DrawShadow(canvas, popup, 5);
    DrawCard(canvas, popup, 5, 0xFF4A4F5C, 0xFFF7F7F9);
    for (int i = 0; i < kFinishCount; ++i) {
        const Target entry{Kind::kEntry, i};
        const RECT place = PlaceOf(entry);
        if (entry == hot_) controls_.DrawHighlight(canvas, place, 0xFFA0343C);
        const std::uint32_t ink = entry == hot_ ? 0xFFFFFFFF : kText;
        const int middle = (place.top + place.bottom) / 2;
        if (i == finish_) controls_.DrawIcon(canvas, place.left + 5, middle - 8, Icon::kTick, ink);
        controls_.DrawLabel(canvas, place.left + 28, middle, kFinishes[i].name, ink);
        controls_.DrawBall(canvas, place.right - 24, middle - 8, kColours[chosen_].word, kFinishes[i].gloss);
    }
}

}  // namespace lacquer::examples
