#ifndef CONTAINER_ENCODING_H
#define CONTAINER_ENCODING_H

#include <cstddef>
#include <string>

#include "providers/container/Bytes.h"

namespace container {

/// Gives a document in UTF-8, whatever its encoding is: UTF-8, UTF-16 with a byte order mark or
/// without, and, where the XML declaration says so, ISO-8859-1. `name` is the file's in messages.
/// Throws `TContainerException` with `kHWXStatusCorruptedContainer` for another encoding and for
/// malformed UTF-16; UTF-8 passes unchecked.
///
/// Thread-safety: none.
class TDecodedSource : public TByteSource {
 public:
  TDecodedSource(TByteSource& source, const std::string& name);

  std::size_t Read(char* buffer, std::size_t size) override;

 private:
  enum EEncoding { kUTF8, kUTF16LE, kUTF16BE, kLatin1 };

  [[noreturn]] void Fail(const std::string& why) const;
  void ReadHead();
  void FindEncoding();
  EEncoding DeclaredEncoding() const;
  void Decode();
  void DecodeLatin1();
  void DecodeUTF16();
  unsigned int Unit(std::size_t at) const;

  TByteSource& fSource;
  const std::string fName;
  EEncoding fEncoding;
  std::string fRaw;      // read and not yet decoded
  std::string fDecoded;  // decoded and not yet given
  std::size_t fGiven;    // bytes of `fDecoded` that were given
};

}  // namespace container

#endif  // CONTAINER_ENCODING_H
