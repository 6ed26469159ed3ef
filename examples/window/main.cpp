// The program: loads its skin, shows its window, and hands messages on until it is closed.
#include <exception>

#include "window/resources.h"
#include "window/skinned_window.h"

using namespace lacquer::examples;

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    try {
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
