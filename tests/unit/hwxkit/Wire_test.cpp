#include "hwxkit/detail/Wire.h"

#include <gtest/gtest.h>

#include <limits>

#include "hwxcore/value/TCIMChar16.h"
#include "support/RandomValues.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using detail::TWireReader;
using detail::TWireWriter;

std::string Message(const TCIMValue& value) {
  TWireWriter writer;
  writer.Value(value);
  return writer.Bytes();
}

TCIMValue ReadBack(const std::string& message) {
  TWireReader reader(message, {});
  const TCIMValue value = reader.Value();
  reader.RequireEnd();
  return value;
}

TEST(Wire, KeepsValuesOfAllTypes) {
  const double infinity = std::numeric_limits<double>::infinity();
  const TCIMValue values[] = {true,
                              static_cast<unsigned char>(255),
                              static_cast<signed char>(-128),
                              static_cast<unsigned short>(65535),
                              static_cast<short>(-32768),
                              4294967295u,
                              -2147483647,
                              18446744073709551615ul,
                              -9223372036854775807l,
                              1.5f,
                              -infinity,
                              "",
                              std::string("a\0b", 3),
                              TCIMDateTime("20260102030405.000006-060"),
                              TCIMDateTime("00000003040506.000007:000"),
                              TCIMDateTime(2026, 13, 40, 30, 5, 6, 7, 0)};
  for (const TCIMValue& value : values) {
    const TCIMValue back = ReadBack(Message(value));
    EXPECT_EQ(back.GetType(), value.GetType());
    EXPECT_EQ(back.ToString(10), value.ToString(10));
  }
}

TEST(Wire, KeepsNullsWithTheirTypes) {
  EXPECT_EQ(ReadBack(Message(Null(Type::kCIMTypeReal32))), Null(Type::kCIMTypeReal32));
  const TCIMValue array(Type(Type::kCIMTypeUInt8), 7);
  EXPECT_EQ(ReadBack(Message(array)).GetMaxArraySize(), 7u);
}

TEST(Wire, KeepsArraysWithNullElements) {
  const std::vector<TCIMValue> elements = {1u, Null(Type::kCIMTypeUInt32), 3u};
  const TCIMValue array(Type(Type::kCIMTypeUInt32), 0, elements);
  EXPECT_EQ(ReadBack(Message(array)), array);
}

TEST(Wire, KeepsACharacterByItsNumber) {
  EXPECT_EQ(ReadBack(Message(TCIMChar16(8364))).ToString(10), "8364");
}

TEST(Wire, RefusesAMessageThatIsCutAnywhere) {
  const std::vector<TCIMValue> elements = {"one", "two"};
  const std::string message = Message(TCIMValue(Type(Type::kCIMTypeString), 0, elements));
  for (std::size_t size = 0; size < message.size(); ++size)
    EXPECT_EQ(StatusOf([&] { ReadBack(message.substr(0, size)); }), kHWXStatusInvalidFormat);
}

TEST(Wire, RefusesWhatFollowsTheMessage) {
  EXPECT_EQ(StatusOf([] { ReadBack(Message(1u) + "x"); }), kHWXStatusInvalidFormat);
}

TEST(Wire, RefusesTagsThatAreNone) {
  for (const char tag : {'\x00', '\x10', '\x20', '\x7f'})
    EXPECT_NE(StatusOf([&] { ReadBack(std::string(1, tag) + std::string(20, '\0')); }),
              kHWXStatusOK);
}

TEST(Wire, RefusesElementsOfAnotherTypeThanTheArrays) {
  TWireWriter message;
  message.Byte(Type::kCIMTypeUInt32 | Type::kCIMTypeArrayFlag);
  message.Byte(0);
  message.Number(0);
  message.Number(1);
  message.Value("text");
  EXPECT_EQ(StatusOf([&] { ReadBack(message.Bytes()); }), kHWXStatusInvalidFormat);
}

TEST(Wire, RefusesNestingWithoutEnd) {
  std::string message;
  for (int i = 0; i < 100000; ++i)
    message += std::string("\x1d\0\0\0\0\0\1\0\0\0", 10);
  EXPECT_EQ(StatusOf([&] { ReadBack(message); }), kHWXStatusInvalidFormat);
}

}  // namespace
}  // namespace hwxtest
