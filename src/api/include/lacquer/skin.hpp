/// @file
/// Pieces of a skin: parts of a texture that know how to fill a rectangle of any size, in each of their states.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_SKIN_HPP
#define LACQUER_SKIN_HPP

#include <lacquer/lacquer.h>

#include <optional>

namespace lq {

/// @addtogroup cpp
/// @param state the picture of a sheet's piece, 0 being the first
/// @{

/// One piece of a sheet, a texture with the pictures of many. A plain record: fill it in, keep it, copy it. Drawing
/// changes neither the sheet's slices nor its layout record, so pieces share a sheet, which outlives them. Translucent
/// sheets need the draw mode LACQUER_DRAW_OVER (Texture::SetDrawMode).
struct SkinPiece {
    /// Where the pictures of the states stand, seen from the first one.
    enum class Order {
        ToTheRight,  ///< each to the right of the one before
        Downwards    ///< each below the one before
    };

    HGTEXTURE sheet{};  ///< not owned
    RECT frame{};       ///< the first state, pixels of the sheet
    RECT margins{};     ///< widths of left column, top row, right column, bottom row; pixels of the sheet
    DWORD layout = LACQUER_LAYOUT_NINE_GRID;  ///< any LACQUER_LAYOUT_...
    int states = 1;                           ///< how many pictures there are, all of one size, without gaps
    Order order = Order::Downwards;           ///< where the pictures stand
    DWORD sampler = LACQUER_BILINEAR;         ///< LACQUER_NEAREST ... LACQUER_AREA, where the size changes

    /// The rectangle of a state on the sheet.
    /// @return pixels of the sheet; none for a state that there is not
    std::optional<RECT> Frame(int state) const noexcept {
        if (state < 0 || state >= states) return std::nullopt;
        const bool right = order == Order::ToTheRight;
        const long long step =
            right ? static_cast<long long>(frame.right) - frame.left : static_cast<long long>(frame.bottom) - frame.top;
        const long long end = step * (static_cast<long long>(state) + 1) + (right ? frame.left : frame.top);
        if (step <= 0 || end > 0x7FFFFFFF) return std::nullopt;
        RECT moved = frame;
        (right ? moved.left : moved.top) = static_cast<LONG>(end - step);
        (right ? moved.right : moved.bottom) = static_cast<LONG>(end);
        return moved;
    }

    /// The size that a state has of itself.
    /// @param scale the size of a sheet pixel, canvas pixels
    /// @return whole pixels, rounded; 0 by 0 for a scale that is not positive or takes it beyond 2^31 pixels
    SIZE NaturalSize(float scale = 1) const noexcept {
        const double width = (static_cast<double>(frame.right) - frame.left) * scale + 0.5;
        const double height = (static_cast<double>(frame.bottom) - frame.top) * scale + 0.5;
        if (!(scale > 0 && width >= 0 && height >= 0 && width < 2147483648.0 && height < 2147483648.0)) return SIZE{};
        return SIZE{static_cast<LONG>(width), static_cast<LONG>(height)};
    }

    /// The scale at which the margins fit side by side. A nine-grid that is smaller than its margins shows only what
    /// its corners have outside; drawn at this scale it looks whole.
    /// @param dest where the piece is to be drawn, logical pixels
    /// @param scale the largest scale wanted
    /// @return the scale for Draw: `scale`, or the one below it at which the margins fit into `dest`; never fails
    /// @see Draw
    float FittingScale(const RECT &dest, float scale = 1) const noexcept {
        const auto fitted = [](float most, double room, double wanted) {
            return wanted > 0 && room < wanted * most ? static_cast<float>(room / wanted) : most;
        };
        const float fitting = fitted(scale, static_cast<double>(dest.right) - dest.left,
                                     static_cast<double>(margins.left) + margins.right);
        return fitted(fitting, static_cast<double>(dest.bottom) - dest.top,
                      static_cast<double>(margins.top) + margins.bottom);
    }

    /// Draws a state.
    /// @param canvas the canvas that is drawn on; a wrong handle is refused
    /// @param dest where, logical pixels
    /// @param scale the size of a sheet pixel on the canvas: the DPI of the window by that of the sheet. It sizes the
    /// margins of a nine-grid and the cells of a tile; a top-tile is not scaled, and a stretch and a centred picture
    /// need no scale.
    /// @param alpha the strength, 255 being full
    /// @return true for done; false for a state that there is not, a scale that is not positive, a sheet that is none,
    /// a frame that is not inside it and, but for the two tiles, a wrong canvas
    /// @see ScaleForDpi
    bool Draw(HGCANVAS canvas, const RECT &dest, int state = 0, float scale = 1, BYTE alpha = 255) const noexcept {
        const std::optional<RECT> slice = Frame(state);
        if (!slice || !(scale > 0)) return false;
        const RECT *const part = &*slice;
        const RECT none{};
        constexpr DWORD kAllMargins =
            LACQUER_SCALE_LEFT | LACQUER_SCALE_TOP | LACQUER_SCALE_RIGHT | LACQUER_SCALE_BOTTOM;
        switch (layout) {
            case LACQUER_LAYOUT_NINE_GRID:
            case LACQUER_LAYOUT_HOLLOW_NINE_GRID:
                return DrawTexture9Grid(canvas, &dest, sheet, part, &margins, sampler,
                                        layout == LACQUER_LAYOUT_HOLLOW_NINE_GRID, alpha, kAllMargins, scale, 0) != 0;
            case LACQUER_LAYOUT_TILE:
                DrawTextureTile(canvas, &dest, sheet, part, sampler, alpha, LACQUER_SCALE_CELL, scale);
                return IsOnSheet(*slice);
            case LACQUER_LAYOUT_TOP_TILE:
                DrawTextureTopTile(canvas, &dest, sheet, part, &margins, sampler, alpha);
                return IsOnSheet(*slice);
            case LACQUER_LAYOUT_CENTER: return DrawTextureCenter(canvas, &dest, sheet, part, sampler, alpha) != 0;
            default:
                // A nine-grid without margins is its centre, stretched.
                return DrawTexture9Grid(canvas, &dest, sheet, part, &none, sampler, 0, alpha, 0, 1, 0) != 0;
        }
    }

private:
    // Whether the sheet is a texture and has these pixels, which the tiles do not tell.
    bool IsOnSheet(const RECT &part) const noexcept {
        SurfaceView view;
        return LockTextureBits(sheet, &view, &part) && UnlockTextureBits(sheet);
    }
};

/// What a window's DPI makes of a sheet.
/// @param dpi that of the window
/// @param sheetDpi that for which the sheet was drawn
/// @return the scale for SkinPiece::Draw; 0 for a sheet of 0 DPI
inline float ScaleForDpi(unsigned dpi, unsigned sheetDpi = 96) noexcept {
    return sheetDpi ? static_cast<float>(dpi) / static_cast<float>(sheetDpi) : 0;
}

/// @}

}  // namespace lq

#endif
