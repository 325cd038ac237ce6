// Where the bytes of a container come from and go to.
// Thread-safety: none; each object belongs to one thread.

#ifndef CONTAINER_BYTES_H
#define CONTAINER_BYTES_H

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "providers/container/Limits.h"

namespace container {

/// How many bytes are read, packed or written at once.
constexpr std::size_t kBufferSize = 65536;

/// Gives bytes one after the other.
class TByteSource {
 public:
  virtual ~TByteSource();

  /// Reads up to `size` bytes, at least one unless the end is reached: then 0, as often as it is
  /// asked. `size` is not 0.
  virtual std::size_t Read(char* buffer, std::size_t size) = 0;
};

/// Takes bytes one after the other.
class TByteSink {
 public:
  virtual ~TByteSink();
  virtual void Write(std::string_view bytes) = 0;
};

/// Bytes in memory, which it doesn't copy.
class TMemorySource : public TByteSource {
 public:
  explicit TMemorySource(std::string_view bytes) : fBytes(bytes) {}
  std::size_t Read(char* buffer, std::size_t size) override;

 private:
  std::string_view fBytes;
};

/// Collects bytes in memory.
class TStringSink : public TByteSink {
 public:
  void Write(std::string_view bytes) override { fBytes.append(bytes); }
  const std::string& Bytes() const { return fBytes; }

 private:
  std::string fBytes;
};

/// Expands what a gzip file holds, one compressed stream and nothing behind it. `name` is the
/// file's in messages. Throws `TContainerException` with `kHWXStatusInvalidGzipFile` for a file
/// that isn't one and `kHWXStatusCorruptGzipFile` for a damaged one, also one that is cut off or
/// goes on, or expands beyond `limits`.
class TGunzipSource : public TByteSource {
 public:
  TGunzipSource(TByteSource& compressed, const std::string& name,
                const TLimits& limits = TLimits());
  ~TGunzipSource() override;
  TGunzipSource(const TGunzipSource&) = delete;
  TGunzipSource& operator=(const TGunzipSource&) = delete;

  std::size_t Read(char* buffer, std::size_t size) override;

 private:
  bool Refill();
  void CheckHead();
  void CheckEnd();
  void CheckExpansion(std::size_t count);
  [[noreturn]] void Fail(const std::string& why) const;

  TByteSource& fCompressed;
  const std::string fName;
  std::vector<char> fBuffer;
  const TLimits fLimits;
  std::uint64_t fTaken;     // bytes of the file in the buffer and in front of it
  std::uint64_t fExpanded;  // bytes that they gave
  bool fAtEnd;
  z_stream fStream;
};

/// Compresses. The bytes depend on what is written alone: no name and no time are kept with them.
class TGzipSink : public TByteSink {
 public:
  explicit TGzipSink(TByteSink& compressed);
  ~TGzipSink() override;
  TGzipSink(const TGzipSink&) = delete;
  TGzipSink& operator=(const TGzipSink&) = delete;

  void Write(std::string_view bytes) override;
  /// Writes what is left. Without it the compressed stream is cut off.
  void Finish();

 private:
  void Deflate(std::string_view bytes, int flush);

  TByteSink& fCompressed;
  std::vector<char> fBuffer;
  z_stream fStream;
};

}  // namespace container

#endif  // CONTAINER_BYTES_H
