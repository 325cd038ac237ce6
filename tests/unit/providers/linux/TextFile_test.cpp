#include "providers/linux/TextFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/ChildProcess.h"
#include "support/Machines.h"
#include "support/TemporaryDirectory.h"

namespace linux_machine {

namespace {

using hwxtest::TemporaryDirectory;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

using namespace std::string_literals;

class TextFile : public ::testing::Test {
 protected:
  std::string Write(const std::string& text) {
    hwxtest::WriteMachineFile(fDirectory.Path(), "file", text);
    return fDirectory / "file";
  }

  TemporaryDirectory fDirectory;
};

TEST_F(TextFile, ReadsAllBytesAsTheyAre) {
  EXPECT_THAT(ReadFile(Write("a\0\xff\r\n\n"s)), Optional("a\0\xff\r\n\n"s));
  EXPECT_THAT(ReadFile(Write("")), Optional(""s));
}

TEST_F(TextFile, ReadsUpToTheLimitAndNothingOfALargerFile) {
  const std::string text(10000, 'x');
  EXPECT_THAT(ReadFile(Write(text), 10000), Optional(text));
  EXPECT_EQ(ReadFile(Write(text), 9999), std::nullopt);
}

TEST_F(TextFile, TellsOfAListThatIsTooLong) {
  const std::string text(10000, 'x');
  EXPECT_EQ(ReadList(Write(text), 10000), text);
  EXPECT_EQ(ReadList(fDirectory / "absent"), "");
  try {
    ReadList(Write(text), 9999);
    ADD_FAILURE() << "it was read";
  } catch (const std::runtime_error& failure) {
    EXPECT_EQ(failure.what(), fDirectory / "file" + " has more than 9999 bytes");
  }
}

TEST_F(TextFile, ReadsFilesThatTellNoSizeBeforehand) {
  EXPECT_THAT(ReadAttribute("/proc/self/comm"), Optional(::testing::Not(IsEmpty())));
}

TEST_F(TextFile, ReadsNothingThatIsNoRegularFile) {
  ASSERT_EQ(::mkfifo((fDirectory / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReadFile(fDirectory / "absent"), std::nullopt);
  EXPECT_EQ(ReadFile(fDirectory.Path()), std::nullopt);
  EXPECT_EQ(ReadFile(fDirectory / "pipe"), std::nullopt);
  EXPECT_EQ(ReadFile("/dev/zero"), std::nullopt);
}

TEST_F(TextFile, ReadsNothingThatTheUserMayNotRead) {
  const std::string path = Write("secret");
  std::filesystem::permissions(fDirectory.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(path, std::filesystem::perms::none);
  EXPECT_EQ(hwxtest::RunInChild([&path] {
              if (!hwxtest::BecomeUnprivileged()) return 2;
              return ReadFile(path) ? 3 : 0;
            }),
            0);
}

TEST_F(TextFile, AnAttributeLosesItsLastNewlineAndNothingElse) {
  EXPECT_THAT(ReadAttribute(Write("value\n")), Optional("value"s));
  EXPECT_THAT(ReadAttribute(Write("value")), Optional("value"s));
  EXPECT_THAT(ReadAttribute(Write(" two\nlines  \n\n")), Optional(" two\nlines  \n"s));
  EXPECT_THAT(ReadAttribute(Write("caf\xe9\n")), Optional("caf\xe9"s));
  EXPECT_THAT(ReadAttribute(Write("\n")), Optional(""s));
}

TEST_F(TextFile, AnAttributeEndsAtItsFirstNulByte) {
  EXPECT_THAT(ReadAttribute(Write("value\n\0rest\n"s)), Optional("value"s));
  EXPECT_THAT(ReadAttribute(Write("\0"s)), Optional(""s));
}

TEST_F(TextFile, AnAttributeIsAtMostOnePage) {
  EXPECT_THAT(ReadAttribute(Write(std::string(4096, 'x'))), Optional(std::string(4096, 'x')));
  EXPECT_EQ(ReadAttribute(Write(std::string(4097, 'x'))), std::nullopt);
}

TEST_F(TextFile, ReadsANumberThatStandsAlone) {
  EXPECT_THAT(ReadNumber(Write("4194304\n")), Optional(4194304u));
  EXPECT_EQ(ReadNumber(Write("4194304 and more\n")), std::nullopt);
  EXPECT_EQ(ReadNumber(fDirectory / "absent"), std::nullopt);
}

TEST_F(TextFile, ListsADirectorySortedByBytes) {
  for (const char* name : {"b", "a", "B", "10", "9"}) {
    hwxtest::WriteMachineFile(fDirectory.Path(), name, "");
  }
  EXPECT_THAT(ListDirectory(fDirectory.Path()), ElementsAre("10", "9", "B", "a", "b"));
}

TEST_F(TextFile, ListsNothingWhereThereIsNoDirectory) {
  EXPECT_THAT(ListDirectory(fDirectory / "absent"), IsEmpty());
  EXPECT_THAT(ListDirectory(Write("text")), IsEmpty());
}

TEST(Text, IsCutAtTheFirstNul) {
  EXPECT_EQ(CutAtNul("ab\0cd\0"s), "ab");
  EXPECT_EQ(CutAtNul("ab"), "ab");
  EXPECT_EQ(CutAtNul(""), "");
}

TEST(Text, LosesTheBlanksAtItsEnd) {
  EXPECT_EQ(WithoutTrailingBlanks("  a b  "), "  a b");
  EXPECT_EQ(WithoutTrailingBlanks("a\t "), "a\t");
  EXPECT_EQ(WithoutTrailingBlanks("   "), "");
  EXPECT_EQ(WithoutTrailingBlanks(""), "");
}

TEST(Text, IsANumberOnlyAsAWhole) {
  EXPECT_THAT(ParseNumber("0"), Optional(0u));
  EXPECT_THAT(ParseNumber("007"), Optional(7u));
  EXPECT_THAT(ParseNumber("18446744073709551615"), Optional(18446744073709551615u));
  for (const char* text : {"", " ", " 1", "1 ", "+1", "-1", "0x1", "1.0", "18446744073709551616"}) {
    EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
  }
}

TEST(Text, ComesApartLineByLine) {
  std::string_view text = "first\n\nlast";
  EXPECT_EQ(TakeLine(text), "first");
  EXPECT_EQ(TakeLine(text), "");
  EXPECT_EQ(TakeLine(text), "last");
  EXPECT_EQ(text, "");
  EXPECT_EQ(TakeLine(text), "");
}

TEST(Number, OfHexadecimalDigitsMayHaveAPrefix) {
  EXPECT_EQ(ParseHex("0x1af4"), 0x1af4u);
  EXPECT_EQ(ParseHex("1AF4"), 0x1af4u);
  EXPECT_EQ(ParseHex("ffffffffffffffff"), UINT64_MAX);
  for (const char* text : {"", "0x", "0x0x1", "-1", "g", "1 ", " 1", "10000000000000000"}) {
    EXPECT_FALSE(ParseHex(text)) << text;
  }
}

TEST(Number, IsNoneWhereItDoesNotFit) {
  EXPECT_EQ(Narrow<std::uint8_t>(255), std::uint8_t{255});
  EXPECT_FALSE(Narrow<std::uint8_t>(256));
  EXPECT_FALSE(Narrow<std::uint8_t>(std::nullopt));
  EXPECT_EQ(Multiply(UINT64_MAX, 1), UINT64_MAX);
  EXPECT_EQ(Multiply(UINT64_MAX, 0), 0u);
  EXPECT_FALSE(Multiply(UINT64_MAX, 2));
  EXPECT_FALSE(Multiply(std::nullopt, 2));
}

TEST(Text, IsTakenWithoutTheBlanksAround) {
  const TemporaryDirectory directory;
  hwxtest::WriteMachineFile(directory.Path(), "padded", "  DISK 15K  \n");
  EXPECT_EQ(ReadTrimmed(directory / "padded"), "DISK 15K");
  hwxtest::WriteMachineFile(directory.Path(), "blank", "   \n");
  EXPECT_FALSE(ReadTrimmed(directory / "blank"));
  EXPECT_FALSE(ReadTrimmed(directory / "absent"));
}

}  // namespace

}  // namespace linux_machine
