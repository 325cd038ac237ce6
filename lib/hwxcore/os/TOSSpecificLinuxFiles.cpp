#include "hwxcore/os/TOSSpecific.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <memory>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

[[noreturn]] void ThrowFileSystemError() {
  throw THWXException(kHWXStatusFileSystemError);
}

bool IsDotOrDotDot(const std::string& name) {
  return name == "." || name == "..";
}

// An empty text becomes the root directory. Contract: empty-path-is-root.
std::string WithSeparator(const std::string& path) {
  const bool ends = !path.empty() && path.back() == '/';
  return ends ? path : path + TOSSpecific::kFileSeparator;
}

constexpr std::size_t kBlockSize = 32768;

// Writes what was read. What a short write leaves over of its block is lost, and the next block
// follows. Returns the last result of a write. Contract: short-write.
ssize_t WriteBlocks(int destination, const char* text, std::size_t size) {
  ssize_t result = 0;
  for (std::size_t done = 0; done < size;) {
    result = ::write(destination, text + done, size - done);
    if (result <= 0) break;
    const std::size_t blocks = (static_cast<std::size_t>(result) + kBlockSize - 1) / kBlockSize;
    done += blocks * kBlockSize;
  }
  return result;
}

// Lets the kernel copy the `size` bytes of a file by itself, which is quicker. It copies nothing
// where it can't, as into a pipe or within one file. Where it stops early, as at a full disk, both
// files go back to where the block begins, so that it is the block's own write that is cut short.
// The kernel isn't asked again: at the limit of a file's size that would end the process.
void CopyInKernel(int source, int destination, off_t size) {
  constexpr off_t kMost = 1 << 30;
  off_t done = 0;
  while (done < size) {
    const off_t wanted = std::min(size - done, kMost);
    const ssize_t copied = ::copy_file_range(source, nullptr, destination, nullptr,
                                             static_cast<std::size_t>(wanted), 0);
    if (copied > 0) done += copied;
    if (copied != wanted) break;
  }
  if (done == size) return;
  const off_t block = done - done % off_t{kBlockSize};
  ::lseek(source, block, SEEK_SET);
  ::lseek(destination, block, SEEK_SET);
}

// Copies up to the source's end. Returns the result that ended it: 0 at the end, and also for a
// write of nothing.
ssize_t CopyBlocks(int source, int destination) {
  constexpr std::size_t kSize = 4 * kBlockSize;  // several blocks at once, which is faster
  const std::unique_ptr<char[]> buffer(new char[kSize]);
  ssize_t result;
  do {
    result = ::read(source, buffer.get(), kSize);
    if (result <= 0) break;
    result = WriteBlocks(destination, buffer.get(), static_cast<std::size_t>(result));
  } while (result > 0);
  return result;
}

// Copies an entry, given the two paths. One that `stat` can't see is left out.
// Contract: tree-copy-skips-unseen.
void CopyEntry(const std::string& source, const std::string& destination, bool recursive) {
  struct stat status;
  if (::stat(source.c_str(), &status) != 0) return;
  if (!S_ISDIR(status.st_mode)) {
    TOSSpecific::FileCopy(source, destination);
  } else if (recursive) {
    TOSSpecific::DirCopy(source, destination, true);
  }
}

void AppendNames(const char* entries, std::size_t size, std::vector<std::string>& names) {
  for (std::size_t position = 0; position < size;) {
    const dirent64* const entry = reinterpret_cast<const dirent64*>(entries + position);
    if (!IsDotOrDotDot(entry->d_name)) names.emplace_back(entry->d_name);
    position += entry->d_reclen;
  }
}

}  // namespace

bool TOSSpecific::FileExists(std::string path) {
  struct stat status;
  return ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

std::int64_t TOSSpecific::GetFileSize(std::string path) {
  struct stat status;
  if (!FileExists(path) || ::stat(path.c_str(), &status) != 0) {  // Contract: size-of-directory.
    throw THWXException(kHWXStatusFileNotFound);
  }
  return status.st_size;
}

std::string TOSSpecific::GetCurrentDir() {
  char path[1024];  // Contract: current-directory-limit.
  if (!::getcwd(path, sizeof path)) throw THWXException(kHWXStatusFail);
  return path;
}

std::string TOSSpecific::GetHWXRootPath() {
  Dl_info info;
  if (::dladdr(reinterpret_cast<void*>(&TOSSpecific::GetHWXRootPath), &info) == 0 ||
      !info.dli_fname) {
    ThrowFileSystemError();
  }
  const std::string file = info.dli_fname;
  const std::size_t separator = file.rfind(kFileSeparator);
  if (separator == std::string::npos) ThrowFileSystemError();
  return file.substr(0, separator);
}

bool TOSSpecific::createFile(std::string path, std::string content) {
  constexpr mode_t kMode = 0666;  // less the umask
  detail::LogDebug("Entering TOSSpecific::createFile, path=", path);
  const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC, kMode);
  if (file == -1) {
    // Contract: create-failure-is-debug.
    detail::LogDebug("Unable to create file, errno=", std::to_string(errno));
  } else {
    // Contract: create-ignores-write.
    [[maybe_unused]] const ssize_t result = ::write(file, content.data(), content.size());
    ::close(file);
    detail::LogDebug("Successfully created file: ", path);
  }
  detail::LogDebug("Exiting TOSSpecific::createFile");
  return file != -1;
}

bool TOSSpecific::deleteFile(std::string path) {
  detail::LogDebug("Entering TOSSpecific::deleteFile, path=", path);
  // Contract: delete-unquoted, delete-always-true.
  [[maybe_unused]] const int result = std::system(("rm -f " + path).c_str());
  detail::LogDebug("Exiting TOSSpecific::deleteFile");
  return true;
}

void TOSSpecific::FileCopy(std::string source, std::string destination) {
  struct stat status;
  if (::stat(source.c_str(), &status) != 0) ThrowFileSystemError();
  const int from = ::open(source.c_str(), O_RDONLY);
  if (from == -1) ThrowFileSystemError();
  // Without O_TRUNC. Contract: copy-keeps-tail.
  const int to = ::open(destination.c_str(), O_WRONLY | O_CREAT, status.st_mode);
  if (to == -1) {
    ::close(from);
    ThrowFileSystemError();
  }
  CopyInKernel(from, to, status.st_size);
  const ssize_t result = CopyBlocks(from, to);  // what is left, and how it ends
  ::close(from);
  ::close(to);
  if (result != 0) ThrowFileSystemError();  // Contract: partial-copy-stays.
}

void TOSSpecific::DirCopy(std::string source, std::string destination, bool recursive) {
  source = WithSeparator(source);
  destination = WithSeparator(destination);
  DIR* const directory = ::opendir(source.c_str());
  if (!directory) ThrowFileSystemError();
  if (!DirExists(destination)) CreateDir(destination);
  while (const dirent* const entry = ::readdir(directory)) {
    const std::string name = entry->d_name;
    if (!IsDotOrDotDot(name)) CopyEntry(source + name, destination + name, recursive);
  }
  ::closedir(directory);  // not after an exception. Contract: tree-copy-left-open.
}

void TOSSpecific::OpenOutputFileStream(std::ofstream& stream, std::string path) {
  detail::LogDebug("TOSSpecific::OpenOutputFileStream -- Entering ");
  if (stream.is_open()) stream.close();
  stream.clear();  // Contract: open-stream-forgets.
  stream.open(path);
  const int error = errno;
  if (stream.fail()) {
    // Contract: open-stream-texts.
    detail::LogError("TOSSpecific::OpenOutputFileStream --  Failed to open output file: " + path);
    throw THWXException(error == EACCES ? kHWXStatusAccessDenied : kHWXStatusFileSystemError);
  }
  detail::LogDebug("TOSSpecific::OpenOutputFileStream -- Exting ");  // Contract: open-stream-texts.
}

std::vector<std::string> TOSSpecific::ListDir(std::string path) {
  // Never closed. Contract: list-left-open.
  const int directory = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (directory == -1) ThrowFileSystemError();
  constexpr std::size_t kSize = 32768;
  const std::unique_ptr<char[]> entries(new char[kSize]);
  std::vector<std::string> names;
  ssize_t size;
  while ((size = ::getdents64(directory, entries.get(), kSize)) > 0)
    AppendNames(entries.get(), static_cast<std::size_t>(size), names);
  return names;
}

std::vector<std::string> TOSSpecific::FindFile(std::string path) {
  // Contract: find-complaints-are-lines.
  const std::string text = SpawnProcess("find", {path}, 300);
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = text.find('\n', begin);
    lines.push_back(text.substr(begin, end - begin));
    // A last line without a newline is taken again and again. Contract: find-last-line.
    if (end != std::string::npos) begin = end + 1;
  }
  return lines;
}

std::string TOSSpecific::RelocateRelativePath(std::string base, std::string path) {
  if (!path.empty() && path.back() == '/') path.pop_back();
  const bool isAbsolute = !path.empty() && path.front() == '/';
  if (base.empty() || isAbsolute) return path;
  return WithSeparator(base) + path;
}

}  // namespace NQORHWX20
