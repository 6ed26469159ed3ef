// Runs of visible pixels, gathered into rectangles that are handed to GDI in batches. The regions of the batches are
// merged in pairs of equal rank, so that each run takes part in few merges.

#include "filters/texture_region.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "core/locked.h"
#include "core/surface_view.h"
#include "pipeline/pixel/pixel.h"
#include "pipeline/table/blit_dispatch.h"

namespace lacquer {
namespace {

constexpr DWORD kGrowth = 100;      ///< rectangles
constexpr DWORD kBatch = 2000;      ///< most rectangles in one call of ExtCreateRegion
constexpr std::size_t kRanks = 32;  ///< 2^32 batches are more than a surface has pixels

/// A region in the making. Without memory it becomes null for good.
class RegionBuilder {
public:
    RegionBuilder() : block_(GlobalAlloc(GMEM_MOVEABLE, BytesFor(capacity_))) {
        data_ = block_ ? static_cast<RGNDATA *>(GlobalLock(block_)) : nullptr;
        failed_ = !data_;
        if (!failed_) Reset();
    }
    ~RegionBuilder() {
        if (data_) GlobalUnlock(block_);
        if (block_) GlobalFree(block_);
        for (HRGN region : merged_) {
            if (region) DeleteObject(region);
        }
    }
    RegionBuilder(const RegionBuilder &) = delete;
    RegionBuilder &operator=(const RegionBuilder &) = delete;

    /// Adds the pixels `left` up to `right` of row `y`.
    void Add(LONG left, LONG right, LONG y) {
        if (failed_ || !MakeRoom()) return;
        RGNDATAHEADER &header = data_->rdh;
        SetRect(reinterpret_cast<RECT *>(data_->Buffer) + header.nCount, left, y, right, y + 1);
        header.rcBound = {std::min(header.rcBound.left, left), std::min(header.rcBound.top, y),
                          std::max(header.rcBound.right, right), std::max(header.rcBound.bottom, y + 1)};
        if (++header.nCount == kBatch) Flush();
    }

    /// The finished region, the caller's, or null.
    HRGN Finish() {
        if (!failed_) Flush();
        HRGN whole = nullptr;
        for (HRGN &region : merged_) {
            if (failed_ || !region) continue;
            HRGN part = std::exchange(region, nullptr);
            whole = whole ? Union(part, whole) : part;
            failed_ = !whole;
        }
        return whole;
    }

private:
    /// One region of two, which are gone afterwards; null without memory.
    static HRGN Union(HRGN first, HRGN second) {
        const bool isMerged = CombineRgn(first, first, second, RGN_OR) != ERROR;
        DeleteObject(second);
        if (isMerged) return first;
        DeleteObject(first);
        return nullptr;
    }

    static DWORD BytesFor(DWORD rectangles) {
        return static_cast<DWORD>(sizeof(RGNDATAHEADER) + rectangles * sizeof(RECT));
    }

    void Reset() { data_->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, 0, 0, {0x7FFFFFFF, 0x7FFFFFFF, 0, 0}}; }

    bool MakeRoom() {
        if (data_->rdh.nCount < capacity_) return true;
        GlobalUnlock(block_);
        data_ = nullptr;
        HGLOBAL grown = GlobalReAlloc(block_, BytesFor(capacity_ + kGrowth), GMEM_MOVEABLE);
        if (grown) {
            block_ = grown;
            capacity_ += kGrowth;
            data_ = static_cast<RGNDATA *>(GlobalLock(block_));
        }
        failed_ = !data_;
        return !failed_;
    }

    /// Makes the batch a region of rank 0, and of two regions of one rank one of the next, as a binary counter carries.
    void Flush() {
        HRGN part = ExtCreateRegion(nullptr, BytesFor(capacity_), data_);
        Reset();
        std::size_t rank = 0;
        for (; part && merged_[rank]; ++rank) part = Union(std::exchange(merged_[rank], nullptr), part);
        failed_ = !part;
        // Where memory was short, the rank's own region is still there.
        if (part) merged_[rank] = part;
    }

    DWORD capacity_ = kGrowth;
    HGLOBAL block_;
    RGNDATA *data_ = nullptr;
    HRGN merged_[kRanks] = {};  ///< by rank: of 1, 2, 4 ... batches, or null
    bool failed_ = false;
};

/// `isVisible(row, x)` tells whether a pixel belongs to the region.
template <class Test>
HRGN CollectRuns(const SurfaceView &view, const Test &isVisible) {
    RegionBuilder builder;
    for (LONG y = 0; y < view.height; ++y) {
        const auto *row = RowOf(view, y);
        for (LONG x = 0; x < view.width;) {
            if (!isVisible(row, x)) {
                ++x;
                continue;
            }
            const LONG start = x;
            while (x < view.width && isVisible(row, x)) ++x;
            builder.Add(start, x, y);
        }
    }
    return builder.Finish();
}

HRGN RegionOf(const SurfaceView &view) {
    switch (view.bitsPerPixel) {
        case 8:
            return CollectRuns(
                view, [&](const BYTE *row, LONG x) { return row[x] < view.paletteCount && view.palette[row[x]] != 0; });
        case 24: return CollectRuns(view, [](const BYTE *, LONG) { return true; });
        case 32:
            return CollectRuns(view, [](const BYTE *row, LONG x) {
                return LoadPixel(row + static_cast<ptrdiff_t>(x) * kPixelBytes) != 0;
            });
        default: return nullptr;
    }
}

}  // namespace

HRGN MakeTextureRegion(Texture &texture, const RECT *rect) {
    PixelSurface &surface = texture.Surface();
    const RECT whole{0, 0, surface.Width(), surface.Height()};
    const RECT place = rect ? *rect : whole;
    if (place.left < 0 || place.top < 0 || place.right < place.left || place.bottom < place.top ||
        place.right > whole.right || place.bottom > whole.bottom) {
        return nullptr;
    }
    if (DrawModeOf(surface.Filter()) == LACQUER_DRAW_COPY) {
        return CreateRectRgn(0, 0, place.right - place.left, place.bottom - place.top);
    }
    const LockedSurface locked(surface, &place);
    return locked.View() ? RegionOf(*locked.View()) : nullptr;
}

}  // namespace lacquer
