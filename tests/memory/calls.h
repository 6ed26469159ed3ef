// Calls of exported functions that the table of the library's own does not have.
#pragma once

#include <vector>

#include "handle_calls.h"

namespace lacquer {

/// One row for each function of the headless GDI. 'D' stands for a device context, 'H' for a bitmap, 'R' for a region.
std::vector<HandleCall> GdiCalls();

/// Calls that go deeper than those of the tables: text, animations, large regions.
std::vector<HandleCall> DeepCalls();

}  // namespace lacquer
