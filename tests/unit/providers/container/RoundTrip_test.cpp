// What is saved loads again as the same namespace, and saves as the same bytes.

#include <iterator>
#include <set>
#include <string>

#include "support/NamespaceText.h"
#include "support/RandomNamespace.h"
#include "support/RandomValues.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;

void ExpectRoundTrip(TMemoryNamespace& ns) {
  const std::string document = Save(ns);
  const Namespace loaded = Load(document);
  EXPECT_EQ(Difference(ns, *loaded), "");
  EXPECT_EQ(Save(*loaded), document);
}

// A namespace with one class, whose property "Value" has that default value.
Namespace Holding(const TCIMValue& value) {
  const Namespace ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "Holder").PropertyWithDefault("Value", value).Commit();
  return ns;
}

TEST(RoundTrip, KeepsWholeNamespacesOfAnyContent) {
  for (std::uint64_t seed = 0; seed < 400; ++seed) {
    SCOPED_TRACE(seed);
    ExpectRoundTrip(*RandomNamespace(seed));
    if (HasFailure()) break;
  }
}

// If the generator makes too little, the test above says too little.
TEST(RoundTrip, IsTriedWithEverythingThatThereIs) {
  std::string all;
  for (std::uint64_t seed = 0; seed < 100; ++seed)
    all += Save(*RandomNamespace(seed));
  for (const char* part : {"<QUALIFIER ",
                           "SCOPEBITS",
                           "FLAVORBITS",
                           "SUPERCLASS",
                           "<METHOD",
                           "<PARAMETER ",
                           "<PARAMETER.ARRAY",
                           "<PARAMETER.REFERENCE",
                           "<PARAMETER.REFARRAY",
                           "<STATIC",
                           "<PROPERTY.ARRAY",
                           "<PROPERTY.REFERENCE",
                           "REFERENCECLASS",
                           "ARRAYSIZE",
                           "<INSTANCE ",
                           "<VALUE.NULL",
                           "<VALUE.REFARRAY",
                           "<VALUE.REFERENCE",
                           "<LOCALINSTANCEPATH",
                           "<LOCALCLASSPATH",
                           "<KEYVALUE",
                           "<!--hwx escaped-->",
                           "<!--hwx fields ",
                           "<!--hwx bits ",
                           "<!--hwx cleared-->",
                           "<KEYBINDING NAME=\"P0\"><VALUE.REFERENCE>"})
    EXPECT_NE(all.find(part), std::string::npos) << part;
}

TEST(RoundTrip, KeepsValuesOfEveryType) {
  RandomValues random(1);
  for (int type = Type::kCIMTypeBoolean; type <= Type::kCIMTypeReference; ++type) {
    const auto scalar = static_cast<Type::ECIMType>(type);
    for (int i = 0; i < 50; ++i) {
      ExpectRoundTrip(*Holding(random.Any(scalar)));
      ExpectRoundTrip(*Holding(random.Any(ArrayOf(scalar))));
    }
  }
}

TEST(RoundTrip, KeepsNullsEmptyArraysAndEmptyTextsApart) {
  const TCIMValue values[] = {
      Null(Type::kCIMTypeString),
      std::string(),
      Null(ArrayOf(Type::kCIMTypeString)),
      TCIMValue(ArrayOf(Type::kCIMTypeString), 0, {}),
      TCIMValue(ArrayOf(Type::kCIMTypeString), 3, {}),
      TCIMValue(ArrayOf(Type::kCIMTypeString), 0, {Null(Type::kCIMTypeString)}),
      TCIMValue(ArrayOf(Type::kCIMTypeString), 0, {std::string()})};
  std::set<std::string> documents;
  for (const TCIMValue& value : values) {
    const Namespace ns = Holding(value);
    ExpectRoundTrip(*ns);
    documents.insert(Save(*ns));
  }
  EXPECT_EQ(documents.size(), std::size(values));
}

TEST(RoundTrip, KeepsEveryByteInTexts) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string one(1, static_cast<char>(byte));
    for (const std::string& text : {one, "a" + one, one + "\n", one + one, "\\" + one})
      ExpectRoundTrip(*Holding(text));
  }
}

TEST(RoundTrip, KeepsTheNameOfTheNamespace) {
  using std::string_literals::operator""s;
  for (const std::string& name :
       {""s, "/"s, "root"s, "root/a"s, "//a//"s, "a\\b"s, "\0\xFF"s, " \t\n\"<&>'"s}) {
    const Namespace ns = TMemoryNamespace::Create(name);
    EXPECT_EQ(Load(Save(*ns))->GetName({}), name);
  }
}

TEST(RoundTrip, KeepsReferencesWithinTheKeysOfReferences) {
  const Namespace ns = TMemoryNamespace::Create("root/test");
  auto added = TClassBuilder(ns, "C0").Key("Name", "string").Commit();
  TCIMReference target(ns, {});
  target.SetClass(added);
  target.AddKeyValue("Name", TCIMValue(std::string("a \"quoted\" name, with=signs")));
  for (int level = 1; level < 10; ++level) {
    const std::string name = "C" + std::to_string(level);
    added = TClassBuilder(ns, name).KeyReference("Inner", added->GetName({})).Commit();
    const TCIMValue inner(target);
    const auto instance = added->NewInstance();
    instance->Set("Inner", inner);
    added->AddInstance(instance);
    TCIMReference outer(ns, {});
    outer.SetClass(added);
    outer.SetNameSpaceName("root/" + name);
    outer.AddKeyValue("Inner", inner);
    target = outer;
  }
  ExpectRoundTrip(*ns);
}

// What refers to a class is bound to the one of the loaded namespace, not to that of the saved one.
TEST(RoundTrip, BindsReferencesToTheLoadedClasses) {
  const Namespace ns = TMemoryNamespace::Create("root/test");
  TClassBuilder(ns, "Target").Key("Name", "string").Commit();
  TClassBuilder(ns, "Holder").Reference("Other", "Target").Commit();
  const Namespace loaded = Load(Save(*ns));
  const auto decl = loaded->GetClass("Holder", {})->GetPropertyDecl("Other", {});
  EXPECT_EQ(decl->GetDefaultValue({}).GetReferencedClass(), loaded->GetClass("Target", {}));
}

TEST(RoundTrip, KeepsTheInstancesThatALiveClassHasAtTheMoment) {
  const Namespace ns = TMemoryNamespace::Create("root/test");
  int count = 0;
  TClassBuilder(ns, "Live")
      .Key("Number", "sint32")
      .Source([&count](TInstanceList& list) { list.Add().Set("Number", ++count); })
      .Commit();
  const Namespace loaded = Load(Save(*ns));
  EXPECT_EQ(ValueOf(OnlyInstance(loaded, "Live"), "Number").operator int(), 1);
  EXPECT_EQ(ValueOf(OnlyInstance(loaded, "Live"), "Number").operator int(), 1);
}

TEST(RoundTrip, KeepsAnEmptyNamespace) {
  ExpectRoundTrip(*TMemoryNamespace::Create("root/test"));
}

}  // namespace

}  // namespace hwxtest
