// From a draw's mode, kernel mode and alpha to the kernel that draws it. Works on locked views; clipping and locking
// lie with the callers.
#pragma once

#include <lacquer/lacquer.h>

#include "pipeline/table/kernel_table.h"

namespace lacquer {

/// The draw mode: the top byte of a mode word.
constexpr DWORD DrawModeOf(DWORD modeWord) { return modeWord >> 24; }
constexpr DWORD ModeWord(DWORD drawMode) { return drawMode << 24; }

/// Draws `source` into all of `dest`, stretched when the sizes differ.
/// `modeWord`: the draw mode in the top byte, the key colour of LACQUER_DRAW_COLOR_KEY below it.
/// `kernelMode`: the sampler of a stretch, LACQUER_NEAREST ... LACQUER_AREA.
/// `alpha`: 255 for none; 0..254 is a constant alpha for every mode but LACQUER_DRAW_MODULATE and
/// LACQUER_DRAW_BEHIND.
/// Result: 0 when a view is null, else 1, also when nothing is drawn: for alpha 0, for empty views, and for depths
/// other than 32 (destination) and 8, 24 or 32 (source).
int BlitSameRect(const SurfaceView *dest, const SurfaceView *source, DWORD modeWord, DWORD kernelMode, BYTE alpha);

/// Draws the part of a draw that `dest` shows. `source`: the whole source rectangle. `fullSize`: of the whole
/// destination rectangle, pixels. `visibleOffset`: of `dest` inside it. Each pixel is the one that the whole draw has
/// there; a part that sticks out of the full size draws nothing. Otherwise as BlitSameRect.
int BlitSubRect(const SurfaceView *dest, const SurfaceView *source, SIZE fullSize, POINT visibleOffset, DWORD modeWord,
                DWORD kernelMode, BYTE alpha);

/// Whether a fill with a premultiplied colour changes nothing by definition, on whatever canvas: a transparent colour
/// drawn over or keyed, white that multiplies or is OR-ed.
bool IsVoidFill(DWORD colour, DWORD modeWord);

/// Fills a view. `colour`: a premultiplied word 0xAARRGGBB. `modeWord`: only its top byte counts. Result: 0 for a null
/// view, else 1, also for a view that is not 32-bit, which stays as it is.
int FillView(const SurfaceView *dest, DWORD colour, DWORD modeWord);

/// Copies the pixels of the common top-left part, converted from the source's depth.
void ConvertCopy(const SurfaceView &dest, const SurfaceView &source);

/// Copies the whole source into the whole destination, resampled when the sizes differ.
void ResampleCopy(const SurfaceView &dest, const SurfaceView &source, DWORD kernelMode);

/// Sets the alpha of every pixel to 255.
void ForceOpaqueView(const SurfaceView &view);

}  // namespace lacquer
