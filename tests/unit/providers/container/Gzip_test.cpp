#include <zlib.h>

#include <algorithm>
#include <string>

#include "providers/container/Bytes.h"
#include "support/FileText.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using namespace NQORHWX20;
using ::testing::HasSubstr;

std::string Gzip(std::string_view bytes) {
  TStringSink sink;
  TGzipSink gzip(sink);
  gzip.Write(bytes);
  gzip.Finish();
  return sink.Bytes();
}

// A source that gives so many bytes at a time.
class Dripping : public TByteSource {
 public:
  Dripping(std::string_view bytes, std::size_t drop) : fSource(bytes), fDrop(drop) {}
  std::size_t Read(char* buffer, std::size_t size) override {
    return fSource.Read(buffer, std::min(size, fDrop));
  }

 private:
  TMemorySource fSource;
  std::size_t fDrop;
};

std::string ReadAll(TByteSource& source, std::size_t step = 1000) {
  std::string all;
  std::string part(step, '\0');
  while (const std::size_t count = source.Read(part.data(), part.size()))
    all.append(part, 0, count);
  return all;
}

std::string Gunzip(std::string_view bytes, std::size_t drop = 65536, std::size_t step = 1000) {
  Dripping source(bytes, drop);
  TGunzipSource expanded(source, "file.gz");
  return ReadAll(expanded, step);
}

Failure WhyDamaged(std::string_view bytes) {
  return FailureOf([&] { Gunzip(bytes); });
}

TEST(Gzip, GivesBackWhatWasCompressed) {
  for (const std::size_t size : {0u, 1u, 1000u, 300000u}) {
    const std::string bytes = AllBytes(size);
    EXPECT_EQ(Gunzip(Gzip(bytes)), bytes);
    EXPECT_EQ(Gunzip(Gzip(bytes), 1, 7), bytes);
  }
}

TEST(Gzip, KeepsNeitherNameNorTime) {
  const std::string bytes = Gzip("text");
  ASSERT_GT(bytes.size(), 10u);
  EXPECT_EQ(bytes.substr(3, 5), std::string(5, '\0'));  // flags, and the time
}

TEST(Gzip, EndsAsOftenAsItIsAsked) {
  const std::string bytes = Gzip("text");
  TMemorySource source(bytes);
  TGunzipSource expanded(source, "file.gz");
  EXPECT_EQ(ReadAll(expanded), "text");
  char byte = 0;
  EXPECT_EQ(expanded.Read(&byte, 1), 0u);
  EXPECT_EQ(expanded.Read(&byte, 1), 0u);
}

TEST(Gzip, TellsWhatIsNotCompressed) {
  for (const char* bytes : {"", "<?xml version", "\x1E\x8B", "\x1F<"}) {
    const Failure failure = WhyDamaged(bytes);
    EXPECT_EQ(failure.status, kHWXStatusInvalidGzipFile);
    EXPECT_EQ(failure.text, "file.gz: not compressed, as its name says it is");
  }
}

TEST(Gzip, TellsWhereItIsCutOff) {
  const std::string whole = Gzip(AllBytes(10000));
  for (std::size_t size = 1; size < whole.size(); ++size) {
    const Failure failure = WhyDamaged(whole.substr(0, size));
    EXPECT_EQ(failure.status, kHWXStatusCorruptGzipFile) << size;
    EXPECT_EQ(failure.text,
              "file.gz: byte " + std::to_string(size) + ": the compressed data is cut off");
  }
}

TEST(Gzip, TellsDamage) {
  const std::string whole = Gzip(AllBytes(1000));
  for (const std::size_t at : {std::size_t{2}, whole.size() - 8, whole.size() - 1}) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
    const Failure failure = WhyDamaged(damaged);
    EXPECT_EQ(failure.status, kHWXStatusCorruptGzipFile) << at;
    EXPECT_THAT(failure.text, HasSubstr(": the compressed data is damaged"));
  }
}

TEST(Gzip, TellsWhatIsBehindTheEnd) {
  for (const std::string& more : {std::string("x"), std::string(1, '\0'), Gzip("again")}) {
    const Failure failure = WhyDamaged(Gzip("text") + more);
    EXPECT_EQ(failure.status, kHWXStatusCorruptGzipFile);
    EXPECT_THAT(failure.text, HasSubstr(": there is more behind the end"));
  }
}

TEST(Gzip, PassesOnWhatTheDocumentBehindItDoesWrong) {
  const std::string bytes = Gzip(Document("<NONSENSE/>"));
  TMemorySource source(bytes);
  TGunzipSource expanded(source, "file.gz");
  EXPECT_EQ(FailureOf([&] { ReadContainer(expanded, "file.gz"); }).text,
            "file.gz:2: NONSENSE: doesn't belong into DECLGROUP.WITHNAME, where "
            "QUALIFIER.DECLARATION, CLASS, INSTANCE or a VALUE with one of them is expected");
}

// So much of nothing that it would fill every disk takes neither memory nor much time.
TEST(Gzip, MayNotExpandWithoutEnd) {
  class Endless : public TByteSource {
   public:
    std::size_t Read(char* buffer, std::size_t size) override {
      std::fill_n(buffer, size, '\n');
      return size;
    }
  } blanks;
  TReading reading;
  reading.fLimits.fDocument = 50000000;
  EXPECT_THAT(FailureOf([&] { ReadContainer(blanks, "file.gz", reading); }).text,
              HasSubstr(": the document is larger than 50000000 bytes"));
}

TEST(Gzip, MayNotExpandAThousandTimes) {
  const std::string bytes = Gzip(Document(std::string(60 << 20, ' ')));
  TMemorySource source(bytes);
  TGunzipSource expanded(source, "file.gz");
  EXPECT_THAT(FailureOf([&] { ReadContainer(expanded, "file.gz"); }).text,
              HasSubstr(": each byte stands for more than 200 bytes of the document"));
}

}  // namespace

}  // namespace hwxtest
