#include "hwxsys/AtomicFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <random>
#include <system_error>

namespace hwxsys {

namespace {

const char kNotWritten[] = "can't be written";
const char kNoneBeside[] = "no file can be made beside it";
const char kNotReplaced[] = "can't be replaced";

[[noreturn]] void Fail(const char* doing) {
  throw TFileError(doing, errno);
}

template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

// The path at the end of a chain of symbolic links, whether or not there is a file.
std::string FollowLinks(const std::string& path) {
  constexpr int kMostLinks = 40;  // as the kernel has it
  std::filesystem::path target = path;
  std::error_code none;
  for (int i = 0; i < kMostLinks; ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(target, none);
    if (none) return target;
    target = target.parent_path() / next;
  }
  throw TFileError("can't be followed", ELOOP);
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

// Renames where nothing has the name yet. Some file systems can only do that by a link.
bool RenameToNew(const char* from, const char* to) {
  if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL || ::link(from, to) != 0) return false;
  ::unlink(from);
  return true;
}

}  // namespace

TFileError::TFileError(const std::string& doing, int error)
    : std::runtime_error(doing + ": " + std::generic_category().message(error)), fError(error) {}

TFileError::TFileError(const std::string& what) : std::runtime_error(what), fError(EINVAL) {}

TAtomicFile::TAtomicFile(const std::string& path, EFileKind kind)
    : fKind(kind),
      fTarget(kind == EFileKind::kSuccessor ? FollowLinks(path) : path),
      fDirectory(DirectoryOf(fTarget)) {
  if (fKind == EFileKind::kSuccessor) CheckTarget();
  Open();
}

TAtomicFile::~TAtomicFile() {
  if (!fTemporary.empty()) ::unlink(fTemporary.c_str());
}

// Refuses what renaming would replace all the same: a device, or a file that may not be written to.
void TAtomicFile::CheckTarget() const {
  struct stat there {};
  if (::stat(fTarget.c_str(), &there) != 0) {
    if (errno != ENOENT || fTarget.empty() || fTarget.back() == '/') Fail(kNotWritten);
    return;
  }
  if (!S_ISREG(there.st_mode)) throw TFileError("can't be replaced: not a regular file");
  if (::faccessat(AT_FDCWD, fTarget.c_str(), W_OK, AT_EACCESS) != 0) Fail(kNotWritten);
}

void TAtomicFile::Open() {
  const bool isPrivate = fKind != EFileKind::kSuccessor;
  const mode_t mode = isPrivate ? 0600 : 0666;  // less what the process's mask takes away
  // A file without a name gets one by way of /proc.
  if (::access("/proc/self/fd", X_OK) == 0)
    fFile.Reset(::open(fDirectory.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
  if (fFile.IsOpen()) return;
  const auto create = [mode](const char* name) {
    return ::open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  };
  fFile.Reset(TryNames(fDirectory, fTemporary, create));
  if (!fFile.IsOpen()) Fail(isPrivate ? kNotWritten : kNoneBeside);
}

void TAtomicFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = Retry([&] { return ::write(fFile.Get(), bytes.data(), bytes.size()); });
    if (count < 0) Fail(kNotWritten);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void TAtomicFile::TakePermissions() const {
  struct stat there {};
  if (::stat(fTarget.c_str(), &there) != 0) return;
  // A user who may not give files away keeps the new one.
  if (::fchown(fFile.Get(), there.st_uid, there.st_gid) != 0) errno = 0;
  if (::fchmod(fFile.Get(), there.st_mode & 0777U) != 0) Fail("can't be given its permissions");
}

void TAtomicFile::GiveTemporaryName() {
  if (!fTemporary.empty()) return;
  const std::string open = "/proc/self/fd/" + std::to_string(fFile.Get());
  const auto link = [&open](const char* name) {
    return ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW);
  };
  if (TryNames(fDirectory, fTemporary, link) < 0) Fail(kNoneBeside);
}

void TAtomicFile::Replace() {
  GiveTemporaryName();
  if (::rename(fTemporary.c_str(), fTarget.c_str()) != 0) Fail(kNotReplaced);
  fTemporary.clear();
}

void TAtomicFile::Place() {
  GiveTemporaryName();
  if (!RenameToNew(fTemporary.c_str(), fTarget.c_str())) Fail(kNotWritten);
  fTemporary.clear();
}

void TAtomicFile::Commit() {
  if (fKind == EFileKind::kSuccessor) TakePermissions();
  if (Retry([&] { return ::fsync(fFile.Get()); }) != 0) Fail(kNotWritten);
  fKind == EFileKind::kPrivateAndNew ? Place() : Replace();
  const TDescriptor directory(::open(fDirectory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some file systems have no such operation on directories.
  if (directory.IsOpen() && ::fsync(directory.Get()) != 0 && errno != EINVAL)
    Fail("is written, but may not outlast a failure of power");
}

}  // namespace hwxsys
