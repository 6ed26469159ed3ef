// Part of the DLLs alone, which have a C++ runtime of their own: that one keeps 71 KiB for exceptions thrown when
// memory is short, and would leave them behind at each unloading.

namespace __gnu_cxx {
void __freeres();
}

namespace lacquer {
namespace {

/// Nothing is thrown any more when the DLL's static objects end.
struct RuntimeMemory {
    ~RuntimeMemory() { __gnu_cxx::__freeres(); }
};
const RuntimeMemory runtimeMemory;

}  // namespace
}  // namespace lacquer
