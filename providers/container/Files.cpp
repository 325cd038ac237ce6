#include "providers/container/Files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

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
  throw TContainerException(StatusOf(error), path + ": " + hwxsys::TFileError(doing, error).what());
}

template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

// Does something to the file at `path`, and names it in what goes wrong.
template <typename Step>
auto Named(const std::string& path, Step step) {
  try {
    return step();
  } catch (const hwxsys::TFileError& failure) {
    throw TContainerException(StatusOf(failure.Error()), path + ": " + failure.what());
  }
}

}  // namespace

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

TNewFile::TNewFile(const std::string& path)
    : fPath(path),
      fFile(Named(path, [&] { return hwxsys::TAtomicFile(path, hwxsys::EFileKind::kSuccessor); })) {
}

void TNewFile::Write(std::string_view bytes) {
  Named(fPath, [&] { fFile.Write(bytes); });
}

void TNewFile::Commit() {
  Named(fPath, [&] { fFile.Commit(); });
}

}  // namespace container
