#include "hwxcore/diagnostics/detail/ConfigLines.h"

#include <gmock/gmock.h>

#include <ios>
#include <sstream>
#include <streambuf>
#include <utility>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

using TEntries = std::map<std::string, std::string>;

TEntries Read(const std::string& text, TEntries entries = TEntries()) {
  std::istringstream stream(text);
  NQORHWX20::detail::ReadConfigLines(stream, entries);
  return entries;
}

// Fails as the buffer of a file does on a disk that breaks, once `text` is read.
class TFailingBuffer : public std::streambuf {
 public:
  explicit TFailingBuffer(std::string text) : fText(std::move(text)) {
    setg(fText.data(), fText.data(), fText.data() + fText.size());
  }

 protected:
  int_type underflow() override { throw std::ios_base::failure("input error"); }

 private:
  std::string fText;
};

TEST(ConfigLines, AreKeysAndValues) {
  EXPECT_THAT(Read("a=1\nb=2\n"), ElementsAre(Pair("a", "1"), Pair("b", "2")));
}

TEST(ConfigLines, CountWithoutANewlineAtTheEndToo) {
  EXPECT_THAT(Read("a=1\nb=2"), ElementsAre(Pair("a", "1"), Pair("b", "2")));
}

TEST(ConfigLines, AreSplitAtTheFirstSign) {
  EXPECT_THAT(Read("a=b=c"), ElementsAre(Pair("a", "b=c")));
  EXPECT_THAT(Read("a=="), ElementsAre(Pair("a", "=")));
}

TEST(ConfigLines, KeepBlanksAndTabs) {
  EXPECT_THAT(Read("a = b"), ElementsAre(Pair("a ", " b")));
  EXPECT_THAT(Read("\ta\t=\tb "), ElementsAre(Pair("\ta\t", "\tb ")));
  EXPECT_THAT(Read(" = "), ElementsAre(Pair(" ", " ")));
}

TEST(ConfigLines, KeepACarriageReturnAtTheEnd) {
  EXPECT_THAT(Read("a=1\r\n"), ElementsAre(Pair("a", "1\r")));
  EXPECT_THAT(Read("a=\r\n"), ElementsAre(Pair("a", "\r")));
  EXPECT_THAT(Read("\r\n"), ElementsAre(Pair("\r", "\r")));
}

TEST(ConfigLines, WithoutASignAreKeyAndValueInOne) {
  EXPECT_THAT(Read("verbose\n"), ElementsAre(Pair("verbose", "verbose")));
  EXPECT_THAT(Read(" "), ElementsAre(Pair(" ", " ")));
}

TEST(ConfigLines, AreDroppedWithoutAKey) {
  EXPECT_THAT(Read("=value\n"), IsEmpty());
  EXPECT_THAT(Read("==\n"), IsEmpty());
}

TEST(ConfigLines, AreDroppedWithoutAValue) {
  EXPECT_THAT(Read("key=\n"), IsEmpty());
}

TEST(ConfigLines, AreDroppedWithoutEither) {
  EXPECT_THAT(Read("=\n"), IsEmpty());
  EXPECT_THAT(Read("\n\n"), IsEmpty());
  EXPECT_THAT(Read(""), IsEmpty());
}

TEST(ConfigLines, AreCommentsBehindAMarkAtTheVeryFront) {
  EXPECT_THAT(Read("#a=1\n# b\n#\n#=c\n"), IsEmpty());
}

TEST(ConfigLines, HaveNoCommentsAnywhereElse) {
  EXPECT_THAT(Read(" # a=1\n"), ElementsAre(Pair(" # a", "1")));
  EXPECT_THAT(Read(" # a\n"), ElementsAre(Pair(" # a", " # a")));
  EXPECT_THAT(Read("a=1 # one\n"), ElementsAre(Pair("a", "1 # one")));
  EXPECT_THAT(Read("a#=#\n"), ElementsAre(Pair("a#", "#")));
}

TEST(ConfigLines, HaveNoSectionsQuotesOrContinuations) {
  EXPECT_THAT(
      Read("[main]\na=\"1\"\nb=2\\\n;c=3\n"),
      ElementsAre(Pair(";c", "3"), Pair("[main]", "[main]"), Pair("a", "\"1\""), Pair("b", "2\\")));
}

TEST(ConfigLines, GiveAKeyItsFirstValue) {
  EXPECT_THAT(Read("a=1\na=2\na\n"), ElementsAre(Pair("a", "1")));
  EXPECT_THAT(Read("a\na=2\n"), ElementsAre(Pair("a", "a")));
}

TEST(ConfigLines, GiveAKeyItsFirstValueThatIsNotEmpty) {
  EXPECT_THAT(Read("a=\na=2\n"), ElementsAre(Pair("a", "2")));
}

TEST(ConfigLines, LeaveWhatIsThereAlone) {
  EXPECT_THAT(Read("a=2\nb=2\n", {{"a", "1"}}), ElementsAre(Pair("a", "1"), Pair("b", "2")));
}

TEST(ConfigLines, TellKeysApartThatDifferInCaseOrBlanks) {
  EXPECT_THAT(Read("a=1\nA=2\na =3\n"),
              ElementsAre(Pair("A", "2"), Pair("a", "1"), Pair("a ", "3")));
}

TEST(ConfigLines, MayHoldAnyBytes) {
  const std::string key("k\0\xFF", 3);
  const std::string value("\0v\x01", 3);
  EXPECT_THAT(Read(key + "=" + value + "\n"), ElementsAre(Pair(key, value)));
}

TEST(ConfigLines, StandUpToTheOneThatCannotBeReadToItsEnd) {
  TFailingBuffer buffer("a=1\ntimeout=30");  // of "timeout=300"
  std::istream stream(&buffer);
  TEntries entries;
  NQORHWX20::detail::ReadConfigLines(stream, entries);
  EXPECT_TRUE(stream.bad());
  EXPECT_THAT(entries, ElementsAre(Pair("a", "1")));
}

TEST(ConfigLines, HaveNoLimitOfLengthOrNumber) {
  const std::string key(100000, 'k');
  const std::string value(3000000, 'v');
  EXPECT_THAT(Read(key + "=" + value), ElementsAre(Pair(key, value)));
  std::string text;
  for (int number = 0; number < 100000; ++number)
    text += "key" + std::to_string(number) + "=value\n";
  EXPECT_EQ(Read(text).size(), 100000U);
}

}  // namespace
