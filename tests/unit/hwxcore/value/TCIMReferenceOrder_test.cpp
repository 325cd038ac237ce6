// Equality and order of references.

#include "unit/hwxcore/value/ReferenceTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;

using Type = TCIMValue::TCIMType;

class TCIMReferenceOrder : public ReferenceTest {
 protected:
  TCIMReferenceOrder() {
    TClassBuilder(fNamespace, "Set").Key("Id", "uint32").Key("Members", "string[]").Commit();
  }

  TCIMReference Keyed(const std::string& className = "Thing") const {
    return Parsed("r:" + className + ".Id=\"5\"");
  }

  TCIMReference WithKey(const std::string& className, const std::string& name,
                        const TCIMValue& value) const {
    TCIMReference reference = Parsed(className);
    reference.AddKeyValue(name, value);
    return reference;
  }

  TCIMReference WithMember(const std::string& member) const {
    return WithKey("Set", "Members", TCIMValue(Type(Type::kCIMTypeString), 0, {TCIMValue(member)}));
  }

  static bool Alike(const TCIMReference& one, const TCIMReference& other) {
    return !(one < other) && !(other < one);
  }
};

TEST_F(TCIMReferenceOrder, EqualityLooksAtClassKeysAndLabel) {
  EXPECT_TRUE(Keyed() == Keyed());
  EXPECT_FALSE(Keyed() == Keyed("Other"));
  EXPECT_FALSE(Keyed() == Parsed("Thing"));
  EXPECT_FALSE(Keyed() == Parsed("r:Thing.Id=\"6\""));
  EXPECT_FALSE(Keyed() == Parsed("r:Thing.Name=\"5\""));
  EXPECT_FALSE(Keyed() == Parsed("r:Thing.Id=\"5\",Name=\"\""));
  EXPECT_TRUE(Empty() == Empty());
}

TEST_F(TCIMReferenceOrder, TheLabelCountsForEqualityAlone) {
  TCIMReference labelled = Keyed();
  labelled.SetNameSpaceName("label");
  EXPECT_FALSE(labelled == Keyed());
  EXPECT_TRUE(Alike(labelled, Keyed()));
  TCIMReference same = Keyed();
  same.SetNameSpaceName("label");
  EXPECT_TRUE(labelled == same);
  same.SetNameSpaceName("Label");
  EXPECT_FALSE(labelled == same);
}

TEST_F(TCIMReferenceOrder, NamespaceAndContextDoNotCount) {
  TCIMReference other = Keyed();
  other.SetNamespace(boost::shared_ptr<ICIMNamespace>());
  TCIMContext context;
  context["nspID"].Set("plugin");
  other.SetContext(context);
  EXPECT_TRUE(other == Keyed());
  EXPECT_TRUE(Alike(other, Keyed()));
}

TEST_F(TCIMReferenceOrder, ClassesOfOneNameInTwoNamespacesDiffer) {
  const auto elsewhere = TMemoryNamespace::Create("root");
  TClassBuilder(elsewhere, "Thing").Key("Id", "uint32").Key("Name", "string").Commit();
  const TCIMReference other(elsewhere, "r:Thing.Id=\"5\"", TCIMContext());
  EXPECT_EQ(other.GetPath(), Keyed().GetPath());
  EXPECT_FALSE(other == Keyed());
  EXPECT_NE(other < Keyed(), Keyed() < other);
}

TEST_F(TCIMReferenceOrder, WithinAClassGoesByKeys) {
  const TCIMReference none = Parsed("Thing"), five = Keyed(), six = Parsed("r:Thing.Id=\"6\"");
  const TCIMReference longer = Parsed("r:Thing.Id=\"5\",Name=\"a\"");
  EXPECT_TRUE(none < five);
  EXPECT_FALSE(five < none);
  EXPECT_TRUE(five < six);
  EXPECT_FALSE(six < five);
  EXPECT_TRUE(five < longer);
  EXPECT_FALSE(longer < five);
  EXPECT_TRUE(longer < six);
  EXPECT_FALSE(six < longer);
  EXPECT_TRUE(Alike(five, Keyed()));
  EXPECT_TRUE(Parsed("r:Thing.Id=\"9\"") < Parsed("r:Thing.Id=\"10\""));  // numbers, not texts
}

TEST_F(TCIMReferenceOrder, TheNameOfAKeyDecidesBeforeItsValue) {
  const TCIMReference id = Parsed("r:Thing.Id=\"9\""), name = Parsed("r:Thing.Name=\"\"");
  EXPECT_TRUE(id < name);
  EXPECT_FALSE(name < id);
}

TEST_F(TCIMReferenceOrder, ANullKeyIsLess) {
  const TCIMReference null = WithKey("Thing", "Id", TCIMValue(Type(Type::kCIMTypeUInt32), 0));
  EXPECT_TRUE(null < Keyed());
  EXPECT_FALSE(Keyed() < null);
  const TCIMReference nullLink =
      WithKey("Link", "From", TCIMValue(Type(Type::kCIMTypeReference), 0));
  const TCIMReference link = Parsed("r:Link.From=\"r:Thing.Id=\"1\"\"");
  EXPECT_TRUE(nullLink < link);
  EXPECT_FALSE(link < nullLink);
}

TEST_F(TCIMReferenceOrder, ClassesAreOrderedByTheirSharedPointers) {
  const TCIMReference thing = Keyed(), other = Keyed("Other"), none = Empty();
  EXPECT_EQ(thing < other, thing.GetClass() < other.GetClass());
  EXPECT_NE(thing < other, other < thing);
  EXPECT_TRUE(none < thing);
  EXPECT_FALSE(thing < none);
  EXPECT_TRUE(Alike(none, Empty()));
}

TEST_F(TCIMReferenceOrder, TwoHandlesOfOneOwnerAreUnequalAndNeitherLess) {
  const auto owner = boost::shared_ptr<ICIMNamespace>(fNamespace);
  TCIMReference thing = Empty(), other = Empty();
  thing.SetClass({owner, fNamespace->GetClass("Thing", {}).get()});
  other.SetClass({owner, fNamespace->GetClass("Other", {}).get()});
  EXPECT_FALSE(thing == other);
  EXPECT_TRUE(Alike(thing, other));
}

TEST_F(TCIMReferenceOrder, NestedReferencesAreOrderedAsReferences) {
  const TCIMReference one = Parsed("r:Link.From=\"r:Thing.Id=\"1\"\",Label=\"z\"");
  const TCIMReference two = Parsed("r:Link.From=\"r:Thing.Id=\"2\"\",Label=\"a\"");
  const TCIMReference twoAgain = Parsed("r:Link.From=\"r:Thing.Id=\"2\"\",Label=\"b\"");
  EXPECT_TRUE(one < two);
  EXPECT_FALSE(two < one);
  EXPECT_TRUE(two < twoAgain);
  EXPECT_FALSE(twoAgain < two);
}

TEST_F(TCIMReferenceOrder, TheLabelOfANestedReferenceCountsForEqualityAlone) {
  TCIMReference thing = Keyed();
  const TCIMReference plain = WithKey("Link", "From", TCIMValue(thing));
  thing.SetNameSpaceName("label");
  const TCIMReference labelled = WithKey("Link", "From", TCIMValue(thing));
  EXPECT_FALSE(plain == labelled);
  EXPECT_TRUE(Alike(plain, labelled));
}

TEST_F(TCIMReferenceOrder, ArrayKeysCompareEqualButHaveNoOrder) {
  EXPECT_TRUE(WithMember("a") == WithMember("a"));
  EXPECT_FALSE(WithMember("a") == WithMember("b"));
  EXPECT_EQ(StatusOf([&] { return WithMember("a") < WithMember("a"); }), kHWXStatusNotImplemented);
  TCIMReference one = WithMember("a"), two = WithMember("a");
  one.AddKeyValue("Id", TCIMValue(1u));
  two.AddKeyValue("Id", TCIMValue(2u));
  EXPECT_TRUE(one < two);  // decided before the arrays
}

TEST_F(TCIMReferenceOrder, TwoCharactersAreEachLessThanTheOther) {
  const auto letter = [&](unsigned short code) {
    return WithKey("Letter", "Sign", TCIMValue(TCIMChar16(code)));
  };
  EXPECT_TRUE(letter(65) < letter(66));
  EXPECT_TRUE(letter(66) < letter(65));
  EXPECT_TRUE(letter(65) == letter(66));
}

// The order as maps have it, spelled out.
bool LessAsMaps(const TCIMReference& one, const TCIMReference& other) {
  std::map<std::string, TCIMValue> keys, otherKeys;
  one.EnumerateKeyBindings([&](auto key) { return keys.insert(key).second; });
  other.EnumerateKeyBindings([&](auto key) { return otherKeys.insert(key).second; });
  return keys < otherKeys;
}

TEST_F(TCIMReferenceOrder, IsTheOrderOfTheMapsOfKeys) {
  std::vector<TCIMReference> references = {Parsed("Link")};
  for (const std::string from : {"", "r:Thing.Id=\"1\"", "r:Thing.Id=\"2\",Name=\"a\""}) {
    for (const std::string label : {"", "a", "b"}) {
      TCIMReference reference = Parsed("Link");
      TCIMReference thing = from.empty() ? Parsed("Thing") : Parsed(from);
      reference.AddKeyValue("From", TCIMValue(thing));
      if (!label.empty()) reference.AddKeyValue("Label", TCIMValue(label));
      references.push_back(reference);
    }
  }
  for (const TCIMReference& one : references) {
    for (const TCIMReference& other : references) {
      EXPECT_EQ(one < other, LessAsMaps(one, other)) << one.GetPath() << " " << other.GetPath();
    }
  }
}

}  // namespace
}  // namespace hwxtest
