// Paints the gallery: gallery [assets folder [output folder]]. A line for each picture tells its size and how long the
// painting took, without the writing of the file.
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "gallery/gallery.h"

namespace {

using namespace lacquer::examples;

void PaintGallery(const std::string &assets, const std::string &output) {
    const Skin skin([&](const std::string &name, Alpha alpha) { return ReadPng(assets + "/" + name + ".png", alpha); });
    std::filesystem::create_directories(output);
    for (const Picture &picture : Pictures()) {
        const auto start = std::chrono::steady_clock::now();
        const Canvas canvas = picture.paint(skin);
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;

        const std::string path = output + "/" + std::string(picture.name) + ".png";
        WritePng(path, canvas, picture.kind);
        SIZE size{};
        Check(GetCanvasSize(canvas, &size), "GetCanvasSize");
        std::printf("%-24s %4d x %d  %6.1f ms\n", path.c_str(), static_cast<int>(size.cx), static_cast<int>(size.cy),
                    time.count());
    }
}

}  // namespace

int main(int argc, char **argv) {
    if (argc > 3) {
        std::fprintf(stderr, "usage: gallery [assets folder [output folder]]\n");
        return 2;
    }
    try {
        PaintGallery(argc > 1 ? argv[1] : "examples/assets", argc > 2 ? argv[2] : "gallery");
    } catch (const std::exception &error) {
        std::fprintf(stderr, "gallery: %s\n", error.what());
        return 1;
    }
    return 0;
}
