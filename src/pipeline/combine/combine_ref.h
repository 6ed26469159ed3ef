// A combine rule known by its address, so that a sampler is compiled once for all rules.
#pragma once

#include <cstddef>

#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// Refers to a combine rule that lives longer, or to none.
class CombineRef {
public:
    CombineRef() = default;

    template <class Combine>
    explicit CombineRef(const Combine &combine) : combine_(&combine), run_(&RunOf<Combine>) {}

    explicit operator bool() const { return run_ != nullptr; }

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const { run_(combine_, dest, source, count); }

private:
    template <class Combine>
    static void RunOf(const void *combine, BYTE *dest, const BYTE *source, ptrdiff_t count) {
        static_cast<const Combine *>(combine)->Run(dest, source, count);
    }

    const void *combine_ = nullptr;
    void (*run_)(const void *, BYTE *, const BYTE *, ptrdiff_t) = nullptr;
};

}  // namespace lacquer
