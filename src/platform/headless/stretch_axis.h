// Which source pixels belong to a destination pixel, along one axis of a stretch.
#pragma once

#include <lacquer/headless_gdi.h>

#include <algorithm>
#include <cstdint>

namespace lacquer::headless {

/// The source pixels of one destination pixel: positions low ... high, and those that a walk along the source meets
/// first and last within them. Empty when low > high.
struct SourceSpan {
    LONG low = 0, high = -1;
    LONG first = 0, last = 0;

    bool IsEmpty() const { return low > high; }
};

/// A run of destination pixels and the run of source pixels that is stretched over it. Either may go backwards.
/// Stretching gives destination pixel number n the source pixel number (n S + (S - 1) / 2) / D, and shrinking gives
/// source pixel number i to destination pixel number (i D + (D - 1) / 2) / S, all quotients rounded down.
class StretchAxis {
public:
    /// Device coordinates of the first pixels, and the lengths in walking direction (negative: backwards). Neither is
    /// 0; they have at most 32 bits when they are equal, and 31 otherwise.
    StretchAxis(int64_t dest, int64_t destLength, int64_t source, int64_t sourceLength)
        : dest_(dest),
          source_(source),
          destLength_(destLength < 0 ? -destLength : destLength),
          sourceLength_(sourceLength < 0 ? -sourceLength : sourceLength),
          destBackwards_(destLength < 0),
          sourceBackwards_(sourceLength < 0),
          destLow_(destBackwards_ ? dest_ - destLength_ + 1 : dest_),
          destHigh_(destLow_ + destLength_ - 1) {}

    /// What StretchBlt, alone among the transfers, makes of a source of pixels 0 ... limit - 1: shrinking to one pixel
    /// leaves the last source pixel out, and of a mirrored source that is not wholly inside, the part inside is
    /// mirrored where it would lie without mirroring.
    void FitToSource(LONG limit) {
        if (destBackwards_ != sourceBackwards_) {
            MirrorInPlace(limit);
        } else if (destLength_ == 1 && !destBackwards_ && sourceLength_ > 1) {
            --sourceLength_;
        }
    }

    int64_t DestLow() const { return destLow_; }
    int64_t DestHigh() const { return destHigh_; }
    int64_t SourceLow() const { return sourceBackwards_ ? source_ - sourceLength_ + 1 : source_; }

    /// Whether each pixel is copied to one pixel, in the same order.
    bool IsPlainCopy() const { return destLength_ == sourceLength_ && destBackwards_ == sourceBackwards_; }

    /// The source pixels of destination pixel `position` that lie in 0 ... limit - 1.
    SourceSpan SpanOf(LONG position, LONG limit) const {
        const int64_t n = destBackwards_ ? dest_ - position : position - dest_;
        int64_t from = 0;
        int64_t to = 0;
        if (destLength_ == sourceLength_) {
            from = to = n;
        } else if (destLength_ > sourceLength_) {
            from = to = (n * sourceLength_ + (sourceLength_ - 1) / 2) / destLength_;
        } else {
            from = FirstFor(n);
            to = FirstFor(n + 1) - 1;
        }
        const int64_t low = std::max<int64_t>(sourceBackwards_ ? source_ - to : source_ + from, 0);
        const int64_t high = std::min<int64_t>(sourceBackwards_ ? source_ - from : source_ + to, limit - 1);
        if (low > high) return SourceSpan{};
        SourceSpan span{static_cast<LONG>(low), static_cast<LONG>(high), 0, 0};
        span.first = sourceBackwards_ ? span.high : span.low;
        span.last = sourceBackwards_ ? span.low : span.high;
        return span;
    }

private:
    void MirrorInPlace(int64_t limit) {
        const int64_t low = SourceLow();
        const int64_t high = low + sourceLength_;
        // A source that goes backwards may begin one pixel beyond its bitmap.
        if (low >= 0 && high <= limit + (sourceBackwards_ ? 1 : 0)) return;
        const int64_t first = std::max<int64_t>(low, 0);
        const int64_t last = std::min(high, limit);
        if (first >= last) return;
        // Where the part inside lies now, counted from the first destination pixel in walking direction.
        const int64_t from = sourceBackwards_ ? high - last : first - low;
        const int64_t to = sourceBackwards_ ? high - first : last - low;
        const int64_t shift = destLength_ - from * destLength_ / sourceLength_ - to * destLength_ / sourceLength_;
        dest_ += destBackwards_ ? -shift : shift;
        const int64_t moved = destBackwards_ ? dest_ - destLength_ + 1 : dest_;
        destLow_ = std::max(destLow_, moved);
        destHigh_ = std::min(destHigh_, moved + destLength_ - 1);
    }

    // The first source pixel number that goes to destination pixel number n or beyond; numbers are not negative.
    int64_t FirstFor(int64_t n) const {
        const int64_t numerator = n * sourceLength_ - (destLength_ - 1) / 2;
        return numerator <= 0 ? 0 : (numerator + destLength_ - 1) / destLength_;
    }

    int64_t dest_, source_;
    int64_t destLength_, sourceLength_;
    bool destBackwards_, sourceBackwards_;
    // The destination pixels that may be drawn.
    int64_t destLow_, destHigh_;
};

}  // namespace lacquer::headless
