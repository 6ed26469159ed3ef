// Kernel tables of other processors in place of this one's.
#pragma once

#include <span>

#include "program.h"

namespace fuzz {

/// Groups of tables that agree by design.
constexpr unsigned kTableGroups = 3;

/// Runs a program on every table of a group, under comparable rules. Ends the process with a message when two of them
/// differ, in a result or in a pixel, after a call. Result: how many calls were compared.
size_t CompareTables(unsigned group, std::span<const uint8_t> program, const Rules &rules);

}  // namespace fuzz
