// Transfers between views.
#include "platform/headless/transfer.h"

#include <cstdlib>

namespace lacquer::headless {
namespace {

constexpr uint32_t kWhite = 0xFFFFFF;

/// A quotient rounded to the nearest.
constexpr uint32_t Over255(uint32_t product) { return (product + 127) / 255; }

/// The sums of channels that are not premultiplied can pass 255. They are joined with OR, so that such a sum sets the
/// lowest bit of the channel above it, as GDI has it.
uint32_t Blended(uint32_t source, uint32_t dest, const TransferMode &mode) {
    const uint32_t constant = mode.constantAlpha;
    const uint32_t remaining = 255 - Over255((source >> 24) * constant);
    uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const uint32_t s = source >> shift & 0xFF;
        const uint32_t d = dest >> shift & 0xFF;
        const uint32_t sum = mode.hasPixelAlpha ? Over255(s * constant) + Over255(d * remaining)
                                                : Over255(s * constant + d * (255 - constant));
        result |= sum << shift;
    }
    return result;
}

/// Turns raw source values into raw destination values. Runs of equal values are converted once.
class Converter {
public:
    Converter(const PixelView &source, const PixelView &dest, bool whiteIsOne)
        : source_(source), dest_(dest), whiteIsOne_(whiteIsOne), isIdentity_(HaveSameFormat(source, dest)) {}

    bool IsIdentity() const { return isIdentity_; }

    uint32_t operator()(uint32_t raw) {
        if (isIdentity_) return raw;
        if (!isPrimed_ || raw != lastRaw_) {
            lastRaw_ = raw;
            lastResult_ = Convert(raw);
            isPrimed_ = true;
        }
        return lastResult_;
    }

private:
    uint32_t Convert(uint32_t raw) const {
        if (whiteIsOne_ && dest_.bitsPerPixel == 1) return raw == RawOf(source_, kWhite);
        const uint32_t colour = ColourOf(source_, raw);
        return source_.bitsPerPixel > 8 ? RawOfTrueColour(dest_, colour) : RawOf(dest_, colour);
    }

    const PixelView &source_;
    const PixelView &dest_;
    bool whiteIsOne_, isIdentity_;
    bool isPrimed_ = false;
    uint32_t lastRaw_ = 0;
    uint32_t lastResult_ = 0;
};

/// The raw source value of one destination pixel.
uint32_t Gather(const PixelView &source, const SourceSpan &columns, const SourceSpan &rows, Merge merge) {
    // Down a column the first row of the span is kept, along a row its last pixel.
    if (merge == Merge::PickOne) return LoadRaw(source, source.Row(rows.first), columns.last);
    uint32_t result = merge == Merge::And ? ~0u : 0;
    for (LONG y = rows.low; y <= rows.high; ++y) {
        const uint8_t *row = source.Row(y);
        for (LONG x = columns.low; x <= columns.high; ++x) {
            const uint32_t raw = LoadRaw(source, row, x);
            result = merge == Merge::And ? result & raw : result | raw;
        }
    }
    return result;
}

class BoxTransfer {
public:
    BoxTransfer(const PixelView &source, const PixelView &dest, const TransferMode &mode)
        : source_(source), dest_(dest), mode_(mode), convert_(source, dest, mode.whiteIsOne) {}

    // False when memory is short.
    bool Run(const pixman_box32_t &box, const StretchAxis &x, const StretchAxis &y) {
        const bool takesSingleRows = mode_.merge == Merge::PickOne || y.IsPlainCopy();
        if (x.IsPlainCopy() && takesSingleRows && convert_.IsIdentity() && !mode_.blends && dest_.bitsPerPixel >= 8) {
            CopyRows(box, x, y);
            return true;
        }
        const auto width = static_cast<size_t>(box.x2 - box.x1);
        MallocPtr<SourceSpan> columns(static_cast<SourceSpan *>(std::malloc(width * sizeof(SourceSpan))));
        if (!columns) return false;
        for (size_t i = 0; i < width; ++i) {
            columns.get()[i] = x.SpanOf(box.x1 + static_cast<LONG>(i), source_.width);
        }
        for (LONG row = box.y1; row < box.y2; ++row) {
            const SourceSpan rows = y.SpanOf(row, source_.height);
            if (!rows.IsEmpty()) TransferRow(dest_.Row(row), box.x1, columns.get(), width, rows);
        }
        return true;
    }

private:
    void TransferRow(uint8_t *destRow, LONG left, const SourceSpan *columns, size_t width, const SourceSpan &rows) {
        for (size_t i = 0; i < width; ++i) {
            if (columns[i].IsEmpty()) continue;
            const LONG x = left + static_cast<LONG>(i);
            const uint32_t raw = Gather(source_, columns[i], rows, mode_.merge);
            StoreRaw(dest_, destRow, x, mode_.blends ? Blend(raw, LoadRaw(dest_, destRow, x)) : convert_(raw));
        }
    }

    uint32_t Blend(uint32_t sourceRaw, uint32_t destRaw) const {
        const uint32_t opaque = source_.bitsPerPixel == 32 ? 0 : 0xFF000000;
        return RawOfTrueColour(dest_, Blended(ColourOf(source_, sourceRaw) | opaque, ColourOf(dest_, destRaw), mode_));
    }

    void CopyRows(const pixman_box32_t &box, const StretchAxis &x, const StretchAxis &y) const {
        const int64_t shift = x.SourceLow() - x.DestLow();
        const int64_t left = std::max<int64_t>(box.x1, -shift);
        const int64_t right = std::min<int64_t>(box.x2, source_.width - shift);
        if (left >= right) return;
        const size_t pixelBytes = dest_.bitsPerPixel / 8u;
        const auto destOffset = static_cast<size_t>(left) * pixelBytes;
        const auto sourceOffset = static_cast<size_t>(left + shift) * pixelBytes;
        const auto bytes = static_cast<size_t>(right - left) * pixelBytes;
        for (LONG row = box.y1; row < box.y2; ++row) {
            const SourceSpan rows = y.SpanOf(row, source_.height);
            if (rows.IsEmpty()) continue;
            std::memcpy(dest_.Row(row) + destOffset, source_.Row(rows.first) + sourceOffset, bytes);
        }
    }

    const PixelView &source_;
    const PixelView &dest_;
    const TransferMode &mode_;
    Converter convert_;
};

/// Replaces `view` by a copy of those rows of it that destination rows top ... bottom - 1 take pixels from. The copy
/// belongs to `storage`. False when memory is short.
bool Detach(PixelView &view, const StretchAxis &y, LONG top, LONG bottom, MallocPtr<uint8_t> &storage) {
    LONG low = view.height;
    LONG high = -1;
    for (LONG row = top; row < bottom; ++row) {
        const SourceSpan rows = y.SpanOf(row, view.height);
        if (rows.IsEmpty()) continue;
        low = std::min(low, rows.low);
        high = std::max(high, rows.high);
    }
    if (low > high) return true;
    const auto stride = static_cast<size_t>(view.step < 0 ? -view.step : view.step);
    const auto count = static_cast<size_t>(high - low) + 1;
    storage.reset(static_cast<uint8_t *>(std::malloc(count * stride)));
    if (!storage) return false;
    for (LONG row = low; row <= high; ++row) {
        std::memcpy(storage.get() + static_cast<size_t>(row - low) * stride, view.Row(row), stride);
    }
    view.origin = storage.get();
    view.step = static_cast<ptrdiff_t>(stride);
    view.firstRow = low;
    return true;
}

}  // namespace

bool Transfer(const DeviceContext &dest, const StretchAxis &x, const StretchAxis &y, const PixelView &source,
              const TransferMode &mode) {
    Region visible;
    const RECT rect{Clamped(x.DestLow()), Clamped(y.DestLow()), Clamped(x.DestHigh() + 1), Clamped(y.DestHigh() + 1)};
    if (!dest.VisiblePart(rect, visible)) return false;
    int count = 0;
    const pixman_box32_t *boxes = visible.Boxes(count);
    if (count == 0) return true;

    const PixelView destView = ViewOf(*dest.bitmap);
    PixelView sourceView = source;
    MallocPtr<uint8_t> storage;
    if (source.origin == destView.origin) {
        const RECT bounds = visible.Bounds();
        if (!Detach(sourceView, y, bounds.top, bounds.bottom, storage)) return false;
    }
    BoxTransfer transfer(sourceView, destView, mode);
    for (int i = 0; i < count; ++i) {
        if (!transfer.Run(boxes[i], x, y)) return false;
    }
    return true;
}

bool FillBits(const DeviceContext &dest, const RECT &rect, bool ones) {
    Region visible;
    if (!dest.VisiblePart(rect, visible)) return false;
    const PixelView view = ViewOf(*dest.bitmap);
    int count = 0;
    const pixman_box32_t *boxes = visible.Boxes(count);
    for (int i = 0; i < count; ++i) {
        for (LONG y = boxes[i].y1; y < boxes[i].y2; ++y) {
            for (LONG x = boxes[i].x1; x < boxes[i].x2; ++x) StoreRaw(view, view.Row(y), x, ones ? ~0u : 0);
        }
    }
    return true;
}

}  // namespace lacquer::headless
