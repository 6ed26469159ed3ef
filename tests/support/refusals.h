// Calls with bad input, which all must fail alike.
#pragma once

#include <gtest/gtest.h>

namespace lacquer {

/// Expects 0 or null of each of a row of calls.
template <class... Results>
void ExpectRefused(Results... results) {
    int call = 0;
    const auto check = [](auto result, int number) { EXPECT_EQ(decltype(result){}, result) << "call " << number; };
    (check(results, ++call), ...);
}

}  // namespace lacquer
