// The steps of the check. What a step paints shows by poison: the window's canvas is filled with one colour before, and
// what has lost it afterwards has been painted.
#include "window/self_check.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <thread>

#include "window/screen.h"

namespace lacquer::examples {

namespace {

constexpr DWORD kPoison = 0xFF01FE02;
constexpr DWORD kPatience = 10000;  // milliseconds; the system may bring a painted window to the screen later

/// Handles what the system has sent, for a while.
void Pump(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    do {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageW(&message);
        Sleep(10);
    } while (GetTickCount() - start < milliseconds);
}

class Checker {
public:
    Checker(SkinnedWindow &window, const Scene &scene) : window_(window), scene_(scene) {}

    bool passed() const { return passed_; }
    const Pixels &shown() const { return shown_; }

    /// Waits until the screen shows the scene, and tells whether it does and whether that differs from the step before.
    void Step(const char *name, bool changes) {
        const Pixels before = shown_;
        const std::size_t differences = AwaitScreen();
        const bool changed = before.words != shown_.words;
        // A picture of one surface and a few shadows has thousands of colours; a blank or half-painted window has not.
        const std::size_t colours = CountColours(shown_);
        Report(differences == 0 && colours >= 2000 && changed == changes,
               "%s: %ld x %ld, %zu of %zu pixels differ, %zu colours, %s", name, shown_.width, shown_.height,
               differences, shown_.words.size(), colours, changed ? "changed" : "unchanged");
    }

    /// Lets `act` change the picture, and tells whether that painted something, and nothing outside of `limits`.
    void PartialStep(const char *name, const RECT &limits, const std::function<void()> &act) {
        Poison();
        act();
        Step(name, true);
        std::size_t inside = 0;
        std::size_t outside = 0;
        {
            const auto pixels = Locked(window_.canvas());
            for (LONG y = 0; y < pixels.Height(); ++y) {
                for (LONG x = 0; x < pixels.Width(); ++x) {
                    if (pixels.Row(y)[x] == kPoison) continue;
                    const bool isIn = x >= limits.left && x < limits.right && y >= limits.top && y < limits.bottom;
                    ++(isIn ? inside : outside);
                }
            }
        }
        Report(inside > 0 && outside == 0, "  painted: %zu of %zu pixels, %zu elsewhere", inside, shown_.words.size(),
               outside);
        InvalidateRect(window_.handle(), nullptr, FALSE);
        AwaitScreen();
    }

    template <typename... Arguments>
    void Report(bool good, const char *format, Arguments... arguments) {
        std::printf(format, arguments...);
        std::printf(": %s\n", good ? "good" : "BAD");
        std::fflush(stdout);
        passed_ = passed_ && good;
    }

private:
    void Poison() {
        const auto pixels = Locked(window_.canvas());
        for (int y = 0; y < pixels.Height(); ++y) std::fill_n(pixels.Row(y).begin(), pixels.Width(), kPoison);
    }

    /// The scene, painted afresh and whole, and the splash if there is one.
    Pixels Expected() const {
        const Canvas canvas = MakeCanvas(scene_.size().cx, scene_.size().cy);
        scene_.Paint(canvas);
        Pixels expected = ReadCanvas(canvas);
        if (const SplashWindow *splash = window_.splash(); splash != nullptr && splash->handle() != nullptr) {
            POINT corner{};
            MapWindowPoints(splash->handle(), window_.handle(), &corner, 1);
            Overlay(expected, ReadCanvas(splash->canvas()), corner);
        }
        return expected;
    }

    /// Handles messages until the screen shows what it should, or patience ends. Returns the number of differences.
    std::size_t AwaitScreen() {
        const DWORD start = GetTickCount();
        std::size_t differences = 0;
        do {
            Pump(50);
            if (!window_.failure().empty()) throw std::runtime_error(window_.failure());
            if (window_.handle() == nullptr) throw std::runtime_error("the window was closed");
            shown_ = ReadScreen(window_.handle());
            differences = CountDifferences(shown_, Expected());
        } while (differences > 0 && GetTickCount() - start < kPatience);
        return differences;
    }

    SkinnedWindow &window_;
    const Scene &scene_;
    Pixels shown_;
    bool passed_ = true;
};

void MoveMouse(HWND window, POINT position) {
    SendMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(position.x, position.y));
}

void Click(HWND window, POINT position) {
    MoveMouse(window, position);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(position.x, position.y));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(position.x, position.y));
}

/// Drags with the system's own mouse. Moving and sizing a window run a loop of the system's, so the mouse needs a
/// thread of its own.
void Drag(HWND window, POINT from, SIZE way) {
    ClientToScreen(window, &from);
    std::atomic<bool> isDone = false;
    std::thread hand([&] {
        SetCursorPos(from.x, from.y);
        Sleep(100);
        mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
        for (int i = 1; i <= 4; ++i) {
            Sleep(100);
            SetCursorPos(from.x + way.cx * i / 4, from.y + way.cy * i / 4);
        }
        Sleep(100);
        mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
        Sleep(100);
        isDone = true;
    });
    while (!isDone) Pump(20);
    hand.join();
    Pump(100);
}

RECT PlaceOnScreen(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

}  // namespace

bool SelfCheck(SkinnedWindow &window, const Scene &scene, const std::string &screenshot) {
    using Kind = Scene::Kind;
    Checker check(window, scene);
    const HWND handle = window.handle();
    const POINT nowhere{-1, -1};
    ShowWindow(handle, SW_SHOWNOACTIVATE);
    check.Step("shown", true);

    InvalidateRect(handle, nullptr, FALSE);
    check.Step("painted again", false);

    const Scene::Target coat{Kind::kButton, Scene::kCoat};
    check.PartialStep("hover", scene.PlaceOf(coat), [&] { MoveMouse(handle, scene.MiddleOf(coat)); });
    check.PartialStep("hover ends", scene.PlaceOf(coat), [&] { SendMessageW(handle, WM_MOUSELEAVE, 0, 0); });

    RECT list = scene.Rows();
    list.right += 16;  // with the scroll bar
    check.PartialStep("list scrolled by the wheel", list,
                      [&] { SendMessageW(handle, WM_MOUSEWHEEL, static_cast<WPARAM>(-WHEEL_DELTA) << 16, 0); });
    check.PartialStep("list scrolled by its thumb", list, [&] {
        const POINT grip = scene.MiddleOf({Kind::kThumb});
        MoveMouse(handle, grip);
        SendMessageW(handle, WM_LBUTTONDOWN, MK_LBUTTON, 0);
        MoveMouse(handle, {grip.x, grip.y + 43});
        SendMessageW(handle, WM_LBUTTONUP, 0, 0);
        MoveMouse(handle, nowhere);
    });
    check.PartialStep("row hovered", list, [&] { MoveMouse(handle, scene.MiddleOf({Kind::kRow, 8})); });

    Click(handle, scene.MiddleOf({Kind::kRow, 8}));
    MoveMouse(handle, nowhere);
    check.Step("colour chosen", true);

    Click(handle, scene.MiddleOf({Kind::kButton, Scene::kFinish}));
    check.Step("menu opened", true);
    const Scene::Target satin{Kind::kEntry, 1};
    check.PartialStep("entry hovered", scene.PlaceOf(satin), [&] { MoveMouse(handle, scene.MiddleOf(satin)); });
    Click(handle, scene.MiddleOf(satin));
    MoveMouse(handle, nowhere);
    check.Step("entry chosen", true);

    const RECT before = PlaceOnScreen(handle);
    Drag(handle, {160, 16}, {-64, 48});
    const RECT moved = PlaceOnScreen(handle);
    check.Report(moved.left == before.left - 64 && moved.top == before.top + 48 &&
                     moved.right - moved.left == before.right - before.left,
                 "dragged by its title from %ld, %ld to %ld, %ld", before.left, before.top, moved.left, moved.top);
    SendMessageW(handle, WM_MOUSELEAVE, 0, 0);
    check.Step("moved", false);

    Drag(handle, {scene.size().cx - 3, scene.size().cy - 3}, {120, 80});
    const RECT sized = PlaceOnScreen(handle);
    check.Report(sized.right == moved.right + 120 && sized.bottom == moved.bottom + 80 && sized.left == moved.left,
                 "dragged by its corner to %ld x %ld", sized.right - sized.left, sized.bottom - sized.top);
    SendMessageW(handle, WM_MOUSELEAVE, 0, 0);
    check.Step("resized", true);

    Click(handle, scene.MiddleOf(coat));
    SendMessageW(handle, WM_MOUSELEAVE, 0, 0);
    check.Step("coat added", true);

    Click(handle, scene.MiddleOf({Kind::kButton, Scene::kAbout}));
    SendMessageW(handle, WM_MOUSELEAVE, 0, 0);
    check.Step("splash shown", true);
    if (window.splash() == nullptr || window.splash()->handle() == nullptr) throw std::runtime_error("no splash");
    const HWND splash = window.splash()->handle();
    const RECT place = PlaceOnScreen(splash);
    const bool isShaped = WindowFromPoint({place.left + 1, place.bottom - 1}) == handle &&
                          WindowFromPoint({(place.left + place.right) / 2, place.top + 50}) == splash;
    check.Report(isShaped, "the mouse reaches the splash where it shows, and the window elsewhere");
    if (!screenshot.empty()) WriteBmp(screenshot, check.shown());
    SendMessageW(splash, WM_LBUTTONUP, 0, 0);
    check.Step("splash closed", true);

    SendMessageW(handle, WM_KEYDOWN, VK_ESCAPE, 0);
    check.Report(window.handle() == nullptr, "closed by the Escape key");
    return check.passed();
}

}  // namespace lacquer::examples
