// Painting shadow around a rectangle, into it, or around and under it.
#pragma once

#include <cstdint>
#include <optional>

#include "draw/geometry/painted_parts.h"
#include "draw/geometry/rounded_rect.h"
#include "draw/geometry/units.h"
#include "pipeline/shape/shadow.h"

namespace lacquer {

enum class ShadowPlace { Around, Inside, AroundAndUnder };

/// Shares are those of pixels that lie in shadow, in kFullShadow; the rectangle takes its part away. Rows from `y` to
/// `yEnd` are painted alike where the rectangle is alike in them.
class ShadowPainter {
public:
    ShadowPainter(const PartPainter &painter, const RoundedRect &rect, ShadowPlace place)
        : painter_(painter), rect_(rect), place_(place), middle_(PixelAt(rect.top + rect.bottom) / 2) {}

    void Even(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, int32_t share);

    /// Takes shares that every call of Varying uses until the next ones are taken. Those inside the range count, of the
    /// first kMaxVarying.
    static constexpr int kMaxVarying = 1024;
    void Take(const int32_t *shares, const PixelRange &range);

    /// `range`: of the shares; the first of them is that of pixel x.
    void Varying(int64_t x, const PixelRange &range, int64_t y, int64_t yEnd);

    /// Asks for pixels that will be painted soon.
    void Prefetch(int64_t x, ptrdiff_t count, int64_t y) const { painter_.Prefetch(x, count, y); }

    /// Which pixels of a range, counted from x, shadow may be painted into.
    PixelRange Narrowed(int64_t x, const PixelRange &range, int64_t y);

    /// The share of which nothing is painted.
    int32_t Nothing() const { return place_ == ShadowPlace::Inside ? kFullShadow : 0; }

private:
    template <class Paint>
    void ForEachPiece(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, const Paint &paint);

    const CoverSpan &SpanAt(int64_t y);
    const CoverRow &RowAt(int64_t y);
    bool IsNone(BYTE cover) const;
    bool IsAll(BYTE cover) const { return cover == (place_ == ShadowPlace::Inside ? 255 : 0); }
    BYTE CoverOf(int32_t share, BYTE rect) const;

    const PartPainter &painter_;
    const CoverShape rect_;
    const ShadowPlace place_;
    const int32_t *shares_ = nullptr;
    BYTE covers_[kMaxVarying];  ///< what the shares come to where the rectangle takes nothing

    /// The rectangle's upper and lower half keep their last rows apart: a row and its mirror image take turns.
    bool IsLower(int64_t y) const { return y >= middle_; }
    const int64_t middle_;
    struct {
        std::optional<CoverRow> row;
        int64_t y = 0;
    } rows_[2];
    static constexpr int64_t kKnownSpans = 128;
    struct {
        int64_t y = INT64_MIN;
        std::optional<CoverSpan> span;
    } spans_[2][kKnownSpans];  ///< by the last bits of y
};

}  // namespace lacquer
