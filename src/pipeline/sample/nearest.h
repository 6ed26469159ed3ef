// The nearest sampler: the source pixel on which the destination pixel's top-left corner falls.
#pragma once

#include "pipeline/sample/stretch.h"

namespace lacquer {

template <class Source>
class NearestFetch : public StretchFetch<> {
public:
    using Pixels = Source;

    NearestFetch(const SurfaceView &source, SIZE fullSize)
        : source_(source),
          pixels_(source),
          across_(CornerSteps(source.width, fullSize.cx)),
          down_(CornerSteps(source.height, fullSize.cy)) {}

    void SetColumns(int64_t first, ptrdiff_t count) {
        for (ptrdiff_t i = 0; i < count; ++i) columns_[i] = static_cast<int>(across_.At(first + i) >> 16);
    }

    const BYTE *Read(int64_t row, BYTE *buffer, ptrdiff_t count) const {
        const auto read = pixels_.GetReader();
        const BYTE *const pixels = RowOf(source_, down_.At(row) >> 16);
        for (ptrdiff_t i = 0; i < count; ++i) StorePixel(buffer + i * kPixelBytes, read(pixels, columns_[i]));
        return buffer;
    }

private:
    const SurfaceView &source_;
    Source pixels_;
    Steps across_, down_;
    int columns_[kBlockColumns];
};

}  // namespace lacquer
