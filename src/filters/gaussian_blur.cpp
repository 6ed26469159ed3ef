// The Gaussian blur: rows into the scratch, columns back, twice. Both directions work on small pieces that are
// converted to single precision once and then summed channel by channel.

#include "filters/gaussian_blur.h"

#include <algorithm>
#include <cstddef>

#include "core/locked.h"
#include "core/surface_view.h"
#include "pipeline/filter/gaussian.h"
#include "pipeline/pixel/pixel.h"
#include "pipeline/table/image_table.h"

namespace lacquer {
namespace {

constexpr int kReach = kGaussianReach, kTaps = kGaussianTaps, kPasses = 2;

/// Pixels that are converted together; their floats stay in the first-level cache.
constexpr LONG kPiece = 64;
constexpr ptrdiff_t kPieceBytes = ptrdiff_t{kPiece} * kPixelBytes;

void Widen(float *floats, const BYTE *bytes, ptrdiff_t count) { ImageKernels().widenBytes(floats, bytes, count); }

void SumTaps(BYTE *out, const float *const taps[kTaps], ptrdiff_t count) { ImageKernels().sumTaps(out, taps, count); }

/// Pixels `first` to `first + count` of a row, clamped into it, as floats.
void WidenClamped(float *floats, const BYTE *row, LONG width, LONG first, LONG count) {
    const LONG from = std::max(first, LONG{0}), to = std::min(first + count, width);
    for (LONG x = first; x < from; ++x, floats += kPixelBytes) Widen(floats, row, kPixelBytes);
    const ptrdiff_t inside = static_cast<ptrdiff_t>(to - from) * kPixelBytes;
    Widen(floats, row + static_cast<ptrdiff_t>(from) * kPixelBytes, inside);
    floats += inside;
    const BYTE *last = row + static_cast<ptrdiff_t>(width - 1) * kPixelBytes;
    for (LONG x = to; x < first + count; ++x, floats += kPixelBytes) Widen(floats, last, kPixelBytes);
}

void BlurRows(const SurfaceView &dest, const SurfaceView &source) {
    float floats[kPieceBytes + ptrdiff_t{2} * kReach * kPixelBytes];
    const float *taps[kTaps];
    for (ptrdiff_t k = 0; k < kTaps; ++k) taps[k] = floats + k * kPixelBytes;
    for (LONG y = 0; y < source.height; ++y) {
        const auto *in = RowOf(source, y);
        auto *out = RowOf(dest, y);
        for (LONG x = 0; x < source.width; x += kPiece) {
            const LONG count = std::min(kPiece, source.width - x);
            WidenClamped(floats, in, source.width, x - kReach, count + 2 * kReach);
            SumTaps(out + static_cast<ptrdiff_t>(x) * kPixelBytes, taps, static_cast<ptrdiff_t>(count) * kPixelBytes);
        }
    }
}

/// Walks down strips of one piece's width with the last seven rows as floats.
void BlurColumns(const SurfaceView &dest, const SurfaceView &source) {
    float ring[kTaps][kPieceBytes];
    const float *taps[kTaps];
    const LONG lastRow = source.height - 1;
    for (LONG x = 0; x < source.width; x += kPiece) {
        const ptrdiff_t offset = static_cast<ptrdiff_t>(x) * kPixelBytes;
        const ptrdiff_t count = static_cast<ptrdiff_t>(std::min(kPiece, source.width - x)) * kPixelBytes;
        const auto widenRow = [&](LONG y) {
            const LONG row = std::clamp(y, LONG{0}, lastRow);
            Widen(ring[(y + kReach) % kTaps], RowOf(source, row) + offset, count);
        };
        for (LONG y = -kReach; y < kReach; ++y) widenRow(y);
        for (LONG y = 0; y <= lastRow; ++y) {
            widenRow(y + kReach);
            for (int k = 0; k < kTaps; ++k) taps[k] = ring[(y + k) % kTaps];
            SumTaps(RowOf(dest, y) + offset, taps, count);
        }
    }
}

/// `Locked`: the lock for this kind of object.
template <class Locked, class Object>
void BlurLocked(Object &target, const RECT *targetRect, Object &scratch, const RECT *scratchRect) {
    const Locked lockedTarget(target, targetRect);
    if (!lockedTarget.View()) return;
    const Locked lockedScratch(scratch, scratchRect);
    if (lockedScratch.View()) GaussianBlur(*lockedTarget.View(), *lockedScratch.View());
}

}  // namespace

void GaussianBlur(PixelSurface &target, PixelSurface &scratch) {
    BlurLocked<LockedSurface>(target, nullptr, scratch, nullptr);
}

void GaussianBlur(Canvas &target, const RECT *targetRect, Canvas &scratch, const RECT *scratchRect) {
    BlurLocked<LockedCanvas>(target, targetRect, scratch, scratchRect);
}

void GaussianBlur(const SurfaceView &target, const SurfaceView &scratch) {
    if (target.bitsPerPixel != 32 || scratch.bitsPerPixel != 32) return;
    if (target.width != scratch.width || target.height != scratch.height) return;
    for (int pass = 0; pass < kPasses; ++pass) {
        BlurRows(scratch, target);
        BlurColumns(target, scratch);
    }
}

}  // namespace lacquer
