#ifndef HWXBENCHMARKS_MEASURE_H
#define HWXBENCHMARKS_MEASURE_H

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

// Figures that a row of times doesn't show: how much dearer one thing is than another, and with
// which power of the size the time grows. Each takes the best of many short measurements of the
// processor time, in turns, so that a busy machine disturbs both sides little and alike.

namespace hwxbench {

/// The processor time of this thread, in nanoseconds.
inline double ThreadTime() {
  timespec now;
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return 1e9 * static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec);
}

/// The nanoseconds that one of `count` calls takes. What the last one returns is destroyed when the
/// clock has stopped.
template <typename Call>
double Nanoseconds(int count, const Call& call) {
  const double start = ThreadTime();
  for (int i = 1; i < count; ++i)
    call();
  const auto result = call();
  const double spent = ThreadTime() - start;
  benchmark::DoNotOptimize(result);
  return spent / count;
}

/// How many calls fill a millisecond, at least 1.
template <typename Call>
int CallsPerMillisecond(const Call& call) {
  call();  // not counted: the first call is dearer
  return static_cast<int>(std::max(1.0, 1e6 / Nanoseconds(1, call)));
}

/// Sets the counters "ns", "base_ns" and "ratio".
template <typename Call, typename Base>
void CompareWithBase(benchmark::State& state, int rounds, const Call& call, const Base& base) {
  double best = std::numeric_limits<double>::max();
  double bestBase = best;
  for (auto _ : state) {
    const int calls = CallsPerMillisecond(base);
    for (int round = 0; round < rounds; ++round) {
      best = std::min(best, Nanoseconds(calls, call));
      bestBase = std::min(bestBase, Nanoseconds(calls, base));
    }
  }
  state.counters["ns"] = best;
  state.counters["base_ns"] = bestBase;
  state.counters["ratio"] = best / bestBase;
}

/// The exponent of a power law through the points, by least squares over the logarithms.
inline double FittedExponent(const std::vector<double>& sizes, const std::vector<double>& times) {
  const auto count = static_cast<double>(sizes.size());
  double sumX = 0, sumY = 0, sumXX = 0, sumXY = 0;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const double x = std::log(sizes[i]), y = std::log(times[i]);
    sumX += x;
    sumY += y;
    sumXX += x * x;
    sumXY += x * y;
  }
  return (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

/// Sets the counter "exponent". `make` gives the call to be measured for a size.
template <typename Make>
void FitExponent(benchmark::State& state, const std::vector<double>& sizes, int rounds,
                 const Make& make) {
  std::vector<double> times(sizes.size(), std::numeric_limits<double>::max());
  for (auto _ : state) {
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const auto call = make(static_cast<std::size_t>(sizes[i]));
      const int calls = CallsPerMillisecond(call);
      for (int round = 0; round < rounds; ++round)
        times[i] = std::min(times[i], Nanoseconds(calls, call));
    }
  }
  state.counters["exponent"] = FittedExponent(sizes, times);
  state.counters["smallest_ns"] = times.front();
  state.counters["largest_ns"] = times.back();
}

}  // namespace hwxbench

#endif  // HWXBENCHMARKS_MEASURE_H
