// 200 MB over loopback, to an FTP server and back, beside the curl command in the same run; and
// what it costs that the write callback opens and closes the file for each block.
//
// A transfer and the command take turns, so that the machine's ups and downs hit both. The counter
// "ratio" is the throughput of the quickest transfer as a share of the quickest command's,
// "best_ms" and "curl_ms" are their times. "block_us" is what a block of a download costs.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "hwxcore/os/TOSSpecific.h"
#include "support/FileServers.h"

using hwxtest::FtpServer;
using NQORHWX20::TOSSpecific;

namespace {

constexpr std::int64_t kSize = 200 << 20;
constexpr double kForever = 1e9;
constexpr std::size_t kBlock = 16384;  // what libcurl delivers at a time

double SecondsOf(const std::function<void()>& call) {
  const auto begin = std::chrono::steady_clock::now();
  call();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void Shell(const std::string& command) {
  if (std::system(command.c_str()) != 0) std::abort();
}

// A server with a file of 200 MB, and one to send.
struct Scene {
  Scene() {
    Shell("head -c " + std::to_string(kSize) + " /dev/urandom > " + fLocal);
    Shell("cp " + fLocal + " " + fServer.Home() + "/there");
  }

  std::string URL(const std::string& name) const { return "ftp://" + fServer.Host() + "/" + name; }

  hwxtest::TemporaryDirectory fDirectory;
  FtpServer fServer;
  std::string fLocal = fDirectory / "local";
  std::string fFetched = fDirectory / "fetched";
};

// Compares a way of this library's with the command, turn by turn.
void Compare(benchmark::State& state, const Scene& scene, const std::string& command,
             const std::function<void()>& call) {
  if (hwxtest::ServerProgram("curl").empty()) {
    state.SkipWithError("the curl command isn't installed");
    return;
  }
  double ofCommand = kForever;
  double ofLibrary = kForever;
  for (auto _ : state) {
    std::remove(scene.fFetched.c_str());
    ofCommand = std::min(ofCommand, SecondsOf([&] { Shell(command); }));
    std::remove(scene.fFetched.c_str());
    const double seconds = SecondsOf(call);
    ofLibrary = std::min(ofLibrary, seconds);
    state.SetIterationTime(seconds);
  }
  state.counters["best_ms"] = ofLibrary * 1000;
  state.counters["curl_ms"] = ofCommand * 1000;
  state.counters["ratio"] = ofCommand / ofLibrary;
}

void Upload(benchmark::State& state) {
  if (const auto whyNot = FtpServer::WhyNot()) return state.SkipWithError(whyNot->c_str());
  const Scene scene;
  Compare(state, scene, "curl -s -T " + scene.fLocal + " " + scene.URL("sent"),
          [&] { TOSSpecific::FTPFile(scene.fServer.Host(), scene.fLocal, "sent"); });
}

void Download(benchmark::State& state) {
  if (const auto whyNot = FtpServer::WhyNot()) return state.SkipWithError(whyNot->c_str());
  const Scene scene;
  Compare(state, scene, "curl -s -o " + scene.fFetched + " " + scene.URL("there"),
          [&] { TOSSpecific::FTPFileFromQOR(scene.fServer.Host(), scene.fFetched, "there"); });
}

struct Sink {
  const char* fFilename;
  std::FILE* fStream;
};

// Has 200 MB written in the blocks of a download.
void WriteBlocks(benchmark::State& state, const std::string& path,
                 const std::function<void(const std::vector<char>&)>& write) {
  constexpr std::int64_t kBlocks = kSize / static_cast<std::int64_t>(kBlock);
  const std::vector<char> block(kBlock, 'x');
  double best = kForever;
  for (auto _ : state) {
    std::ofstream(path, std::ios::trunc).close();
    const double seconds = SecondsOf([&] {
      for (std::int64_t i = 0; i < kBlocks; ++i)
        write(block);
    });
    best = std::min(best, seconds);
    state.SetIterationTime(seconds);
  }
  state.counters["block_us"] = best * 1e6 / static_cast<double>(kBlocks);
}

// The file is opened for each block, as it has to be.
void WriteBlocksReopening(benchmark::State& state) {
  const hwxtest::TemporaryDirectory directory;
  const std::string path = directory / "file";
  Sink sink = {path.c_str(), nullptr};
  WriteBlocks(state, path, [&sink](const std::vector<char>& block) {
    NQORHWX20::curl_fwrite(const_cast<char*>(block.data()), 1, block.size(), &sink);
  });
}

// The same with the file opened once, for what the opening costs.
void WriteBlocksOpenedOnce(benchmark::State& state) {
  const hwxtest::TemporaryDirectory directory;
  const std::string path = directory / "file";
  std::FILE* const stream = std::fopen(path.c_str(), "ab");
  WriteBlocks(state, path, [stream](const std::vector<char>& block) {
    std::fwrite(block.data(), 1, block.size(), stream);
  });
  std::fclose(stream);
}

BENCHMARK(Upload)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(Download)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBlocksReopening)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBlocksOpenedOnce)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
