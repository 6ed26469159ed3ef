// A combine rule known by its address, so that a sampler is compiled once for all rules.
#pragma once

#include <cstddef>

#include "pipeline/pixel/pixel.h"

namespace lacquer {

/// Refers to a rule for runs that lives longer, or to none where the rule copies in place: a fetch then writes into the
/// destination itself.
class RunRef {
public:
    template <class Combine>
    explicit RunRef(const Combine &combine)
        : combine_(&combine), run_(Combine::IsInPlace() ? nullptr : &RunOf<Combine>), copies_(Combine::Copies()) {}

    bool Copies() const { return copies_; }
    bool IsInPlace() const { return run_ == nullptr; }

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const { run_(combine_, dest, source, count); }

private:
    template <class Combine>
    static void RunOf(const void *combine, BYTE *dest, const BYTE *source, ptrdiff_t count) {
        static_cast<const Combine *>(combine)->Run(dest, source, count);
    }

    const void *combine_;
    void (*run_)(const void *, BYTE *, const BYTE *, ptrdiff_t);
    bool copies_;
};

}  // namespace lacquer
