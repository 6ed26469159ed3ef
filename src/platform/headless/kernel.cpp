// The Win32 kernel's part: critical sections, global memory, MulDiv, clock and version.
#include <sched.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "platform/headless/system.h"

void WaitForCriticalSection(CRITICAL_SECTION *section, pthread_t caller) {
    pthread_t nobody = 0;
    while (!section->owner.compare_exchange_weak(nobody, caller, std::memory_order_acquire)) {
        nobody = 0;
        sched_yield();
    }
}

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const int64_t product = int64_t{number} * numerator;
    const int64_t divisor = denominator;
    const auto magnitude = [](int64_t value) { return static_cast<uint64_t>(value < 0 ? -value : value); };
    const uint64_t quotient = (magnitude(product) + magnitude(divisor) / 2) / magnitude(divisor);
    if (quotient > INT32_MAX) return -1;
    const int result = static_cast<int>(quotient);
    return (product < 0) != (divisor < 0) ? -result : result;
}

DWORD GetTickCount() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<milliseconds>(now).count());
}

BOOL GetVersionExW(OSVERSIONINFOW *info) {
    if (info == nullptr || info->dwOSVersionInfoSize < sizeof(OSVERSIONINFOW)) return FALSE;
    constexpr DWORD kPlatformNt = 2;
    *info = OSVERSIONINFOW{info->dwOSVersionInfoSize, 6, 2, 9200, kPlatformNt, {}};
    return TRUE;
}

HWND WindowFromDC(HDC) { return nullptr; }
