// The window under a user's hands: a mouse and keys that the system moves. After each step the screen shows the scene
// as if it were painted afresh, and no more has been painted than had to be.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

#include "example_skin.h"
#include "gdi_count.h"
#include "window/skinned_window.h"

namespace lacquer::examples {
namespace {

constexpr DWORD kColours = 0xFFFFFF;
constexpr DWORD kPatience = 60000;  // milliseconds; the system may bring a painted window to the screen later

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

INPUT Key(WORD key, DWORD flags = 0) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    return input;
}
INPUT Mouse(DWORD flags, int data = 0, POINT place = {}) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi = {place.x, place.y, static_cast<DWORD>(data), flags, 0, 0};
    return input;
}

const INPUT kDown = Mouse(MOUSEEVENTF_LEFTDOWN), kUp = Mouse(MOUSEEVENTF_LEFTUP);

class WindowTest : public testing::Test {
protected:
    void SetUp() override {
        SetCursorPos(0, 0);
        ShowWindow(window->handle(), SW_SHOW);
        SetForegroundWindow(window->handle());
        ASSERT_TRUE(Await([&] { return ShowsScene() && GetFocus() == window->handle(); }));
    }

    // The user.

    /// A move to a place in the window; the system wants 65,536 steps over the screen.
    INPUT To(POINT place) const {
        ClientToScreen(window->handle(), &place);
        const auto steps = [](LONG at, int metric) { return (at * 65536 + 32768) / GetSystemMetrics(metric); };
        return Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, 0,
                     {steps(place.x, SM_CXSCREEN), steps(place.y, SM_CYSCREEN)});
    }
    INPUT To(Target target) const { return To(scene.MiddleOf(target)); }

    using Inputs = std::vector<INPUT>;
    static void Send(Inputs inputs) { SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)); }
    Inputs Click(Target target) const { return {To(target), kDown, kUp}; }
    /// Moving and sizing a window run a loop of the system's, so the hand needs a thread of its own. It lifts the
    /// button until the loop has seen it.
    void Drag(POINT from, POINT to) const {
        const Inputs inputs{To(from), kDown, To({(from.x + to.x) / 2, (from.y + to.y) / 2}), To(to)};
        std::atomic<bool> isMoved = false, isOver = false;
        std::thread hand([&] {
            for (const INPUT &input : inputs) {
                Send({input});
                Sleep(100);
            }
            for (isMoved = true; !isOver; Sleep(50)) Send({kUp});
        });
        while (!isMoved) Pump();
        isOver = true;
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

    /// Lets the user act until the picture has changed to what it should be.
    void Watch(const std::string &name, const std::function<void()> &act) {
        const std::vector<DWORD> before = ReadWindow();
        act();
        EXPECT_TRUE(Await([&] { return ReadWindow() != before && ShowsScene(); })) << name;
        WritePicture("window " + name, scene.size().cx, ReadWindow());
    }

    struct Step {
        std::string name;
        Inputs inputs;
        RECT limits = Box(0, 0, 600, 420);
    };
    /// What a step paints shows by poison.
    void ExpectChanges(const std::vector<Step> &steps) {
        for (const auto &[name, inputs, limits] : steps) {
            FillWithPoison(window->canvas());
            Watch(name, [&, &sent = inputs] { Send(sent); });
            const std::vector<DWORD> painted = PixelsOf(window->canvas());
            const RECT bounds = Difference(painted, std::vector<DWORD>(painted.size(), kPoison), scene.size().cx);
            EXPECT_TRUE(!IsEmpty(bounds) && bounds.left >= limits.left && bounds.top >= limits.top &&
                        bounds.right <= limits.right && bounds.bottom <= limits.bottom)
                << name << " painted " << bounds.left << ", " << bounds.top << " to " << bounds.right << ", "
                << bounds.bottom;
        }
    }

    const Skin skin = LoadSkin();
    const Lottie animation = Lottie::FromData(ReadResource("film_drop"));
    Scene scene{skin, {600, 420}, true};
    std::unique_ptr<SkinnedWindow> window = std::make_unique<SkinnedWindow>(skin, animation, scene);
};

TEST_F(WindowTest, FollowsTheMouse) {
    const Target coat{Kind::kButton, kCoat};
    const RECT place = scene.PlaceOf(coat), list = scene.layout().List();
    ExpectChanges({
        {"hover", {To(coat)}, place},
        {"hovered no more", {Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE)}, place},
        {"hovered again", {To(coat)}, place},
        {"pressed", {kDown}, place},
        {"pressed and left", {To({place.left, place.top - 20})}, place},
        {"pressed again", {To(coat)}, place},
        {"coat added", {kUp}, {0, 0, list.left, 420}},
        {"close hovered", {To({Kind::kCaptionButton, kClose})}},
        {"list scrolled by the wheel", {To({Kind::kRow, 3}), Mouse(MOUSEEVENTF_WHEEL, -WHEEL_DELTA)}},
        {"row hovered", {To({Kind::kRow, 8})}, list},
        {"list scrolled by its thumb", {To({Kind::kThumb}), kDown, To({list.right - 9, list.bottom - 60})}, list},
        {"thumb left", {kUp, To({300, 16})}, list},
    });
}

TEST_F(WindowTest, FollowsTheKeys) {
    const RECT box = scene.PlaceOf({Kind::kBox, kDusk}), list = scene.layout().List();
    const INPUT tab = Key(VK_TAB);
    ExpectChanges({
        {"focus on a box", {tab}, box},
        {"focus on the next box", {Key(VK_RIGHT)}, {box.left, box.top, list.right, box.bottom}},
        {"focus on the list", {Key(VK_SHIFT), tab, tab, Key(VK_SHIFT, KEYEVENTF_KEYUP)}},
        {"row chosen", {Key(VK_DOWN)}},
        {"last row chosen", {Key(VK_END)}},
        {"focus on a button", {tab, tab, tab, tab}},
        {"button pressed by a key", {Key(VK_SPACE)}, scene.PlaceOf({Kind::kButton, kCoat})},
        {"coat added by a key", {Key(VK_SPACE, KEYEVENTF_KEYUP)}, {0, 0, list.left, 420}},
        {"menu opened", {tab, tab, Key(VK_RETURN)}},
        {"entry chosen", {Key(VK_UP), Key(VK_RETURN)}},
    });
    Send({Key(VK_ESCAPE)});
    EXPECT_TRUE(Await([&] { return window->handle() == nullptr; }));
}

TEST_F(WindowTest, IsMovedSizedMaximisedAndMinimised) {
    const HWND handle = window->handle();
    const RECT before = PlaceOnScreen(handle);
    Drag({160, 16}, {96, 64});
    EXPECT_TRUE(Await([&] {
        const RECT now = PlaceOnScreen(handle);
        return now.left == before.left - 64 && now.bottom == before.bottom + 48 && ShowsScene();
    }));
    Watch("sized", [&] { Drag({597, 417}, {717, 497}); });
    EXPECT_EQ(scene.size().cx, 720);
    EXPECT_EQ(scene.size().cy, 500);

    const auto toggle = [&](bool isMaximised) {
        Send(Click({Kind::kCaptionButton, kMaximise}));
        EXPECT_TRUE(Await([&] { return (IsZoomed(handle) != 0) == isMaximised; }));
    };
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    Watch("maximised", [&] { toggle(true); });
    const RECT maximised = PlaceOnScreen(handle);
    EXPECT_TRUE(EqualRect(&maximised, &work)) << maximised.right << " x " << maximised.bottom;
    Watch("restored", [&] { toggle(false); });
    EXPECT_EQ(scene.size().cx, 720);
    Send(Click({Kind::kCaptionButton, kMinimise}));
    EXPECT_TRUE(Await([&] { return IsIconic(handle) != 0; }));
    ShowWindow(handle, SW_RESTORE);
    EXPECT_TRUE(Await([&] { return ShowsScene(); }));
}

// The window goes to a screen of another resolution, as the system tells it.
TEST_F(WindowTest, FollowsTheResolution) {
    for (const int dpi : {144, 192, 96}) {
        const Scale px(static_cast<float>(dpi) / 96);
        const SIZE size = px({480, 340});  // less than the least size, which takes its place
        const RECT place = Box(20, 10, size.cx, size.cy);
        Watch(std::to_string(dpi) + " DPI", [&] {
            SendMessageW(window->handle(), WM_DPICHANGED, static_cast<WPARAM>(dpi) * 0x10001,
                         reinterpret_cast<LPARAM>(&place));
        });
        EXPECT_EQ(scene.size().cx, px(Scene::kLeastSize.cx));
        EXPECT_EQ(scene.layout().Rows().top, px(44) + px(2));
        MINMAXINFO limits{};
        SendMessageW(window->handle(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        EXPECT_EQ(limits.ptMinTrackSize.y, px(Scene::kLeastSize.cy));
    }
}

TEST_F(WindowTest, ShowsALayeredSplash) {
    const std::vector<DWORD> before = ReadWindow();
    Send(Click({Kind::kButton, kAbout}));
    ASSERT_TRUE(Await([&] { return window->splash() != nullptr; }));
    const SplashWindow &splash = *window->splash();
    const std::vector<DWORD> first = PixelsOf(splash.canvas());
    ASSERT_TRUE(Await([&] { return PixelsOf(splash.canvas()) != first; }));
    // What moves is the film on the seal.
    const SIZE size = *splash.canvas().Size();
    const RECT moved = Difference(first, PixelsOf(splash.canvas()), size.cx);
    EXPECT_TRUE(moved.left > size.cx / 2 - 44 && moved.right < size.cx / 2 + 44 && moved.bottom < 24 + 88);
    const auto isShadow = [](DWORD word) { return word != 0 && word < 0xFF000000 && (word & kColours) == 0; };
    EXPECT_GT(std::ranges::count_if(first, isShadow), 2000);
    EXPECT_EQ(first[0], 0u);
    // Where it is opaque the screen shows it, but for the film.
    const auto shows = [&] {
        const std::vector<DWORD> shown = ReadScreen(PlaceOnScreen(splash.handle()));
        for (std::size_t i = static_cast<std::size_t>(size.cx) * 112; i < first.size(); ++i)
            if (first[i] >> 24 == 255 && (first[i] & kColours) != shown[i]) return false;
        return true;
    };
    EXPECT_TRUE(Await(shows));
    // Where it is clear the window shows.
    const RECT place = PlaceOnScreen(splash.handle()), under = PlaceOnScreen(window->handle());
    const LONG corner = (place.top - under.top) * scene.size().cx + place.left - under.left;
    EXPECT_EQ(ReadScreen(place)[0], before[static_cast<std::size_t>(corner)]);
    SendMessageW(splash.handle(), WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(splash.handle(), nullptr);
    EXPECT_TRUE(Await([&] { return ShowsScene(); }));
}

TEST_F(WindowTest, KeepsNoGdiObjects) {
    ASSERT_EQ(CountGdiObjectsOf({nullptr, L"lacquer.dll", L"velGraphic.dll"}), "");
    const auto use = [&](int times) {
        for (int i = 0; i < times; ++i) {
            scene.MoveTo(scene.MiddleOf({Kind::kButton, i % 4}));
            scene.Scroll(i % 36 < 18 ? 1 : -1);
            const RECT part = Box(i % 500, i % 300, 100, 100);
            InvalidateRect(window->handle(), i % 10 == 0 ? nullptr : &part, FALSE);
            UpdateWindow(window->handle());
            if (i % 100 != 0) continue;
            const RECT place = Box(20, 10, 640 + i % 7, 440);
            SendMessageW(window->handle(), WM_DPICHANGED, i % 200 == 0 ? 0x900090 : 0x600060,
                         reinterpret_cast<LPARAM>(&place));
            const SplashWindow splash(skin, animation, window->handle(), Scale());
        }
    };
    use(101);
    const std::size_t before = LivingGdiObjects();
    use(1001);
    EXPECT_EQ(LivingGdiObjects(), before);
    // What the count is worth.
    const HDC planted = CreateCompatibleDC(nullptr);
    EXPECT_EQ(LivingGdiObjects(), before + 1);
    DeleteDC(planted);
    window.reset();
    EXPECT_LT(LivingGdiObjects(), before);
}

// The program itself. The system reads its manifest, but Wine does not tell how it follows it.
TEST(WindowProgram, RunsAndWantsTheResolutionOfEachScreen) {
    wchar_t path[] = L"../../examples/window/window.exe";
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.lpSource = path;
    description.lpResourceName = MAKEINTRESOURCEW(1);
    const HANDLE context = CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    wchar_t value[32] = L"";
    QueryActCtxSettingsW(0, context, L"http://schemas.microsoft.com/SMI/2016/WindowsSettings", L"dpiAwareness", value,
                         std::size(value), nullptr);
    ReleaseActCtx(context);
    EXPECT_EQ(std::wstring(value), L"PerMonitorV2, PerMonitor");

    STARTUPINFOW startup{};
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(path, nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process));
    HWND window = nullptr;
    EXPECT_TRUE(Await([&] {
        window = FindWindowW(L"LacquerExampleWindow", nullptr);
        return window != nullptr && IsWindowVisible(window);
    }));
    PostMessageW(window, WM_CLOSE, 0, 0);
    DWORD result = 1;
    EXPECT_EQ(WaitForSingleObject(process.hProcess, kPatience), WAIT_OBJECT_0);
    EXPECT_TRUE(GetExitCodeProcess(process.hProcess, &result));
    EXPECT_EQ(result, 0u);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

}  // namespace
}  // namespace lacquer::examples
