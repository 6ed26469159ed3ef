// Measuring two operations against each other, round by round, so that the machine's mood cancels out.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace lacquer::bench {

/// Runs `ours` and `peer` in turn. The benchmark's time is that of `ours`; the counter "of_peer" is the median over the
/// rounds of (time of ours / time of peer): 1 is as fast as the peer, less is faster.
template <class Ours, class Peer>
void MeasureAgainst(benchmark::State &state, Ours ours, Peer peer) {
    using Clock = std::chrono::steady_clock;
    const auto secondsOf = [](auto &operation) {
        const Clock::time_point start = Clock::now();
        operation();
        return std::chrono::duration<double>(Clock::now() - start).count();
    };
    std::vector<double> ratios;
    for (auto _ : state) {
        const double peerTime = secondsOf(peer);
        const double ourTime = secondsOf(ours);
        state.SetIterationTime(ourTime);
        ratios.push_back(ourTime / std::max(peerTime, 1e-9));
    }
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    state.counters["of_peer"] = *middle;
}

}  // namespace lacquer::bench
