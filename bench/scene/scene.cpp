// Where the pieces are. All numbers are lengths at 96 DPI.
#include "scene.h"

namespace lacquer::bench {

namespace {

constexpr std::uint32_t kDim = 0x70101420, kHighlight = 0xFFA0343C;

Place Inset(const Place &place, int by) {
    return {place.x + by, place.y + by, place.width - 2 * by, place.height - 2 * by};
}

/// Writes steps down, in lengths at 96 DPI from an origin.
class Pen {
public:
    explicit Pen(int scale) : scale_(scale) {}

    void MoveTo(int x, int y) {
        x_ = x;
        y_ = y;
    }
    void Fill(const Place &place, std::uint32_t colour) { Add(Verb::kFill, {}, place, colour); }
    void Blend(const Place &place, std::uint32_t colour) { Add(Verb::kBlend, {}, place, colour); }
    /// A piece at its own size, which is another one at another scale.
    void Picture(Piece piece, const Place &place) { Add(scale_ == 1 ? Verb::kPicture : Verb::kStretch, piece, place); }
    void Stretch(Piece piece, const Place &place) { Add(Verb::kStretch, piece, place); }
    void NineGrid(Piece piece, const Place &place) { Add(Verb::kNineGrid, piece, place); }
    void Tile(Piece piece, const Place &place) { Add(Verb::kTile, piece, place); }

    Steps TakeSteps() { return std::move(steps_); }

private:
    void Add(Verb verb, Piece piece, const Place &place, std::uint32_t colour = 0) {
        const Place scaled{(x_ + place.x) * scale_, (y_ + place.y) * scale_, place.width * scale_,
                           place.height * scale_};
        steps_.push_back({verb, piece, scaled, colour, scale_});
    }

    int scale_, x_ = 0, y_ = 0;
    Steps steps_;
};

void AddBoard(Pen &pen, const Place &board) {
    pen.NineGrid(Piece::kField, board);
    const Place wood = Inset(board, 4);
    pen.Tile(Piece::kWood, wood);
    for (int coat = 0; coat < 2; ++coat) pen.Blend(wood, 0x58C8321E);
    const int width = wood.width - 60, height = wood.height - 110;
    pen.Stretch(Piece::kPhoto, {wood.x + 30, wood.y + 80, width, height - 20});
    for (int i = 0; i < 3; ++i) pen.Picture(Piece::kKnob, {wood.x + 12 + i * 74, wood.y + 8, 64, 64});
    pen.Blend({wood.x, wood.y + wood.height - 28, wood.width, 28}, 0x90101420);
}

/// Cards with an icon each, the second one chosen.
void AddList(Pen &pen, const Place &list) {
    pen.NineGrid(Piece::kPanel, list);
    const int right = list.x + list.width;
    for (int y = list.y + 4, row = 0; y + 60 <= list.y + list.height; y += 62, ++row) {
        const Place card{list.x + 4, y, list.width - 26, 58};
        if (row == 1) pen.Fill(Inset(card, -1), kHighlight);
        pen.NineGrid(Piece::kCard, card);
        pen.Stretch(Piece::kIcon, {card.x + 14, card.y + 13, 32, 32});
        pen.Picture(Piece::kCheck, {card.x + card.width - 40, card.y + 17, 24, 24});
    }
    pen.NineGrid(Piece::kTrack, {right - 18, list.y + 3, 14, list.height - 6});
    pen.NineGrid(Piece::kThumb, {right - 18, list.y + 24, 14, list.height / 3});
}

void AddPopup(Pen &pen, const Place &popup) {
    pen.NineGrid(Piece::kShadow, Inset(popup, -20));
    pen.NineGrid(Piece::kPanel, popup);
    pen.Fill({popup.x + 6, popup.y + 32, popup.width - 12, 26}, kHighlight);
    for (int i = 0; i < 3; ++i) {
        pen.Stretch(Piece::kIcon, {popup.x + popup.width - 26, popup.y + 9 + i * 26, 20, 20});
        pen.Picture(Piece::kCheck, {popup.x + 6, popup.y + 7 + i * 26, 24, 24});
    }
}

/// A window with its shadow, which reaches 20 pixels beyond it.
void AddWindow(Pen &pen, int x, int y, int width, int height) {
    pen.MoveTo(x, y);
    pen.NineGrid(Piece::kShadow, {-20, -20, width + 40, height + 40});
    pen.NineGrid(Piece::kFrame, {0, 0, width, height});
    pen.Stretch(Piece::kIcon, {9, 6, 22, 22});
    pen.Picture(Piece::kMinimise, {width - 66, 6, 28, 20});
    pen.Picture(Piece::kClose, {width - 36, 6, 28, 20});

    const Place list{width - 208, 44, 190, height - 156};
    const Place board{18, 44, list.x - 30, list.height};
    AddBoard(pen, board);
    AddList(pen, list);

    const Place bar{18, height - 98, board.width, 18}, filled{18, bar.y, board.width * 2 / 5, 18};
    pen.NineGrid(Piece::kBar, bar);
    pen.NineGrid(Piece::kFilledBar, filled);
    pen.Tile(Piece::kStripes, Inset(filled, 2));
    for (int i = 0; i < 2; ++i) pen.Picture(Piece::kCheck, {list.x + i * 92, height - 101, 24, 24});

    pen.NineGrid(Piece::kButton, {12, height - 68, 96, 44});
    pen.NineGrid(Piece::kHotButton, {104, height - 68, 138, 44});
    pen.NineGrid(Piece::kButton, {238, height - 68, 96, 44});
    pen.NineGrid(Piece::kButton, {list.x - 6, height - 68, list.width + 12, 44});
}

Scene WindowScene(const char *name, int width, int height, int scale) {
    Pen pen(scale);
    pen.Fill({0, 0, width, height}, 0);
    AddWindow(pen, 20, 20, width - 40, height - 40);
    AddPopup(pen, {width - 248, height - 198, 190, 90});
    pen.MoveTo(0, 0);
    pen.Blend({0, 0, width, height}, kDim);
    return {name, width * scale, height * scale, pen.TakeSteps()};
}

}  // namespace

void Paint(ScenePainter &painter, const Steps &steps) {
    for (const auto &[verb, piece, place, colour, scale] : steps) {
        switch (verb) {
            case Verb::kFill: painter.Fill(place, colour); break;
            case Verb::kBlend: painter.Blend(place, colour); break;
            case Verb::kPicture: painter.Picture(piece, place); break;
            case Verb::kStretch: painter.Stretch(piece, place); break;
            case Verb::kNineGrid: painter.NineGrid(piece, place, scale); break;
            case Verb::kTile: painter.Tile(piece, place); break;
        }
    }
}

Scene SmallWindow() { return WindowScene("window 640x460", 640, 460, 1); }
Scene LargeWindow() { return WindowScene("window 1280x920", 1280, 920, 1); }
Scene ScaledWindow() { return WindowScene("window 640x460 at 200 %", 640, 460, 2); }

Scene Desktop() {
    constexpr int kWidth = 1080, kHeight = 680, kTaskBar = 40;
    Pen pen(1);
    pen.Stretch(Piece::kPhoto, {0, 0, kWidth, kHeight - kTaskBar});
    pen.Tile(Piece::kWood, {0, kHeight - kTaskBar, kWidth, kTaskBar});
    for (int i = 0; i < 4; ++i) pen.Picture(Piece::kIcon, {984, 300 + i * 80, 64, 64});
    AddWindow(pen, 40, 40, 560, 380);
    AddWindow(pen, 330, 150, 640, 440);
    AddPopup(pen, {392, 200, 190, 90});
    pen.MoveTo(0, 0);
    pen.Picture(Piece::kSplash, {40, 440, 264, 168});
    AddPopup(pen, {60, 540, 190, 90});
    return {"desktop 1080x680", kWidth, kHeight, pen.TakeSteps()};
}

}  // namespace lacquer::bench
