// Fills four pixels at a time. A fill is a combine rule whose source is one colour.

#include "pipeline/fill_mix/fill_sse2.h"

#include "pipeline/combine/map_run_sse2.h"
#include "pipeline/combine/rules_sse2.h"
#include "pipeline/memory/pixel_runs.h"
#include "platform/fill_words.h"

namespace lacquer {
namespace {

/// Shorter runs cost less than the start of a string store.
constexpr ptrdiff_t kStringRun = 192;

/// The destination's words by a formula of the colour and the destination, which takes words and vectors of words.
template <class Formula>
struct Coloured {
    uint32_t colour;
    Formula formula;

    uint32_t operator()(uint32_t d) const { return formula(colour, d); }
#ifdef LACQUER_SSE2
    __m128i operator()(__m128i d) const { return formula(EachWord(colour), d); }
#endif
};

/// d := formula(c, d)
template <class Formula>
int ChangePixels(const SurfaceView &dest, uint32_t colour, const Formula &formula) {
    return ForEachRunRead(dest, [coloured = Coloured<Formula>{colour, formula}](BYTE *pixels, ptrdiff_t count) {
        ChangeRun(pixels, count, coloured);
    });
}

/// The colour drawn by a combine rule.
template <class Rule>
int FillByRule(const SurfaceView *dest, DWORD colour) {
    return ChangePixels(*dest, colour, [rule = Rule(0)](auto c, auto d) { return rule.Apply(c, d); });
}

/// Each channel: d := (d × keep >> 8) + c, modulo 256
class WeightedColour {
public:
    explicit WeightedColour(uint32_t weight) : keep_(255 - weight) {}
    uint32_t operator()(uint32_t c, uint32_t d) const { return AddModulo(Scale(d, keep_), c); }
#ifdef LACQUER_SSE2
    __m128i operator()(__m128i c, __m128i d) const { return _mm_add_epi8(ScaleFour(d, EachLane(keep_)), c); }
#endif

private:
    uint32_t keep_;
};

struct OrColour {
    uint32_t operator()(uint32_t c, uint32_t d) const { return c | d; }
#ifdef LACQUER_SSE2
    __m128i operator()(__m128i c, __m128i d) const { return _mm_or_si128(c, d); }
#endif
};

/// Never looks at the pixels that it writes.
void StoreRun(BYTE *pixels, uint32_t colour, ptrdiff_t count) {
    ptrdiff_t i = 0;
#ifdef LACQUER_SSE2
    const __m128i colours = EachWord(colour);
    for (; i + kVectorPixels <= count; i += kVectorPixels) StoreFour(pixels + i * kPixelBytes, colours);
#endif
    for (; i < count; ++i) StorePixel(pixels + i * kPixelBytes, colour);
}

}  // namespace

int VectorFillCopy(const SurfaceView *dest, DWORD colour) {
    return ForEachRun(*dest, [c = uint32_t{colour}](BYTE *pixels, ptrdiff_t count) { StoreRun(pixels, c, count); });
}

int StringFillCopy(const SurfaceView *dest, DWORD colour) {
    return ForEachRun(*dest, [c = uint32_t{colour}](BYTE *pixels, ptrdiff_t count) {
        if (count < kStringRun) return StoreRun(pixels, c, count);
        FillWords(pixels, c, static_cast<size_t>(count));
    });
}

int VectorFillOver(const SurfaceView *dest, DWORD colour) { return FillByRule<VectorOver>(dest, colour); }

int VectorFillBehind(const SurfaceView *dest, DWORD colour) { return FillByRule<VectorBehind>(dest, colour); }

int VectorFillModulate(const SurfaceView *dest, DWORD colour) { return FillByRule<VectorModulate>(dest, colour); }

int VectorFillOr(const SurfaceView *dest, DWORD colour) { return ChangePixels(*dest, colour, OrColour()); }

int VectorMixColor(const SurfaceView *dest, DWORD colour, BYTE weight) {
    if (weight == 0) return 1;
    if (weight == 255) return VectorFillCopy(dest, colour);
    return ChangePixels(*dest, colour, WeightedColour(weight));
}

}  // namespace lacquer
