// Rows, scrolling and the thumb.
#include "common/colour_list.h"

#include <algorithm>
#include <cstdlib>

namespace lacquer::examples {

namespace {

constexpr Colour kColours[] = {
    {"Cinnabar", 0xFFC8321E}, {"Oxblood", 0xFF6A1018},  {"Persimmon", 0xFFE06A28}, {"Amber", 0xFFD8961E},
    {"Honey", 0xFFE8B94A},    {"Straw", 0xFFE2D27C},    {"Moss", 0xFF7A8A2E},      {"Pine", 0xFF1E5C3A},
    {"Jade", 0xFF3A9C74},     {"Lagoon", 0xFF1E8A94},   {"Lake", 0xFF2A6AA8},      {"Indigo", 0xFF2C3480},
    {"Plum", 0xFF5E2A72},     {"Mulberry", 0xFF8E2458}, {"Rose", 0xFFD8708A},      {"Ivory", 0xFFEDE4CC},
    {"Umber", 0xFF5A3A22},    {"Soot", 0xFF22201F},
};
constexpr int kCount = static_cast<int>(std::size(kColours));
constexpr int kRowHeight = 24;

}  // namespace

std::span<const Colour> Colours() { return kColours; }

void ColourList::Place(const Layout &layout, const Controls &controls) {
    controls_ = &controls;
    rows_ = layout.Rows();
    track_ = layout.Track();
    const int before = std::exchange(rowHeight_, layout.px()(kRowHeight));
    canvas_ = MakeCanvas(rows_.right - rows_.left, Height());
    position_ = std::min(position_ * rowHeight_ / before, LastPosition());
    PaintBand(0, Height());
}

RECT ColourList::PlaceOf(int row) const {
    const LONG top = rows_.top + row * rowHeight_ - position_;
    const RECT place{rows_.left, std::max(top, rows_.top), rows_.right, std::min(top + rowHeight_, rows_.bottom)};
    return IsEmpty(place) ? RECT{} : place;
}

RECT ColourList::Thumb() const {
    const int length = track_.bottom - track_.top;
    const int least = controls_->px()(24);
    const int thumb = std::min(std::max<int>(length * Height() / (kCount * rowHeight_), least), length);
    const int last = LastPosition();
    const int top = last == 0 ? 0 : (length - thumb) * position_ / last;
    return Box(track_.left, track_.top + top, track_.right - track_.left, thumb);
}

void ColourList::Choose(int row) {
    const int before = std::exchange(chosen_, std::clamp(row, 0, kCount - 1));
    PaintRow(before);
    PaintRow(chosen_);
}

void ColourList::SetHot(int row) {
    const int before = std::exchange(hot_, row);
    PaintRow(before);
    PaintRow(hot_);
}

bool ColourList::DragThumbTo(LONG y) {
    const RECT thumb = Thumb();
    const LONG way = (track_.bottom - track_.top) - (thumb.bottom - thumb.top);
    return way > 0 && ScrollTo(static_cast<int>((y - track_.top) * LastPosition() / way));
}

bool ColourList::Reveal(int row) {
    const int top = row * rowHeight_;
    return ScrollTo(std::clamp(position_, top + rowHeight_ - static_cast<int>(Height()), top));
}

int ColourList::PageLength() const { return std::max(static_cast<int>(Height()) / rowHeight_, 1); }

void ColourList::Paint(const Canvas &window) const {
    const RECT source = Box(0, 0, rows_.right - rows_.left, Height());
    Check(BlendCanvas(window, &rows_, canvas_, &source, 255), "BlendCanvas");
}

int ColourList::LastPosition() const { return std::max(0, kCount * rowHeight_ - static_cast<int>(Height())); }

bool ColourList::ScrollTo(int position) {
    const int before = std::exchange(position_, std::clamp(position, 0, LastPosition()));
    const int dy = before - position_;
    const LONG height = Height();
    if (std::abs(dy) >= height) {
        PaintBand(0, height);
    } else if (dy != 0) {
        Check(CanvasScroll(canvas_, 0, dy), "CanvasScroll");
        PaintBand(dy > 0 ? 0 : height + dy, dy > 0 ? dy : height);
    }
    return dy != 0;
}

void ColourList::PaintRow(int row) {
    const LONG top = row * rowHeight_ - position_;
    if (row != kNone) PaintBand(top, top + rowHeight_);
}

/// Paints what the canvas shows from `top` to `bottom`.
void ColourList::PaintBand(LONG top, LONG bottom) {
    const Scale &px = controls_->px();
    const LONG width = rows_.right - rows_.left;
    const ScopedClip clip(canvas_, {0, top, width, bottom});
    FillBox(canvas_, {0, top, width, bottom}, 0xFFFBFAF7);
    for (int i = 0; i < kCount; ++i) {
        const int y = i * rowHeight_ - position_;
        if (y >= bottom || y + rowHeight_ <= top) continue;
        const RECT row = Box(0, y, width, rowHeight_);
        if (i % 2 != 0) FillBox(canvas_, row, 0xFFF3F1EC);
        if (i == chosen_) FillBox(canvas_, row, 0xFFA0343C);
        if (i == hot_) FillBox(canvas_, row, i == chosen_ ? 0x28FFFFFF : 0x30A0343C);
        if (i == chosen_) DrawDots(canvas_, Inset(row, px(1)), 0xC0FFFFFF, px);
        controls_->DrawBall(canvas_, px(8), y + px(4), kColours[i].word, 255);
        controls_->DrawLabel(canvas_, px(33), y + px(12), kColours[i].name, i == chosen_ ? 0xFFFFFFFF : kText);
    }
}

}  // namespace lacquer::examples
