#ifndef HWXBENCHMARKS_OS_SIDEBYSIDE_H
#define HWXBENCHMARKS_OS_SIDEBYSIDE_H

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <limits>

// What runs other programs or moves much memory can't be measured by the clock of one thread. Here
// both sides take turns, and the best time of each counts: by the wall clock, and by the processor
// time of this process and the children that it waited for, which a busy machine disturbs less.

namespace hwxbench {

struct Cost {
  double fWall = std::numeric_limits<double>::max();       // milliseconds
  double fProcessor = std::numeric_limits<double>::max();  // milliseconds
};

inline double Milliseconds(const timeval& time) {
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
}

inline double ProcessorTime() {
  double time = 0;
  for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
    rusage usage{};
    ::getrusage(who, &usage);
    time += Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime);
  }
  return time;
}

// The best so far, and the mean of `calls` calls.
template <typename Call>
void Measure(Cost& best, int calls, const Call& call) {
  const auto wall = std::chrono::steady_clock::now();
  const double processor = ProcessorTime();
  for (int i = 0; i < calls; ++i)
    call();
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - wall;
  best.fWall = std::min(best.fWall, spent.count() / calls);
  best.fProcessor = std::min(best.fProcessor, (ProcessorTime() - processor) / calls);
}

/// Counters "ms", "peer_ms" and "ratio" by the wall clock, and "cpu_ratio".
inline void Report(benchmark::State& state, const Cost& own, const Cost& peer) {
  state.counters["ms"] = own.fWall;
  state.counters["peer_ms"] = peer.fWall;
  state.counters["ratio"] = own.fWall / peer.fWall;
  state.counters["cpu_ratio"] = own.fProcessor / peer.fProcessor;
}

/// Measures `call` and `peer` in turns, `calls` calls a turn, and reports.
template <typename Call, typename Peer>
void Compare(benchmark::State& state, int rounds, int calls, const Call& call, const Peer& peer) {
  Cost own;
  Cost other;
  for (auto _ : state) {
    call();  // not counted: the first call is dearer
    peer();
    for (int round = 0; round < rounds; ++round) {
      Measure(own, calls, call);
      Measure(other, calls, peer);
    }
  }
  Report(state, own, other);
}

}  // namespace hwxbench

#endif  // HWXBENCHMARKS_OS_SIDEBYSIDE_H
