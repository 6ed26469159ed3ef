// Painting text in rectangles that are small enough to be added up quickly.

#include "text_pieces.h"

#include <algorithm>

namespace lacquer::vel {
namespace {

template <class Piece>
std::span<Piece> PiecesIn(std::span<Piece> pieces, const Clip &region) {
    const auto isIn = [&](const Piece &piece) { return !BoxOf(piece).Intersected(region).IsEmpty(); };
    return {pieces.begin(), std::partition(pieces.begin(), pieces.end(), isIn)};
}

}  // namespace

Clip TextPieces::BoxIn(const Clip &region) const {
    Clip box{0, 0, 0, 0};
    for (const PlacedMask &mask : masks) box = box.United(BoxOf(mask).Intersected(region));
    for (const Bounds &bar : bars) box = box.United(BoxOf(bar).Intersected(region));
    return box;
}

TextPieces TextPieces::In(const Clip &region) const { return {PiecesIn(masks, region), PiecesIn(bars, region)}; }

void Paint(cairo_t *context, const TextPieces &pieces, const Clip &box, Coverage &coverage) {
    const int width = box.right - box.left, height = box.bottom - box.top;
    if (Coverage::BytesOf(box) > coverage.Capacity()) {
        Clip halves[] = {box, box};
        if (width > height) {
            halves[0].right = halves[1].left = box.left + width / 2;
        } else {
            halves[0].bottom = halves[1].top = box.top + height / 2;
        }
        for (const Clip &half : halves) {
            const TextPieces inside = pieces.In(half);
            Paint(context, inside, inside.BoxIn(half), coverage);
        }
        return;
    }
    if (box.IsEmpty()) return;
    coverage.Begin(box);
    for (const auto &[mask, x, y] : pieces.masks) coverage.Add(*mask, x, y);
    for (const Bounds &bar : pieces.bars) coverage.Add(bar);
    cairo_surface_t *image =
        cairo_image_surface_create_for_data(coverage.Rows(), CAIRO_FORMAT_A8, width, height, coverage.Stride());
    cairo_mask_surface(context, image, box.left, box.top);
    cairo_surface_destroy(image);
}

}  // namespace lacquer::vel
