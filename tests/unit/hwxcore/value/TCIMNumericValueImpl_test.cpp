#include "hwxcore/value/TCIMNumericValueImpl.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "unit/hwxcore/value/ValueTesting.h"

namespace NQORHWX20 {
namespace {

using hwxtest::FailureOf;
using hwxtest::OneOfEachType;
using hwxtest::TCIMType;

const char* const kRefusedBase = "kHWXStatusNotSupported";

std::string PrintedBody(const TCIMValueImpl& body, int base) {
  std::string text;
  const std::string failure =
      FailureOf([&] { text = body.ToString(static_cast<unsigned char>(base)); });
  return failure == "no failure" ? text : failure;
}

template <typename Number>
std::string Printed(Number number, int base) {
  return PrintedBody(TCIMNumericValueImpl(number), base);
}

template <typename Number>
void ExpectPrinted(Number number, const char* decimal, const char* hexadecimal, const char* octal) {
  EXPECT_EQ(Printed(number, 10), decimal);
  EXPECT_EQ(Printed(number, 16), hexadecimal);
  EXPECT_EQ(Printed(number, 8), octal);
}

TEST(TCIMNumericValueImplToString, BooleansAreWordsInEveryBase) {
  ExpectPrinted(true, "true", "true", "true");
  ExpectPrinted(false, "false", "false", "false");
}

TEST(TCIMNumericValueImplToString, UnsignedNumbersPadHexadecimalAlone) {
  using uint8 = unsigned char;
  using uint16 = unsigned short;
  ExpectPrinted(uint8(0), "0", "00", "0");
  ExpectPrinted(uint8(8), "8", "08", "10");
  ExpectPrinted(uint8(10), "10", "0A", "12");
  ExpectPrinted(uint8(65), "65", "41", "101");
  ExpectPrinted(uint8(255), "255", "FF", "377");
  ExpectPrinted(uint16(0), "0", "0000", "0");
  ExpectPrinted(uint16(8), "8", "0008", "10");
  ExpectPrinted(uint16(255), "255", "00FF", "377");
  ExpectPrinted(uint16(65535), "65535", "FFFF", "177777");
  ExpectPrinted(0u, "0", "00000000", "0");
  ExpectPrinted(10u, "10", "0000000A", "12");
  ExpectPrinted(4294967295u, "4294967295", "FFFFFFFF", "37777777777");
  ExpectPrinted(0ul, "0", "0000000000000000", "0");
  ExpectPrinted(1ul, "1", "0000000000000001", "1");
  ExpectPrinted(0xabcdef0123456789ul, "12379813738877118345", "ABCDEF0123456789",
                "1257157360044321263611");
  ExpectPrinted(18446744073709551615ul, "18446744073709551615", "FFFFFFFFFFFFFFFF",
                "1777777777777777777777");
}

TEST(TCIMNumericValueImplToString, SignedNumbersHaveBaseTenAlone) {
  using sint8 = signed char;
  ExpectPrinted(sint8(-1), "-1", kRefusedBase, kRefusedBase);
  ExpectPrinted(sint8(65), "65", kRefusedBase, kRefusedBase);
  ExpectPrinted(sint8(-128), "-128", kRefusedBase, kRefusedBase);
  ExpectPrinted(short(-32768), "-32768", kRefusedBase, kRefusedBase);
  ExpectPrinted(short(32767), "32767", kRefusedBase, kRefusedBase);
  ExpectPrinted(1, "1", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<int>::min(), "-2147483648", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<int>::max(), "2147483647", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<long>::min(), "-9223372036854775808", kRefusedBase,
                kRefusedBase);
  ExpectPrinted(std::numeric_limits<long>::max(), "9223372036854775807", kRefusedBase,
                kRefusedBase);
}

TEST(TCIMNumericValueImplToString, RealsHaveSixDigitsAndBaseTenAlone) {
  ExpectPrinted(0.1, "0.1", kRefusedBase, kRefusedBase);
  ExpectPrinted(0.1f, "0.1", kRefusedBase, kRefusedBase);  // widened, but not beyond the six digits
  ExpectPrinted(0.0, "0", kRefusedBase, kRefusedBase);
  ExpectPrinted(-0.0, "-0", kRefusedBase, kRefusedBase);
  ExpectPrinted(1.0, "1", kRefusedBase, kRefusedBase);
  ExpectPrinted(3.14159265358979, "3.14159", kRefusedBase, kRefusedBase);
  ExpectPrinted(123456.0, "123456", kRefusedBase, kRefusedBase);
  ExpectPrinted(1234567.0, "1.23457e+06", kRefusedBase, kRefusedBase);
  ExpectPrinted(1234567.0f, "1.23457e+06", kRefusedBase, kRefusedBase);
  ExpectPrinted(0.0001, "0.0001", kRefusedBase, kRefusedBase);
  ExpectPrinted(0.00001, "1e-05", kRefusedBase, kRefusedBase);
  ExpectPrinted(-2.5e-300, "-2.5e-300", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<double>::max(), "1.79769e+308", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<double>::denorm_min(), "4.94066e-324", kRefusedBase,
                kRefusedBase);
  ExpectPrinted(std::numeric_limits<float>::max(), "3.40282e+38", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<double>::infinity(), "inf", kRefusedBase, kRefusedBase);
  ExpectPrinted(-std::numeric_limits<float>::infinity(), "-inf", kRefusedBase, kRefusedBase);
  ExpectPrinted(std::numeric_limits<double>::quiet_NaN(), "nan", kRefusedBase, kRefusedBase);
}

TEST(TCIMNumericValueImplToString, NoTypeHasAnotherBase) {
  for (int base = 0; base < 256; ++base) {
    if (base == 8 || base == 10 || base == 16) continue;
    EXPECT_EQ(Printed(true, base), kRefusedBase) << base;
    EXPECT_EQ(Printed(static_cast<unsigned char>(1), base), kRefusedBase) << base;
    EXPECT_EQ(Printed(static_cast<signed char>(1), base), kRefusedBase) << base;
    EXPECT_EQ(Printed(static_cast<unsigned short>(1), base), kRefusedBase) << base;
    EXPECT_EQ(Printed(static_cast<short>(1), base), kRefusedBase) << base;
    EXPECT_EQ(Printed(1u, base), kRefusedBase) << base;
    EXPECT_EQ(Printed(1, base), kRefusedBase) << base;
    EXPECT_EQ(Printed(1ul, base), kRefusedBase) << base;
    EXPECT_EQ(Printed(1l, base), kRefusedBase) << base;
    EXPECT_EQ(Printed(1.0f, base), kRefusedBase) << base;
    EXPECT_EQ(Printed(1.0, base), kRefusedBase) << base;
  }
}

template <typename Target>
bool Converts(const TCIMNumericValueImpl& body) {
  const std::string failure = FailureOf([&] { static_cast<void>(body.operator Target()); });
  EXPECT_TRUE(failure == "no failure" || failure == "kHWXStatusTypeMismatch") << failure;
  return failure == "no failure";
}

TEST(TCIMNumericValueImpl, ConvertsToItsOwnTypeAlone) {
  const TCIMNumericValueImpl bodies[] = {TCIMNumericValueImpl(true),
                                         TCIMNumericValueImpl(static_cast<unsigned char>(1)),
                                         TCIMNumericValueImpl(static_cast<signed char>(1)),
                                         TCIMNumericValueImpl(static_cast<unsigned short>(1)),
                                         TCIMNumericValueImpl(static_cast<short>(1)),
                                         TCIMNumericValueImpl(1u),
                                         TCIMNumericValueImpl(1),
                                         TCIMNumericValueImpl(1ul),
                                         TCIMNumericValueImpl(1l),
                                         TCIMNumericValueImpl(1.0f),
                                         TCIMNumericValueImpl(1.0)};
  for (std::size_t own = 0; own < std::size(bodies); ++own) {
    const TCIMNumericValueImpl& body = bodies[own];
    const bool converts[] = {Converts<bool>(body),        Converts<unsigned char>(body),
                             Converts<signed char>(body), Converts<unsigned short>(body),
                             Converts<short>(body),       Converts<unsigned int>(body),
                             Converts<int>(body),         Converts<unsigned long>(body),
                             Converts<long>(body),        Converts<float>(body),
                             Converts<double>(body)};
    for (std::size_t target = 0; target < std::size(converts); ++target)
      EXPECT_EQ(converts[target], target == own) << own << " to " << target;
    EXPECT_FALSE(Converts<std::string>(body));
    EXPECT_FALSE(Converts<TCIMChar16>(body));
    EXPECT_FALSE(Converts<TCIMDateTime>(body));
    EXPECT_FALSE(Converts<std::vector<TCIMValue>&>(body));
  }
}

TEST(TCIMNumericValueImpl, ComparesWithItsOwnTypeAlone) {
  const TCIMNumericValueImpl five(5);
  EXPECT_TRUE(five == TCIMValue(5));
  EXPECT_TRUE(five < TCIMValue(6));
  EXPECT_FALSE(five < TCIMValue(5));
  EXPECT_FALSE(five == TCIMValue(5u));
  EXPECT_FALSE(five < TCIMValue(6u));
  for (const TCIMValue& other : OneOfEachType()) {
    if (other.GetType() == TCIMType::kCIMTypeSInt32) continue;
    EXPECT_FALSE(five == other);
    EXPECT_FALSE(five < other);
  }
}

TEST(TCIMNumericValueImpl, ANullValueIsNeitherEqualNorGreater) {
  const TCIMValue null(TCIMType(TCIMType::kCIMTypeSInt32), 0);
  EXPECT_FALSE(TCIMNumericValueImpl(5) == null);
  EXPECT_FALSE(TCIMNumericValueImpl(5) < null);
}

TEST(TCIMNumericValueImpl, ACopyKeepsTypeAndNumber) {
  const TCIMNumericValueImpl body(-1.5);
  const TCIMNumericValueImpl copy(body);
  EXPECT_EQ(copy.operator double(), -1.5);
  EXPECT_EQ(copy.ToString(10), "-1.5");
}

/// A numeric body with a tag that no constructor gives.
class TForeignBody : public TCIMNumericValueImpl {
 public:
  explicit TForeignBody(int tag) : TCIMNumericValueImpl(1) {
    fType = static_cast<TCIMType::ECIMType>(tag);
  }
};

TEST(TCIMNumericValueImpl, AForeignTagIsRefusedOnceTheBaseIsRight) {
  for (const int tag : {-1, 0, 12, 13, 14, 15, 16, 18, 32}) {
    const TForeignBody body(tag);
    const char* const refused = tag == 12 ? "kHWXStatusNotImplemented" : "kHWXStatusTypeMismatch";
    for (const int base : {8, 10, 16})
      EXPECT_EQ(PrintedBody(body, base), refused) << tag;
    EXPECT_EQ(PrintedBody(body, 2), kRefusedBase) << tag;
  }
}

TEST(TCIMNumericValueImpl, AForeignTagComparesWithNothingOfItsTag) {
  std::vector<TCIMValue> others = OneOfEachType();
  for (int tag = 12; tag < 32; ++tag)
    others.push_back(TCIMValue(TCIMType(static_cast<TCIMType::ECIMType>(tag)), 0));
  for (const TCIMValue& other : others) {
    const int tag = other.GetType();
    if (tag < 12) continue;
    const TForeignBody body(tag);
    const char* const refused = tag == 12 ? "kHWXStatusNotImplemented" : "kHWXStatusTypeMismatch";
    EXPECT_EQ(FailureOf([&] { (void)(body == other); }), refused) << tag;
    EXPECT_EQ(FailureOf([&] { (void)(body < other); }), refused) << tag;
    EXPECT_FALSE(body == TCIMValue(1));
    EXPECT_FALSE(body < TCIMValue(1));
  }
}

}  // namespace
}  // namespace NQORHWX20
