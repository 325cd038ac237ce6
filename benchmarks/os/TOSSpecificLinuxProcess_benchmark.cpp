// A program that does nothing, started from callers of different size, beside posix_spawn and a
// plain fork; and a program that prints much, beside popen.

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "SideBySide.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using NQORHWX20::TOSSpecific;

constexpr std::size_t kMiB = 1 << 20;

// Memory that the process really has, in pages of the common size.
class Resident {
 public:
  explicit Resident(std::size_t size) : fSize(size) {
    fMemory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (!IsThere()) return;
    ::madvise(fMemory, size, MADV_NOHUGEPAGE);
    for (std::size_t position = 0; position < size; position += 4096)
      static_cast<volatile char*>(fMemory)[position] = 1;
  }
  ~Resident() {
    if (IsThere()) ::munmap(fMemory, fSize);
  }

  Resident(const Resident&) = delete;
  Resident& operator=(const Resident&) = delete;

  bool IsThere() const { return fMemory != MAP_FAILED; }

  // Whether there is so much to be had, and something left for others.
  static bool MayBe(std::size_t size) {
    std::ifstream file("/proc/meminfo");
    std::string name;
    for (std::size_t kilobytes; file >> name >> kilobytes; file.ignore(100, '\n')) {
      if (name == "MemAvailable:") return kilobytes / 1024 > size / kMiB + 1024;
    }
    return false;
  }

 private:
  std::size_t fSize;
  void* fMemory;
};

void SpawnTrue() {
  std::string output;
  if (TOSSpecific::SpawnProcess("true", {}, output, -1) != 0) std::abort();
}

void Collect(pid_t child) {
  int status = -1;
  if (::waitpid(child, &status, 0) != child || status != 0) std::abort();
}

// As `SpawnProcess`: with a pipe that is read to its end.
void PosixSpawnTrueWithPipe() {
  int ends[2];
  if (::pipe(ends) != 0) std::abort();
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
  ::posix_spawn_file_actions_addclose(&actions, ends[0]);
  ::posix_spawn_file_actions_addclose(&actions, ends[1]);
  char name[] = "true";
  char* const arguments[] = {name, nullptr};
  pid_t child = -1;
  if (::posix_spawnp(&child, name, &actions, nullptr, arguments, ::environ) != 0) std::abort();
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  char byte;
  while (::read(ends[0], &byte, 1) > 0)
    continue;
  ::close(ends[0]);
  Collect(child);
}

void PosixSpawnTrue() {
  char name[] = "true";
  char* const arguments[] = {name, nullptr};
  pid_t child = -1;
  if (::posix_spawnp(&child, name, nullptr, nullptr, arguments, ::environ) != 0) std::abort();
  Collect(child);
}

void ForkTrue() {
  const pid_t child = ::fork();
  if (child == 0) {
    ::execlp("true", "true", nullptr);
    ::_exit(255);
  }
  Collect(child);
}

// Runs `peer` beside `SpawnProcess`, in a caller of so many MiB.
template <void (*kPeer)()>
void SpawnBeside(benchmark::State& state) {
  const std::size_t size = static_cast<std::size_t>(state.range(0)) * kMiB;
  if (!Resident::MayBe(size)) {
    state.SkipWithError("too little memory");
    return;
  }
  const Resident memory(size);
  hwxbench::Compare(state, 20, 10, &SpawnTrue, kPeer);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("MiB")->Arg(10)->Arg(1024)->Arg(8192)->Iterations(1);
}
BENCHMARK(SpawnBeside<&PosixSpawnTrueWithPipe>)->Name("Spawn/posix_spawn_with_pipe")->Apply(Sizes);
BENCHMARK(SpawnBeside<&PosixSpawnTrue>)->Name("Spawn/bare_posix_spawn")->Apply(Sizes);

void SpawnBesideFork(benchmark::State& state) {
  const Resident memory(static_cast<std::size_t>(state.range(0)) * kMiB);
  hwxbench::Compare(state, 5, 2, &SpawnTrue, &ForkTrue);
}
BENCHMARK(SpawnBesideFork)->Name("Spawn/fork")->ArgName("MiB")->Arg(10)->Arg(1024)->Iterations(1);

// The ratio of a caller of 8 GiB to one of 10 MiB.
void SpawnFromLargeBesideSmall(benchmark::State& state) {
  constexpr std::size_t kLarge = 8192 * kMiB;
  if (!Resident::MayBe(kLarge)) {
    state.SkipWithError("too little memory");
    return;
  }
  hwxbench::Cost large;
  hwxbench::Cost small;
  for (auto _ : state) {
    for (int turn = 0; turn < 3; ++turn) {
      for (const bool isLarge : {false, true}) {
        const Resident memory(isLarge ? kLarge : 10 * kMiB);
        SpawnTrue();
        for (int round = 0; round < 20; ++round)
          hwxbench::Measure(isLarge ? large : small, 10, &SpawnTrue);
      }
    }
  }
  hwxbench::Report(state, large, small);
}
BENCHMARK(SpawnFromLargeBesideSmall)->Name("Spawn/from_8_GiB_beside_10_MiB")->Iterations(1);

void SpawnAndReadBesidePopen(benchmark::State& state) {
  constexpr std::size_t kSize = 100000000;
  const std::string path = "/tmp/hwx-benchmark-output";
  std::ofstream(path) << std::string(kSize, 'x');
  const auto spawn = [&] {
    std::string output;
    TOSSpecific::SpawnProcess("cat", {path}, output, -1);
    if (output.size() != kSize) std::abort();
  };
  const auto popen = [&] {
    std::string output;
    std::FILE* const stream = ::popen(("exec cat " + path).c_str(), "r");
    char buffer[4096];
    for (std::size_t size; (size = std::fread(buffer, 1, sizeof buffer, stream)) > 0;)
      output.append(buffer, size);
    ::pclose(stream);
    if (output.size() != kSize) std::abort();
  };
  hwxbench::Compare(state, 15, 1, spawn, popen);
  std::remove(path.c_str());
}
BENCHMARK(SpawnAndReadBesidePopen)->Name("Spawn/100_MB_beside_popen")->Iterations(1);

}  // namespace
