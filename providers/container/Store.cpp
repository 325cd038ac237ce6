#include "providers/container/Store.h"

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

}  // namespace

boost::shared_ptr<NQORHWX20::TMemoryNamespace> LoadFile(const std::string& path,
                                                        const TReading& reading) {
  TFileSource file(path);
  if (!IsCompressed(path)) return ReadContainer(file, path, reading);
  TGunzipSource expanded(file, path, reading.fLimits);
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
