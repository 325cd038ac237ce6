#ifndef HWXTESTS_SUPPORT_LOGGERFIXTURE_H
#define HWXTESTS_SUPPORT_LOGGERFIXTURE_H

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <list>
#include <optional>
#include <string>
#include <thread>

#include "hwxcore/diagnostics/TLogger.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// For tests of the logger itself: the shared state is as at the start of a process, but for the
/// log directory, which is a scratch directory. All of it comes back at the end.
class LoggerFixture : public testing::Test {
 protected:
  using TLogger = NQORHWX20::TLogger;
  using ILogger = NQORHWX20::ILogger;

  static constexpr const char* kOpened = "-- HWX Log Opened ----------------------------\n";
  static constexpr const char* kClosed = "-- HWX Log Closed ----------------------------\n";

  LoggerFixture() : fLogDirectory(TLogger::GetLogFileDir()) {
    TLogger::SetLogFileDir(fScratch / "");
    TLogger::SetLogThreshold(ILogger::kHWXLogStatus);
    TLogger::fLogEntries.swap(fEntries);
  }

  ~LoggerFixture() override {
    TLogger::fLogEntries.swap(fEntries);
    TLogger::SetLogThreshold(ILogger::kHWXLogStatus);
    TLogger::SetLogFileDir(fLogDirectory);
  }

  /// Runs `body` on a thread of its own, whose logger is fresh, and waits for its end.
  static void OnFreshThread(const std::function<void(TLogger&)>& body) {
    std::thread([&body] { body(*TLogger::GetInstance()); }).join();
  }

  /// What the file `name` of the log directory holds; nothing if there is no such file.
  std::optional<std::string> Content(const std::string& name) const {
    std::ifstream file(fScratch / name, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  static ILogger::EHWXLogSeverity Severity(int number) {
    return static_cast<ILogger::EHWXLogSeverity>(number);
  }

  TemporaryDirectory fScratch;
  ScopedEnvironment fAppends{"QOR_QXPKI_GUI_T", std::nullopt};

 private:
  std::string fLogDirectory;
  std::list<ILogger::TLogEntry> fEntries;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_LOGGERFIXTURE_H
