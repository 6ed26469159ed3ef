// The stretches of the faster tiers: large copies go past the caches.
#pragma once

#include "pipeline/memory/streaming_simd.h"
#include "pipeline/sample/stretch.h"

namespace lacquer::LACQUER_TIER {

/// A copy from the words that a fetch has put into the cache.
struct StreamedCopy {
    static constexpr bool Copies() { return true; }
    static constexpr bool IsInPlace() { return false; }

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const { StreamWords(dest, source, count); }
};

/// For samplers that take longer than memory: their stores would wait for it, as well as what they read.
template <class Fetch, class... Others>
struct StreamingStretched : lacquer::Stretched<Fetch, Others...> {
    template <class Combine>
    static void Draw(const SurfaceView &dest, const SurfaceView &source, const DrawArea &area, const Combine &combine) {
        const int64_t bytes = int64_t{dest.width} * dest.height * kPixelBytes;
        const bool streams =
            Combine::Copies() && bytes >= memoryLimits.streamedBytes && RowsAreAligned(dest, kBytesOf<Widest>);
        if (!streams) return lacquer::Stretched<Fetch, Others...>::Draw(dest, source, area, combine);
        DrawWithFirst<Fetch, Others...>(dest, source, area, RunRef(StreamedCopy()));
        FinishStreaming();
    }
};

}  // namespace lacquer::LACQUER_TIER
