// Conversions, cross-fades and mixes are combine rules of their own, put together with the samplers of the rows.

#include "pipeline/mix.h"

#include "pipeline/combine.h"
#include "pipeline/nearest.h"
#include "pipeline/same_size.h"

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

/// Colours: d := (d × (256 − a) >> 8) + (s × (a + 1) >> 8); dA := (dA × (256 − a) >> 8) + a. No channel exceeds 255.
class CrossFadeRule {
public:
    explicit CrossFadeRule(uint32_t alpha) : alpha_(alpha) {}
    uint32_t Apply(uint32_t s, uint32_t d) const {
        return Scale(d, 256 - alpha_) + (Scale(s & ~kOpaque, alpha_ + 1) | alpha_ << 24);
    }

private:
    uint32_t alpha_;
};

/// Each channel: d := (s × (w + 1) + d × (255 − w)) >> 8
class MixRule {
public:
    explicit MixRule(uint32_t weight) : take_(weight + 1), keep_(255 - weight) {}
    uint32_t Apply(uint32_t s, uint32_t d) const {
        return JoinUpper(BlueRed(s) * take_ + BlueRed(d) * keep_, GreenAlpha(s) * take_ + GreenAlpha(d) * keep_);
    }

private:
    uint32_t take_, keep_;
};

using OneToOne = SameSize<WordPixels>;
using NearestStretch = Stretched<NearestFetch<WordPixels>>;

template <class Sampling, class CombineRule>
int DrawWhole(const SurfaceView *dest, const SurfaceView *source, const CombineRule &combine) {
    const DrawArea area = WholeArea(*dest);
    if (CanDraw(*dest, *source, 32, area)) Sampling::Draw(*dest, *source, area, combine);
    return 1;
}

template <class Sampling>
int Mix(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    if (weight == 0) return 1;
    if (weight == 255) return DrawWhole<Sampling>(dest, source, CopyCombine(0));
    return DrawWhole<Sampling>(dest, source, PerPixel<MixRule>(weight));
}

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
    return Mix<OneToOne>(dest, source, weight);
}

int MixStretch(const SurfaceView *dest, const SurfaceView *source, BYTE weight) {
    return Mix<NearestStretch>(dest, source, weight);
}

}  // namespace lacquer
