// What still calls when the library under test has ended.
#pragma once

#ifdef _WIN32
#define CALL_AT_END_API __declspec(dllexport)
#else
#define CALL_AT_END_API __attribute__((visibility("default")))
#endif

/// Lets a static object and an exit function of this library call `check` once more each. Both true: the process ends
/// with 0.
CALL_AT_END_API void CheckAtTheEnd(bool (*check)());
