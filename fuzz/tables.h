// Kernel tables of other processors in place of this one's.
#pragma once

#include <span>

#include "program.h"

namespace fuzz {

/// Runs a program on every table, under comparable rules. Ends the process with a message when two of the tables that
/// should agree differ, in a result or in a pixel, after a call.
void CompareTables(std::span<const uint8_t> program, const Rules &rules);

}  // namespace fuzz
