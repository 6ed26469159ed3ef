// The frame, which is the skin's and not the system's: where it can be taken hold of, how far it opens, and its shape.
#pragma once

#include "common/layout.h"

namespace lacquer::examples {

/// A frame that the system can move, size and snap, though it never shows.
inline constexpr DWORD kFrameStyle = WS_POPUP | WS_THICKFRAME | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

/// The answer to WM_NCHITTEST for a part of the window.
LRESULT HitCode(Area area);

/// The answer to WM_GETMINMAXINFO: a least size, and the work area of the window's screen when it is maximised. The
/// system's own answer has room for a frame outside of the screen.
void LimitSize(HWND window, SIZE least, MINMAXINFO &limits);

/// Gives a window the shape of a canvas's visible pixels, or, for null, the whole of its rectangle. Throws
/// std::runtime_error on failure.
void ShapeWindow(HWND window, const Canvas *canvas);

}  // namespace lacquer::examples
