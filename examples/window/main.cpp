// The program: loads its skin, shows its window, and hands messages on until it is closed.
#include <objbase.h>

#include <exception>

#include "window/resources.h"
#include "window/skinned_window.h"

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

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    try {
        const ComLibrary com;
        const Skin skin([](const std::string &name, Alpha alpha) { return ReadPngResource("piece_" + name, alpha); });
        const Lottie animation = Lottie::FromData(ReadResource("film_drop"));
        Scene scene(skin, {600, 420}, true);
        SkinnedWindow window(skin, animation, scene);
        ShowWindow(window.handle(), show);
        return RunMessages();
    } catch (const std::exception &error) {
        MessageBoxA(nullptr, error.what(), "Lacquer", MB_ICONERROR);
        return 1;
    }
}
