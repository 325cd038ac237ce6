#include "providers/container/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <random>
#include <system_error>

#include "hwxkit/TContainerException.h"

namespace container {

namespace {

using NQORHWX20::TContainerException;

NQORHWX20::EHWXStatusCode StatusOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return NQORHWX20::kHWXStatusFileNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return NQORHWX20::kHWXStatusAccessDenied;
    default:
      return NQORHWX20::kHWXStatusFileSystemError;
  }
}

[[noreturn]] void ThrowError(int error, const std::string& path, const std::string& doing) {
  throw TContainerException(StatusOf(error),
                            path + ": " + doing + ": " + std::generic_category().message(error));
}

template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

// Where a chain of symbolic links ends, be there a file or not.
std::string FollowLinks(const std::string& path) {
  constexpr int kMostLinks = 40;  // as the kernel has it
  std::filesystem::path target = path;
  std::error_code none;
  for (int i = 0; i < kMostLinks; ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(target, none);
    if (none) return target;
    target = target.parent_path() / next;
  }
  ThrowError(ELOOP, path, "can't be followed");
}

std::string DirectoryOf(const std::string& path) {
  const std::string directory = std::filesystem::path(path).parent_path();
  return directory.empty() ? "." : directory;
}

// Calls `make` with one name after the other until it doesn't find the name taken. Its result.
int TryNames(const std::string& directory, std::string& path,
             const std::function<int(const char*)>& make) {
  std::random_device random;
  int result = -1;
  for (int i = 0; i < 100; ++i) {
    path = directory + "/.hwx-" + std::to_string(random());
    result = make(path.c_str());
    if (result >= 0 || errno != EEXIST) break;
  }
  if (result < 0) path.clear();
  return result;
}

}  // namespace

TDescriptor::~TDescriptor() {
  Reset(-1);
}

void TDescriptor::Reset(int number) {
  if (fNumber >= 0) ::close(fNumber);
  fNumber = number;
}

// Reading.

TFileSource::TFileSource(const std::string& path)
    : fPath(path), fFile(Retry([&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC); })) {
  if (fFile.Get() < 0) ThrowError(errno, fPath, "can't be opened");
}

std::size_t TFileSource::Read(char* buffer, std::size_t size) {
  const ssize_t count = Retry([&] { return ::read(fFile.Get(), buffer, size); });
  if (count < 0) ThrowError(errno, fPath, "can't be read");
  return static_cast<std::size_t>(count);
}

// Replacing.

TAtomicFile::TAtomicFile(const std::string& path)
    : fPath(path), fTarget(FollowLinks(path)), fDirectory(DirectoryOf(fTarget)) {
  CheckTarget();
  Open();
}

TAtomicFile::~TAtomicFile() {
  if (!fTemporary.empty()) ::unlink(fTemporary.c_str());
}

void TAtomicFile::Fail(const std::string& doing) const {
  ThrowError(errno, fPath, doing);
}

// Renaming would replace a device or a file that is protected against writing as well.
void TAtomicFile::CheckTarget() {
  struct stat there;
  if (::stat(fTarget.c_str(), &there) != 0) {
    if (errno != ENOENT || fTarget.empty() || fTarget.back() == '/') Fail("can't be written");
    return;
  }
  if (!S_ISREG(there.st_mode)) {
    throw TContainerException(NQORHWX20::kHWXStatusFileSystemError,
                              fPath + ": can't be replaced: not a regular file");
  }
  if (::faccessat(AT_FDCWD, fTarget.c_str(), W_OK, AT_EACCESS) != 0) Fail("can't be written");
}

void TAtomicFile::Open() {
  constexpr mode_t kMode = 0666;  // less what the process's mask takes away
  // A file without a name gets one by way of /proc.
  if (::access("/proc/self/fd", X_OK) == 0)
    fFile.Reset(::open(fDirectory.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kMode));
  if (fFile.Get() >= 0) return;
  const auto create = [](const char* name) {
    return ::open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
  };
  fFile.Reset(TryNames(fDirectory, fTemporary, create));
  if (fFile.Get() < 0) Fail("no file can be made beside it");
}

void TAtomicFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = Retry([&] { return ::write(fFile.Get(), bytes.data(), bytes.size()); });
    if (count < 0) Fail("can't be written");
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void TAtomicFile::TakePermissions() const {
  struct stat there;
  if (::stat(fTarget.c_str(), &there) != 0) return;
  // A user who may not give files away keeps the new one.
  if (::fchown(fFile.Get(), there.st_uid, there.st_gid) != 0) errno = 0;
  if (::fchmod(fFile.Get(), there.st_mode & 0777U) != 0) Fail("can't be given its permissions");
}

void TAtomicFile::GiveName() {
  if (!fTemporary.empty()) return;
  const std::string open = "/proc/self/fd/" + std::to_string(fFile.Get());
  const auto link = [&open](const char* name) {
    return ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW);
  };
  if (TryNames(fDirectory, fTemporary, link) < 0) Fail("no file can be made beside it");
}

void TAtomicFile::Replace() {
  GiveName();
  if (::rename(fTemporary.c_str(), fTarget.c_str()) != 0) Fail("can't be replaced");
  fTemporary.clear();
}

void TAtomicFile::Commit() {
  TakePermissions();
  if (Retry([&] { return ::fsync(fFile.Get()); }) != 0) Fail("can't be written");
  Replace();
  const TDescriptor directory(::open(fDirectory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some file systems have no such operation on directories.
  if (directory.Get() >= 0 && ::fsync(directory.Get()) != 0 && errno != EINVAL)
    Fail("is written, but may not outlast a failure of power");
}

}  // namespace container
