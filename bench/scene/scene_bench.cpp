// Whole scenes by Lacquer and its peers, in turn in one process.
//
// usage: scene_bench [--pieces] [--png FOLDER]
//
// Prints for each scene how far the peers' pictures are from Lacquer's, the processor time of one painting, and the
// median over the rounds of (peer's time / Lacquer's): above 1 Lacquer is ahead. Ends with 1 when pictures differ by
// more than the roundings of the libraries explain. --pieces: also for the steps of each verb with each piece, painted
// for themselves. --png: writes the pictures.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <functional>
#include <lacquer/image.hpp>
#include <map>
#include <stdexcept>
#include <string>

#include "scene.h"

namespace lacquer::bench {

namespace {

constexpr std::size_t kRounds = 201;
constexpr double kLeastSeconds = 2e-3;  // of a round

using Painters = std::vector<std::unique_ptr<ScenePainter>>;  // Lacquer's is the first

Painters MakePainters(const Scene &scene, Pictures pictures) {
    Painters painters;
    painters.push_back(MakeLacquerPainter(scene.width, scene.height, pictures));
#ifdef LACQUER_BENCH_CAIRO
    painters.push_back(MakeCairoPainter(scene.width, scene.height, pictures));
#endif
#ifdef LACQUER_BENCH_QT
    painters.push_back(MakeQtPainter(scene.width, scene.height, pictures));
#endif
    return painters;
}

double ProcessorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double SecondsOf(ScenePainter &painter, const Steps &steps, int times) {
    const double start = ProcessorSeconds();
    for (int i = 0; i < times; ++i) Paint(painter, steps);
    return (ProcessorSeconds() - start) / times;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Medians by painter: seconds, and what they are of Lacquer's.
struct Measured {
    std::vector<double> seconds, ratios;
};

Measured Measure(const Painters &painters, const Steps &steps, std::size_t rounds) {
    const int times = 1 + static_cast<int>(kLeastSeconds / std::max(SecondsOf(*painters[0], steps, 3), 1e-7));
    std::vector<std::vector<double>> seconds(painters.size()), ratios(painters.size());
    for (std::size_t round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < painters.size(); ++i) {
            seconds[i].push_back(SecondsOf(*painters[i], steps, times));
            ratios[i].push_back(seconds[i].back() / seconds[0].back());
        }
    }
    Measured measured;
    for (std::size_t i = 0; i < painters.size(); ++i) {
        measured.seconds.push_back(Median(seconds[i]));
        measured.ratios.push_back(Median(ratios[i]));
    }
    return measured;
}

void Print(const char *title, const Painters &painters, const Measured &measured) {
    std::printf("%-26s %9.1f", title, measured.seconds[0] * 1e6);
    for (std::size_t i = 1; i < painters.size(); ++i) {
        std::printf(" | %9.1f %5.2f", measured.seconds[i] * 1e6, measured.ratios[i]);
    }
    const auto best = std::min_element(measured.ratios.begin() + 1, measured.ratios.end());
    if (best != measured.ratios.end()) {
        std::printf(" | %5.2f %s", *best, painters[static_cast<std::size_t>(best - measured.ratios.begin())]->Name());
    }
    std::printf("\n");
}

void PrintHead(const char *title, const Painters &painters) {
    std::printf("\n%-26s %9s", title, "us");
    for (std::size_t i = 1; i < painters.size(); ++i) std::printf(" | %9s %5s", painters[i]->Name(), "ratio");
    std::printf(" | best peer\n");
}

/// Each library rounds on its own, once for each layer. What is drawn elsewhere, sampled otherwise or left out shows.
constexpr double kMostMean = 0.6, kMostFar = 0.0001;
constexpr int kFarLevels = 6;

void CheckLikeness(const ScenePainter &ours, const ScenePainter &peer) {
    const std::vector<std::uint32_t> a = ours.Pixels(), b = peer.Pixels();
    if (a.size() != b.size()) throw std::runtime_error("the pictures have different sizes");
    double sum = 0, far = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        int most = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            const int difference =
                std::abs(static_cast<int>(a[i] >> shift & 255) - static_cast<int>(b[i] >> shift & 255));
            sum += difference;
            most = std::max(most, difference);
        }
        far += most > kFarLevels;
    }
    const double mean = sum / static_cast<double>(a.size() * 4), share = far / static_cast<double>(a.size());
    std::printf("  %s: mean difference %.3f levels, %.4f %% of the pixels differ by more than %d\n", peer.Name(), mean,
                share * 100, kFarLevels);
    if (mean > kMostMean || share > kMostFar) throw std::runtime_error("the pictures are not alike");
}

void WritePng(const std::string &path, const ScenePainter &painter, const Scene &scene) {
    const lq::Canvas canvas = lq::Canvas::Create(static_cast<DWORD>(scene.width), static_cast<DWORD>(scene.height));
    const auto locked = lq::Lock(canvas);
    const std::vector<std::uint32_t> pixels = painter.Pixels();
    if (locked) std::memcpy(locked.View().bits, pixels.data(), pixels.size() * sizeof(pixels[0]));
    if (!lq::SavePng(canvas, path.c_str())) throw std::runtime_error("can't write " + path);
}

/// The steps of each verb with each piece.
std::map<std::string, Steps> StepsByPiece(const Steps &steps, Pictures pictures) {
    constexpr const char *kNames[] = {"fill", "blend", "picture", "stretch", "nine-grid", "tile"};
    std::map<std::string, Steps> groups;
    for (const Step &step : steps) {
        std::string name = kNames[static_cast<std::size_t>(step.verb)];
        if (step.verb > Verb::kBlend) name += std::string(" ") + pictures[static_cast<std::size_t>(step.piece)].name;
        groups[name].push_back(step);
    }
    return groups;
}

void Run(bool byPiece, const std::string &folder) {
    const std::vector<PieceOfSkin> pictures = LoadPieces();
    for (const Scene &scene : {SmallWindow(), LargeWindow(), ScaledWindow(), Desktop()}) {
        const Painters painters = MakePainters(scene, pictures);
        for (const auto &painter : painters) {
            Paint(*painter, scene.steps);
            if (!folder.empty()) WritePng(folder + "/" + scene.name + " " + painter->Name() + ".png", *painter, scene);
        }
        PrintHead(scene.name, painters);
        for (std::size_t i = 1; i < painters.size(); ++i) CheckLikeness(*painters[0], *painters[i]);
        Print("everything", painters, Measure(painters, scene.steps, kRounds));
        if (!byPiece) continue;
        for (const auto &[name, steps] : StepsByPiece(scene.steps, pictures)) {
            Print(name.c_str(), painters, Measure(painters, steps, 51));
        }
    }
}

}  // namespace

}  // namespace lacquer::bench

int main(int count, char **arguments) {
    bool byPiece = false;
    std::string folder;
    for (int i = 1; i < count; ++i) {
        if (!std::strcmp(arguments[i], "--pieces"))
            byPiece = true;
        else if (!std::strcmp(arguments[i], "--png") && i + 1 < count)
            folder = arguments[++i];
        else {
            std::fprintf(stderr, "usage: scene_bench [--pieces] [--png FOLDER]\n");
            return 2;
        }
    }
    int result = 0;
    const auto run = [&] {
        try {
            lacquer::bench::Run(byPiece, folder);
        } catch (const std::exception &error) {
            std::fprintf(stderr, "scene_bench: %s\n", error.what());
            result = 1;
        }
    };
#ifdef LACQUER_BENCH_QT
    lacquer::bench::CallWithoutMoreThreads(run);
#else
    run();
#endif
    return result;
}
