#include "providers/container/Bytes.h"

#include <algorithm>
#include <limits>
#include <new>

#include "hwxkit/TContainerException.h"

namespace container {

namespace {

using NQORHWX20::TContainerException;

constexpr int kGzipWindow = 15 + 16;  // the largest window, and the gzip format around it

// zlib counts in unsigned int and takes pointers to bytes that it doesn't change.
uInt Length(std::size_t size) {
  return static_cast<uInt>(std::min<std::size_t>(size, std::numeric_limits<uInt>::max()));
}

Bytef* Address(const char* bytes) {
  return reinterpret_cast<Bytef*>(const_cast<char*>(bytes));
}

}  // namespace

TByteSource::~TByteSource() = default;

TByteSink::~TByteSink() = default;

std::size_t TMemorySource::Read(char* buffer, std::size_t size) {
  const std::size_t count = fBytes.copy(buffer, size);
  fBytes.remove_prefix(count);
  return count;
}

// Expanding.

TGunzipSource::TGunzipSource(TByteSource& compressed, const std::string& name,
                             const TLimits& limits)
    : fCompressed(compressed),
      fName(name),
      fBuffer(kBufferSize),
      fLimits(limits),
      fTaken(0),
      fExpanded(0),
      fAtEnd(false) {
  fStream = z_stream();
  if (::inflateInit2(&fStream, kGzipWindow) != Z_OK) throw std::bad_alloc();
}

TGunzipSource::~TGunzipSource() {
  ::inflateEnd(&fStream);
}

void TGunzipSource::Fail(const std::string& why) const {
  const std::uint64_t place = fTaken - fStream.avail_in;
  throw TContainerException(NQORHWX20::kHWXStatusCorruptGzipFile,
                            fName + ": byte " + std::to_string(place) + ": " + why);
}

// False at the end of the file.
bool TGunzipSource::Refill() {
  const std::size_t count = fCompressed.Read(fBuffer.data(), fBuffer.size());
  fStream.next_in = Address(fBuffer.data());
  fStream.avail_in = Length(count);
  const bool isFirst = fTaken == 0;
  fTaken += count;
  if (isFirst) CheckHead();
  return count != 0;
}

void TGunzipSource::CheckHead() {
  if (fStream.avail_in != 0 && fBuffer[0] == '\x1F' &&
      (fStream.avail_in == 1 || fBuffer[1] == '\x8B'))
    return;
  throw TContainerException(NQORHWX20::kHWXStatusInvalidGzipFile,
                            fName + ": not compressed, as its name says it is");
}

void TGunzipSource::CheckEnd() {
  fAtEnd = true;
  if (fStream.avail_in != 0 || Refill())
    Fail("there is more behind the end of the compressed data");
}

// What was written by a machine about a machine repeats itself, but not a thousand times.
void TGunzipSource::CheckExpansion(std::size_t count) {
  fExpanded += count;
  if (fExpanded <= fLimits.fExpansionFree) return;
  if (fExpanded - fLimits.fExpansionFree > (fTaken - fStream.avail_in) * fLimits.fExpansion) {
    Fail("each byte stands for more than " + std::to_string(fLimits.fExpansion) +
         " bytes of the document, which is the limit");
  }
}

std::size_t TGunzipSource::Read(char* buffer, std::size_t size) {
  const uInt wanted = Length(size);
  fStream.next_out = Address(buffer);
  fStream.avail_out = wanted;
  while (!fAtEnd && fStream.avail_out == wanted) {
    if (fStream.avail_in == 0 && !Refill()) Fail("the compressed data is cut off");
    const int result = ::inflate(&fStream, Z_NO_FLUSH);
    if (result == Z_MEM_ERROR) throw std::bad_alloc();
    if (result == Z_STREAM_END)
      CheckEnd();
    else if (result != Z_OK && result != Z_BUF_ERROR)
      Fail("the compressed data is damaged");
  }
  CheckExpansion(wanted - fStream.avail_out);
  return wanted - fStream.avail_out;
}

// Compressing.

TGzipSink::TGzipSink(TByteSink& compressed) : fCompressed(compressed), fBuffer(kBufferSize) {
  fStream = z_stream();
  constexpr int kMemoryLevel = 8;  // zlib's own default
  if (::deflateInit2(&fStream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, kGzipWindow, kMemoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK)
    throw std::bad_alloc();
}

TGzipSink::~TGzipSink() {
  ::deflateEnd(&fStream);
}

void TGzipSink::Deflate(std::string_view bytes, int flush) {
  fStream.next_in = Address(bytes.data());
  fStream.avail_in = Length(bytes.size());
  do {
    fStream.next_out = Address(fBuffer.data());
    fStream.avail_out = Length(fBuffer.size());
    ::deflate(&fStream, flush);
    fCompressed.Write(std::string_view(fBuffer.data(), fBuffer.size() - fStream.avail_out));
  } while (fStream.avail_out == 0);
}

void TGzipSink::Write(std::string_view bytes) {
  constexpr std::size_t kStep = std::size_t{1} << 30;  // well within what zlib can count
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kStep, bytes.size())))
    Deflate(bytes.substr(0, kStep), Z_NO_FLUSH);
}

void TGzipSink::Finish() {
  Deflate(std::string_view(), Z_FINISH);
}

}  // namespace container
