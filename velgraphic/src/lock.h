// The lock of what all canvases share. It takes no memory of its own, so that nothing is left when the library goes: the
// C++ one does on Windows.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <mutex>
#endif

namespace lacquer::vel {

#ifdef _WIN32
class Lock {
public:
    Lock() = default;
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

    void lock() { AcquireSRWLockExclusive(&lock_); }
    bool try_lock() { return TryAcquireSRWLockExclusive(&lock_) != 0; }
    void unlock() { ReleaseSRWLockExclusive(&lock_); }

private:
    SRWLOCK lock_ = SRWLOCK_INIT;
};
#else
using Lock = std::mutex;
#endif

/// Holds a lock for the life of the guard.
class Guard {
public:
    explicit Guard(Lock &lock) : lock_(lock) { lock_.lock(); }
    ~Guard() { lock_.unlock(); }
    Guard(const Guard &) = delete;
    Guard &operator=(const Guard &) = delete;

private:
    Lock &lock_;
};

}  // namespace lacquer::vel
