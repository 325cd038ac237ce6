// A log line in a file, flushed, beside that of a common logging library; and what a message costs
// that the threshold drops.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>
#if __has_include(<spdlog/spdlog.h>)
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#define HAS_SPDLOG
#endif

#include "hwxcore/diagnostics/TLogger.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using NQORHWX20::ILogger;
using NQORHWX20::TLogger;

const std::string gMessage = "Failed to find nsp named plugin";

// The zones under which a clock reading costs differently, by the number of the argument.
void SetZone(std::int64_t number) {
  constexpr const char* kZones[] = {nullptr, "UTC", "CET-1CEST,M3.5.0,M10.5.0/3"};
  const char* const zone = kZones[number];
  if (zone) {
    ::setenv("TZ", zone, 1);
  } else {
    ::unsetenv("TZ");
  }
}

void Zones(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("zone")->DenseRange(0, 2);
}

TLogger& OpenLogger() {
  TLogger& logger = *TLogger::GetInstance();
  logger.SetLogFilename("/tmp/hwx-benchmark.log");
  return logger;
}

void LineInFile(benchmark::State& state) {
  SetZone(state.range(0));
  TLogger& logger = OpenLogger();
  TLogger::SetLogThreshold(ILogger::kHWXLogVerbose);
  for (auto _ : state)
    logger.OutputLogEntry(ILogger::kHWXLogDebug, gMessage);
}
BENCHMARK(LineInFile)->Apply(Zones);

void LineInFileAndList(benchmark::State& state) {
  SetZone(state.range(0));
  TLogger& logger = OpenLogger();
  for (auto _ : state) {
    logger.OutputLogEntry(ILogger::kHWXLogError, gMessage);
    if (logger.GetLog().size() == 1000) logger.ClearLog();
  }
  logger.ClearLog();
}
BENCHMARK(LineInFileAndList)->Apply(Zones);

#ifdef HAS_SPDLOG
void LineOfSpdlog(benchmark::State& state) {
  SetZone(state.range(0));
  const auto sink =
      std::make_shared<spdlog::sinks::basic_file_sink_st>("/tmp/hwx-benchmark-spdlog.log", true);
  spdlog::logger logger("benchmark", sink);
  logger.flush_on(spdlog::level::trace);
  for (auto _ : state)
    logger.info(gMessage);
}
BENCHMARK(LineOfSpdlog)->Apply(Zones);
#endif

void BelowThreshold(benchmark::State& state) {
  TLogger& logger = OpenLogger();
  TLogger::SetLogThreshold(ILogger::kHWXLogStatus);
  for (auto _ : state)
    logger.OutputLogEntry(ILogger::kHWXLogDebug, gMessage);
}
BENCHMARK(BelowThreshold);

void GetInstance(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(TLogger::GetInstance());
}
BENCHMARK(GetInstance);

void GetLocalTime(benchmark::State& state) {
  SetZone(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(NQORHWX20::TOSSpecific::GetLocalTime());
}
BENCHMARK(GetLocalTime)->Apply(Zones);

}  // namespace
