// The scene's verbs by cairo, on an image surface. Every cell of a nine-grid is a surface of its own over the piece's
// pixels, so that no sample comes from its neighbours; patterns are made once.
#include <cairo.h>

#include "scene_painter.h"

namespace lacquer::bench {

namespace {

/// A picture, or a cell of one.
struct Source {
    cairo_pattern_t *pattern;
    int width, height;
};

Source MakeSource(const PieceOfSkin &piece, const Place &part) {
    // cairo only reads from a source.
    auto *words = const_cast<std::uint32_t *>(piece.pixels.data()) + std::ptrdiff_t{part.y} * piece.width + part.x;
    cairo_surface_t *surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char *>(words), CAIRO_FORMAT_ARGB32, part.width, part.height, piece.width * 4);
    cairo_pattern_t *pattern = cairo_pattern_create_for_surface(surface);
    cairo_surface_destroy(surface);
    return {pattern, part.width, part.height};
}

std::vector<Source> MakeCells(const PieceOfSkin &piece) {
    const Cuts across = CutsOf(0, piece.width, piece.margins.left, piece.margins.right);
    const Cuts down = CutsOf(0, piece.height, piece.margins.top, piece.margins.bottom);
    if (across[1] == 0) return {};
    std::vector<Source> cells;
    for (std::size_t y = 0; y < 3; ++y) {
        for (std::size_t x = 0; x < 3; ++x) {
            cells.push_back(MakeSource(piece, {across[x], down[y], across[x + 1] - across[x], down[y + 1] - down[y]}));
        }
    }
    return cells;
}

class CairoPainter final : public ScenePainter {
public:
    CairoPainter(int width, int height, Pictures pictures)
        : width_(width),
          height_(height),
          surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
          context_(cairo_create(surface_)) {
        for (const PieceOfSkin &picture : pictures) {
            pieces_.push_back({MakeSource(picture, {0, 0, picture.width, picture.height}), MakeCells(picture),
                               picture.margins, picture.isOpaque});
        }
    }
    ~CairoPainter() override {
        for (const CutPiece &piece : pieces_) {
            cairo_pattern_destroy(piece.whole.pattern);
            for (const Source &cell : piece.cells) cairo_pattern_destroy(cell.pattern);
        }
        cairo_destroy(context_);
        cairo_surface_destroy(surface_);
    }

    const char *Name() const override { return "cairo"; }

    void Fill(const Place &place, std::uint32_t colour) override {
        cairo_set_operator(context_, CAIRO_OPERATOR_SOURCE);
        FillColour(place, colour);
        cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
    }
    void Blend(const Place &place, std::uint32_t colour) override { FillColour(place, colour); }
    void Picture(Piece piece, const Place &place) override { DrawWhole(piece, place); }
    void Stretch(Piece piece, const Place &place) override { DrawWhole(piece, place); }
    void NineGrid(Piece piece, const Place &place, int scale) override {
        const CutPiece &cut = Of(piece);
        const Margins &margins = cut.margins;
        const Cuts across = CutsOf(place.x, place.width, margins.left * scale, margins.right * scale);
        const Cuts down = CutsOf(place.y, place.height, margins.top * scale, margins.bottom * scale);
        for (std::size_t y = 0; y < 3; ++y) {
            for (std::size_t x = 0; x < 3; ++x) {
                const Place cell{across[x], down[y], across[x + 1] - across[x], down[y + 1] - down[y]};
                Draw(cut.cells[y * 3 + x], cell);
            }
        }
    }
    void Tile(Piece piece, const Place &place) override {
        const CutPiece &cut = Of(piece);
        if (cut.isOpaque) cairo_set_operator(context_, CAIRO_OPERATOR_SOURCE);
        cairo_pattern_set_extend(cut.whole.pattern, CAIRO_EXTEND_REPEAT);
        cairo_pattern_set_filter(cut.whole.pattern, CAIRO_FILTER_NEAREST);
        cairo_matrix_t matrix;
        cairo_matrix_init_translate(&matrix, -place.x, -place.y);
        cairo_pattern_set_matrix(cut.whole.pattern, &matrix);
        cairo_set_source(context_, cut.whole.pattern);
        FillPlace(place);
        cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
    }

    std::vector<std::uint32_t> Pixels() const override {
        cairo_surface_flush(surface_);
        std::vector<std::uint32_t> pixels;
        AppendRows(pixels, cairo_image_surface_get_data(surface_), cairo_image_surface_get_stride(surface_), width_,
                   height_);
        return pixels;
    }

private:
    struct CutPiece {
        Source whole;
        std::vector<Source> cells;
        Margins margins;
        bool isOpaque;
    };
    const CutPiece &Of(Piece piece) const { return pieces_[static_cast<std::size_t>(piece)]; }

    void FillPlace(const Place &place) const {
        cairo_rectangle(context_, place.x, place.y, place.width, place.height);
        cairo_fill(context_);
    }
    void FillColour(const Place &place, std::uint32_t colour) const {
        const auto channel = [&](int shift) { return (colour >> shift & 255) / 255.0; };
        cairo_set_source_rgba(context_, channel(16), channel(8), channel(0), channel(24));
        FillPlace(place);
    }
    void Draw(const Source &source, const Place &place) const {
        const double stepX = static_cast<double>(source.width) / place.width;
        const double stepY = static_cast<double>(source.height) / place.height;
        const bool isSameSize = source.width == place.width && source.height == place.height;
        cairo_matrix_t matrix;
        cairo_matrix_init(&matrix, stepX, 0, 0, stepY, -place.x * stepX, -place.y * stepY);
        cairo_pattern_set_matrix(source.pattern, &matrix);
        cairo_pattern_set_filter(source.pattern, isSameSize ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_BILINEAR);
        cairo_pattern_set_extend(source.pattern, isSameSize ? CAIRO_EXTEND_NONE : CAIRO_EXTEND_PAD);
        cairo_set_source(context_, source.pattern);
        FillPlace(place);
    }
    void DrawWhole(Piece piece, const Place &place) const {
        const CutPiece &cut = Of(piece);
        if (cut.isOpaque) cairo_set_operator(context_, CAIRO_OPERATOR_SOURCE);
        Draw(cut.whole, place);
        cairo_set_operator(context_, CAIRO_OPERATOR_OVER);
    }

    int width_, height_;
    cairo_surface_t *surface_;
    cairo_t *context_;
    std::vector<CutPiece> pieces_;
};

}  // namespace

std::unique_ptr<ScenePainter> MakeCairoPainter(int width, int height, Pictures pictures) {
    return std::make_unique<CairoPainter>(width, height, pictures);
}

}  // namespace lacquer::bench
