// The Win32 kernel's part: critical sections, global memory, MulDiv, clock and version.
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "platform/headless/system.h"

namespace {

/// Sleeps until a wake-up beyond those that were counted, at most for a millisecond.
void SleepUntilWoken(std::atomic<uint32_t> &wakeUps, uint32_t counted) {
    constexpr timespec kMillisecond{0, 1000000};
    syscall(SYS_futex, &wakeUps, FUTEX_WAIT_PRIVATE, counted, &kMillisecond, nullptr, 0);
}

}  // namespace

void WaitForCriticalSection(CRITICAL_SECTION *section, pthread_t caller) {
    const auto tryEnter = [section, caller] {
        pthread_t nobody = 0;
        return section->owner.load(std::memory_order_relaxed) == nobody &&
               section->owner.compare_exchange_strong(nobody, caller, std::memory_order_acquire);
    };
    // A section lasts some nanoseconds, unless its thread does not run.
    constexpr int kTries = 100;
    for (int i = 0; i < kTries; ++i) {
        if (tryEnter()) return;
    }
    section->waiting.fetch_add(1);
    for (uint32_t counted = section->wakeUps.load(); !tryEnter(); counted = section->wakeUps.load()) {
        SleepUntilWoken(section->wakeUps, counted);
    }
    section->waiting.fetch_sub(1);
}

void WakeOneForCriticalSection(CRITICAL_SECTION *section) {
    section->wakeUps.fetch_add(1);
    syscall(SYS_futex, &section->wakeUps, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
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
    if (!info || info->dwOSVersionInfoSize < sizeof(OSVERSIONINFOW)) return FALSE;
    constexpr DWORD kPlatformNt = 2;
    *info = OSVERSIONINFOW{info->dwOSVersionInfoSize, 6, 2, 9200, kPlatformNt, {}};
    return TRUE;
}

HWND WindowFromDC(HDC) { return nullptr; }
