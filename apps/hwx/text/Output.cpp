#include "hwx/text/Output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <mutex>

#include "hwx/text/Failure.h"
#include "hwx/text/Printable.h"

namespace hwx {

namespace {

const char* const kEmptyLine = "\r\033[K";
std::mutex gMutex;  // of the streams and of what follows
bool gShowsProgress = false;
bool gIsQuiet = false;

void ClearProgress() {
  if (gShowsProgress) std::fputs(kEmptyLine, stderr);
  gShowsProgress = false;
}

using TStreamsLock = std::lock_guard<std::mutex>;

[[noreturn]] void ThrowUnwritten(int error) {
  throw TFailure(std::string("the output can't be written: ") + std::strerror(error));
}

}  // namespace

void RequireOpenOutput() {
  if (::fcntl(STDOUT_FILENO, F_GETFD) == -1) ThrowUnwritten(errno);
}

void WriteOutput(const std::string& text) {
  const TStreamsLock lock(gMutex);
  ClearProgress();
  errno = 0;
  const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!isWritten || std::fflush(stdout) != 0) ThrowUnwritten(errno);
}

void WriteErrorText(const std::string& text) {
  const TStreamsLock lock(gMutex);
  ClearProgress();
  std::fputs(text.c_str(), stderr);
}

void ReportError(const std::string& message) {
  WriteErrorText("hwx: " + Printable(message) + "\n");
}

void ReportNote(const std::string& message) {
  const TStreamsLock lock(gMutex);
  ClearProgress();
  if (!gIsQuiet) std::fputs(("hwx: " + Printable(message) + "\n").c_str(), stderr);
}

void SetQuiet(bool isQuiet) {
  const TStreamsLock lock(gMutex);
  gIsQuiet = isQuiet;
}

void ShowProgress(const std::string& text) {
  if (::isatty(STDERR_FILENO) != 1) return;
  const TStreamsLock lock(gMutex);
  if (gIsQuiet) return;
  ClearProgress();
  std::fputs(Printable(text).c_str(), stderr);
  gShowsProgress = true;
}

void EndProgress() {
  const TStreamsLock lock(gMutex);
  ClearProgress();
}

}  // namespace hwx
