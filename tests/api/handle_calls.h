// All exported functions in a table, each with a call of it.
#pragma once

#include <array>
#include <cstdint>
#include <ostream>
#include <vector>

namespace lacquer {

/// One exported function and a call of it.
struct HandleCall {
    using Values = std::array<uintptr_t, 2>;

    const char *name;
    const char *handles;  ///< a letter for each handle argument, as HandleWorld::Valid takes it, or none
    uint64_t (*call)(const Values &handles);
    uint64_t refused = 0;

    /// Whether a call with live handles did its work; null: whether its result is not `refused`. Deletes what was made.
    bool (*worked)(uint64_t result, const Values &handles) = nullptr;

    friend void PrintTo(const HandleCall &row, std::ostream *out) { *out << row.name; }
};

/// One row for each exported function.
const std::vector<HandleCall> &HandleCalls();

}  // namespace lacquer
