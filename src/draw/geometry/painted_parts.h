// A shape of two parts, fill and border, painted into locked pixels piece by piece.
#pragma once

#include <lacquer/lacquer.h>

#include <cstdint>

#include "pipeline/table/image_table.h"

namespace lacquer {

/// What a shape is painted with. Alpha 0 leaves a part unpainted, in every mode.
struct Paint {
    DWORD fill, border;  ///< straight colours
    DWORD modeWord;
};

/// Paints into the view of a canvas. Positions are logical pixels inside the view; `end` is exclusive.
class PartPainter {
public:
    /// `view`: 32 bits per pixel, with its top-left pixel at (left, top).
    PartPainter(const SurfaceView &view, int64_t left, int64_t top, const Paint &paint);

    /// Pixels that take a part as a whole.
    void FillWhole(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const { Whole(fill_, x, xEnd, y, yEnd); }
    void BorderWhole(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const { Whole(border_, x, xEnd, y, yEnd); }

    /// Pixels of which parts are covered, `inner` by the fill and `border` by the border; every row alike.
    static constexpr int kMaxCovered = 64;
    void Covered(int64_t x, int count, int64_t y, int64_t yEnd, const BYTE *inner, const BYTE *border) const;

    /// The same for any number of pixels that the fill alone covers, and draws over.
    void FillCovered(int64_t x, ptrdiff_t count, int64_t y, int64_t yEnd, const BYTE *cover) const;

    /// The same for any number of pixels, covered evenly.
    void Evenly(int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, BYTE inner, BYTE border) const;

    /// Asks for pixels that will be painted soon.
    void Prefetch(int64_t x, ptrdiff_t count, int64_t y) const;

private:
    struct Part {
        DWORD colour;  ///< premultiplied; 0 when it is not painted
        bool isPainted;
    };

    static Part PartOf(DWORD straight, DWORD modeWord);
    void Whole(const Part &part, int64_t x, int64_t xEnd, int64_t y, int64_t yEnd) const;
    void OverEvenly(const Part &part, int64_t x, int64_t xEnd, int64_t y, int64_t yEnd, BYTE cover) const;
    void MixByFills(BYTE *pixels, int count, const BYTE *inner, const BYTE *border) const;
    BYTE *PixelAt(int64_t x, int64_t y) const;

    const SurfaceView &view_;
    int64_t left_, top_;
    DWORD modeWord_;
    bool isOver_;
    Part fill_, border_;
    const ImageTable &kernels_;
    bool isOpaque_;                ///< both parts replace what they cover
    DWORD words_[2][kMaxCovered];  ///< a run of each, then
};

}  // namespace lacquer
