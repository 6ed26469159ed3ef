// Quarter turns, mirrors and transpositions of whole surfaces.

#include "core/surface_copy.h"
#include "core/surface_view.h"
#include "pipeline/transform/turn.h"

namespace lacquer {

std::unique_ptr<PixelSurface> TransformedSurface(PixelSurface &source, DWORD code, SurfaceKind kind) {
    if (code < LACQUER_ROTATE_90 || code > LACQUER_TRANSVERSE) return nullptr;
    const auto width = static_cast<DWORD>(SwapsSides(code) ? source.Height() : source.Width());
    const auto height = static_cast<DWORD>(SwapsSides(code) ? source.Width() : source.Height());
    std::unique_ptr<PixelSurface> result = MakeSurface(width, height, static_cast<DWORD>(source.BitsPixel()),
                                                       static_cast<DWORD>(source.PaletteCount()), kind);
    if (!result) return nullptr;
    result->SetFilter(source.Filter());
    SurfaceView from{}, to{};
    if (!source.LockEx(&from) || !result->LockEx(&to)) return result;
    if (from.bitsPerPixel != to.bitsPerPixel || from.paletteCount != to.paletteCount) return result;
    CopyPalette(to, from);
    TurnView(ImageKernels(), to, from, code);
    return result;
}

}  // namespace lacquer
