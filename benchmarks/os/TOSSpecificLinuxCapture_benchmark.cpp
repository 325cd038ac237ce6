// A large file and a pseudo-file, captured, beside the common ways to read them.

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include "SideBySide.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using NQORHWX20::TOSSpecific;

void CaptureLargeFile(benchmark::State& state) {
  constexpr std::size_t kSize = 100000000;
  const std::string path = "/tmp/hwx-benchmark-capture";
  std::ofstream(path) << std::string(kSize, 'x');
  const auto capture = [&] {
    if (TOSSpecific::CaptureFile(path).size() != kSize) std::abort();
  };
  const auto read = [&] {
    const int file = ::open(path.c_str(), O_RDONLY);
    std::string text(kSize, '\0');
    if (::read(file, text.data(), kSize) != kSize) std::abort();
    ::close(file);
    benchmark::DoNotOptimize(text);
  };
  hwxbench::Compare(state, 30, 1, capture, read);
  std::remove(path.c_str());
}
BENCHMARK(CaptureLargeFile)->Name("Capture/100_MB_beside_one_read")->Iterations(1);

constexpr const char* kPseudoFile = "/proc/cpuinfo";

void CapturePseudoFile() {
  benchmark::DoNotOptimize(TOSSpecific::CaptureFile(kPseudoFile));
}

void ReadByIterator() {
  std::ifstream file(kPseudoFile);
  benchmark::DoNotOptimize(std::string(std::istreambuf_iterator<char>(file), {}));
}

void ReadByBuffer() {
  std::ifstream file(kPseudoFile);
  std::ostringstream text;
  text << file.rdbuf();
  benchmark::DoNotOptimize(text.str());
}

template <void (*kPeer)()>
void PseudoFileBeside(benchmark::State& state) {
  hwxbench::Compare(state, 100, 20, &CapturePseudoFile, kPeer);
}
BENCHMARK(PseudoFileBeside<&ReadByIterator>)
    ->Name("Capture/cpuinfo_beside_iterator")
    ->Iterations(1);
BENCHMARK(PseudoFileBeside<&ReadByBuffer>)->Name("Capture/cpuinfo_beside_rdbuf")->Iterations(1);

}  // namespace
