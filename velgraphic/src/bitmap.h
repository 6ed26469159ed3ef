// Pixels that belong to the caller.
#pragma once

#include <velgraphic/velgraphic.h>

#include "shared.h"

struct velBitmap final : lacquer::vel::Shared<velBitmap> {
    explicit velBitmap(const velBitmapData &description) : data(description) {}

    const velBitmapData data;
};
