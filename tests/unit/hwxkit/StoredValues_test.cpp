// Assignment of values compares first: it does nothing between characters and throws between unlike
// date-times. Whatever the kit stores has to be the value that it was given all the same.

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;

struct Trap {
  const char* fName;
  TCIMValue fOld;
  TCIMValue fNew;
};

std::ostream& operator<<(std::ostream& stream, const Trap& trap) {
  return stream << trap.fName;
}

TCIMValue Character(char c) {
  return TCIMChar16(static_cast<unsigned short>(c));
}

TCIMValue Characters(const std::vector<TCIMValue>& elements) {
  return TCIMValue(Type::kCIMTypeChar16, 0, elements);
}

const char kTimestamp[] = "20240229123456.000000+060";
const char kInterval[] = "00000001000000.000000:000";

class StoredValue : public ::testing::TestWithParam<Trap> {
 protected:
  void SetUp() override {
    fClass = fNamespace->CreateClass("EX_Trap", {}, {});
    fClass->CreatePropertyDecl("V", GetParam().fOld, {})->Commit({});
  }

  static void ExpectIsNew(const TCIMValue& stored) {
    ASSERT_FALSE(stored.IsNull());
    EXPECT_EQ(stored.ToString(10), GetParam().fNew.ToString(10));
  }

  const Ptr<TMemoryNamespace> fNamespace = TMemoryNamespace::Create("root/test");
  Ptr<ICIMClass> fClass;
};

INSTANTIATE_TEST_SUITE_P(
    Values, StoredValue,
    ::testing::Values(
        Trap{"CharacterForCharacter", Character('a'), Character('b')},
        Trap{"IntervalForTimestamp", TCIMDateTime(kTimestamp), TCIMDateTime(kInterval)},
        Trap{"TimestampForInterval", TCIMDateTime(kInterval), TCIMDateTime(kTimestamp)},
        Trap{"CharacterForNullCharacter", TCIMChar16(), Character('b')},
        Trap{"DateTimeForNullDateTime", TCIMDateTime(), TCIMDateTime(kInterval)},
        Trap{"CharactersForCharacters", Characters({Character('a')}), Characters({Character('b')})},
        Trap{"ValueForNull", Null(Type::kCIMTypeChar16), Character('b')}),
    [](const auto& instance) { return std::string(instance.param.fName); });

TEST_P(StoredValue, ReplacesThatOfAProperty) {
  fClass->Commit({});
  const auto instance = fClass->CreateInstance({});
  const auto property = instance->GetProperty("V", {});
  instance->SetPropertyValue("V", GetParam().fNew, {});
  ExpectIsNew(property->GetValue({}));
}

TEST_P(StoredValue, ReplacesThatOfAPropertySetByItself) {
  fClass->Commit({});
  const auto property = fClass->CreateInstance({})->GetProperty("V", {});
  property->SetValue(GetParam().fNew, {});
  ExpectIsNew(property->GetValue({}));
}

TEST_P(StoredValue, ReplacesThatOfAStaticProperty) {
  fClass->SetStaticPropertyValue("V", GetParam().fOld, {});
  fClass->Commit({});
  const auto property = fClass->GetStaticProperty("V", {});
  fClass->SetStaticPropertyValue("V", GetParam().fNew, {});
  ExpectIsNew(property->GetValue({}));
}

TEST_P(StoredValue, ReplacesADefaultByOverriding) {
  fClass->Commit({});
  const auto subclass = fNamespace->CreateClass("EX_Sub", fClass, {});
  subclass->CreatePropertyDecl("V", GetParam().fNew, {})->Commit({});
  subclass->Commit({});
  ExpectIsNew(subclass->GetPropertyDecl("V", {})->GetDefaultValue({}));
  ExpectIsNew(subclass->CreateInstance({})->GetProperty("V", {})->GetValue({}));
}

TEST_P(StoredValue, ReplacesThatOfAnInheritedQualifier) {
  const auto decl = fNamespace->CreateQualifierDecl("Q", GetParam().fOld, kScopeAny, 3, {});
  decl->Commit({});
  fClass->CreateQualifier(decl, GetParam().fOld, {})->Commit({});
  fClass->Commit({});
  const auto subclass = fNamespace->CreateClass("EX_Sub", fClass, {});
  subclass->CreateQualifier(decl, GetParam().fNew, {})->Commit({});
  ExpectIsNew(subclass->GetQualifier("Q", {})->GetValue({}));
}

TEST_P(StoredValue, IsInAClone) {
  fClass->Commit({});
  const auto instance = fClass->CreateInstance({});
  instance->SetPropertyValue("V", GetParam().fNew, {});
  ExpectIsNew(instance->Clone({})->GetProperty("V", {})->GetValue({}));
}

class Stored : public KitTest {};

TEST_F(Stored, MaximumArraySizeFollowsTheNewValue) {
  const auto made = Build("EX_Array").Property("V", "string[]").Commit()->NewInstance();
  const std::vector<TCIMValue> elements(1, "same");
  made->Set("V", TCIMValue(Type::kCIMTypeString, 4, elements));
  made->Set("V", TCIMValue(Type::kCIMTypeString, 9, elements));
  EXPECT_EQ(made->GetProperty("V", {})->GetValue({}).GetMaxArraySize(), 9u);
}

TEST_F(Stored, ReferenceStaysBoundToItsClassWhenNull) {
  Build("EX_Target").Commit();
  const auto made = Build("EX_Holder").Reference("R", "EX_Target").Commit()->NewInstance();
  made->SetNull("R");
  EXPECT_EQ(made->GetProperty("R", {})->GetValue({}).GetReferencedClass(),
            fNamespace->GetClass("EX_Target", {}));
}

TEST_F(Stored, ValueMayComeFromWhereItGoes) {
  const auto made = Build("EX_Text").PropertyWithDefault("V", "text").Commit()->NewInstance();
  const auto property = made->GetProperty("V", {});
  property->SetValue(property->GetValue({}), {});
  EXPECT_EQ(property->GetStringValue(), "text");
}

TEST_F(Stored, ValueIsNoLongerTheCallers) {
  const auto made = Build("EX_Array").Property("V", "string[]").Commit()->NewInstance();
  TCIMValue value(Type::kCIMTypeString, 0, {"mine"});
  made->Set("V", value);
  static_cast<std::vector<TCIMValue>&>(value)[0].Set("changed");
  EXPECT_THAT(made->GetProperty("V", {})->GetStringArrayValue(), testing::ElementsAre("mine"));
}

// The values of a property as what they are.
TEST_F(Stored, ValuesAreReadAsTheirTypeAlone) {
  const auto made = Build("EX_All")
                        .PropertyWithDefault("B", true)
                        .PropertyWithDefault("U16", static_cast<unsigned short>(1))
                        .PropertyWithDefault("U32", 2U)
                        .PropertyWithDefault("U64", 3UL)
                        .PropertyWithDefault("S32", -4)
                        .PropertyWithDefault("S64", -5L)
                        .PropertyWithDefault("R64", 0.5)
                        .PropertyWithDefault("D", TCIMDateTime(kInterval))
                        .PropertyWithDefault("S", "text")
                        .PropertyWithDefault("A", TCIMValue(Type::kCIMTypeString, 0, {"a", "b"}))
                        .Commit()
                        ->NewInstance();
  const auto get = [&](const char* name) { return made->GetProperty(name, {}); };
  EXPECT_TRUE(get("B")->GetBooleanValue());
  EXPECT_EQ(get("U16")->GetUInt16Value(), 1u);
  EXPECT_EQ(get("U32")->GetUInt32Value(), 2u);
  EXPECT_EQ(get("U64")->GetUInt64Value(), 3u);
  EXPECT_EQ(get("S32")->GetSInt32Value(), -4);
  EXPECT_EQ(get("S64")->GetSInt64Value(), -5);
  EXPECT_EQ(get("R64")->GetReal64Value(), 0.5);
  EXPECT_EQ(get("D")->GetDateTimeValue().ToString(), kInterval);
  EXPECT_EQ(get("S")->GetStringValue(), "text");
  EXPECT_THAT(get("A")->GetStringArrayValue(), testing::ElementsAre("a", "b"));

  EXPECT_EQ(StatusOf([&] { get("U32")->GetUInt64Value(); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { get("U32")->GetStringValue(); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { get("S")->GetStringArrayValue(); }), kHWXStatusTypeMismatch);
  made->SetNull("S").SetNull("A");
  EXPECT_EQ(StatusOf([&] { get("S")->GetStringValue(); }), kHWXStatusValueIsNULL);
  EXPECT_EQ(StatusOf([&] { get("A")->GetStringArrayValue(); }), kHWXStatusValueIsNULL);
  made->Set("A", TCIMValue(Type::kCIMTypeString, 0, {"a", Null(Type::kCIMTypeString)}));
  EXPECT_EQ(StatusOf([&] { get("A")->GetStringArrayValue(); }), kHWXStatusValueIsNULL);
}

}  // namespace
}  // namespace hwxtest
