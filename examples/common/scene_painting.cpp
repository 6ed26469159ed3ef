// Painting of the scene. Every function replaces what was there, inside the canvas's clip.
#include <array>
#include <cstdio>

#include "common/scene.h"

namespace lacquer::examples {

namespace {

struct Finish {
    std::string_view name;
    BYTE reflection;  // how strongly the surroundings show in it
    BYTE gloss;       // how strongly light shows on a ball of it
};
constexpr Finish kFinishes[kFinishCount] = {{"Matt", 0, 0}, {"Satin", 44, 110}, {"Gloss", 96, 255}};

struct Caption {
    Icon icon;
    std::string_view caption;
};
constexpr Caption kButtons[] = {{Icon::kEraser, "Wipe"}, {Icon::kRoller, "Add a coat"}, {Icon::kInformation, "About"}};
constexpr std::string_view kBoxNames[] = {"Dusk", "Visitor"};

/// Draws a texture at its size at a scale. Pixels of a sprite with a key colour must not be mixed.
void DrawScaled(const Canvas &canvas, int x, int y, const Texture &texture, Scale px,
                DWORD sampler = LACQUER_BILINEAR) {
    const SIZE size = px(SizeOf(texture));
    DrawInto(canvas, Box(x, y, size.cx, size.cy), texture, sampler);
}

}  // namespace

ButtonState Scene::StateOf(Target target) const {
    if (!IsEnabled(target)) return ButtonState::kDisabled;
    if (target == pressed_ && (isPressedByKey_ || target == hot_ || target.kind == Kind::kThumb))
        return ButtonState::kPressed;
    return target == hot_ && pressed_.kind == Kind::kNothing ? ButtonState::kHot : ButtonState::kNormal;
}

void Scene::Paint(const Canvas &canvas) const {
    const Scale &px = layout_.px();
    const RECT everything = Box(0, 0, size().cx, size().cy);
    // A maximised window has no round corners.
    const std::uint32_t ground = layout_.isMaximised() ? 0xFF2B303D : 0;
    Check(FillSolidRectEx(canvas, ground, &everything, LACQUER_DRAW_COPY), "FillSolidRectEx");
    controls_->DrawFrame(canvas, everything, "Coats of lacquer");
    DrawInto(canvas, Box(px(9), px(6), px(22), px(22)), skin_.icon);
    PaintPreview(canvas);
    PaintList(canvas);
    PaintBar(canvas);
    PaintControls(canvas);
    if (isPopupOpen_) PaintPopup(canvas);
}

void Scene::PaintPreview(const Canvas &canvas) const {
    const Scale &px = layout_.px();
    const RECT preview = layout_.Preview();
    Check(GeoRectangle(canvas, &preview, 0xFF2A2624, 0, px(1)), "GeoRectangle");
    const RECT board = Inset(preview, px(1));
    const ScopedClip clip(canvas, board);
    PaintBoard(canvas, board);
    const LONG middle = board.bottom - px(14);
    FillBox(canvas, {board.left, board.bottom - px(28), board.right, board.bottom}, 0x90101420);
    controls_->DrawName(canvas, board.left + px(10), middle, list_.colour().name, 0xFFFFF0D8);
    std::array<char, 8> code{};
    std::snprintf(code.data(), code.size(), "#%06X", static_cast<unsigned>(list_.colour().word & 0xFFFFFF));
    controls_->DrawCode(canvas, board.right - px(10), middle, code.data(), 0xC0FFF0D8);
}

void Scene::PaintBoard(const Canvas &canvas, const RECT &board) const {
    const Scale &px = layout_.px();
    // Whole tiles; the clip cuts them.
    const SIZE tile = px(SizeOf(skin_.wood));
    const LONG width = board.right - board.left;
    const LONG height = board.bottom - board.top;
    const RECT tiles =
        Box(board.left, board.top, width + tile.cx - width % tile.cx, height + tile.cy - height % tile.cy);
    Check(skin_.board.Draw(canvas, tiles, 0, px.factor()), "drawing the board");
    for (int i = 0; i < coats_; ++i) FillBox(canvas, board, (list_.colour().word & 0xFFFFFF) | 0x58000000);
    if (coats_ > 0) {
        const BYTE reflection = kFinishes[finish_].reflection;
        DrawInto(canvas, board, skin_.photo, LACQUER_BILINEAR, static_cast<BYTE>(reflection * coats_ / kMaxCoats));
    }
    if (isOn_[kVisitor])
        DrawScaled(canvas, board.right - px(92), board.bottom - px(108), skin_.ladybird32, px, LACQUER_NEAREST);
    for (int i = 0; i < 3; ++i) DrawScaled(canvas, board.left + px(12 + i * 74), board.top + px(10), skin_.knob, px);
    if (isOn_[kDusk]) {
        const Texture shade = CopyOf(skin_.vignette);
        SetDrawMode(shade, LACQUER_DRAW_MODULATE);
        DrawInto(canvas, board, shade);
    }
}

void Scene::PaintList(const Canvas &canvas) const {
    const Scale &px = layout_.px();
    const RECT list = layout_.List();
    DrawCard(canvas, list, 4, 0xFF8E8B84, 0xFFFBFAF7, px);
    DrawWell(canvas, Inset(list, px(1)), 3, px);
    list_.Paint(canvas);
    DrawScrollBar(canvas, skin_, layout_.Track(), list_.Thumb(), StateOf({Kind::kThumb}), px);
    if (focus_.IsShownAt({Kind::kList})) DrawFocusRing(canvas, RingOf({Kind::kList}), px);
}

void Scene::PaintBar(const Canvas &canvas) const {
    const Scale &px = layout_.px();
    const RECT bar = layout_.Bar();
    DrawProgress(canvas, skin_, bar, coats_, kMaxCoats, px);
    const std::string progress = std::to_string(coats_) + " of " + std::to_string(kMaxCoats) + " coats";
    // Light on what is filled, dark on the rest.
    const LONG end = FilledPart(bar, coats_, kMaxCoats).right;
    for (const bool isFilled : {true, false}) {
        const ScopedClip clip(canvas, {isFilled ? bar.left : end, bar.top, isFilled ? end : bar.right, bar.bottom});
        controls_->DrawName(canvas, bar.left + px(10), (bar.top + bar.bottom) / 2, progress,
                            isFilled ? 0xFFFFFFFF : kText);
    }
}

void Scene::PaintControls(const Canvas &canvas) const {
    const Icon captions[] = {Icon::kMinimise, layout_.isMaximised() ? Icon::kRestore : Icon::kMaximise, Icon::kClose};
    for (int i = 0; i < 3; ++i) {
        const Target button{Kind::kCaptionButton, i};
        const RECT place = PlaceOf(button);
        if (!IsEmpty(place)) controls_->DrawCaptionButton(canvas, place, captions[i], StateOf(button));
    }
    for (int i = 0; i < 2; ++i) {
        const Target box{Kind::kBox, i};
        controls_->DrawCheckBox(canvas, PlaceOf(box), isOn_[i], StateOf(box), kBoxNames[i]);
        if (focus_.IsShownAt(box)) DrawFocusRing(canvas, RingOf(box), layout_.px());
    }
    for (int i = kWipe; i <= kFinish; ++i) {
        const Target button{Kind::kButton, i};
        const RECT place = PlaceOf(button);
        if (i < kFinish)
            controls_->DrawButton(canvas, place, StateOf(button), kButtons[i].icon, kButtons[i].caption);
        else
            controls_->DrawMenuButton(canvas, place, StateOf(button), "Finish: " + std::string(kFinishes[finish_].name),
                                      isPopupOpen_ ? Icon::kDown : Icon::kUp);
        if (focus_.IsShownAt(button)) DrawFocusRing(canvas, RingOf(button), layout_.px());
    }
}

void Scene::PaintPopup(const Canvas &canvas) const {
    const Scale &px = layout_.px();
    const RECT popup = layout_.Popup();
    DrawShadow(canvas, popup, 5, px);
    DrawCard(canvas, popup, 5, 0xFF4A4F5C, 0xFFF7F7F9, px);
    for (int i = 0; i < kFinishCount; ++i) {
        const Target entry{Kind::kEntry, i};
        const RECT place = PlaceOf(entry);
        if (entry == hot_) controls_->DrawHighlight(canvas, place, 0xFFA0343C);
        const std::uint32_t ink = entry == hot_ ? 0xFFFFFFFF : kText;
        const int middle = (place.top + place.bottom) / 2;
        if (i == finish_) controls_->DrawIcon(canvas, place.left + px(5), middle - px(8), Icon::kTick, ink);
        controls_->DrawLabel(canvas, place.left + px(28), middle, kFinishes[i].name, ink);
        controls_->DrawBall(canvas, place.right - px(24), middle - px(8), list_.colour().word, kFinishes[i].gloss);
    }
}

}  // namespace lacquer::examples
