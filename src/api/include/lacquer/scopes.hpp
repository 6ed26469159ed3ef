/// @file
/// Changes of a canvas that end with their scope: clip, origin and vector state. They nest: what is changed inside one
/// by other means must be put back before it ends. None outlives its canvas.
///
/// @par Threads
/// Any thread may call it; one thread at a time works on an object.
/// @since 0.1.0
#ifndef LACQUER_SCOPES_HPP
#define LACQUER_SCOPES_HPP

#include <lacquer/lacquer.h>

namespace lq {

/// @addtogroup cpp
/// @param canvas the canvas; with a wrong handle nothing is changed, now and at the end
/// @{

/// Narrows the clip by a rectangle, logical pixels, and puts the old one back. On a canvas made from a device context
/// the old clip's bounding box is put back, in place of a clip of another shape.
class ScopedClip {
public:
    /// Narrows the clip.
    /// @param rect to what, logical pixels
    ScopedClip(HGCANVAS canvas, const RECT &rect) noexcept {
        if (GetCanvasClipRect(canvas, &before) && IntersectCanvasClipRect(canvas, &rect)) changed = canvas;
    }
    ScopedClip(const ScopedClip &) = delete;
    ScopedClip &operator=(const ScopedClip &) = delete;
    /// Puts the old clip back.
    ~ScopedClip() {
        if (changed) SetCanvasClipRect(changed, &before);
    }

    /// Whether the clip was narrowed.
    /// @return false for a wrong handle
    explicit operator bool() const noexcept { return static_cast<bool>(changed); }

    /// Whether something can be seen inside the clip.
    /// @return false when nothing can, so that painting may be left out, and for a wrong handle
    bool IsVisible() const noexcept {
        RECT clip{};
        return changed && GetCanvasClipRect(changed, &clip) && clip.left < clip.right && clip.top < clip.bottom;
    }

private:
    HGCANVAS changed{};
    RECT before{};
};

/// Moves the origin of what is drawn by (dx, dy) pixels, right and down, and puts the old viewport origin back.
class ScopedOrigin {
public:
    /// Moves the origin.
    /// @param dx pixels to the right
    /// @param dy pixels down
    ScopedOrigin(HGCANVAS canvas, int dx, int dy) noexcept {
        if (!GetViewportOrg(canvas, &before)) return;
        const long long x = static_cast<long long>(before.x) + dx, y = static_cast<long long>(before.y) + dy;
        if (static_cast<LONG>(x) != x || static_cast<LONG>(y) != y) return;
        if (SetViewportOrg(canvas, static_cast<int>(x), static_cast<int>(y), nullptr)) changed = canvas;
    }
    ScopedOrigin(const ScopedOrigin &) = delete;
    ScopedOrigin &operator=(const ScopedOrigin &) = delete;
    /// Puts the old origin back.
    ~ScopedOrigin() {
        if (changed) SetViewportOrg(changed, static_cast<int>(before.x), static_cast<int>(before.y), nullptr);
    }

    /// Whether the origin was moved.
    /// @return false for a wrong handle, and where the new origin would not fit into 32 bits
    explicit operator bool() const noexcept { return static_cast<bool>(changed); }

private:
    HGCANVAS changed{};
    POINT before{};
};

/// Saves the vector state (style, colour, blend, stroke, dash, gradient and font) with Save and restores it.
class ScopedState {
public:
    /// Saves the state.
    explicit ScopedState(HGCANVAS canvas) noexcept {
        if (Save(canvas)) saved = canvas;
    }
    ScopedState(const ScopedState &) = delete;
    ScopedState &operator=(const ScopedState &) = delete;
    /// Restores the state.
    ~ScopedState() {
        if (saved) Restore(saved);
    }

    /// Whether the state was saved.
    /// @return false for a wrong handle, for a canvas made from a device context, and when memory is short
    explicit operator bool() const noexcept { return static_cast<bool>(saved); }

private:
    HGCANVAS saved{};
};

/// @}

}  // namespace lq

#endif
