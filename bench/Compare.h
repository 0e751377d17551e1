#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <ctime>
#include <limits>

namespace Bench {

/// Processor time of the calling thread, or of the whole process if several threads share the work.
inline double Seconds(clockid_t clock = CLOCK_THREAD_CPUTIME_ID) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <typename Work>
double Cost(Work work, clockid_t clock = CLOCK_THREAD_CPUTIME_ID) {
    const double start = Seconds(clock);
    work();
    return Seconds(clock) - start;
}

/// Alternates both within each iteration, so that a slow machine affects both; the best times count.
template <typename Work, typename BareWork>
void Compare(benchmark::State& state, Work work, BareWork bareWork, double runs = 1) {
    double best = std::numeric_limits<double>::max(), bare = best;
    for (auto _ : state) {
        bare = std::min(bare, Cost(bareWork));
        best = std::min(best, Cost(work));
    }
    state.counters["us"] = best / runs * 1e6;
    state.counters["bare_us"] = bare / runs * 1e6;
    state.counters["ratio"] = best / bare;
}

} // namespace Bench
