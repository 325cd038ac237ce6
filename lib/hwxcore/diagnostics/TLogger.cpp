#include "hwxcore/diagnostics/TLogger.h"

#include <atomic>
#include <boost/thread/lock_guard.hpp>
#include <boost/thread/tss.hpp>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <string_view>

#include "hwxcore/diagnostics/TCommUtil.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/detail/LocalTime.h"
#include "hwxcore/value/detail/NumberText.h"

namespace NQORHWX20 {

namespace {

const std::string DefaultLogDir = "/var/log/Varnok_Support/HwxDebugLog/";

const char kOpenedBanner[] = "-- HWX Log Opened ----------------------------\n";
const char kClosedBanner[] = "-- HWX Log Closed ----------------------------\n";

}  // namespace

ILogger::EHWXLogSeverity TLogger::fThreshold = kHWXLogStatus;
std::string TLogger::m_logFileDir = DefaultLogDir;
std::list<ILogger::TLogEntry> TLogger::fLogEntries;
boost::recursive_mutex TLogger::fLogEntriesMutex;

namespace {

// Destructors of providers and front ends may log after the static objects of this library are
// gone. A mark is made behind an object, so it is destroyed just before it, and tells.
struct TGoneMark {
  std::atomic<bool>& fGone;
  ~TGoneMark() { fGone = true; }
};

std::atomic<bool> gEntriesGone{false};
const TGoneMark gEntriesMark{gEntriesGone};
std::atomic<bool> gLoggersGone{false};

// The calling thread's logger, found without a search. Null before the first call.
thread_local TLogger* tThisLogger = nullptr;

void DeleteLogger(TLogger* logger) {
  tThisLogger = nullptr;
  delete logger;
}

// Holds the head of a line: what stands before the message. Writes as a string stream does in the
// classic locale, at a fifth of its cost.
class TLineHead {
 public:
  TLineHead& operator<<(const char* text) {
    while (*text != '\0')
      *fEnd++ = *text++;
    return *this;
  }

  TLineHead& operator<<(int number) {
    fEnd = std::to_chars(fEnd, std::end(fText), number).ptr;
    return *this;
  }

  std::string_view str() const { return {fText, static_cast<std::size_t>(fEnd - fText)}; }

 private:
  char fText[128];  // room for prefix, label and six numbers of any size
  char* fEnd = fText;
};

// One reading of the clock for each number, in this order.
// Contract: line-of-six-readings, line-numbers-unpadded.
template <typename Head>
void WriteHead(Head& head, ILogger::EHWXLogSeverity severity) {
  static const char* const kLabels[] = {"[Error] ", "[Warning] ", "[Status] ", "[Debug] ",
                                        "[Verbose] "};
  const int second = detail::ReadLocalClock().fFields.tm_sec;
  const int minute = detail::ReadLocalClock().fFields.tm_min;
  const int hour = detail::ReadLocalClock().fFields.tm_hour;
  const int year = detail::ReadLocalClock().fFields.tm_year + 1900;
  const int day = detail::ReadLocalClock().fFields.tm_mday;
  const int month = detail::ReadLocalClock().fFields.tm_mon + 1;
  head << "FDR_" << kLabels[severity] << month << "/" << day << "/" << year << "  " << hour << ":"
       << minute << ":" << second << " ";
}

template <typename Head>
std::string BuildLineOn(ILogger::EHWXLogSeverity severity, const std::string& message) {
  Head head;
  WriteHead(head, severity);
  const auto& text = head.str();
  std::string line;
  line.reserve(text.size() + message.size() + 1);
  line += text;
  line += message;
  line += '\n';
  return line;
}

std::string BuildLine(ILogger::EHWXLogSeverity severity, const std::string& message) {
  if (severity < ILogger::kHWXLogError || severity > ILogger::kHWXLogVerbose) {
    throw THWXException(kHWXStatusFail);
  }
  // The numbers look as the global locale has them, whatever it does to them.
  if (!detail::StreamsAreClassic()) return BuildLineOn<std::ostringstream>(severity, message);
  return BuildLineOn<TLineHead>(severity, message);
}

void AppendEntry(ILogger::EHWXLogSeverity severity, const std::string& message) {
  ILogger::TLogEntry entry(severity, message, TOSSpecific::GetLocalTime());
  TLogger::PushBackLog(entry);
}

}  // namespace

TLogger* TLogger::GetInstance() {
  if (tThisLogger) return tThisLogger;
  static boost::thread_specific_ptr<TLogger> ms_this_logger(&DeleteLogger);
  static const TGoneMark loggersMark{gLoggersGone};
  TLogger* const logger = new TLogger;
  // A caller that comes later than that gets a logger that stays for good.
  if (!gLoggersGone) ms_this_logger.reset(logger);
  return tThisLogger = logger;
}

TLogger::~TLogger() {
  if (!fLogFile) return;
  std::fputs(kClosedBanner, fLogFile);
  std::fflush(fLogFile);
  std::fclose(fLogFile);
  fLogFile = nullptr;
}

THWXStatusCode TLogger::Initialize(std::string name) {
  if (fInitialized) return kHWXStatusOK;  // Contract: first-log-name-stays.
  TCommUtil::MkDirHier(m_logFileDir);
  SetLogFilename(m_logFileDir + name + ".log");
  fInitialized = true;
  return kHWXStatusOK;
}

void TLogger::SetLogFilename(std::string path) {
  fLogFilename = path;
  const char* const mode = std::getenv("QOR_QXPKI_GUI_T") ? "a+" : "w+";  // Contract: log-appends.
  // The stream that was open stays open. Contract: log-stream-left-open.
  fLogFile = std::fopen(path.c_str(), mode);
  if (!fLogFile) {
    // Contract: log-read-only-file-system.
    throw THWXException(errno == EACCES ? kHWXStatusAccessDenied : kHWXStatusFileSystemError);
  }
  std::fputs(kOpenedBanner, fLogFile);
  std::fflush(fLogFile);
}

void TLogger::OutputLogEntry(EHWXLogSeverity severity, const std::string& message) {
  // Contract: list-only-severities, unknown-severities, debug-not-listed.
  if (severity == kHWXLogListOnly) return AppendEntry(severity, message);
  if (severity > TLogger::GetLogThreshold() && severity != kHWXLogListOnly2) return;
  if (severity <= kHWXLogStatus) AppendEntry(severity, message);
  if (severity == kHWXLogListOnly2) return AppendEntry(severity, message);
  if (!fLogFile) return;
  const std::string line = BuildLine(severity, message);
  if (fLogFilename.empty()) return TOSSpecific::OutputLogString(line);
  // Contract: log-write-errors-unseen, log-flushed-at-once.
  std::fputs(line.c_str(), fLogFile);
  std::fflush(fLogFile);
}

// Contract: system-log-without-threshold.
void TLogger::SysLogEntry(EHWXLogSeverity severity, const std::string& message) {
  TOSSpecific::LogSELEvent(BuildLine(severity, message).c_str(), severity, 1);
}

// Contract: list-handed-out-unlocked.
std::list<ILogger::TLogEntry>& TLogger::GetLog() {
  return fLogEntries;
}

void TLogger::ClearLog() {
  if (gEntriesGone) return;
  const boost::lock_guard<boost::recursive_mutex> lock(fLogEntriesMutex);
  fLogEntries.clear();
}

// The threshold is read on each message, and may be set beside threads that log.
ILogger::EHWXLogSeverity TLogger::GetLogThreshold() {
  EHWXLogSeverity threshold;
  __atomic_load(&fThreshold, &threshold, __ATOMIC_RELAXED);
  return threshold;
}

void TLogger::SetLogThreshold(EHWXLogSeverity threshold) {
  __atomic_store(&fThreshold, &threshold, __ATOMIC_RELAXED);
}

std::string TLogger::GetLogFileDir() {
  return m_logFileDir;
}

void TLogger::SetLogFileDir(std::string directory) {
  m_logFileDir = directory;
}

void TLogger::PushBackLog(TLogEntry& entry) {
  if (gEntriesGone) return;
  const boost::lock_guard<boost::recursive_mutex> lock(fLogEntriesMutex);
  fLogEntries.push_back(entry);
}

}  // namespace NQORHWX20
