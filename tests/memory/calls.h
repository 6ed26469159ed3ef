// Calls of exported functions that the table of the library's own does not have.
#pragma once

#include <vector>

#include "exported_calls.h"

namespace lacquer {

/// One row for each function of the headless GDI.
std::vector<ExportedCall> GdiCalls();

/// Calls that go deeper than those of the tables: text, animations, large regions.
std::vector<ExportedCall> DeepCalls();

}  // namespace lacquer
