// Runs a program that opens a window, moves the mouse in it as a user does, and compares what the screen shows:
//
//     watch_window PROGRAM CLASS FOLDER STEP...
//
// Steps: move X Y (client coordinates), press, release, shot FILE (the screen has to show FOLDER/FILE soon; where that
// is transparent, what lies behind the window), unlike FILE (it must not), and run COMMAND. What the screen shows is
// left in FILE. In the end the window is closed, and the program has to end well. With LACQUER_WRITE_PICTURES set,
// shots are written to FOLDER instead: look at them before you commit them.
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "pictures.h"

namespace {

constexpr POINT kPlace = {200, 160};            // where the window is put
constexpr int kTolerance = 24;                  // text differs by fonts and their renderer
constexpr COLORREF kGround = RGB(46, 125, 79);  // behind the window

bool Await(const std::function<bool()> &condition, std::chrono::seconds patience = std::chrono::seconds(60)) {
    const auto end = std::chrono::steady_clock::now() + patience;
    do {
        if (condition()) return true;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        Sleep(50);
    } while (std::chrono::steady_clock::now() < end);
    return false;
}

bool IsWriting() { return std::getenv("LACQUER_WRITE_PICTURES") != nullptr; }

/// What the screen shows of a window's client area.
lq::Canvas ReadScreen(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    POINT corner{};
    ClientToScreen(window, &corner);
    lq::Canvas canvas = lq::Canvas::CreateSystem(static_cast<DWORD>(client.right), static_cast<DWORD>(client.bottom));
    const HDC screen = GetDC(nullptr);
    BitBlt(GetCanvasHandle(canvas), 0, 0, client.right, client.bottom, screen, corner.x, corner.y, SRCCOPY);
    ReleaseDC(nullptr, screen);
    GdiFlush();
    return canvas;
}

/// Puts the ground where a picture is transparent, and what is shown where it is translucent: without a compositor the
/// screen does not mix colours.
void Complete(HGBITMAP expected, HGBITMAP shown) {
    const auto to = lq::Lock(expected), from = lq::Lock(shown);
    for (LONG y = 0; y < to.Height() && to.Width() == from.Width(); ++y) {
        const auto toRow = to.Row(y), fromRow = from.Row(y);
        for (size_t x = 0; x < toRow.size() && !fromRow.empty(); ++x) {
            const DWORD alpha = toRow[x] >> 24;
            if (alpha == 0)
                toRow[x] = 0xFF000000 | GetRValue(kGround) << 16 | GetGValue(kGround) << 8 | GetBValue(kGround);
            if (alpha > 0 && alpha < 255) toRow[x] = fromRow[x];
        }
    }
}

/// Whether the screen comes to show the picture of a file, or anything else.
bool Shows(HWND window, const std::string &folder, const std::string &file, bool same) {
    const std::string path = folder + file;
    int difference = 0;
    const bool good = Await([&] {
        const lq::Bitmap expected = lq::LoadBitmapOf(path.c_str());
        lq::SavePng(ReadScreen(window), file.c_str(), LACQUER_PNG_OPAQUE);
        const lq::Bitmap shown = lq::LoadBitmapOf(file.c_str());
        Complete(expected, shown);
        difference = lacquer::manual::Difference(shown, expected);
        return (difference <= kTolerance) == same;
    });
    std::printf("%s: %d\n", file.c_str(), difference);
    return good;
}

bool IsSame(const char *file, const std::string &shown) {
    const lq::Bitmap first = lq::LoadBitmapOf(file);
    if (IsWriting()) return lq::SavePng(first, shown.c_str());
    return lacquer::manual::Difference(first, lq::LoadBitmapOf(shown.c_str())) <= kTolerance;
}

void Mouse(DWORD event) {
    mouse_event(event, 0, 0, 0, 0);
    Sleep(100);
}

bool Run(std::string command) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return false;
    DWORD result = 1;
    WaitForSingleObject(process.hProcess, 60000);
    GetExitCodeProcess(process.hProcess, &result);
    return result == 0;
}

}  // namespace

int main(int count, char **arguments) {
    if (count < 4) return 2;
    const std::string folder = std::string(arguments[3]) + "/";
    WNDCLASSA ground{};
    ground.lpfnWndProc = DefWindowProcA;
    ground.hbrBackground = CreateSolidBrush(kGround);
    ground.lpszClassName = "Ground";
    RegisterClassA(&ground);
    CreateWindowExA(WS_EX_NOACTIVATE, "Ground", "", WS_POPUP | WS_VISIBLE, 0, 0, 1280, 1024, nullptr, nullptr, nullptr,
                    nullptr);

    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(arguments[1], nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return 1;
    HWND window = nullptr;
    bool good = Await([&] { return (window = FindWindowA(arguments[2], nullptr)) && IsWindowVisible(window); });
    SetWindowPos(window, HWND_TOP, kPlace.x, kPlace.y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);

    for (int i = 4; i < count && good; ++i) {
        const std::string step = arguments[i];
        if (step == "move") {
            POINT place = {std::atoi(arguments[i + 1]), std::atoi(arguments[i + 2])};
            ClientToScreen(window, &place);
            SetCursorPos(place.x, place.y);
            Sleep(100);
            i += 2;
        } else if (step == "press") {
            Mouse(MOUSEEVENTF_LEFTDOWN);
        } else if (step == "release") {
            Mouse(MOUSEEVENTF_LEFTUP);
        } else if (step == "shot" && IsWriting()) {
            Await([] { return false; }, std::chrono::seconds(1));
            good = lq::SavePng(ReadScreen(window), (folder + arguments[++i]).c_str(), LACQUER_PNG_OPAQUE);
        } else if (step == "shot" || step == "look" || step == "unlike") {
            good = Shows(window, folder, arguments[++i], step != "unlike");
        } else if (step == "same") {
            good = IsSame(arguments[i + 1], folder + arguments[i + 2]);
            i += 2;
        } else if (step == "run") {
            good = Run(arguments[++i]);
        } else {
            good = false;
        }
        if (!good) std::printf("failed at step %s\n", arguments[i]);
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
    DWORD result = 1;
    WaitForSingleObject(process.hProcess, 60000);
    GetExitCodeProcess(process.hProcess, &result);
    std::printf("%s ended with %d\n", arguments[1], static_cast<int>(result));
    if (result == STILL_ACTIVE) TerminateProcess(process.hProcess, 1);
    return good && result == 0 ? 0 : 1;
}
