// What a document may take of memory, and what it doesn't take.

#include <string>

#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using namespace NQORHWX20;
using ::testing::HasSubstr;

const std::string kTooMuch = "the content takes more than 8 MiB of memory, which is the limit";

TLimits EightMebibytes() {
  TLimits limits;
  limits.fMemory = 8 << 20;
  return limits;
}

std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i)
    all += text;
  return all;
}

TEST(Memory, IsLimitedForElementsOfArrays) {
  const std::string document =
      Document("<CLASS NAME='A'><PROPERTY.ARRAY NAME='P' TYPE='string'>\n<VALUE.ARRAY>" +
               Repeated("<VALUE/>", 100000) + "</VALUE.ARRAY></PROPERTY.ARRAY></CLASS>");
  EXPECT_EQ(WhyRefused(document, EightMebibytes()), "file.xml:3: " + kTooMuch);
  EXPECT_EQ(WhyRefused(document), "");
}

TEST(Memory, IsLimitedForInstances) {
  const std::string document =
      Document("<CLASS NAME='A'/>" + Repeated("<INSTANCE CLASSNAME='A'/>\n", 30000));
  EXPECT_THAT(WhyRefused(document, EightMebibytes()), HasSubstr(kTooMuch));
  EXPECT_EQ(WhyRefused(document), "");
}

TEST(Memory, IsLimitedForWhatWaitsForAClass) {
  const std::string document = Document(Repeated("<INSTANCE CLASSNAME='A'/>\n", 30000));
  EXPECT_THAT(WhyRefused(document, EightMebibytes()), HasSubstr(kTooMuch));
}

// Each line makes a class with all properties of another.
TEST(Memory, IsLimitedForWhatClassesInherit) {
  std::string document = "<CLASS NAME='A'>";
  for (int i = 0; i < 1000; ++i)
    document += "<PROPERTY NAME='P" + std::to_string(i) + "' TYPE='uint8'/>";
  document += "</CLASS>\n";
  for (int i = 0; i < 200; ++i)
    document += "<CLASS NAME='B" + std::to_string(i) + "' SUPERCLASS='A'/>\n";
  EXPECT_THAT(WhyRefused(Document(document), EightMebibytes()), HasSubstr(kTooMuch));
  EXPECT_EQ(WhyRefused(Document(document)), "");
}

TEST(Memory, IsNotTakenForDefaultValuesThatInstancesLeaveAlone) {
  const std::string document = Document(
      "<CLASS NAME='A'><PROPERTY NAME='P' TYPE='string'><VALUE>" + std::string(1000000, 'x') +
      "</VALUE></PROPERTY></CLASS>\n" + Repeated("<INSTANCE CLASSNAME='A'/>\n", 10000));
  EXPECT_EQ(WhyRefused(document, EightMebibytes()), "");
}

TEST(Memory, IsNotTakenForQualifiersThatClassesInherit) {
  std::string document =
      "<QUALIFIER.DECLARATION NAME='Q' TYPE='string'/><CLASS NAME='A'><QUALIFIER NAME='Q' "
      "TYPE='string'><VALUE>" +
      std::string(1000000, 'x') + "</VALUE></QUALIFIER></CLASS>\n";
  for (int i = 0; i < 1000; ++i)
    document += "<CLASS NAME='B" + std::to_string(i) + "' SUPERCLASS='A'/>\n";
  EXPECT_EQ(WhyRefused(Document(document), EightMebibytes()), "");
}

TEST(Memory, IsNotTakenForClassesOneUnderTheOtherWithoutEnd) {
  std::string document = "<CLASS NAME='C1'/>\n";
  std::string reversed = document;
  for (int i = 2; i <= 1001; ++i) {
    const std::string line =
        "<CLASS NAME='C" + std::to_string(i) + "' SUPERCLASS='C" + std::to_string(i - 1) + "'/>\n";
    document += line;
    reversed.insert(0, line);
  }
  EXPECT_EQ(WhyRefused(Document(document)),
            "file.xml:1002: CLASS \"C1001\": has more than 1000 superclasses");
  EXPECT_EQ(WhyRefused(Document(reversed)),
            "file.xml:2: CLASS \"C1001\": has more than 1000 superclasses");
}

}  // namespace

}  // namespace hwxtest
