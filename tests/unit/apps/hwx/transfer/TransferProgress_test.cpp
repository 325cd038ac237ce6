#include "hwx/transfer/TransferProgress.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/FileText.h"
#include "support/TemporaryDirectory.h"

namespace hwx {
namespace {

TEST(ProgressText, TellsBytesAndPercentWhereTheTotalIsKnown) {
  EXPECT_EQ(ProgressText(0, 200), "0 of 200 bytes (0 %)");
  EXPECT_EQ(ProgressText(199, 200), "199 of 200 bytes (99 %)");
  EXPECT_EQ(ProgressText(200, 200), "200 of 200 bytes (100 %)");
  EXPECT_EQ(ProgressText(0, 0), "0 of 0 bytes (100 %)");
  EXPECT_EQ(ProgressText(UINTMAX_MAX, UINTMAX_MAX),
            "18446744073709551615 of 18446744073709551615 bytes (100 %)");
  EXPECT_EQ(ProgressText(12345, std::nullopt), "12345 bytes");
}

TEST(ReadingPosition, IsThatOfTheDescriptorOnTheFile) {
  const hwxtest::TemporaryDirectory directory;
  const std::string path = directory / "file";
  hwxtest::MakeFile(path, std::string(100000, 'x'));
  EXPECT_EQ(ReadingPosition(path), std::nullopt);
  std::ifstream file(path);
  file.rdbuf()->pubsetbuf(nullptr, 0);
  EXPECT_EQ(ReadingPosition(path), 0u);
  file.seekg(70000);
  EXPECT_EQ(ReadingPosition(path), 70000u);
  EXPECT_EQ(ReadingPosition(directory / "none"), std::nullopt);
}

}  // namespace
}  // namespace hwx
