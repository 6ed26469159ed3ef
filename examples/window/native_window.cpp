// Window classes and the procedure that all windows share.
#include "window/native_window.h"

#include <exception>

namespace lacquer::examples {

namespace {

thread_local std::exception_ptr failure;

}  // namespace

NativeWindow::~NativeWindow() {
    if (window_ != nullptr) DestroyWindow(window_);
}

void NativeWindow::Create(const wchar_t *name, const wchar_t *title, DWORD style, DWORD extendedStyle,
                          const RECT &place, HWND owner) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name;
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS)
        throw std::runtime_error("RegisterClassExW failed");
    CreateWindowExW(extendedStyle, name, title, style, place.left, place.top, place.right - place.left,
                    place.bottom - place.top, owner, nullptr, description.hInstance, this);
    ThrowFailure();
    if (window_ == nullptr) throw std::runtime_error("CreateWindowExW failed");
}

LRESULT NativeWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window_, message, wParam, lParam);
}

LRESULT CALLBACK NativeWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto *created = static_cast<NativeWindow *>(reinterpret_cast<CREATESTRUCTW *>(lParam)->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto *self = reinterpret_cast<NativeWindow *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr || failure) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        self->window_ = nullptr;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        return DefWindowProcW(window, message, wParam, lParam);
    }
    try {
        return self->Handle(message, wParam, lParam);
    } catch (...) {
        failure = std::current_exception();
        PostQuitMessage(1);
        return 0;
    }
}

int RunMessages() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    ThrowFailure();
    return static_cast<int>(message.wParam);
}

void ThrowFailure() {
    if (failure) std::rethrow_exception(std::exchange(failure, nullptr));
}

}  // namespace lacquer::examples
