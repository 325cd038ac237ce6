// Files that are there whole or not at all. Thread-safety: none; each object belongs to one thread.

#ifndef HWXSYS_ATOMICFILE_H
#define HWXSYS_ATOMICFILE_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "hwxsys/Descriptor.h"

namespace hwxsys {

/// Why a file can't be written or replaced. The text leaves out the file's name: "can't be written:
/// No space left on device".
class TFileError : public std::runtime_error {
 public:
  /// `error`: the operating system's, which is put in words behind `doing`.
  TFileError(const std::string& doing, int error);
  /// A file of another kind, which is no error of a call; `Error` is EINVAL.
  explicit TFileError(const std::string& what);
  int Error() const { return fError; }

 private:
  int fError;
};

/// What a new file is to be.
enum class EFileKind {
  /// Takes the place of a regular file, with its permissions and, where that is allowed, its owner.
  /// Where the path is a symbolic link, what it leads to is replaced.
  kSuccessor,
  /// Only its owner may read and write it. Takes the place of a file or a link of that name.
  kPrivate,
  /// The same, and takes nobody's place.
  kPrivateAndNew
};

/// A file in the making. What is written goes to a file beside `path`, which gets its name with
/// `Commit`; without that nothing has happened. Where the file system can do it, the file has no
/// name before, so that a process that is killed leaves nothing behind.
///
/// All failures are `TFileError`s.
class TAtomicFile {
 public:
  /// Throws for a target that `kind` doesn't replace, or that this process may not write to.
  TAtomicFile(const std::string& path, EFileKind kind);
  ~TAtomicFile();
  TAtomicFile(const TAtomicFile&) = delete;
  TAtomicFile& operator=(const TAtomicFile&) = delete;

  void Write(std::string_view bytes);

  /// Writes the bytes through to the disk, then gives the file its name. Can fail after that: the
  /// new file is then in place and whole, but may be gone after a loss of power.
  void Commit();

 private:
  void CheckTarget() const;
  void Open();
  void TakePermissions() const;
  void GiveTemporaryName();
  void Replace();
  void Place();

  const EFileKind fKind;
  const std::string fTarget;
  const std::string fDirectory;  // of the target
  std::string fTemporary;        // the file's path until it gets its name; empty while it has none
  TDescriptor fFile;
};

}  // namespace hwxsys

#endif  // HWXSYS_ATOMICFILE_H
