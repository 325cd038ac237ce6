// The files behind containers: reading one, and replacing one whole or not at all.
// Thread-safety: none; each object belongs to one thread.

#ifndef CONTAINER_FILES_H
#define CONTAINER_FILES_H

#include <string>
#include <string_view>

#include "hwxsys/AtomicFile.h"
#include "hwxsys/Descriptor.h"
#include "providers/container/Bytes.h"

namespace container {

/// The bytes of a file or pipe. All failures are `TContainerException`s that name the file.
class TFileSource : public TByteSource {
 public:
  explicit TFileSource(const std::string& path);
  std::size_t Read(char* buffer, std::size_t size) override;

 private:
  const std::string fPath;
  hwxsys::TDescriptor fFile;
};

/// A file that takes the place of `path` with `Commit`, as `hwxsys::EFileKind::kSuccessor` tells.
/// All failures are `TContainerException`s that name `path`.
class TNewFile : public TByteSink {
 public:
  explicit TNewFile(const std::string& path);
  void Write(std::string_view bytes) override;

  /// Writes the bytes through to the disk, then puts the file in the place of `path`.
  void Commit();

 private:
  const std::string fPath;
  hwxsys::TAtomicFile fFile;
};

}  // namespace container

#endif  // CONTAINER_FILES_H
