// Paths: an outline, and which points it encloses.
#pragma once

#include <velgraphic/velgraphic.h>

#include "outline.h"

struct velPath final {
    lacquer::vel::Outline outline;
    DWORD fillType = VEL_FILL_WINDING;
};
