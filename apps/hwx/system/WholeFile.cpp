#include "hwx/system/WholeFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "hwx/text/Failure.h"

namespace hwx {

namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
  throw TFailure(path + " can't be written: " + reason);
}

// The file under a name of its own, in the directory where it is to be; removed at the end unless
// it got its name.
class TUnnamedFile {
 public:
  explicit TUnnamedFile(const std::string& path)
      : fPath(path), fTemporary(path + ".XXXXXX"), fFile(::mkostemp(fTemporary.data(), O_CLOEXEC)) {
    if (fFile < 0) Fail(fPath, std::strerror(errno));
  }

  ~TUnnamedFile() {
    ::close(fFile);
    if (!fIsNamed) ::unlink(fTemporary.c_str());
  }

  TUnnamedFile(const TUnnamedFile&) = delete;
  TUnnamedFile& operator=(const TUnnamedFile&) = delete;

  void Write(const std::string& bytes) {
    for (std::size_t written = 0; written < bytes.size();) {
      const ssize_t count = ::write(fFile, bytes.data() + written, bytes.size() - written);
      if (count < 0 && errno != EINTR) Fail(fPath, std::strerror(errno));
      if (count > 0) written += static_cast<std::size_t>(count);
    }
    if (::fsync(fFile) != 0) Fail(fPath, std::strerror(errno));
  }

  void GiveName(bool replaces) {
    fIsNamed = replaces ? Replace() : Place();
    if (!fIsNamed) Fail(fPath, std::strerror(errno));
  }

 private:
  bool Replace() { return ::rename(fTemporary.c_str(), fPath.c_str()) == 0; }

  // Some file systems can't rename without replacing; those can link.
  bool Place() {
    const char* const from = fTemporary.c_str();
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, fPath.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL || ::link(from, fPath.c_str()) != 0) return false;
    ::unlink(from);
    return true;
  }

  const std::string fPath;
  std::string fTemporary;
  const int fFile;
  bool fIsNamed = false;
};

// Checked beforehand to give a good reason. A file that is made later isn't replaced either.
void RequirePlace(const std::string& path, bool replaces) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) return;
  if (!S_ISREG(status.st_mode)) Fail(path, "it is there, and no regular file");
  if (!replaces) Fail(path, "it is there already; --force replaces it");
}

}  // namespace

void WriteWholeFile(const std::string& path, const std::string& bytes, bool replaces) {
  RequirePlace(path, replaces);
  TUnnamedFile file(path);
  file.Write(bytes);
  file.GiveName(replaces);
}

}  // namespace hwx
