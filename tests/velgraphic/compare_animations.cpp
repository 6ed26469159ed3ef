// Draws the animations of a folder through the companion, and through the renderer directly, and counts what differs:
// `compare_animations FOLDER [frames]`. Fails when less is accepted or alike than has to be.

#include <rlottie.h>
#include <velgraphic/velgraphic.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace {

constexpr double kLeastShare = 0.99;

using Pixels = std::vector<uint32_t>;

/// The companion leaves pictures out, so the renderer gets none: their layers show nothing, their files have no name.
std::string WithoutPictures(std::string json) {
    json = std::regex_replace(json, std::regex(R"rx(("ty"\s*:\s*)2(\s*[,}]))rx"), "$013$2");
    return std::regex_replace(json, std::regex(R"rx("p"(\s*:\s*"))rx"), "\"-\"$1");
}

/// One size, frames in order, with one object of either library. Result: why the pixels are not the same, or nothing.
std::string Difference(const std::string &json, const std::string &plain, int width, int height, size_t frames) {
    const lq::Lottie lottie = lq::Lottie::FromData(json);
    const auto direct = rlottie::Animation::loadFromData(plain, "", "", false);
    std::string difference;
    const size_t all = direct->totalFrame(), side = static_cast<size_t>(width);
    for (size_t i = 0; i < frames && difference.empty(); ++i) {
        const size_t frame = all * i / frames;
        Pixels drawn(side * static_cast<size_t>(height)), expected(drawn.size());
        direct->renderSync(frame, {expected.data(), side, static_cast<size_t>(height), side * 4}, false);
        lq::VectorCanvas canvas = lq::VectorCanvas::Create();
        canvas.DrawInto(drawn.data(), width, height, width * 4);
        if (velLottieDraw(canvas, lottie, static_cast<float>(frame), 0, 0, static_cast<float>(width),
                          static_cast<float>(height)) != 1) {
            difference = "frame " + std::to_string(frame) + ": " + velLottieLastError();
        } else if (drawn != expected) {
            difference = "frame " + std::to_string(frame) + " differs";
        }
    }
    return difference;
}

}  // namespace

int main(int argc, char **argv) {
    if (argc < 2) return 2;
    const size_t frames = argc > 2 ? static_cast<size_t>(std::max(1, std::atoi(argv[2]))) : 4;
    int files = 0, played = 0, accepted = 0, alike = 0;
    for (const auto &entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string json((std::istreambuf_iterator<char>(file)), {});
        const std::string name = entry.path().filename().string(), plain = WithoutPictures(json);
        ++files;
        size_t ownWidth = 0, ownHeight = 0;
        const auto direct = rlottie::Animation::loadFromData(plain, "", "", false);
        if (direct) direct->size(ownWidth, ownHeight);
        if (!direct || direct->totalFrame() == 0 || ownWidth == 0 || ownHeight == 0) continue;
        ++played;
        if (!lq::Lottie::FromData(json)) {
            std::printf("%s: %s\n", name.c_str(), velLottieLastError());
            continue;
        }
        ++accepted;
        const int width = static_cast<int>(ownWidth), height = static_cast<int>(ownHeight);
        std::string difference;
        for (const auto &[w, h] : {std::pair{48, 48}, {width, height}, {1024, 1024}}) {
            if (difference.empty()) difference = Difference(json, plain, w, h, frames);
            if (!difference.empty()) {
                std::printf("%s at %d x %d: %s\n", name.c_str(), w, h, difference.c_str());
                break;
            }
        }
        alike += difference.empty();
    }
    std::printf("%d files, %d played by the renderer, %d accepted, %d of them drawn alike at all sizes\n", files,
                played, accepted, alike);
    return played > 0 && accepted >= kLeastShare * played && alike >= kLeastShare * accepted ? 0 : 1;
}
