// The write callback of the downloads.

#include <gtest/gtest.h>
#include <sys/mman.h>

#include "hwxcore/os/TOSSpecific.h"
#include "support/Descriptors.h"
#include "support/FileText.h"
#include "support/Sanitizers.h"
#include "support/TemporaryDirectory.h"

using hwxtest::FileText;
using NQORHWX20::curl_fwrite;

namespace {

constexpr std::size_t kFailed = 0xFFFFFFFF;

struct Sink {
  const char* fFilename;
  std::FILE* fStream;
};

class CurlFwrite : public testing::Test {
 protected:
  std::size_t Write(std::string text, std::size_t size = 1) {
    return curl_fwrite(&text[0], size, text.size() / size, &fSink);
  }

  hwxtest::TemporaryDirectory fDirectory;
  std::string fPath = fDirectory / "file";
  Sink fSink = {fPath.c_str(), nullptr};
};

TEST_F(CurlFwrite, MakesTheFile) {
  EXPECT_EQ(Write("one"), 3u);
  EXPECT_EQ(FileText(fPath), "one");
}

TEST_F(CurlFwrite, AppendsEachBlockToWhatIsThere) {
  hwxtest::MakeFile(fPath, "zero");
  EXPECT_EQ(Write("one"), 3u);
  EXPECT_EQ(Write("two"), 3u);
  EXPECT_EQ(FileText(fPath), "zeroonetwo");
}

TEST_F(CurlFwrite, OpensTheFileForEachBlock) {
  EXPECT_EQ(Write("one"), 3u);
  EXPECT_EQ(FileText(fPath), "one");  // nothing is held back for the next
  std::filesystem::rename(fPath, fDirectory / "moved");
  EXPECT_EQ(Write("two"), 3u);
  EXPECT_EQ(FileText(fPath), "two");
  EXPECT_EQ(FileText(fDirectory / "moved"), "one");
}

TEST_F(CurlFwrite, LeavesNothingOpen) {
  const std::size_t before = hwxtest::OpenDescriptors();
  Write("one");
  Write("two");
  EXPECT_EQ(hwxtest::OpenDescriptors(), before);
}

TEST_F(CurlFwrite, CountsItemsNotBytes) {
  EXPECT_EQ(Write("sixsix", 3), 2u);
  EXPECT_EQ(FileText(fPath), "sixsix");
}

TEST_F(CurlFwrite, WritesEveryByte) {
  const std::string all = hwxtest::AllBytes(100000);
  EXPECT_EQ(Write(all), all.size());
  EXPECT_EQ(FileText(fPath), all);
}

TEST_F(CurlFwrite, OfNothingMakesAnEmptyFile) {
  EXPECT_EQ(curl_fwrite(nullptr, 1, 0, &fSink), 0u);
  EXPECT_EQ(FileText(fPath), "");
}

TEST_F(CurlFwrite, FailsIn32BitsWithoutASinkOrAPath) {
  char byte = 'x';
  EXPECT_EQ(curl_fwrite(&byte, 1, 1, nullptr), kFailed);
  Sink unnamed = {nullptr, nullptr};
  EXPECT_EQ(curl_fwrite(&byte, 1, 1, &unnamed), kFailed);
  Sink empty = {"", nullptr};
  EXPECT_EQ(curl_fwrite(&byte, 1, 1, &empty), kFailed);
}

TEST_F(CurlFwrite, FailsIn32BitsIfTheFileCannotBeOpened) {
  for (const std::string& path : {fDirectory / "none/file", fDirectory.Path()}) {
    fSink.fFilename = path.c_str();
    EXPECT_EQ(Write("one"), kFailed) << path;
  }
}

// The bytes are addresses without memory behind them, and nobody reads them.
TEST_F(CurlFwrite, CutsItsCountTo32Bits) {
#ifdef HWXTESTS_THREAD_SANITIZER
  GTEST_SKIP() << "ThreadSanitizer would note each of the bytes";
#endif
  constexpr std::size_t kSize = (std::size_t{1} << 32) + 5;
  void* const bytes =
      ::mmap(nullptr, kSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (bytes == MAP_FAILED) GTEST_SKIP() << "not that many addresses";
  fSink.fFilename = "/dev/null";
  EXPECT_EQ(curl_fwrite(bytes, 1, kSize, &fSink), 5u);
  ::munmap(bytes, kSize);
}

TEST_F(CurlFwrite, TellsHowMuchTheStreamTook) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full";
  fSink.fFilename = "/dev/full";
  EXPECT_LT(Write(std::string(1000000, 'x')), 1000000u);
}

}  // namespace
