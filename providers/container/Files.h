// The files behind containers: reading one, and replacing one whole or not at all.
// Thread-safety: none; each object belongs to one thread.

#ifndef CONTAINER_FILES_H
#define CONTAINER_FILES_H

#include <sys/types.h>

#include <string>
#include <string_view>

#include "providers/container/Bytes.h"

namespace container {

/// An open file, closed at the end.
class TDescriptor {
 public:
  explicit TDescriptor(int number = -1) : fNumber(number) {}
  ~TDescriptor();
  TDescriptor(const TDescriptor&) = delete;
  TDescriptor& operator=(const TDescriptor&) = delete;

  int Get() const { return fNumber; }
  void Reset(int number);

 private:
  int fNumber;
};

/// The bytes of a file or pipe. All failures are `TContainerException`s that name the file.
class TFileSource : public TByteSource {
 public:
  explicit TFileSource(const std::string& path);
  std::size_t Read(char* buffer, std::size_t size) override;

 private:
  const std::string fPath;
  TDescriptor fFile;
};

/// A file in the making. What is written goes to a temporary file beside `path`, which takes the
/// place of `path` with `Commit`; without that nothing has happened. Where `path` is a symbolic
/// link, what it leads to is replaced. The new file has the permissions, and where that is allowed
/// the owner, of the old one.
///
/// Where the file system can do it, the temporary file has no name before `Commit`, so that a
/// process that is killed leaves nothing behind.
///
/// All failures are `TContainerException`s that name `path`. `Commit` can fail after it has
/// replaced the file: the new one is then in place and whole, but may be gone after a loss of
/// power.
class TAtomicFile : public TByteSink {
 public:
  /// Throws for a target that isn't a regular file or that this process may not write to.
  explicit TAtomicFile(const std::string& path);
  ~TAtomicFile() override;

  void Write(std::string_view bytes) override;

  /// Writes the bytes through to the disk, then puts the file in the place of `path`.
  void Commit();

 private:
  void CheckTarget();
  void Open();
  void GiveName();
  void TakePermissions() const;
  void Replace();
  [[noreturn]] void Fail(const std::string& doing) const;

  const std::string fPath;       // as it was given
  const std::string fTarget;     // without symbolic links at its end
  const std::string fDirectory;  // of the target
  std::string fTemporary;        // the temporary file's path, empty while it has no name
  TDescriptor fFile;
};

}  // namespace container

#endif  // CONTAINER_FILES_H
