// A window that paints itself: window [--self-check [screenshot.bmp]].
#include <lacquer/lacquer.h>
#include <objbase.h>
#include <stdlib.h>

#include <cstdio>
#include <exception>

#include "window/png_resource.h"
#include "window/self_check.h"

namespace {

using namespace lacquer::examples;

struct ComLibrary {
    ComLibrary() {
        if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) throw std::runtime_error("COM is not available");
    }
    ComLibrary(const ComLibrary &) = delete;
    ComLibrary &operator=(const ComLibrary &) = delete;
    ~ComLibrary() { CoUninitialize(); }
};

int RunMessages(const SkinnedWindow &window, int show) {
    ShowWindow(window.handle(), show);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (!window.failure().empty()) throw std::runtime_error(window.failure());
    return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    const bool checking = __argc > 1 && std::string(__argv[1]) == "--self-check";
    try {
        // One pixel of the canvas is one pixel of the screen, whatever the resolution.
        SetProcessDPIAware();
        const ComLibrary com;
        const Skin skin([](const std::string &name, Alpha alpha) { return ReadPngResource("piece_" + name, alpha); });
        Scene scene(skin, {600, 420});
        SkinnedWindow window(skin, scene);
        if (!checking) return RunMessages(window, show);
        return SelfCheck(window, scene, __argc > 2 ? __argv[2] : "") ? 0 : 1;
    } catch (const std::exception &error) {
        if (checking)
            std::printf("failed: %s\n", error.what());
        else
            MessageBoxA(nullptr, error.what(), "Lacquer", MB_ICONERROR);
        return 1;
    }
}
