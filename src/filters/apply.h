// Filters of views, applied to the locked pixels of an object.
#pragma once

#include "core/locked.h"

namespace lacquer {

/// Calls filter(view) for a rectangle of a surface (null: everything). Result: false when it can't be locked.
template <class Filter>
bool ApplyTo(PixelSurface &surface, const RECT *rect, const Filter &filter) {
    const LockedSurface locked(surface, rect);
    if (!locked.View()) return false;
    filter(*locked.View());
    return true;
}

}  // namespace lacquer
