// Threads that paint canvases of their own: how much of the processors' number they gain. Each call looks handles up,
// under a lock that all threads share.

#include <benchmark/benchmark.h>
#include <lacquer/lacquer.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace {

/// Draws a texture over a canvas of its own, again and again, until `ends`. Result: how often.
long PaintUntil(const std::atomic<bool> &ends, const std::atomic<bool> &begins, LONG side) {
    const auto pixels = static_cast<DWORD>(side);
    const HGCANVAS canvas = CreateCanvas(pixels, pixels, {});
    const HGTEXTURE texture = CreateTexture(pixels, pixels);
    SetTextureFilter(texture, DWORD{LACQUER_DRAW_OVER} << 24);
    const RECT all{0, 0, side, side};
    long count = 0;
    begins.wait(false);
    for (; !ends; ++count) DrawTextureEx(canvas, &all, texture, LACQUER_BILINEAR, 255, 1, 0);
    DeleteTexture(texture);
    DeleteCanvas(canvas);
    return count;
}

/// Draws per second of so many threads together.
double Throughput(int count, LONG side) {
    using Clock = std::chrono::steady_clock;
    std::atomic<bool> begins = false, ends = false;
    std::atomic<long> draws = 0;
    std::vector<std::thread> threads;
    threads.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) threads.emplace_back([&] { draws += PaintUntil(ends, begins, side); });
    const Clock::time_point start = Clock::now();
    begins = true;
    begins.notify_all();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    ends = true;
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    for (std::thread &thread : threads) thread.join();
    return static_cast<double>(draws) / seconds;
}

/// The counter "of_cores": by how much several threads draw more than one does, of the cores that they have.
void ThreadsPaintTheirOwn(benchmark::State &state) {
    const auto count = static_cast<int>(state.range(0));
    const auto side = static_cast<LONG>(state.range(1));
    const int cores = std::min(count, std::max(1, static_cast<int>(std::thread::hardware_concurrency())));
    std::vector<double> gains;
    for ([[maybe_unused]] auto _ : state) gains.push_back(Throughput(count, side) / Throughput(1, side) / cores);
    std::nth_element(gains.begin(), gains.begin() + static_cast<std::ptrdiff_t>(gains.size() / 2), gains.end());
    state.counters["of_cores"] = gains[gains.size() / 2];
}
BENCHMARK(ThreadsPaintTheirOwn)->ArgsProduct({{1, 2, 4}, {16, 48, 128}})->ArgNames({"threads", "side"})->Iterations(9);

}  // namespace
