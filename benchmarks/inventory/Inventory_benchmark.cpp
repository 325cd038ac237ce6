// The whole machine through `hwx show`, beside lshw: from the start of the program to its end, with
// all that each finds. "instances" are those that hwx shows, "nodes" those of lshw's tree. lshw
// looks at more kinds of things than the provider, such as the devices behind each PCI device, and
// the provider at others, such as file systems and ports without hardware.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "../os/SideBySide.h"

namespace {

constexpr const char* kShow = "'" HWX_BENCH_PROGRAM "' show 2>/dev/null";
constexpr const char* kLshw = "lshw -quiet 2>/dev/null";
constexpr const char* kLshwTree = "lshw -quiet -json 2>/dev/null";

std::string OutputOf(const char* command) {
  std::string output;
  std::FILE* pipe = ::popen(command, "r");
  if (pipe == nullptr) std::abort();
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, pipe))
    output.append(block, count);
  ::pclose(pipe);
  return output;
}

// Lines that begin with `beginning`, after blanks if `isIndented`.
double CountLines(const std::string& text, const std::string& beginning, bool isIndented) {
  double count = 0;
  for (std::size_t begin = 0; begin < text.size(); begin = text.find('\n', begin) + 1) {
    const std::size_t start = isIndented ? text.find_first_not_of(' ', begin) : begin;
    if (text.compare(start, beginning.size(), beginning) == 0) ++count;
    if (text.find('\n', begin) == std::string::npos) break;
  }
  return count;
}

// Each instance begins with the name of its class.
double CountInstances(const std::string& shown) {
  return CountLines(shown, "CIM_", false) + CountLines(shown, "QORSG_", false);
}

void BM_ShowMachine(benchmark::State& state) {
  if (OutputOf("command -v lshw").empty()) {
    state.SkipWithError("lshw is not installed");
    return;
  }
  hwxbench::Compare(
      state, 5, 2, [] { OutputOf(kShow); }, [] { OutputOf(kLshw); });
  state.counters["instances"] = CountInstances(OutputOf(kShow));
  state.counters["nodes"] = CountLines(OutputOf(kLshwTree), "\"id\" :", true);
}
BENCHMARK(BM_ShowMachine)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
