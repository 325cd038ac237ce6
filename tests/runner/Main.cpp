// The main function of the test executables. Beside what GoogleTest's own does, it writes down what
// becomes of each test, for run_shard.sh, which has to know it of a process that a test ended too.
// The report is the file that HWX_TEST_REPORT names; a line for each step:
//
//     started Suite.Test
//     passed Suite.Test
//     skipped Suite.Test: why
//
// A test that leaks is a failed test: under AddressSanitizer the leaks are looked for behind each,
// since many share a process.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>

// There under AddressSanitizer only. Not 0: something leaked.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's own name
extern "C" [[gnu::weak]] int __lsan_do_recoverable_leak_check();

namespace {

constexpr std::time_t kSecondsPerTest = 300;

// Ends the process when a test takes too long. Children don't inherit it.
class TimeLimit {
 public:
  TimeLimit() {
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    ::timer_create(CLOCK_MONOTONIC, &event, &fTimer);
  }
  ~TimeLimit() { ::timer_delete(fTimer); }
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  void Start() { Set(kSecondsPerTest); }
  void Stop() { Set(0); }

 private:
  void Set(std::time_t seconds) {
    itimerspec time{};
    time.it_value.tv_sec = seconds;
    ::timer_settime(fTimer, 0, &time, nullptr);
  }

  timer_t fTimer{};
};

std::string WhySkipped(const testing::TestResult& result) {
  for (int i = 0; i < result.total_part_count(); ++i) {
    const testing::TestPartResult& part = result.GetTestPartResult(i);
    if (!part.skipped()) continue;
    std::string why = part.message();
    std::replace(why.begin(), why.end(), '\n', ' ');
    return why;
  }
  return "";
}

// The stack still holds what the test left there, pointers to what it leaked among it.
[[gnu::noinline, gnu::no_sanitize_address]] void WipeStack() {
  volatile char left[65536];
  for (volatile char& byte : left)
    byte = 0;
}

class Reporter : public testing::EmptyTestEventListener {
 public:
  explicit Reporter(const std::string& path) : fPath(path) {}

  void OnTestStart(const testing::TestInfo& test) override {
    Write("started", test);
    fLimit.Start();
  }

  // No frame of its own to speak of, which would keep what it covers from being wiped.
  void OnTestEnd(const testing::TestInfo& test) override {
    WipeStack();
    Finish(test);
  }

 private:
  void Finish(const testing::TestInfo& test) {
    fLimit.Stop();
    const bool leaks =
        __lsan_do_recoverable_leak_check != nullptr && __lsan_do_recoverable_leak_check() != 0;
    if (leaks) ADD_FAILURE() << "leaks memory: see above";
    const testing::TestResult& result = *test.result();
    if (result.Failed()) {
      Write("failed", test);
    } else if (result.Skipped()) {
      Write("skipped", test, ": " + WhySkipped(result));
    } else {
      Write("passed", test);
    }
    if (leaks) ::_exit(EXIT_FAILURE);  // the leak would be found behind all that follow
  }

  // Opened each time: tests count descriptors.
  void Write(const char* what, const testing::TestInfo& test, const std::string& why = "") const {
    std::ofstream(fPath, std::ios::app)
        << what << " " << test.test_suite_name() << "." << test.name() << why << std::endl;
  }

  const std::string fPath;
  TimeLimit fLimit;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  const char* const report = std::getenv("HWX_TEST_REPORT");
  if (report != nullptr) {
    testing::UnitTest::GetInstance()->listeners().Append(new Reporter(report));
    ::unsetenv("HWX_TEST_REPORT");  // this process alone writes it
  }
  return RUN_ALL_TESTS();
}
