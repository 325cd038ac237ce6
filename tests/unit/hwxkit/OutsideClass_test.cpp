// Classes of which no more than the name is known, and the depth of the tree of classes.

#include <string>

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;

TEST(OutsideClass, IsASuperclassAndNoneOfTheNamespace) {
  const auto ns = TMemoryNamespace::Create("root");
  const auto far = ns->OutsideClass("Far");
  EXPECT_EQ(ns->OutsideClass("FAR"), far);
  EXPECT_TRUE(far->IsOutside());
  ns->CreateClass("A", far, {})->Commit({});
  const auto made = ns->FindClass("A");
  EXPECT_EQ(made->GetSuperClass({}), far);
  EXPECT_TRUE(made->IsSubClassOf("far", {}));
  EXPECT_TRUE(made->HasOutsideAncestor());
  EXPECT_FALSE(ns->FindClass("Far"));
  EXPECT_EQ(ns->GetClassCount({}), 1u);
  std::string presented;
  ns->EnumerateClasses(
      [&presented](const Ptr<ICIMClass>& found) {
        presented += found->GetName({});
        return true;
      },
      {});
  EXPECT_EQ(presented, "A");
  EXPECT_EQ(StatusOf([&] { ns->OutsideClass("no name"); }), kHWXStatusInvalidCIMName);
}

TEST(OutsideClass, HasTheKeysThatReferencesGiveIt) {
  const auto ns = TMemoryNamespace::Create("root");
  const auto far = ns->OutsideClass("Far");
  TCIMReference reference(ns, {});
  reference.SetClass(far);
  far->DeclareOutsideKey("ID", Type::kCIMTypeString);
  reference.AddKeyValue("ID", std::string("x"));
  EXPECT_EQ(reference.GetPath(), "Far.ID=\"x\"");
  EXPECT_EQ(StatusOf([&] { far->DeclareOutsideKey("id", Type::kCIMTypeString); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_FALSE(ns->GetInstance(reference, {}));
  const auto near = TClassBuilder(ns, "Near").Commit();
  EXPECT_EQ(StatusOf([&] { near->DeclareOutsideKey("ID", Type::kCIMTypeString); }),
            kHWXStatusInvalidOpSequence);
}

TEST(ClassDepth, IsAThousandAtMost) {
  const auto ns = TMemoryNamespace::Create("root");
  Ptr<ICIMClass> superclass;
  for (unsigned int i = 0; i < TMemoryNamespace::kMaxClassDepth; ++i) {
    superclass = ns->CreateClass("C" + std::to_string(i), superclass, {});
    superclass->Commit({});
  }
  EXPECT_EQ(StatusOf([&] { ns->CreateClass("OneMore", superclass, {}); }), kHWXStatusNotSupported);
  EXPECT_EQ(ns->FindClass("C0")->GetSubClassCount(true, {}), TMemoryNamespace::kMaxClassDepth - 1);
}

// A long text that thousands of classes inherit is there once.
TEST(InheritedQualifiers, AreSharedBySubclasses) {
  const auto ns = TMemoryNamespace::Create("root");
  const auto decl = ns->CreateQualifierDecl("Q", std::string(), kScopeAny, kFlavorDefault, {});
  decl->Commit({});
  const auto base = ns->CreateClass("Base", {}, {});
  base->CreateQualifier(decl, std::string(1000, 'x'), {})->Commit({});
  base->Commit({});
  for (const char* name : {"A", "B"})
    ns->CreateClass(name, base, {})->Commit({});
  EXPECT_EQ(ns->FindClass("A")->GetQualifier("Q", {}), ns->FindClass("B")->GetQualifier("Q", {}));
  EXPECT_TRUE(ns->FindClass("A")->GetQualifier("Q", {})->IsInherited({}));
}

}  // namespace

}  // namespace hwxtest
