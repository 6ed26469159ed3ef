// The scene's verbs by Qt's raster engine, on an image. The hint for smooth pictures counts only where sizes differ.
#include <QBrush>
#include <QImage>
#include <QPainter>
#include <QThreadPool>

#include "scene_painter.h"

namespace lacquer::bench {

namespace {

QRect RectOf(const Place &place) { return {place.x, place.y, place.width, place.height}; }

class QtPainter final : public ScenePainter {
public:
    QtPainter(int width, int height, Pictures pictures)
        : image_(width, height, QImage::Format_ARGB32_Premultiplied), painter_(&image_) {
        painter_.setRenderHint(QPainter::SmoothPixmapTransform);
        for (const PieceOfSkin &picture : pictures) {
            const auto format = picture.isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
            QImage image(reinterpret_cast<const uchar *>(picture.pixels.data()), picture.width, picture.height,
                         qsizetype{picture.width} * 4, format);
            pieces_.push_back({image, QBrush(image), picture.margins});
        }
    }

    const char *Name() const override { return "Qt"; }

    void Fill(const Place &place, std::uint32_t colour) override {
        painter_.setCompositionMode(QPainter::CompositionMode_Source);
        painter_.fillRect(RectOf(place), QColor::fromRgba(colour));
        painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    void Blend(const Place &place, std::uint32_t colour) override {
        painter_.fillRect(RectOf(place), QColor::fromRgba(colour));
    }
    void Picture(Piece piece, const Place &place) override {
        painter_.drawImage(QPoint(place.x, place.y), Of(piece).image);
    }
    void Stretch(Piece piece, const Place &place) override { painter_.drawImage(RectOf(place), Of(piece).image); }
    void NineGrid(Piece piece, const Place &place, int scale) override {
        const auto &[image, brush, margins] = Of(piece);
        const Cuts fromX = CutsOf(0, image.width(), margins.left, margins.right);
        const Cuts fromY = CutsOf(0, image.height(), margins.top, margins.bottom);
        const Cuts toX = CutsOf(place.x, place.width, margins.left * scale, margins.right * scale);
        const Cuts toY = CutsOf(place.y, place.height, margins.top * scale, margins.bottom * scale);
        const auto cell = [](const Cuts &across, std::size_t x, const Cuts &down, std::size_t y) {
            return QRect(across[x], down[y], across[x + 1] - across[x], down[y + 1] - down[y]);
        };
        for (std::size_t y = 0; y < 3; ++y) {
            for (std::size_t x = 0; x < 3; ++x)
                painter_.drawImage(cell(toX, x, toY, y), image, cell(fromX, x, fromY, y));
        }
    }
    void Tile(Piece piece, const Place &place) override {
        painter_.setBrushOrigin(place.x, place.y);
        painter_.fillRect(RectOf(place), Of(piece).brush);
    }

    std::vector<std::uint32_t> Pixels() const override {
        std::vector<std::uint32_t> pixels;
        AppendRows(pixels, image_.constBits(), image_.bytesPerLine(), image_.width(), image_.height());
        return pixels;
    }

private:
    struct ImagePiece {
        QImage image;
        QBrush brush;
        Margins margins;
    };
    const ImagePiece &Of(Piece piece) const { return pieces_[static_cast<std::size_t>(piece)]; }

    QImage image_;
    QPainter painter_;
    std::vector<ImagePiece> pieces_;
};

}  // namespace

std::unique_ptr<ScenePainter> MakeQtPainter(int width, int height, Pictures pictures) {
    return std::make_unique<QtPainter>(width, height, pictures);
}

// What runs in the pool already is not divided further.
void CallWithoutMoreThreads(const std::function<void()> &call) {
    QThreadPool::globalInstance()->start(call);
    QThreadPool::globalInstance()->waitForDone();
}

}  // namespace lacquer::bench
