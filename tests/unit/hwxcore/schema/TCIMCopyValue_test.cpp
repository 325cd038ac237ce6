#include <type_traits>

#include "CopyTesting.h"
#include "support/SchemaStubs.h"

using namespace NQORHWX20;
using hwxtest::StubNamespace;
using hwxtest::TracedText;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

static_assert(std::is_same_v<decltype(copyInstMutex), boost::recursive_mutex>);
static_assert(std::is_same_v<decltype(&TCIMCopy::CopyValue),
                             TCIMValue (*)(const TCIMValue&, boost::shared_ptr<ICIMNamespace>)>);
static_assert(
    std::is_same_v<decltype(&TCIMCopy::CopyInstance),
                   boost::shared_ptr<ICIMInstance> (*)(boost::shared_ptr<ICIMInstance>,
                                                       boost::shared_ptr<ICIMNamespace>)>);

class CopyValue : public hwxtest::CopyTest {
 protected:
  /// Copies into a namespace that fails every call.
  static TCIMValue Copied(const TCIMValue& value) {
    return TCIMCopy::CopyValue(value, boost::shared_ptr<ICIMNamespace>(new StubNamespace));
  }
};

TEST_F(CopyValue, ReturnsAScalarOfAnyTypeAsItIsWithoutACall) {
  const std::vector<TCIMValue> values = {
      TCIMValue(true),
      TCIMValue(static_cast<unsigned char>(255)),
      TCIMValue(static_cast<signed char>(-128)),
      TCIMValue(static_cast<unsigned short>(65535)),
      TCIMValue(static_cast<short>(-32768)),
      TCIMValue(4294967295U),
      TCIMValue(-7),
      TCIMValue(18446744073709551615UL),
      TCIMValue(-9L),
      TCIMValue(0.5F),
      TCIMValue(-1e300),
      TCIMValue("EX \"quoted\" \\ text"),
      TCIMValue(std::string("with\0a zero", 11)),
      TCIMValue(TCIMDateTime("20240229123456.000001+060")),
  };
  for (const TCIMValue& value : values) {
    const TCIMValue copy = Copied(value);
    EXPECT_EQ(TracedText(copy), TracedText(value));
    EXPECT_TRUE(copy == value) << TracedText(value);
  }
  EXPECT_EQ(Copied(TCIMChar16(0x20AC)).ToString(10), TCIMValue(TCIMChar16(0x20AC)).ToString(10));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyValue, ReturnsANullOfAnyOtherTypeThanReferenceAsItIs) {
  for (int type = Type::kCIMTypeBoolean; type < Type::kCIMTypeReference; ++type) {
    const TCIMValue value = Null(static_cast<Type::ECIMType>(type));
    EXPECT_EQ(TracedText(Copied(value)), TracedText(value));
  }
}

TEST_F(CopyValue, ReturnsAnArrayWithItsNullElementsAndItsMaximumSize) {
  const std::vector<TCIMValue> elements = {"one", Null(Type::kCIMTypeString), "three"};
  const TCIMValue value(Type::kCIMTypeString, 7, elements);
  EXPECT_EQ(TracedText(Copied(value)), "string[7] {one, null, three}");
  EXPECT_EQ(TracedText(Copied(TCIMValue(Type::kCIMTypeUInt8, 3))), "uint8[3] null");
}

TEST_F(CopyValue, ReturnsACopyThatIsIndependentOfTheSource) {
  TCIMValue value(Type::kCIMTypeString, 0, std::vector<TCIMValue>{"kept"});
  const TCIMValue copy = Copied(value);
  static_cast<std::vector<TCIMValue>&>(value)[0].Set("changed");
  EXPECT_EQ(TracedText(copy), "string[] {kept}");
}

TEST_F(CopyValue, LeavesTheElementsOfAnArrayOfReferencesBoundToTheSource) {
  AddClass(*fSource, "Thing", {{"Id", 0U}});
  AddClass(*fTarget, "Thing", {{"Id", 0U}});
  const std::vector<TCIMValue> elements = {ReferenceValue(fSource, "Thing", {{"Id", 1U}}),
                                           ReferenceTo(fSource->GetClass("Thing", {}))};
  const TCIMValue value(Type::kCIMTypeReference, 0, elements);
  TCIMValue copy;
  EXPECT_THAT(CallsOf([&] { copy = TCIMCopy::CopyValue(value, fTarget); }), IsEmpty());
  EXPECT_EQ(TracedText(copy),
            "reference[] {reference(source.Thing Id=uint32 1), reference(source.Thing) null}");
  const TCIMReference first = static_cast<std::vector<TCIMValue>&>(copy)[0];
  EXPECT_EQ(first.GetNamespace(), fSource);
}

TEST_F(CopyValue, NeedsNoTargetForAPlainValue) {
  EXPECT_EQ(TracedText(TCIMCopy::CopyValue(5U, {})), "uint32 5");
}

}  // namespace
