// Figures as edges and as convex pieces, for masks that are counted.
#pragma once

#include "outline.h"
#include "outline_cost.h"
#include "sample_mask.h"

namespace lacquer::vel {

/// The lines that enclose the figures, moved by `offset`.
void AddFill(const Outline &outline, Point offset, SampleMask &mask);

/// The lines as wide as they are drawn, with their ends and corners, moved by `offset`.
void AddStroke(const Outline &outline, Point offset, const StrokeForm &form, SampleMask &mask);

}  // namespace lacquer::vel
