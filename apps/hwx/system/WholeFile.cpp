#include "hwx/system/WholeFile.h"

#include <sys/stat.h>

#include "hwx/text/Failure.h"
#include "hwxsys/AtomicFile.h"

namespace hwx {

namespace {

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
  throw TFailure(path + " can't be written: " + reason);
}

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
  using hwxsys::EFileKind;
  try {
    hwxsys::TAtomicFile file(path, replaces ? EFileKind::kPrivate : EFileKind::kPrivateAndNew);
    file.Write(bytes);
    file.Commit();
  } catch (const hwxsys::TFileError& failure) {
    throw TFailure(path + " " + failure.what());
  }
}

}  // namespace hwx
