// Conversions, cross-fades and mixes are combine rules of their own, put together with the samplers of the rows.

#include "pipeline/fill_mix/mix.h"

#include "pipeline/combine/rules.h"
#include "pipeline/fill_mix/mix_draw.h"
#include "pipeline/sample/nearest.h"
#include "pipeline/sample/same_size.h"

namespace lacquer {
namespace {

/// d := s | 0xFF000000. Never looks at d.
struct OpaqueCombine : PlainRule {
    static constexpr bool kCopies = false;
    using PlainRule::PlainRule;

    void Run(BYTE *dest, const BYTE *source, ptrdiff_t count) const {
        for (ptrdiff_t i = 0; i < count * kPixelBytes; i += kPixelBytes) {
            StorePixel(dest + i, LoadPixel(source + i) | kOpaque);
        }
    }
};

using OneToOne = SameSize<WordPixels>;
using NearestStretch = Stretched<NearestFetch<WordPixels>>;

}  // namespace

int ForceOpaque(const SurfaceView *dest, const SurfaceView *source) {
    return DrawWhole<OneToOne>(dest, source, OpaqueCombine(0));
}

int StretchOpaque(const SurfaceView *dest, const SurfaceView *source) {
    return DrawWhole<NearestStretch>(dest, source, OpaqueCombine(0));
}

int BlendSame(const SurfaceView *dest, const SurfaceView *source, BYTE alpha) {
    return DrawWhole<OneToOne>(dest, source, PerPixel<CrossFadeRule>(alpha));
}

int BlendStretch(const SurfaceView *dest, const SurfaceView *source, BYTE alpha) {
    return DrawWhole<NearestStretch>(dest, source, PerPixel<CrossFadeRule>(alpha));
}

int MixSame(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return DrawMix<OneToOne, PerPixel<MixRule>>(dest, source, weight);
}

int MixStretch(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return DrawMix<NearestStretch, PerPixel<MixRule>>(dest, source, weight);
}

}  // namespace lacquer
