// Applying a rule for one colour word to the pixels or to the palette of a view.
#pragma once

#include <lacquer/lacquer.h>

#include <cstddef>
#include <cstdint>

#include "core/surface_view.h"
#include "pipeline/combine/run.h"
#include "pipeline/memory/walk.h"
#include "pipeline/pixel/grey_ramp.h"
#include "pipeline/pixel/source_pixels.h"

namespace lacquer {

/// Calls change(words, count) for the first `columns` four-byte pixels of each row, whatever the depth.
template <class Change>
void ChangeWords(const SurfaceView &view, LONG columns, const Change &change) {
    WalkWords(view, {columns, view.height}, true, change);
}

/// The pixels of a 32-bit view become rule(word).
template <class Rule>
void MapWords(const SurfaceView &view, const Rule &rule) {
    ChangeWords(view, view.width, [&](BYTE *words, ptrdiff_t count) { MapRun(words, count, rule); });
}

/// The pixels of a 24-bit view become rule(0x00RRGGBB), whose upper byte is dropped.
template <class Rule>
void MapTriples(const SurfaceView &view, const Rule &rule) {
    const ptrdiff_t bytes = static_cast<ptrdiff_t>(view.width) * 3;
    for (LONG y = 0; y < view.height; ++y) {
        auto *row = RowOf(view, y);
        for (ptrdiff_t i = 0; i < bytes; i += 3) {
            const uint32_t mapped = rule(LoadPacked(row + i) & kColours);
            row[i] = static_cast<BYTE>(mapped & 0xFF);
            row[i + 1] = static_cast<BYTE>(mapped >> 8 & 0xFF);
            row[i + 2] = static_cast<BYTE>(mapped >> 16 & 0xFF);
        }
    }
}

/// The entries of a view's palette become rule(entry), but for the shared grey palette, which stays as it is.
template <class Rule>
void MapPalette(const SurfaceView &view, const Rule &rule) {
    if (!view.palette || view.palette == GreyRamp()) return;
    for (DWORD i = 0; i < view.paletteCount; ++i) view.palette[i] = rule(view.palette[i]);
}

/// One rule for the colours of an 8-, 24- or 32-bit view; nothing happens at other depths.
template <class Rule>
void MapColours(const SurfaceView &view, const Rule &rule) {
    switch (view.bitsPerPixel) {
        case 8: return MapPalette(view, rule);
        case 24: return MapTriples(view, rule);
        case 32: return MapWords(view, rule);
        default: return;
    }
}

}  // namespace lacquer
