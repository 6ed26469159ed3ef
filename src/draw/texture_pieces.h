// A texture drawn in several pieces.
#pragma once

#include "core/locked.h"
#include "core/locked_pieces.h"
#include "draw/blit.h"
#include "draw/fill.h"
#include "draw/texture_drawing.h"

namespace lacquer {

/// A draw's style; the texture's filter word is the mode word.
inline BlitStyle StyleOf(const TextureDraw &draw) {
    return {draw.texture.Surface().Filter(), draw.kernelMode, draw.alpha};
}

/// Holds one lock of the canvas and one of the texture for all pieces of a layout.
class TexturePieces {
public:
    /// `area`: where the pieces lie, as of LockedPieces.
    TexturePieces(const TextureDraw &draw, const RECT &area)
        : target_(draw.canvas, area), source_(draw.texture.Surface(), nullptr), style_(StyleOf(draw)) {}

    const RECT &ClipBox() const { return target_.ClipBox(); }
    bool FindVisible(const RECT &rect, RECT *part) const { return target_.FindVisible(rect, part); }

    void Draw(const RECT &dest, const RECT &piece) { BlitPiece(target_, dest, source_.View(), piece, style_); }

    /// `colour`: premultiplied.
    void Fill(const RECT &dest, DWORD colour) { FillPiece(target_, dest, colour, style_.modeWord); }

private:
    LockedPieces target_;
    LockedSurface source_;
    BlitStyle style_;
};

}  // namespace lacquer
