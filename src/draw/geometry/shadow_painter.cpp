// The rectangle's part of each pixel, and the shadow that is left of it.

#include "draw/geometry/shadow_painter.h"

#include <algorithm>

#include "pipeline/table/image_table.h"

namespace lacquer {

const CoverRow &ShadowPainter::RowAt(int64_t y) {
    auto &known = rows_[IsLower(y)];
    if (!known.row || known.y != y) {
        known.row.emplace(rect_, y);
        known.y = y;
    }
    return *known.row;
}

/// Tiles beside each other ask for the same rows.
const CoverSpan &ShadowPainter::SpanAt(int64_t y) {
    auto &known = spans_[IsLower(y)][y & (kKnownSpans - 1)];
    if (known.y != y) {
        known.span = RowAt(y);
        known.y = y;
    }
    return *known.span;
}

/// Where the rectangle covers so much, nothing is painted.
bool ShadowPainter::IsNone(BYTE cover) const {
    return (place_ == ShadowPlace::Around && cover == 255) || (place_ == ShadowPlace::Inside && cover == 0);
}

BYTE ShadowPainter::CoverOf(int32_t share, BYTE rect) const {
    switch (place_) {
        case ShadowPlace::Around: return CoverOfShare(share, 255 - rect);
        case ShadowPlace::Inside: return CoverOfShare(kFullShadow - share, rect);
        default: return CoverOfShare(share, 255);
    }
}

/// Calls paint(x, xEnd, y, yEnd, varies, cover) for pieces of equal rows: the rectangle varies in it from pixel to
/// pixel, or covers each of its pixels so much.
template <class Paint>
void ShadowPainter::ForEachPiece(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, const Paint &paint) {
    if (place_ == ShadowPlace::AroundAndUnder) return paint(x, xEnd, y, yEnd, false, BYTE{0});
    while (y < yEnd) {
        const CoverSpan &row = SpanAt(y);
        const int64_t until = std::min(yEnd, row.alikeUntil);
        int64_t from = x;
        const int64_t cuts[] = {row.begin, row.flatBegin, row.flatEnd, row.end, xEnd};
        for (const int64_t cut : cuts) {
            const int64_t to = std::min(cut, xEnd);
            if (to <= from) continue;
            const bool isOutside = from < row.begin || from >= row.end;
            const bool isFlat = from >= row.flatBegin && from < row.flatEnd;
            const BYTE cover = isOutside ? BYTE{0} : row.flat;
            const bool varies = !isOutside && !isFlat;
            if (varies || !IsNone(cover)) paint(from, to, y, until, varies, cover);
            from = to;
        }
        y = until;
    }
}

void ShadowPainter::Even(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, int32_t share) {
    ForEachPiece(x, xEnd, y, yEnd, [&](int64_t from, int64_t to, int64_t top, int64_t bottom, bool varies, BYTE cover) {
        if (!varies) return painter_.Evenly(from, to, top, bottom, CoverOf(share, cover), 0);
        for (; from < to; ++from) {
            painter_.Evenly(from, from + 1, top, bottom, CoverOf(share, RowAt(top).At(from)), 0);
        }
    });
}

void ShadowPainter::Take(const int32_t *shares, const PixelRange &range) {
    shares_ = shares;
    ImageKernels().coverShares(shares + range.from, range.to - range.from, place_ == ShadowPlace::Inside,
                               covers_ + range.from);
}

void ShadowPainter::Varying(int64_t x, const PixelRange &range, int64_t y, int64_t yEnd) {
    ForEachPiece(x + range.from, x + range.to, y, yEnd,
                 [&](int64_t from, int64_t to, int64_t top, int64_t bottom, bool varies, BYTE cover) {
                     const auto first = from - x, count = to - from;
                     if (!varies && IsAll(cover)) {
                         return painter_.FillCovered(from, count, top, bottom, covers_ + first);
                     }
                     BYTE covers[kMaxVarying];
                     for (int64_t i = 0; i < count; ++i) {
                         covers[i] = CoverOf(shares_[first + i], varies ? RowAt(top).At(from + i) : cover);
                     }
                     painter_.FillCovered(from, count, top, bottom, covers);
                 });
}

PixelRange ShadowPainter::Narrowed(int64_t x, const PixelRange &range, int64_t y) {
    if (place_ == ShadowPlace::AroundAndUnder) return range;
    const CoverSpan &row = SpanAt(y);
    int64_t from = x + range.from, to = x + range.to;
    if (place_ == ShadowPlace::Inside) {
        from = std::max(from, row.begin);
        to = std::min(to, row.end);
    } else if (row.flat == 255 && row.flatBegin < row.flatEnd) {
        if (from >= row.flatBegin) from = std::max(from, std::min(to, row.flatEnd));
        if (to <= row.flatEnd) to = std::min(to, std::max(from, row.flatBegin));
    }
    return {static_cast<int>(from - x), static_cast<int>(std::max(from, to) - x)};
}

}  // namespace lacquer
