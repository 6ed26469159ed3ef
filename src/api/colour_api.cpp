// The exported functions on single colours, and the colorizing of a texture.

#include <lacquer/lacquer.h>

#include "api/objects.h"
#include "filters/colorize.h"
#include "filters/colour_models.h"

using namespace lacquer;

static_assert(sizeof(RGBRecord) == 3 && sizeof(HSLRecord) == 3);

namespace {

uint32_t WordOf(const RGBRecord &colour) {
    return static_cast<uint32_t>(colour.r) << 16 | static_cast<uint32_t>(colour.g) << 8 | colour.b;
}
uint32_t WordOf(const HSLRecord &colour) {
    return static_cast<uint32_t>(colour.h) << 16 | static_cast<uint32_t>(colour.s) << 8 | colour.l;
}

/// Writes the low three bytes in memory order.
template <class Record>
Record *Write(Record *out, uint32_t word) {
    *out = {static_cast<BYTE>(word & 0xFF), static_cast<BYTE>(word >> 8 & 0xFF), static_cast<BYTE>(word >> 16 & 0xFF)};
    return out;
}

}  // namespace

DWORD ARGBtoAHSL(DWORD argb) { return AhslOf(argb); }

DWORD AHSLtoARGB(DWORD ahsl) { return ArgbOf(ahsl); }

HSLRecord *RGBtoHSL(HSLRecord *out, const RGBRecord *in) {
    return out && in ? Write(out, AhslOf(WordOf(*in))) : nullptr;
}

RGBRecord *HSLtoRGB(RGBRecord *out, const HSLRecord *in) {
    return out && in ? Write(out, ArgbOf(WordOf(*in))) : nullptr;
}

DWORD ARGBColorize(DWORD argb, float dh, float ds, float dl) {
    const ColourShift shift{dh, ds, dl};
    return shift.IsNothing() ? argb : ShiftedArgb(argb, shift);
}

DWORD AHSLColorize(DWORD ahsl, float dh, float ds, float dl) {
    const ColourShift shift{dh, ds, dl};
    return shift.IsNothing() ? ahsl : ShiftedAhsl(ahsl, shift);
}

RGBRecord *RGBColorize(RGBRecord *out, const RGBRecord *in, float dh, float ds, float dl) {
    return out && in ? Write(out, ARGBColorize(WordOf(*in), dh, ds, dl)) : nullptr;
}

HSLRecord *HSLColorize(HSLRecord *out, const HSLRecord *in, float dh, float ds, float dl) {
    return out && in ? Write(out, AHSLColorize(WordOf(*in), dh, ds, dl)) : nullptr;
}

int ColorizeTexture(HGTEXTURE texture, float dh, float ds, float dl) {
    const ColourShift shift{dh, ds, dl};
    if (shift.IsNothing()) return 1;
    PixelSurface *surface = FindSurface(texture);
    return surface && Colorize(*surface, shift);
}
