#include "hwx/inventory/ValueText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryNamespace.h"

namespace hwx {
namespace {

using namespace NQORHWX20;
using TType = TCIMValue::TCIMType;

TCIMValue Array(TType::ECIMType type, const std::vector<TCIMValue>& elements) {
  return TCIMValue(type, 0, elements);
}

TEST(ValueJson, KeepsIntegersExact) {
  EXPECT_EQ(ValueJson(std::numeric_limits<unsigned long>::max()).dump(), "18446744073709551615");
  EXPECT_EQ(ValueJson(std::numeric_limits<long>::min()).dump(), "-9223372036854775808");
  EXPECT_EQ(ValueJson(static_cast<unsigned char>(255)).dump(), "255");
  EXPECT_EQ(ValueJson(static_cast<signed char>(-128)).dump(), "-128");
  EXPECT_EQ(ValueJson(static_cast<unsigned short>(65535)).dump(), "65535");
  EXPECT_EQ(ValueJson(static_cast<short>(-1)).dump(), "-1");
  EXPECT_EQ(ValueJson(4000000000U).dump(), "4000000000");
  EXPECT_EQ(ValueJson(-5).dump(), "-5");
}

TEST(ValueJson, GivesRealsTheFewestDigitsThatTellThemApart) {
  EXPECT_EQ(ValueJson(0.1F).dump(), "0.1");
  EXPECT_EQ(ValueJson(0.1).dump(), "0.1");
  EXPECT_EQ(ValueJson(1.0 / 3).get<double>(), 1.0 / 3);
}

TEST(ValueJson, NamesTheRealsThatJsonLacks) {
  EXPECT_EQ(ValueJson(std::nan("")), "NaN");
  EXPECT_EQ(ValueJson(-std::numeric_limits<float>::infinity()), "-Infinity");
  EXPECT_EQ(ValueJson(std::numeric_limits<double>::infinity()), "Infinity");
}

TEST(ValueJson, IsNullForNullAndForWhatHoldsNothing) {
  EXPECT_EQ(ValueJson(TCIMValue()), nullptr);
  EXPECT_EQ(ValueJson(TCIMValue(TType::kCIMTypeUInt8, 0)), nullptr);
  EXPECT_EQ(ValueJson(TCIMValue(TCIMDateTime())), nullptr);
}

TEST(ValueJson, PrintsTheOtherTypes) {
  EXPECT_EQ(ValueJson(true), true);
  EXPECT_EQ(ValueJson("a\"b"), "a\"b");
  EXPECT_EQ(ValueJson(TCIMDateTime("20240229123456.000000+060")), "20240229123456.000000+060");
  EXPECT_EQ(ValueJson(TCIMChar16('x')), TCIMValue(TCIMChar16('x')).ToString(10));
}

TEST(ValueJson, PrintsReferencesAsPaths) {
  const auto ns = TMemoryNamespace::Create("test");
  const auto disk = TClassBuilder(ns, "EX_Disk").Key("Name", "string").Commit();
  TCIMReference path(ns, TCIMContext());
  path.SetClass(disk);
  path.AddKeyValue("Name", "sda");
  EXPECT_EQ(ValueJson(TCIMValue(path)), "EX_Disk.Name=\"sda\"");
}

TEST(ValueJson, KeepsArraysWithTheirNullElements) {
  const TCIMValue array = Array(
      TType::kCIMTypeUInt32, {TCIMValue(7U), TCIMValue(TType::kCIMTypeUInt32, 0), TCIMValue(8U)});
  EXPECT_EQ(ValueJson(array).dump(), "[7,null,8]");
  EXPECT_EQ(ValueJson(Array(TType::kCIMTypeString, {})).dump(), "[]");
  EXPECT_EQ(ValueJson(TCIMValue(TType::kCIMTypeUInt32, 3)), nullptr);
}

TEST(ValueText, LeavesStringsAsTheyAre) {
  EXPECT_EQ(ValueText("a \"b\" \\"), "a \"b\" \\");
  EXPECT_EQ(ValueText(""), "");
  EXPECT_EQ(ValueText(true), "true");
  EXPECT_EQ(ValueText(12U), "12");
  EXPECT_EQ(ValueText(TCIMValue(TType::kCIMTypeString, 0)), "(null)");
}

TEST(ValueText, SeparatesAllElements) {
  EXPECT_EQ(ValueText(Array(TType::kCIMTypeString, {"", "b", ""})), ", b, ");
  EXPECT_EQ(ValueText(Array(TType::kCIMTypeString, {})), "");
}

TEST(TypeName, MarksArrays) {
  EXPECT_EQ(TypeName(TType::kCIMTypeUInt16), "uint16");
  EXPECT_EQ(TypeName(TCIMValue(TType::kCIMTypeUInt16, 1).GetType()), "uint16[]");
}

}  // namespace
}  // namespace hwx
