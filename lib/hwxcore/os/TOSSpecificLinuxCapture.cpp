#include "hwxcore/os/TOSSpecific.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <new>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

constexpr std::size_t kFileChunkSize = 4096;

// Makes room for one more chunk. Of a file that turns out to be large there may come much more;
// what is reserved and never written to costs addresses and no memory, while moving a text costs
// both.
void MakeRoom(std::string& text) {
  constexpr std::size_t kLargeText = 65536;
  constexpr std::size_t kMostRoom = 1 << 30;
  const std::size_t size = text.size();
  if (text.capacity() - size >= kFileChunkSize || size < kLargeText) return;
  try {
    text.reserve(size + std::max(size, std::min(15 * size, kMostRoom)));
  } catch (const std::bad_alloc&) {
    return;  // the text may still grow by less
  }
}

}  // namespace

std::string TOSSpecific::GetFileContents(int descriptor, std::string name, bool logContents) {
  char chunk[kFileChunkSize];
  std::string text;
  ssize_t size;
  // The file isn't asked for its size: the files of /proc don't know it.
  while ((size = ::read(descriptor, chunk, kFileChunkSize)) > 0) {
    MakeRoom(text);
    text.append(chunk, static_cast<std::size_t>(size));
  }
  if (size < 0) {
    // Contract: read-failure-is-status.
    detail::LogStatus("GetFileContents failed to read file " + name);
    throw THWXException(kHWXStatusFileSystemError);
  }
  if (logContents) detail::LogDebug("Debug (linux toss): GetFileContents() Returned: ", text);
  return text;
}

std::string TOSSpecific::CaptureFile(std::string path) {
  const int file = ::open(path.c_str(), O_RDONLY);
  if (file == -1) {
    detail::LogError("ERROR: CaptureFile failed to open: " + path);
    throw THWXException(kHWXStatusFileNotFound);  // Contract: capture-not-found.
  }
  std::string text = GetFileContents(file, path, true);
  ::close(file);  // not after an exception. Contract: capture-left-open.
  return text;
}

std::string TOSSpecific::CaptureFileLoader(std::string path, bool logContents) {
  const int file = ::open(path.c_str(), O_RDONLY);
  if (file == -1) {
    detail::LogDebug("CaptureFile failed to open: ", path);
    detail::LogDebug("Please confirm that the related software/driver is properly installed.");
    // It goes on, and the read from no file fails. Contract: capture-loader-goes-on.
  }
  std::string text = GetFileContents(file, path, logContents);
  ::close(file);  // not after an exception. Contract: capture-left-open.
  return text;
}

void TOSSpecific::CapFileViaProc(std::string command, std::vector<std::string> arguments,
                                 std::string path, std::string& contents) {
  SpawnProcess(command, arguments, 300);  // Contract: capture-ignores-result.
  try {
    contents = CaptureFile(path);
  } catch (const THWXException& failure) {  // Contract: capture-failure-is-empty.
    contents.clear();
    detail::LogError(std::string("failed to capture file content due to exception: ") +
                     failure.what());
  }
}

int TOSSpecific::GetRunningTypeOnXen() {
  constexpr const char* kCapabilities = "/proc/xen/capabilities";
  if (!FileExists(kCapabilities)) return 2;
  const bool controls = CaptureFile(kCapabilities).find("control_d") != std::string::npos;
  return controls ? 0 : 1;
}

}  // namespace NQORHWX20
