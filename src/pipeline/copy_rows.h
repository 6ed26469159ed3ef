// Copying rows of bytes from view to view: each copy at 1:1 of pixels that stay as they are.
#pragma once

#include <cstring>

#include "pipeline/streaming.h"

namespace lacquer {

/// Copies `bytes` bytes of each of `rows` rows, large results past the caches. Within one surface, whose views have one
/// stride, the rows may overlap in any way: the result is as if all had been read first.
inline void CopyRows(const SurfaceView &dest, const SurfaceView &source, ptrdiff_t bytes, ptrdiff_t rows) {
    BYTE *out = RowOf(dest, 0);
    const BYTE *in = RowOf(source, 0);
    ptrdiff_t outStep = dest.stride, inStep = source.stride;
    // A row that is written further on in the source must have been read before: then the last row is the first.
    // A destination in front of the source is further behind it than any size, as the difference wraps around.
    const auto behind = reinterpret_cast<uintptr_t>(out) - reinterpret_cast<uintptr_t>(in);
    if (behind < static_cast<uintptr_t>((rows - 1) * inStep + bytes)) {
        out = RowOf(dest, rows - 1);
        in = RowOf(source, rows - 1);
        outStep = -outStep;
        inStep = -inStep;
    }
    if (StreamingPays(int64_t{bytes} * rows)) {
        for (; rows > 0; --rows, out += outStep, in += inStep) StreamBytes(out, in, bytes);
    } else {
        for (; rows > 0; --rows, out += outStep, in += inStep) std::memmove(out, in, static_cast<size_t>(bytes));
    }
}

}  // namespace lacquer
