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
        : painter_(painter), rect_(rect), place_(place) {}

    void Even(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, int32_t share);

    /// At most kMaxVarying pixels.
    static constexpr int kMaxVarying = 512;
    void Varying(int64_t x, int count, int64_t y, int64_t yEnd, const int32_t *shares);

    /// Asks for pixels that will be painted soon.
    void Prefetch(int64_t x, ptrdiff_t count, int64_t y) const { painter_.Prefetch(x, count, y); }

    /// Which of `columns` pixels from x on, counted from there, shadow may be painted into; empty when the first is not
    /// below the second.
    PixelRange Narrowed(int64_t x, int columns, int64_t y);

private:
    template <class Paint>
    void ForEachPiece(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, const Paint &paint);

    const CoverSpan &SpanAt(int64_t y);
    const CoverRow &RowAt(int64_t y);
    bool IsNone(BYTE cover) const;
    BYTE CoverOf(int32_t share, BYTE rect) const;

    const PartPainter &painter_;
    const CoverShape rect_;
    const ShadowPlace place_;
    std::optional<CoverRow> row_;  ///< the last one that was asked for
    int64_t rowAt_ = 0;
    static constexpr int64_t kKnownSpans = 128;
    struct {
        int64_t y = INT64_MIN;
        CoverSpan span;
    } spans_[kKnownSpans];  ///< those of the last rows, by the last bits of y
};

}  // namespace lacquer
