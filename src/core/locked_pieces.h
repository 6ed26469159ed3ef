// A canvas locked once for a draw of several pieces.
#pragma once

#include <array>
#include <cstddef>

#include "core/canvas.h"

namespace lacquer {

/// Gives each piece the view that a lock of its own would give, and leaves on the canvas what such locks, one after the
/// other, would leave. A copy of a device context's pixels is shared by the pieces up to the first one that is not
/// inside `area` or meets an earlier one, whose pixels it may have to read back changed; from then on each is locked on
/// its own.
class LockedPieces {
public:
    /// `area`: logical; holds most pieces. An empty one keeps copies apart.
    LockedPieces(Canvas &canvas, const RECT &area);
    ~LockedPieces() { Unlock(); }
    LockedPieces(const LockedPieces &) = delete;
    LockedPieces &operator=(const LockedPieces &) = delete;

    const RECT &ClipBox() const { return clipBox_; }

    /// As Canvas::FindVisible, of the canvas as it was in the beginning.
    bool FindVisible(const RECT &rect, RECT *part) const { return IntersectRect(part, &rect, &clipBox_) != 0; }

    /// Locks a part of the clip box until the next call. Result: null when that fails.
    const SurfaceView *Lock(const RECT &piece) {
        if (mode_ == Mode::Unlocked) mode_ = canvas_.LockArea(area_, &shared_) ? Mode::Shared : Mode::Apart;
        if (mode_ == Mode::Shared && (!shared_.copied || AddToWritten(piece))) {
            return shared_.Cut(piece, &view_) ? &view_ : nullptr;
        }
        return LockApart(piece);
    }

private:
    const SurfaceView *LockApart(const RECT &piece);
    bool AddToWritten(RECT piece);
    void Unlock();

    enum class Mode { Unlocked, Shared, Apart };

    Canvas &canvas_;
    Mode mode_ = Mode::Unlocked;
    bool pieceIsLocked_ = false;
    size_t writtenCount_ = 0;
    RECT clipBox_, area_{};
    LockedArea shared_{};
    SurfaceView view_{};
    std::array<RECT, 9> written_;  ///< of a copy; neighbours are joined, so that this suffices for all layouts
};

}  // namespace lacquer
