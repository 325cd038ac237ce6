#include "hwx/text/Output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "hwx/text/Failure.h"
#include "hwx/text/Printable.h"

namespace hwx {

namespace {

const char* const kEmptyLine = "\r\033[K";
bool fgShowsProgress = false;

void ClearProgress() {
  if (fgShowsProgress) std::fputs(kEmptyLine, stderr);
  fgShowsProgress = false;
}

[[noreturn]] void ThrowUnwritten(int error) {
  throw TFailure(std::string("the output can't be written: ") + std::strerror(error));
}

}  // namespace

void RequireOpenOutput() {
  if (::fcntl(STDOUT_FILENO, F_GETFD) == -1) ThrowUnwritten(errno);
}

void WriteOutput(const std::string& text) {
  ClearProgress();
  errno = 0;
  const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!isWritten || std::fflush(stdout) != 0) ThrowUnwritten(errno);
}

void WriteErrorText(const std::string& text) {
  ClearProgress();
  std::fputs(text.c_str(), stderr);
}

void ReportError(const std::string& message) {
  WriteErrorText("hwx: " + Printable(message) + "\n");
}

void ShowProgress(const std::string& text) {
  if (::isatty(STDERR_FILENO) != 1) return;
  WriteErrorText(Printable(text));
  fgShowsProgress = true;
}

}  // namespace hwx
