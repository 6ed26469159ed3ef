// How many blocks this program has asked the heap for.
#pragma once

namespace lacquer {

long AllocationCount();

}  // namespace lacquer
