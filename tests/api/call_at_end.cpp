// A library that the program is linked with and that ends after Lacquer: it ends the process with what a check finds
// then.

#include "call_at_end.h"

#include <cstdlib>
#ifdef _WIN32
#include <windows.h>
#endif

namespace {

bool (*check)() = nullptr;
bool staticObjectIsFine = false;

/// At once: nothing that would run after this may change the result.
[[noreturn]] void EndProcess(int result) {
#ifdef _WIN32
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
#endif
    std::_Exit(result);
}

void AtExit() { EndProcess(staticObjectIsFine && check() ? 0 : 2); }

struct StaticObject {
    StaticObject() { std::atexit(AtExit); }
    ~StaticObject() { staticObjectIsFine = check && check(); }
};
StaticObject staticObject;

}  // namespace

void CheckAtTheEnd(bool (*function)()) { check = function; }
