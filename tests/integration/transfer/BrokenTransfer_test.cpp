// Servers whose disk is full, or that go away in the middle; and transfers after failures.

#include <gmock/gmock.h>

#include <cstdlib>
#include <future>

#include "integration/transfer/RealTransfer.h"
#include "support/ChildProcess.h"

namespace hwxtest {
namespace {

using testing::HasSubstr;

using BrokenTransfer = RealTransfer;

INSTANTIATE_TEST_SUITE_P(Servers, BrokenTransfer, testing::Values("ftp", "sftp"),
                         [](const auto& which) { return which.param; });

std::string Failure(const std::string& front) {
  return "status 27\n" + front;
}

std::uintmax_t SizeOf(const std::string& path) {
  std::error_code none;
  const std::uintmax_t size = std::filesystem::file_size(path, none);
  return none ? 0 : size;
}

TEST_P(BrokenTransfer, OntoAFullDiskFails) {
  if (::geteuid() != 0 || !MayHavePrivateMounts()) {
    GTEST_SKIP() << "this user may not mount a small disk";
  }
  Serve({true, 0});
  MakeFile(Local("small"), AllBytes(100000));
  MakeFile(Local("large"), AllBytes(3000000));
  EXPECT_EQ(fRoot.Run({UploadStep(Local("small"), "small")}), "returned 1\n");
  EXPECT_THAT(fRoot.Run({UploadStep(Local("large"), "large")}),
              HasSubstr(Failure(Logged("Error performing command: "))));
}

/// Runs the step, and stops the server once `path` has grown beyond its first block.
class Breaking {
 public:
  Breaking(TransferRoot& root, const std::string& step)
      : fOutput(std::async(std::launch::async, [&root, step] { return root.Run({step}); })) {}

  std::string StopOnceThereIs(const std::string& path, FileServer& server) {
    using namespace std::chrono_literals;
    while (SizeOf(path) < 20000 && fOutput.wait_for(1ms) != std::future_status::ready) {
    }
    server.Stop();
    return fOutput.get();
  }

 private:
  std::future<std::string> fOutput;
};

constexpr std::size_t kLarge = 200 << 20;

TEST_P(BrokenTransfer, OfADownloadKeepsWhatHasCome) {
  Serve({false, 500});
  ASSERT_EQ(std::system(("truncate -s 200M " + OnServer("name")).c_str()), 0);
  Breaking transfer(fRoot, DownloadStep(Local("back"), "name"));
  EXPECT_THAT(transfer.StopOnceThereIs(Local("back"), *fServer),
              HasSubstr(Failure(Logged("Error performing command: "))));
  EXPECT_GT(SizeOf(Local("back")), 0u);
  EXPECT_LT(SizeOf(Local("back")), kLarge);
}

TEST_P(BrokenTransfer, OfAnUploadFails) {
  Serve({false, 500});
  ASSERT_EQ(std::system(("truncate -s 200M " + Local("file")).c_str()), 0);
  Breaking transfer(fRoot, UploadStep(Local("file"), "name"));
  EXPECT_THAT(transfer.StopOnceThereIs(OnServer("name"), *fServer),
              HasSubstr(Failure(Logged("Error performing command: "))));
  EXPECT_LT(SizeOf(OnServer("name")), kLarge);
}

// How many descriptors the calls left open, each by itself.
std::vector<int> LeftOpen(const std::string& output) {
  std::vector<int> counts;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    int before = 0;
    int after = 0;
    if (std::sscanf(line.c_str(), "descriptors: %d then %d", &before, &after) == 2)
      counts.push_back(after - before);
  }
  return counts;
}

int CountOf(const std::string& word, const std::string& text) {
  int count = 0;
  for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
    ++count;
  return count;
}

// What a failed transfer leaves open is its handle's, as it was: the pair by which libcurl wakes
// itself, and the connection to the server. The local file isn't among it.
TEST_P(BrokenTransfer, LeavesTheProcessAbleToTransferAgain) {
  constexpr int kFailures = 100;
  constexpr int kHandle = 2;
  constexpr int kConnection = 1;
  MakeFile(Local("file"), "text");
  MakeFile(OnServer("there"), "text");
  const std::string nobody = "127.0.0.1:" + std::to_string(FreePort());
  const std::vector<std::string> ways = {
      UploadStep(nobody, Local("file"), "name"), UploadStep(Local("none"), "name"),
      DownloadStep(Local("back"), "none"), DownloadStep("/nowhere/file", "there"),
      UploadStep("nowhere.invalid", Local("file"), "name")};
  std::vector<std::string> steps = {UploadStep(fServer->HostRefused(), Local("file"), "name")};
  while (steps.size() < kFailures)  // servers are slow to refuse a login: that is once
    steps.push_back(ways[steps.size() % ways.size()]);
  steps.push_back("open:" + Local("file"));
  steps.push_back(UploadStep(Local("file"), "name"));
  const std::string output = fRoot.Run(steps);
  EXPECT_THAT(output, testing::EndsWith("0 open\nreturned 1\n"));
  EXPECT_EQ(FileText(OnServer("name")), "text");
  EXPECT_EQ(CountOf("status ", output), kFailures);
  for (const int count : LeftOpen(output))
    EXPECT_LE(count, kHandle + kConnection);
}

}  // namespace
}  // namespace hwxtest
