#ifndef HWXTESTS_SUPPORT_SCOPEDLOGCAPTURE_H
#define HWXTESTS_SUPPORT_SCOPEDLOGCAPTURE_H

#include <boost/thread/lock_guard.hpp>
#include <cstdio>
#include <fstream>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "hwxcore/diagnostics/TLogger.h"
#include "support/TemporaryDirectory.h"

namespace hwxtest {

/// Catches what the calling thread logs, at every severity, from construction to destruction:
///
///     ScopedLogCapture log;
///     provider.Refresh();
///     EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "no such device")));
///
/// The shared list is empty at the start of a capture. The threshold and the list come back at its
/// end; the thread's log file doesn't: what the thread logs afterwards goes nowhere.
class ScopedLogCapture {
 public:
  /// Label of the severity ("Error", "Warning", "Status", "Debug", "Verbose") and message.
  using Line = std::pair<std::string, std::string>;

  ScopedLogCapture() : fThreshold(fLogger->GetLogThreshold()) {
    NQORHWX20::TLogger::SetLogThreshold(NQORHWX20::ILogger::kHWXLogVerbose);
    fLogger->SetLogFilename(fDirectory / "capture.log");
    SwapEntries();
  }

  ~ScopedLogCapture() {
    SwapEntries();
    NQORHWX20::TLogger::SetLogThreshold(fThreshold);
  }

  ScopedLogCapture(const ScopedLogCapture&) = delete;
  ScopedLogCapture& operator=(const ScopedLogCapture&) = delete;

  /// What has been logged so far, oldest first, without the time stamps.
  std::vector<Line> Lines() const {
    std::vector<Line> lines;
    std::ifstream file(fDirectory / "capture.log");
    std::string text;
    std::getline(file, text);  // the opening banner
    while (std::getline(file, text)) {
      char label[16] = "";
      int end = 0;
      std::sscanf(text.c_str(), "FDR_[%15[A-Za-z]] %*d/%*d/%*d  %*d:%*d:%*d%n", label, &end);
      if (end > 0) {
        lines.emplace_back(label, text.substr(static_cast<std::size_t>(end) + 1));
      } else if (!lines.empty()) {
        lines.back().second += "\n" + text;  // a message of several lines
      }
    }
    return lines;
  }

 private:
  void SwapEntries() {
    const boost::lock_guard<boost::recursive_mutex> lock(NQORHWX20::TLogger::fLogEntriesMutex);
    NQORHWX20::TLogger::fLogEntries.swap(fEntries);
  }

  TemporaryDirectory fDirectory;
  NQORHWX20::TLogger* fLogger = NQORHWX20::TLogger::GetInstance();
  NQORHWX20::ILogger::EHWXLogSeverity fThreshold;
  std::list<NQORHWX20::ILogger::TLogEntry> fEntries;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_SCOPEDLOGCAPTURE_H
