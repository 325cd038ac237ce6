#include "providers/container/Store.h"

#include <string_view>
#include <utility>

#include "providers/container/Bytes.h"
#include "providers/container/Files.h"
#include "providers/container/Reader.h"
#include "providers/container/Writer.h"

namespace container {

namespace {

bool IsCompressed(const std::string& path) {
  const std::string ending = ".gz";
  return path.size() >= ending.size() &&
         path.compare(path.size() - ending.size(), ending.size(), ending) == 0;
}

constexpr std::string_view kGzipMark = "\x1F\x8B";

// As many bytes, or all there are.
std::string FirstBytes(TByteSource& source, std::size_t count) {
  std::string bytes(count, '\0');
  std::size_t read = 0;
  while (read < count) {
    const std::size_t more = source.Read(&bytes[read], count - read);
    if (more == 0) break;
    read += more;
  }
  bytes.resize(read);
  return bytes;
}

// A source with the bytes in front that were taken from it.
class TSourceWithFront : public TByteSource {
 public:
  TSourceWithFront(std::string front, TByteSource& rest) : fFront(std::move(front)), fRest(rest) {}

  std::size_t Read(char* buffer, std::size_t size) override {
    if (fFront.empty()) return fRest.Read(buffer, size);
    const std::size_t count = fFront.copy(buffer, size);
    fFront.erase(0, count);
    return count;
  }

 private:
  std::string fFront;
  TByteSource& fRest;
};

}  // namespace

boost::shared_ptr<NQORHWX20::TMemoryNamespace> LoadFile(const std::string& path,
                                                        const TReading& reading) {
  TFileSource file(path);
  std::string front = FirstBytes(file, kGzipMark.size());
  const bool isCompressed = front == kGzipMark;
  TSourceWithFront bytes(std::move(front), file);
  if (!isCompressed) return ReadContainer(bytes, path, reading);
  TGunzipSource expanded(bytes, path, reading.fLimits);
  return ReadContainer(expanded, path, reading);
}

void SaveFile(NQORHWX20::TMemoryNamespace& ns, const std::string& path) {
  TNewFile file(path);
  if (IsCompressed(path)) {
    TGzipSink compressed(file);
    WriteContainer(ns, compressed, path);
    compressed.Finish();
  } else {
    WriteContainer(ns, file, path);
  }
  file.Commit();
}

std::string Text(NQORHWX20::TMemoryNamespace& ns, const std::string& name) {
  TStringSink text;
  WriteContainer(ns, text, name);
  return text.Bytes();
}

}  // namespace container
