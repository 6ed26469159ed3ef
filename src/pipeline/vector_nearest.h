// The nearest sampler of the faster tiers: addresses are ready for use, and a source row that several destination rows
// share is fetched once.
#pragma once

#include "pipeline/stretch.h"
#include "pipeline/vector_pixels.h"

namespace lacquer {

template <class Source>
class VectorNearestFetch {
public:
    using Pixels = Source;

    VectorNearestFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, int count) {
        int64_t position = across_.At(first);
        for (int i = 0; i < count; ++i, position += across_.step) columns_[i] = static_cast<uint32_t>(position >> 16);
        last_ = nullptr;
    }

    void SetRow(int64_t row) {
        const BYTE *const next = RowOf(source_, down_.At(row) >> 16);
        if (next != row_) last_ = nullptr;
        row_ = next;
    }

    void Read(BYTE *out, int count) {
        if (last_) {
            if (last_ != out) std::memmove(out, last_, static_cast<size_t>(count) * kPixelBytes);
            return;
        }
        last_ = out;
        const auto read = pixels_.GetReader();
        const BYTE *const row = row_;
        int i = 0;
#ifdef LACQUER_SSE2
        for (; i + kVectorPixels <= count; i += kVectorPixels) {
            StoreFour(out + i * kPixelBytes, FourWords(read(row, columns_[i]), read(row, columns_[i + 1]),
                                                       read(row, columns_[i + 2]), read(row, columns_[i + 3])));
        }
#endif
        for (; i < count; ++i) StorePixel(out + i * kPixelBytes, read(row, columns_[i]));
    }

private:
    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    const BYTE *row_ = nullptr;
    const BYTE *last_ = nullptr;  ///< where the present row was written last
    uint32_t columns_[kBlockColumns];
};

}  // namespace lacquer
