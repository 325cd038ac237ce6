// A configuration file of 100,000 lines, read and let go of, beside a key file of GLib's; with its
// keys in order, and shuffled.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>
#if __has_include(<glib.h>)
#include <glib.h>
#define HAS_GLIB
#endif

#include "hwxcore/diagnostics/detail/ConfigLines.h"

namespace {

constexpr int kLines = 100000;

// Writes the file behind `head` and returns its path.
std::string WriteFile(bool isShuffled, const std::string& head) {
  std::vector<int> numbers(kLines);
  std::iota(numbers.begin(), numbers.end(), kLines);  // all of six digits
  if (isShuffled) std::shuffle(numbers.begin(), numbers.end(), std::mt19937(1));
  const std::string path = "/tmp/hwx-benchmark.cfg";
  std::ofstream file(path);
  file << head;
  for (const int number : numbers)
    file << "collector.option." << number << "=value of the option number " << number << "\n";
  return path;
}

void Orders(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("shuffled")->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
}

void ReadConfigFile(benchmark::State& state) {
  const std::string path = WriteFile(state.range(0) != 0, "");
  for (auto _ : state) {
    std::map<std::string, std::string> entries;
    std::ifstream file(path);
    NQORHWX20::detail::ReadConfigLines(file, entries);
    if (entries.size() != kLines) std::abort();
  }
}
BENCHMARK(ReadConfigFile)->Apply(Orders);

#ifdef HAS_GLIB
void ReadKeyFileOfGlib(benchmark::State& state) {
  const std::string path = WriteFile(state.range(0) != 0, "[main]\n");
  for (auto _ : state) {
    GKeyFile* const file = ::g_key_file_new();
    if (!::g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr)) std::abort();
    ::g_key_file_free(file);
  }
}
BENCHMARK(ReadKeyFileOfGlib)->Apply(Orders);
#endif

}  // namespace
