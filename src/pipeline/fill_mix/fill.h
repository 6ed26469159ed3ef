// The single-slot kernels that fill a view with a colour, base tier. `colour` is a premultiplied word 0xAARRGGBB; the
// contract is FillKernel's in kernel_table.h.
#pragma once

#include <lacquer/lacquer.h>

namespace lacquer {

int FillCopy(const SurfaceView *dest, DWORD colour);
int FillOver(const SurfaceView *dest, DWORD colour);
int FillBehind(const SurfaceView *dest, DWORD colour);
int FillModulate(const SurfaceView *dest, DWORD colour);
int FillOr(const SurfaceView *dest, DWORD colour);
int FillGreyTint(const SurfaceView *dest, DWORD colour);

/// Mixes a view with a colour that carries its own weight. Weight 0 does nothing, 255 fills with the colour; between
/// them each channel x becomes (x × (255 − weight) >> 8) + the colour's channel, modulo 256.
int MixColor(const SurfaceView *dest, DWORD colour, BYTE weight);

}  // namespace lacquer
