// The window under a user's hands: a mouse and keys that the system moves. After each step the screen shows the scene
// as if it were painted afresh, and has changed in one place.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <functional>
#include <thread>

#include "example_skin.h"
#include "gdi_count.h"
#include "window/skinned_window.h"

namespace lacquer::examples {
namespace {

constexpr DWORD kColours = 0xFFFFFF;
constexpr DWORD kPatience = 10000;  // milliseconds; the system may bring a painted window to the screen later

/// Handles what the system has sent.
void Pump() {
    for (MSG message{}; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
    ThrowFailure();
    Sleep(5);
}

bool Await(const std::function<bool()> &isSo) {
    const ULONGLONG start = GetTickCount64();
    while (!isSo()) {
        if (GetTickCount64() - start > kPatience) return false;
        Pump();
    }
    return true;
}

RECT PlaceOnScreen(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

/// A part of the screen, without alpha.
std::vector<DWORD> ReadScreen(const RECT &place) {
    const Canvas canvas = MakeCanvas(place.right - place.left, place.bottom - place.top);
    const HDC screen = GetDC(nullptr);
    BitBlt(GetCanvasHandle(canvas), 0, 0, place.right - place.left, place.bottom - place.top, screen, place.left,
           place.top, SRCCOPY);
    GdiFlush();
    ReleaseDC(nullptr, screen);
    std::vector<DWORD> words = PixelsOf(canvas);
    for (DWORD &word : words) word &= kColours;
    return words;
}

/// The bounds of the pixels that differ, empty when none does.
RECT Difference(const std::vector<DWORD> &a, const std::vector<DWORD> &b, LONG width) {
    RECT bounds{width, width, 0, 0};
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i]) continue;
        const auto x = static_cast<LONG>(i) % width, y = static_cast<LONG>(i) / width;
        bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                  std::max(bounds.bottom, y + 1)};
    }
    return IsEmpty(bounds) ? RECT{} : bounds;
}

class WindowTest : public testing::Test {
protected:
    void SetUp() override {
        SetCursorPos(0, 0);
        ShowWindow(window->handle(), SW_SHOW);
        SetForegroundWindow(window->handle());
        ASSERT_TRUE(Await([&] { return ShowsScene() && GetFocus() == window->handle(); }));
    }

    // The user.

    void MoveMouse(POINT place) {
        ClientToScreen(window->handle(), &place);
        SetCursorPos(place.x, place.y);
    }
    void MoveMouse(Target target) { MoveMouse(scene.MiddleOf(target)); }
    static void Mouse(DWORD flags, int data = 0) { mouse_event(flags, 0, 0, static_cast<DWORD>(data), 0); }
    static void Key(WORD key, DWORD flags = 0) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    }
    static void Type(WORD key) {
        Key(key);
        Key(key, KEYEVENTF_KEYUP);
    }
    /// Moving and sizing a window run a loop of the system's, so the mouse needs a thread of its own.
    void Drag(POINT from, SIZE way) {
        ClientToScreen(window->handle(), &from);
        std::atomic<bool> isDone = false;
        std::thread hand([&] {
            SetCursorPos(from.x, from.y);
            Sleep(100);
            Mouse(MOUSEEVENTF_LEFTDOWN);
            for (int i = 1; i <= 4; ++i) {
                Sleep(100);
                SetCursorPos(from.x + way.cx * i / 4, from.y + way.cy * i / 4);
            }
            Sleep(100);
            Mouse(MOUSEEVENTF_LEFTUP);
            isDone = true;
        });
        while (!isDone) Pump();
        hand.join();
    }

    // What the user sees.

    std::vector<DWORD> ReadWindow() const { return ReadScreen(PlaceOnScreen(window->handle())); }

    /// Whether the screen shows the scene, painted afresh. What is clear is no part of the window.
    bool ShowsScene() const {
        const Canvas fresh = MakeCanvas(scene.size().cx, scene.size().cy);
        scene.Paint(fresh);
        const std::vector<DWORD> expected = PixelsOf(fresh), shown = ReadWindow();
        return std::ranges::equal(expected, shown, [](DWORD a, DWORD b) { return a == 0 || (a & kColours) == b; });
    }

    /// Lets the user act until the picture has changed. Result: where it has.
    RECT Watch(const std::string &name, const std::function<void()> &act) {
        const std::vector<DWORD> before = ReadWindow();
        act();
        EXPECT_TRUE(Await([&] { return ReadWindow() != before && ShowsScene(); })) << name;
        const std::vector<DWORD> after = ReadWindow();
        std::ofstream file("window " + name + ".ppm", std::ios::binary);
        file << "P6 " << scene.size().cx << ' ' << scene.size().cy << " 255\n";
        for (const DWORD word : after)
            file << static_cast<char>(word >> 16) << static_cast<char>(word >> 8) << static_cast<char>(word);
        return after.size() == before.size() ? Difference(before, after, scene.size().cx) : RECT{};
    }

    struct Step {
        std::string name;
        std::function<void()> act;
        RECT limits;
    };
    void ExpectChanges(const std::vector<Step> &steps) {
        for (const auto &[name, act, limits] : steps) {
            const RECT changed = Watch(name, act);
            EXPECT_TRUE(!IsEmpty(changed) && changed.left >= limits.left && changed.top >= limits.top &&
                        changed.right <= limits.right && changed.bottom <= limits.bottom)
                << name << " changed " << changed.left << ", " << changed.top << " to " << changed.right << ", "
                << changed.bottom;
        }
    }

    const Skin skin = LoadSkin();
    const Lottie animation = Lottie::FromData(ReadResource("film_drop"));
    Scene scene{skin, {600, 420}, true};
    std::unique_ptr<SkinnedWindow> window = std::make_unique<SkinnedWindow>(skin, animation, scene);
};

TEST_F(WindowTest, FollowsTheMouse) {
    const Target coat{Kind::kButton, kCoat}, close{Kind::kCaptionButton, kClose};
    const RECT place = scene.PlaceOf(coat), everything = Box(0, 0, 600, 420);
    const RECT list = scene.layout().List();
    const RECT left{0, 0, list.left, 420};
    ExpectChanges({
        {"hover", [&] { MoveMouse(coat); }, place},
        {"pressed", [] { Mouse(MOUSEEVENTF_LEFTDOWN); }, place},
        {"pressed and left",
         [&] {
             MoveMouse({place.left, place.top - 20});
         },
         place},
        {"pressed again", [&] { MoveMouse(coat); }, place},
        {"coat added", [] { Mouse(MOUSEEVENTF_LEFTUP); }, left},
        {"close hovered", [&] { MoveMouse(close); }, everything},
        {"list scrolled by the wheel",
         [&] {
             MoveMouse(Target{Kind::kRow, 3});
             Mouse(MOUSEEVENTF_WHEEL, -WHEEL_DELTA);
         },
         everything},
        {"row hovered",
         [&] {
             MoveMouse(Target{Kind::kRow, 8});
         },
         list},
        {"list scrolled by its thumb",
         [&] {
             MoveMouse(Target{Kind::kThumb});
             Mouse(MOUSEEVENTF_LEFTDOWN);
             Pump();
             MoveMouse({list.right - 9, list.bottom - 60});
         },
         list},
        {"thumb left",
         [&] {
             Mouse(MOUSEEVENTF_LEFTUP);
             MoveMouse({300, 16});
         },
         list},
    });
}

}  // namespace
}  // namespace lacquer::examples
