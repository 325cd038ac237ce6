// Copying with all that there is, where the library's own copier leaves things out.

#include "hwxkit/NamespaceCopy.h"

#include <string>
#include <vector>

#include "support/NamespaceText.h"
#include "support/RandomNamespace.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;

struct Copy {
  Ptr<TMemoryNamespace> ns;
  std::vector<std::string> failures;
};

Copy CopyOf(TMemoryNamespace& source) {
  Copy copy = {TMemoryNamespace::Create(source.GetName({})), {}};
  CopySchema(source, copy.ns, [&copy](const std::string& what, const std::string& why) {
    copy.failures.push_back(what + ": " + why);
  });
  for (const auto& found : source.GetClasses()) {
    found->EnumerateInstances(
        [&copy](const Ptr<ICIMInstance>& instance) {
          CopyInstance(*instance, copy.ns);
          return true;
        },
        false, {});
  }
  return copy;
}

TEST(NamespaceCopy, KeepsWholeNamespacesOfAnyContent) {
  for (std::uint64_t seed = 0; seed < 200; ++seed) {
    SCOPED_TRACE(seed);
    const Ptr<TMemoryNamespace> source = RandomNamespace(seed);
    const Copy copy = CopyOf(*source);
    EXPECT_EQ(Difference(*source, *copy.ns), "");
    EXPECT_TRUE(copy.failures.empty());
    if (testing::Test::HasFailure()) break;
  }
}

TEST(NamespaceCopy, KeepsNullValuesWhereTheClassHasADefault) {
  const auto source = TMemoryNamespace::Create("root");
  const auto made = TClassBuilder(source, "A").PropertyWithDefault("P", true).Commit();
  const auto instance = made->NewInstance();
  instance->SetNull("P");
  made->AddInstance(instance);
  const Copy copy = CopyOf(*source);
  copy.ns->FindClass("A")->EnumerateInstances(
      [](const Ptr<ICIMInstance>& found) {
        EXPECT_TRUE(found->GetProperty("P", {})->IsNull({}));
        return true;
      },
      false, {});
}

TEST(NamespaceCopy, KeepsTheNamespacesOfReferences) {
  const auto source = TMemoryNamespace::Create("root");
  TClassBuilder(source, "A").Key("ID", "string").Commit();
  TCIMReference reference(source, {});
  reference.SetClassName("A");
  reference.SetNameSpaceName("//host/other");
  reference.AddKeyValue("ID", std::string("x"));
  const TCIMReference copied = CopyValue(TCIMValue(reference), CopyOf(*source).ns);
  EXPECT_EQ(copied.GetNameSpaceName(), "//host/other");
  EXPECT_EQ(copied.GetPath(), "A.ID=\"x\"");
}

TEST(NamespaceCopy, KeepsPropertiesThatOverrideWithoutSayingSo) {
  const auto source = TMemoryNamespace::Create("root");
  TClassBuilder(source, "A").PropertyWithDefault("P", 1).Commit();
  TClassBuilder(source, "B", "A").PropertyWithDefault("P", 2).Commit();
  const auto decl = CopyOf(*source).ns->FindClass("B")->FindPropertyDecl("P");
  EXPECT_EQ(decl->GetDefaultValue({}).operator int(), 2);
  EXPECT_FALSE(decl->IsInherited());
}

TEST(NamespaceCopy, KeepsNotesAndFlavors) {
  const auto source = TMemoryNamespace::Create("root");
  const auto decl = source->CreateQualifierDecl("Q", true, kScopeAny, kFlavorDefault, {});
  decl->Commit({});
  const auto made = boost::static_pointer_cast<TMemoryClass>(
      source->CreateClass("A", source->OutsideClass("Far"), {}));
  const auto qualifier =
      boost::static_pointer_cast<TMemoryQualifier>(made->CreateQualifier(decl, false, {}));
  qualifier->SetFlavor(kFlavorToInstance);
  qualifier->Commit({});
  const auto method = made->CreateMethodDecl("M", Type::kCIMTypeUInt8, {});
  const auto parameter = boost::static_pointer_cast<TMemoryParameterDecl>(
      method->CreateParameterDecl("R", Type::kCIMTypeReference, {}));
  TElementNotes notes;
  notes.fReferencedClass = "Far";
  parameter->SetNotes(notes);
  parameter->Commit({});
  made->Commit({});
  const auto copied = CopyOf(*source).ns->FindClass("A");
  EXPECT_EQ(copied->GetSuperClass({})->GetName({}), "Far");
  EXPECT_EQ(
      boost::static_pointer_cast<TMemoryQualifier>(copied->GetQualifier("Q", {}))->GetFlavor(),
      unsigned{kFlavorToInstance});
  const auto found = boost::static_pointer_cast<TMemoryParameterDecl>(
      copied->FindMethodDecl("M")->GetParameterDecl("R", {}));
  EXPECT_EQ(found->GetNotes().fReferencedClass, "Far");
}

}  // namespace

}  // namespace hwxtest
