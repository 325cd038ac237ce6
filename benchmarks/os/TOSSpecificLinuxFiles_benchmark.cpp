// A large copy beside cp, the lines of find beside popen, and directories, read and made, beside
// std::filesystem.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "SideBySide.h"
#include "hwxcore/diagnostics/TCommUtil.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using NQORHWX20::TOSSpecific;

using Texts = std::vector<std::string>;

void Run(const std::string& command) {
  if (std::system(command.c_str()) != 0) std::abort();
}

// Both make a new file; that of the last round is gone before the clock runs.
void CopyBesideCp(benchmark::State& state) {
  const std::string source = "/tmp/hwx-benchmark-source";
  const std::string copy = "/tmp/hwx-benchmark-copy";
  std::ofstream(source) << std::string(200000000, 'x');
  hwxbench::Cost own;
  hwxbench::Cost peer;
  for (auto _ : state) {
    for (int round = 0; round < 15; ++round) {
      hwxbench::Measure(own, 1, [&] { TOSSpecific::FileCopy(source, copy); });
      std::remove(copy.c_str());
      hwxbench::Measure(peer, 1, [&] { Run("exec cp " + source + " " + copy); });
      std::remove(copy.c_str());
    }
  }
  hwxbench::Report(state, own, peer);
  std::remove(source.c_str());
}
BENCHMARK(CopyBesideCp)->Name("Files/copy_200_MB_beside_cp")->Iterations(1);

// A `find` along PATH that prints so many lines and costs next to nothing.
class QuickFind {
 public:
  explicit QuickFind(int lines) {
    std::filesystem::create_directory(fDirectory);
    std::ofstream text(fDirectory + "/lines");
    for (int line = 0; line < lines; ++line)
      text << "/sys/devices/pci0000:00/0000:00:1f.2/ata1/host0/target0:0:0/" << line << "\n";
    std::ofstream(fDirectory + "/find") << "#!/bin/sh\nexec cat " << fDirectory << "/lines\n";
    Run("chmod +x " + fDirectory + "/find");
    ::setenv("PATH", (fDirectory + ":" + fBefore).c_str(), 1);
  }
  ~QuickFind() {
    ::setenv("PATH", fBefore.c_str(), 1);
    std::filesystem::remove_all(fDirectory);
  }

  QuickFind(const QuickFind&) = delete;
  QuickFind& operator=(const QuickFind&) = delete;

 private:
  std::string fDirectory = "/tmp/hwx-benchmark-find";
  std::string fBefore = std::getenv("PATH");
};

std::size_t LinesOfPopen() {
  std::FILE* const stream = ::popen("exec find /sys", "r");
  Texts lines;
  char* line = nullptr;
  std::size_t room = 0;
  for (ssize_t size; (size = ::getline(&line, &room, stream)) > 0;)
    lines.emplace_back(line, static_cast<std::size_t>(size - 1));
  std::free(line);
  ::pclose(stream);
  return lines.size();
}

void FindBesidePopen(benchmark::State& state) {
  const QuickFind find(static_cast<int>(state.range(0)));
  const auto expected = static_cast<std::size_t>(state.range(0));
  const auto own = [&] {
    if (TOSSpecific::FindFile("/sys").size() != expected) std::abort();
  };
  const auto peer = [&] {
    if (LinesOfPopen() != expected) std::abort();
  };
  hwxbench::Compare(state, 40, 1, own, peer);
}
BENCHMARK(FindBesidePopen)
    ->Name("Files/find_beside_popen")
    ->ArgName("lines")
    ->Arg(5000)
    ->Arg(50000)
    ->Arg(500000)
    ->Iterations(1);

// `ListDir` leaves its descriptor open.
void ListAndClose(const std::string& path) {
  const int next = ::dup(STDIN_FILENO);
  ::close(next);
  benchmark::DoNotOptimize(TOSSpecific::ListDir(path));
  ::close(next);
}

void IterateOver(const std::string& path) {
  Texts names;
  for (const auto& entry : std::filesystem::directory_iterator(path))
    names.push_back(entry.path().filename().string());
  benchmark::DoNotOptimize(names);
}

void ListBesideFilesystem(benchmark::State& state) {
  const std::string directory = "/tmp/hwx-benchmark-directory";
  std::filesystem::create_directory(directory);
  for (std::int64_t i = 0; i < state.range(0); ++i)
    std::ofstream(directory + "/entry-" + std::to_string(i));
  const int calls = state.range(0) < 100 ? 100 : 1;
  hwxbench::Compare(
      state, 50, calls, [&] { ListAndClose(directory); }, [&] { IterateOver(directory); });
  std::filesystem::remove_all(directory);
}
BENCHMARK(ListBesideFilesystem)
    ->Name("Files/list_beside_filesystem")
    ->ArgName("entries")
    ->Arg(10)
    ->Arg(10000)
    ->Iterations(1);

// A path that is there already.
void MakeBesideFilesystem(benchmark::State& state) {
  const std::string directory = "/tmp/hwx-benchmark-hierarchy";
  const std::string path = directory + "/of/six/levels/in/all";
  std::filesystem::create_directories(path);
  hwxbench::Compare(
      state, 50, 500, [&] { NQORHWX20::TCommUtil::MkDirHier(path); },
      [&] { std::filesystem::create_directories(path); });
  std::filesystem::remove_all(directory);
}
BENCHMARK(MakeBesideFilesystem)->Name("Files/mkdirhier_beside_filesystem")->Iterations(1);

}  // namespace
