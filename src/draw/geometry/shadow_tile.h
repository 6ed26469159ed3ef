// A piece of a blurred shape: for each pixel the share of it that lies in shadow.
#pragma once

#include <cstdint>

#include "draw/geometry/caster.h"
#include "draw/geometry/units.h"
#include "pipeline/shape/shadow.h"
#include "pipeline/table/image_table.h"

namespace lacquer {

/// Places on the canvas in 1/65536 pixel: those of pixels in columns and rows that begin `spacing` after each other.
struct ShadowGrid {
    int64_t x, y, spacing;
    int columns, rows;

    int64_t XEnd() const { return x + (columns - 1) * spacing + GaussianEdge::kPixel; }
    int64_t YEnd() const { return y + (rows - 1) * spacing + GaussianEdge::kPixel; }
};

/// Up to kColumns × kRows pixels, made slab by slab. Lives on the stack: 26 KB.
class ShadowTile {
public:
    static constexpr int kColumns = kLinePixels, kRows = 32;

    explicit ShadowTile(const Caster &caster) : caster_(caster), kernels_(ImageKernels()) {}

    /// Computes `rows` rows of `columns` pixels from (x, y) on; at most kRows and kColumns. Pixels of a row that are
    /// not wanted may be left out.
    void Compute(int64_t x, int64_t y, int columns, int rows, const PixelRange *wanted);

    /// The same for the pixels of a grid; what is nothing but shadow comes close to kFullShadow.
    void ComputeGrid(const ShadowGrid &grid, const PixelRange *wanted);

    /// Shares of kFullShadow.
    const int32_t *Row(int row) const { return sums_[row]; }

private:
    /// The slabs of a side that the tile feels, in order: those whose edge is felt in it, and groups beside them.
    struct Felt {
        int64_t first, upperFelt, upperEnd, straight, afterStraight, lowerFelt, lowerEnd, last;
    };

    Felt FindFelt(const CasterSide &side, bool isLeft) const;
    void LineDown(int64_t cut, int16_t *out) const;
    void AddGroups(const CasterSide &side, const Felt &felt);
    void AddGroup(const CasterSide &side, int64_t from, int64_t to, int transition);
    void GatherSlabs(const CasterSide &side, bool isLeft, int64_t from, int64_t to);
    void AddGathered();

    static constexpr int kMaxLines = 32;

    const Caster &caster_;
    const ImageTable &kernels_;
    ShadowGrid grid_{};
    const PixelRange *wanted_ = nullptr;
    int32_t sums_[kRows][kColumns];
    int32_t groups_[kRows];                   ///< by row: what is the same in all columns
    int gathered_ = 0;                        ///< slabs whose products are still to be added
    int16_t lines_[kMaxLines * kLinePixels];  ///< transitions at their edges, by column
    int16_t weights_[kRows][kMaxLines];       ///< by row
};

}  // namespace lacquer
