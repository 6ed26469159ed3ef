// When pieces can share a lock, and what of a shared copy is written back.

#include "core/locked_pieces.h"

#include <algorithm>

namespace lacquer {
namespace {

bool Meet(const RECT &a, const RECT &b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// Whether two rectangles that share a side make up one.
bool JoinToOne(const RECT &first, const RECT &second) {
    const bool besides = first.top == second.top && first.bottom == second.bottom && first.right == second.left;
    const bool below = first.left == second.left && first.right == second.right && first.bottom == second.top;
    return besides || below;
}

}  // namespace

LockedPieces::LockedPieces(Canvas &canvas, const RECT &area) : canvas_(canvas), clipBox_(canvas.ClipBox()) {
    FindVisible(area, &area_);
}

const SurfaceView *LockedPieces::LockApart(const RECT &piece) {
    Unlock();
    mode_ = Mode::Apart;
    pieceIsLocked_ = canvas_.Lock(&view_, &piece);
    return pieceIsLocked_ ? &view_ : nullptr;
}

/// Result: false, with nothing changed, for a piece that can't share the copy.
bool LockedPieces::AddToWritten(RECT piece) {
    const bool inside = piece.left >= area_.left && piece.top >= area_.top && piece.right <= area_.right &&
                        piece.bottom <= area_.bottom;
    const auto end = written_.begin() + static_cast<ptrdiff_t>(writtenCount_);
    if (!inside || std::any_of(written_.begin(), end, [&](const RECT &other) { return Meet(piece, other); })) {
        return false;
    }
    // Rows of cells grow into strips, and strips into the whole.
    size_t kept = writtenCount_;
    for (; kept > 0 && JoinToOne(written_[kept - 1], piece); --kept) {
        piece.left = written_[kept - 1].left;
        piece.top = written_[kept - 1].top;
    }
    if (kept == written_.size()) return false;
    written_[kept] = piece;
    writtenCount_ = kept + 1;
    return true;
}

void LockedPieces::Unlock() {
    if (mode_ == Mode::Shared) {
        canvas_.UnlockArea({written_.data(), writtenCount_});
    } else if (pieceIsLocked_) {
        canvas_.Unlock();
    }
    pieceIsLocked_ = false;
}

}  // namespace lacquer
