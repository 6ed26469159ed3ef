// A window of the system as an object: its class, its procedure, and exceptions, which must not pass through the
// system's frames.
#pragma once

#include "common/painting.h"

namespace lacquer::examples {

class NativeWindow {
public:
    NativeWindow(const NativeWindow &) = delete;
    NativeWindow &operator=(const NativeWindow &) = delete;
    virtual ~NativeWindow();

    /// Null once the window is closed.
    HWND handle() const { return window_; }

protected:
    NativeWindow() = default;

    /// Creates the window, not yet shown, of a class of this name. Throws std::runtime_error on failure.
    void Create(const wchar_t *name, const wchar_t *title, DWORD style, DWORD extendedStyle, const RECT &place,
                HWND owner);

    /// What the window does with a message; here, what the system does with it.
    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
};

/// Handles messages until one says that the program ends. Result: the program's. Throws what a window threw.
int RunMessages();

/// Throws what a window threw, if one did.
void ThrowFailure();

}  // namespace lacquer::examples
