// Measuring two operations against each other, round by round, so that the machine's mood cancels out.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace lacquer::bench {

/// Runs `ours` and `peer` in turn. The benchmark's time is that of `ours`; the counter "of_peer" is the median over the
/// rounds of (time of ours / time of peer): 1 is as fast as the peer, less is faster. Given the pixels of one run, the
/// counters "MPixel/s" and "peer_MPixel/s" are the speeds by the medians of both times.
template <class Ours, class Peer>
void MeasureAgainst(benchmark::State &state, Ours ours, Peer peer, double pixels = 0) {
    using Clock = std::chrono::steady_clock;
    const auto secondsOf = [](auto &operation) {
        const Clock::time_point start = Clock::now();
        operation();
        return std::chrono::duration<double>(Clock::now() - start).count();
    };
    std::vector<double> ratios, ourTimes, peerTimes;
    const auto median = [](std::vector<double> &values) {
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        return *middle;
    };
    for (auto _ : state) {
        const double peerTime = secondsOf(peer);
        const double ourTime = secondsOf(ours);
        state.SetIterationTime(ourTime);
        ratios.push_back(ourTime / std::max(peerTime, 1e-9));
        ourTimes.push_back(ourTime);
        peerTimes.push_back(peerTime);
    }
    state.counters["of_peer"] = median(ratios);
    if (pixels <= 0) return;
    state.counters["MPixel/s"] = pixels / std::max(median(ourTimes), 1e-9) / 1e6;
    state.counters["peer_MPixel/s"] = pixels / std::max(median(peerTimes), 1e-9) / 1e6;
}

}  // namespace lacquer::bench
