// Every kernel of the table is a sampler and a combine rule, put together by the compiler; here are the functions that
// they all are instances of. A kit has the parts of a tier by the names of the lists of rows and single slots.
#pragma once

#include <type_traits>

#include "pipeline/combine/rules.h"
#include "pipeline/pixel/source_pixels.h"
#include "pipeline/sample/draw_area.h"
#include "pipeline/table/kernel_table.h"

namespace lacquer {

/// The kernel of every row's reserved slot.
int DrawNothing(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth, uint64_t fifth);

/// A RowKernel. `Sampling` has `Draw(dest, source, area, combine)` and `Pixels`, the kind of source pixel it reads.
template <class Sampling, class Combine, Extent extent>
int DrawByRow(const SurfaceView *dest, const SurfaceView *source, uint64_t third, uint64_t fourth, uint64_t fifth) {
    const Combine combine(static_cast<uint32_t>(third));
    DrawArea area = WholeArea(*dest);
    if constexpr (extent == Extent::Part) {
        const uint64_t size = Combine::kHasParameter ? fourth : third;
        const uint64_t offset = Combine::kHasParameter ? fifth : fourth;
        area = {{FirstOfPair(size), SecondOfPair(size)}, {FirstOfPair(offset), SecondOfPair(offset)}};
    }
    if (CanDraw(*dest, *source, Sampling::Pixels::kBitsPerPixel, area)) Sampling::Draw(*dest, *source, area, combine);
    return 1;
}

/// An opaque source drawn over a destination is a copy, so both have one kernel.
template <class Kit, class Source, class Rule>
using CombineFor = typename Kit::template Combine<
    std::conditional_t<Source::kIsOpaque && std::is_same_v<Rule, typename Kit::Over>, typename Kit::Copy, Rule>>;

template <class Kit, template <class> class Sampler, class Rule, Extent extent>
constexpr KernelRow MakeRow() {
    return {{DrawByRow<Sampler<IndexedPixels>, CombineFor<Kit, IndexedPixels, Rule>, extent>,
             DrawByRow<Sampler<PackedPixels>, CombineFor<Kit, PackedPixels, Rule>, extent>,
             DrawByRow<Sampler<WordPixels>, CombineFor<Kit, WordPixels, Rule>, extent>, DrawNothing}};
}

/// The kernels of a single slot, by the kinds of kernel_slots.h.
template <class Kit, template <class> class Sampler, class Rule>
struct SlotKernels {
    using Sampling = Sampler<WordPixels>;

    static int Fill(const SurfaceView *dest, DWORD colour) { return FillBy(*dest, colour, Rule()); }

    static int MixColor(const SurfaceView *dest, DWORD colour, BYTE weight) {
        return ByWeight(weight, [&](const auto &rule) { return FillBy(*dest, colour, rule); });
    }

    static int Convert(const SurfaceView *dest, const SurfaceView *source) { return DrawBy(*dest, *source, Rule()); }

    static int Mix(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
        return ByWeight(weight, [&](const auto &rule) { return DrawBy(*dest, *source, rule); });
    }

private:
    template <class AnyRule>
    static int FillBy(const SurfaceView &dest, uint32_t colour, const AnyRule &rule) {
        if (CanFill(dest)) Sampling::Draw(dest, colour, rule);
        return 1;
    }

    template <class AnyRule>
    static int DrawBy(const SurfaceView &dest, const SurfaceView &source, const AnyRule &rule) {
        const DrawArea area = WholeArea(dest);
        const typename Kit::template Combine<AnyRule> combine(rule);
        if (CanDraw(dest, source, Sampling::Pixels::kBitsPerPixel, area)) Sampling::Draw(dest, source, area, combine);
        return 1;
    }

    template <class Draw>
    static int ByWeight(BYTE weight, const Draw &draw) {
        if constexpr (std::is_base_of_v<WeightRule, Rule>) {
            if (weight == 0) return 1;
            if (weight == 255) return draw(typename Kit::Copy());
        }
        return draw(Rule(weight));
    }
};

}  // namespace lacquer
