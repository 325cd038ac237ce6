#include <gtest/gtest.h>
#include <unistd.h>

#include <condition_variable>
#include <mutex>

#include "hwx/text/Output.h"
#include "hwx/transfer/TransferProgress.h"
#include "support/ChildProcess.h"
#include "support/PseudoTerminal.h"

namespace hwx {
namespace {

// Lets one thread wait until the other has come as far as asked for.
class TCounter {
 public:
  void Step() {
    const std::lock_guard<std::mutex> lock(fMutex);
    ++fCount;
    fChanged.notify_all();
  }

  void WaitFor(int count) {
    std::unique_lock<std::mutex> lock(fMutex);
    fChanged.wait(lock, [&] { return fCount >= count; });
  }

 private:
  std::mutex fMutex;
  std::condition_variable fChanged;
  int fCount = 0;
};

TEST(TransferProgress, SharesTheTerminalWithMessages) {
  const hwxtest::PseudoTerminal terminal;
  ASSERT_TRUE(terminal.IsOpen());
  const int status = hwxtest::RunInChild([&] {
    terminal.Take(STDERR_FILENO);
    TCounter asked;
    {
      const TTransferProgress progress(
          [&]() -> std::optional<std::uintmax_t> {
            asked.Step();
            return 5;
          },
          10);
      asked.WaitFor(1);
      ReportError("one");
      asked.WaitFor(3);  // the second line stands there
      ReportError("two");
    }
    ReportError("three");
    return 0;
  });
  EXPECT_EQ(status, 0);
  const std::string shown = terminal.Shown();
  EXPECT_NE(shown.find("5 of 10 bytes (50 %)\r\033[Khwx: two\r\n"), std::string::npos) << shown;
  EXPECT_NE(shown.find("hwx: three\r\n"), std::string::npos) << shown;
  EXPECT_EQ(shown.find(")hwx"), std::string::npos) << shown;
}

}  // namespace
}  // namespace hwx
