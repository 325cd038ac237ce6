#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::ArrayOf;
using hwxtest::FailureOf;
using hwxtest::TCIMType;

const struct {
  int fTag;
  TCIMType::ECIMType fType;
  const char* fName;
} kTypes[] = {
    {1, TCIMType::kCIMTypeBoolean, "boolean"},      {2, TCIMType::kCIMTypeUInt8, "uint8"},
    {3, TCIMType::kCIMTypeSInt8, "sint8"},          {4, TCIMType::kCIMTypeUInt16, "uint16"},
    {5, TCIMType::kCIMTypeSInt16, "sint16"},        {6, TCIMType::kCIMTypeUInt32, "uint32"},
    {7, TCIMType::kCIMTypeSInt32, "sint32"},        {8, TCIMType::kCIMTypeUInt64, "uint64"},
    {9, TCIMType::kCIMTypeSInt64, "sint64"},        {10, TCIMType::kCIMTypeReal32, "real32"},
    {11, TCIMType::kCIMTypeReal64, "real64"},       {12, TCIMType::kCIMTypeChar16, "char16"},
    {13, TCIMType::kCIMTypeString, "string"},       {14, TCIMType::kCIMTypeDateTime, "datetime"},
    {15, TCIMType::kCIMTypeReference, "reference"},
};

TCIMType Tag(int tag) {
  return static_cast<TCIMType::ECIMType>(tag);
}

std::string InCapitals(std::string text) {
  for (char& c : text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

TEST(TCIMType, EveryTypeHasItsNumberAndName) {
  for (const auto& type : kTypes) {
    EXPECT_EQ(static_cast<int>(type.fType), type.fTag);
    EXPECT_EQ(TCIMType(type.fType).ToString(), type.fName);
  }
  EXPECT_EQ(static_cast<int>(TCIMType::kCIMTypeNone), 0);
  EXPECT_EQ(static_cast<int>(TCIMType::kCIMTypeArrayFlag), 16);
}

TEST(TCIMType, AnArrayPrintsAsItsElementsType) {
  for (const auto& type : kTypes) {
    EXPECT_EQ(static_cast<int>(ArrayOf(type.fType)), type.fTag + 16);
    EXPECT_EQ(ArrayOf(type.fType).ToString(), type.fName);
  }
}

TEST(TCIMType, ConvertsToTheWholeTag) {
  const TCIMType array = Tag(23);
  const TCIMType::ECIMType tag = array;
  EXPECT_EQ(static_cast<int>(tag), 23);
  EXPECT_TRUE(array == Tag(23));
  EXPECT_FALSE(array == TCIMType::kCIMTypeSInt32);
}

TEST(TCIMType, CopiesAndAssignsTheTag) {
  TCIMType type = TCIMType::kCIMTypeUInt8;
  const TCIMType copy(type);
  type = TCIMType::kCIMTypeString;
  EXPECT_EQ(static_cast<int>(copy), 2);
  EXPECT_EQ(static_cast<int>(type), 13);
}

TEST(TCIMType, ATagWithoutANameDoesNotPrint) {
  for (const int tag : {0, 16, 32, 34, 48, 50, 64, 1000, -1, -16}) {
    EXPECT_EQ(FailureOf([&] { Tag(tag).ToString(); }), "kHWXStatusTypeMismatch") << tag;
  }
}

TEST(TCIMType, ReadsEveryNameInAnyMixOfCases) {
  for (const auto& type : kTypes) {
    std::string mixed = type.fName;
    mixed[0] = InCapitals(mixed)[0];
    EXPECT_EQ(TCIMType(std::string(type.fName)), type.fType);
    EXPECT_EQ(TCIMType(InCapitals(type.fName)), type.fType);
    EXPECT_EQ(TCIMType(mixed), type.fType);
  }
  EXPECT_EQ(static_cast<int>(TCIMType("DateTime")), 14);
}

TEST(TCIMType, ReadingANameLeavesTheCallersStringAlone) {
  const std::string name = "UInt8";
  EXPECT_EQ(TCIMType(name), TCIMType::kCIMTypeUInt8);
  EXPECT_EQ(name, "UInt8");
}

TEST(TCIMType, AnUnknownNameGivesNoTypeAndThrowsNothing) {
  const std::string names[] = {"",          "uint",
                               "uint88",    " uint8",
                               "uint8 ",    "uint8[]",
                               "none",      "bool",
                               "date-time", "uint8\n",
                               "real",      "sint8sint8",
                               "\xff\xfe",  std::string("uint8\0", 6)};
  for (const std::string& name : names)
    EXPECT_EQ(TCIMType(name), TCIMType::kCIMTypeNone) << name;
}

TEST(TCIMType, IsWrittenToStreamsByName) {
  std::ostringstream stream;
  stream << TCIMType(TCIMType::kCIMTypeUInt8) << ' ' << Tag(31);
  EXPECT_EQ(stream.str(), "uint8 reference");
}

TEST(TCIMType, WritingATagWithoutANameThrowsAndWritesNothing) {
  std::ostringstream stream;
  EXPECT_EQ(FailureOf([&] { stream << TCIMType(TCIMType::kCIMTypeNone); }),
            "kHWXStatusTypeMismatch");
  EXPECT_EQ(stream.str(), "");
}

}  // namespace
}  // namespace NQORHWX20
