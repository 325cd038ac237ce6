// References in values.

#include "hwxcore/value/TCIMReferenceValueImpl.h"

#include "unit/hwxcore/value/ReferenceTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;

using Type = TCIMValue::TCIMType;

class TCIMReferenceValue : public ReferenceTest {
 protected:
  TCIMValue Value(const std::string& path) const {
    TCIMReference reference = Parsed(path);
    return TCIMValue(reference);
  }
};

TEST_F(TCIMReferenceValue, BearsTypeAndClassOfItsReference) {
  const TCIMValue value = Value("r:Thing.Id=\"5\"");
  EXPECT_TRUE(value.IsReference());
  EXPECT_EQ(value.GetReferencedClass(), fNamespace->GetClass("Thing", {}));
  EXPECT_EQ(value.ToString(2), "Thing.Id=\"5\"");
  const TCIMReference back = value;
  EXPECT_EQ(back.GetPath(), "Thing.Id=\"5\"");
  EXPECT_EQ(back.GetNamespace(), fNamespace);
}

TEST_F(TCIMReferenceValue, ConversionIsStrict) {
  const auto convert = [](const TCIMValue& value) { return value.operator TCIMReference(); };
  EXPECT_EQ(StatusOf([&] { convert(TCIMValue(Type(Type::kCIMTypeReference), 0)); }),
            kHWXStatusValueIsNULL);
  EXPECT_EQ(StatusOf([&] { convert(TCIMValue("r:Thing.Id=\"5\"")); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { convert(TCIMValue(Type(Type::kCIMTypeReference), 1, {})); }),
            kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { Value("Thing").operator std::string(); }), kHWXStatusTypeMismatch);
}

TEST_F(TCIMReferenceValue, KeepsTheBodyWhenTheReferenceHasNoClass) {
  TCIMReference reference = Empty();
  TCIMValue value(5u);
  EXPECT_EQ(StatusOf([&] { value.Set(reference); }), kHWXStatusInvalidReference);
  EXPECT_TRUE(value.IsReference());
  EXPECT_FALSE(value.IsNull());
  EXPECT_FALSE(value.GetReferencedClass());
}

TEST_F(TCIMReferenceValue, KeepsTheClassThatItHadWhenTheReferenceHasNone) {
  TCIMReference reference = Empty();
  TCIMValue value = Value("r:Thing.Id=\"5\"");
  EXPECT_EQ(StatusOf([&] { value.Set(reference); }), kHWXStatusInvalidReference);
  EXPECT_EQ(value.GetReferencedClass(), fNamespace->GetClass("Thing", {}));
  EXPECT_EQ(StatusOf([&] { value.ToString(10); }), kHWXStatusInvalidReference);
}

TEST_F(TCIMReferenceValue, SettingReplacesPathAndClass) {
  TCIMReference other = Parsed("r:Other.Id=\"1\"");
  TCIMValue value = Value("r:Thing.Id=\"5\"");
  value.Set(other);
  EXPECT_EQ(value.ToString(10), "Other.Id=\"1\"");
  EXPECT_EQ(value.GetReferencedClass(), other.GetClass());
  other.AddKeyValue("Id", TCIMValue(2u));
  other.Clear();
  EXPECT_EQ(value.ToString(10), "Other.Id=\"1\"");
}

TEST_F(TCIMReferenceValue, SettingKeepsTheMaximumSizeOfAnArray) {
  TCIMReference reference = Parsed("Thing");
  TCIMValue value(Type(Type::kCIMTypeUInt8), 3);
  value.Set(reference);
  EXPECT_TRUE(value.IsReference());
  EXPECT_EQ(value.GetMaxArraySize(), 3u);
}

TEST_F(TCIMReferenceValue, AssignmentBetweenNullsReplacesTheClassOnly) {
  TCIMValue target(Type(Type::kCIMTypeReference), 0), source(target);
  source.SetReferencedClass(fNamespace->GetClass("Thing", {}));
  target = source;
  EXPECT_TRUE(target.IsNull());
  EXPECT_EQ(target.GetReferencedClass(), fNamespace->GetClass("Thing", {}));
  target = TCIMValue(Type(Type::kCIMTypeReference), 0);
  EXPECT_FALSE(target.GetReferencedClass());
}

TEST_F(TCIMReferenceValue, AssignmentBringsTheClassAlsoOfANull) {
  TCIMValue target = Value("r:Other.Id=\"1\"");
  target = Value("r:Thing.Id=\"5\"");
  EXPECT_EQ(target.ToString(10), "Thing.Id=\"5\"");
  EXPECT_EQ(target.GetReferencedClass(), fNamespace->GetClass("Thing", {}));
  TCIMValue null(Type(Type::kCIMTypeReference), 0);
  null.SetReferencedClass(fNamespace->GetClass("Other", {}));
  target = null;
  EXPECT_TRUE(target.IsNull());
  EXPECT_EQ(target.GetReferencedClass(), fNamespace->GetClass("Other", {}));
}

TEST_F(TCIMReferenceValue, CopiesAreDeep) {
  const TCIMValue value = Value("r:Thing.Id=\"5\"");
  const TCIMValue copy(value);
  TCIMReference changed = copy;
  changed.AddKeyValue("Name", TCIMValue("x"));
  EXPECT_EQ(copy.ToString(10), "Thing.Id=\"5\"");
  EXPECT_TRUE(copy == value);
}

TEST_F(TCIMReferenceValue, ComparesAsReferencesDo) {
  EXPECT_TRUE(Value("r:Thing.Id=\"5\"") == Value("s:Thing.Id=\"5\""));
  EXPECT_FALSE(Value("r:Thing.Id=\"5\"") == Value("r:Thing.Id=\"6\""));
  EXPECT_TRUE(Value("r:Thing.Id=\"5\"") < Value("r:Thing.Id=\"6\""));
  EXPECT_TRUE(TCIMValue("zzz") < Value("Thing"));  // by the number of the type
  const TCIMReferenceValueImpl body(Parsed("Thing"));
  EXPECT_FALSE(body == TCIMValue("Thing"));
  EXPECT_FALSE(body < TCIMValue("Thing"));
  EXPECT_FALSE(body == TCIMValue(Type(Type::kCIMTypeReference), 0));
}

TEST_F(TCIMReferenceValue, IsReadFromTextInANamespace) {
  std::string path = "r:Thing.Id=\"5\"";
  const TCIMValue value(Type(Type::kCIMTypeReference), path, fNamespace);
  EXPECT_EQ(value.ToString(10), "Thing.Id=\"5\"");
  std::string unknown = "Nothing";
  EXPECT_EQ(StatusOf([&] { TCIMValue(Type(Type::kCIMTypeReference), unknown, fNamespace); }),
            kHWXStatusUnknownClass);
  EXPECT_EQ(StatusOf([&] {
              TCIMValue(Type(Type::kCIMTypeReference), path, boost::shared_ptr<ICIMNamespace>());
            }),
            kHWXStatusInvalidOpSequence);
}

TEST_F(TCIMReferenceValue, AnArrayPrintsPaths) {
  const std::vector<TCIMValue> elements = {Value("r:Thing.Id=\"1\""), Value("Thing")};
  const TCIMValue array(Type(Type::kCIMTypeReference), 0, elements);
  EXPECT_EQ(array.ToString(10), "{ Thing.Id=\"1\", Thing }");
  EXPECT_FALSE(array.IsReference());
}

}  // namespace
}  // namespace hwxtest
