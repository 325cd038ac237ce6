// Qualifiers on classes, properties, methods and parameters.

#include "hwxkit/TMemoryQualifier.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Qualifier : public KitTest {};

TEST_F(Qualifier, TellsWhatItWasMadeOf) {
  const auto decl = Declare("Units", "none");
  const auto disk = Create("EX_Disk");
  const auto units = disk->CreateQualifier(decl, "Bytes", {});
  units->Commit({});
  EXPECT_EQ(units->GetName({}), "Units");
  EXPECT_EQ(units->GetType({}), Type::kCIMTypeString);
  EXPECT_EQ(units->GetValue({}), TCIMValue("Bytes"));
  EXPECT_EQ(units->GetQualifierDecl({}), decl);
  EXPECT_FALSE(units->IsInherited({}));
}

TEST_F(Qualifier, IsOnItsElementOnlyOnceItIsCommitted) {
  const auto disk = Create("EX_Disk");
  const auto units = disk->CreateQualifier(Declare("Units", "none"), "Bytes", {});
  EXPECT_FALSE(disk->GetQualifier("Units", {}));
  EXPECT_THAT(Qualifiers(*disk), IsEmpty());
  units->Commit({});
  EXPECT_EQ(disk->GetQualifier("UNITS", {}), units);
  EXPECT_TRUE(disk->HasQualifier("units", {}));
  EXPECT_THAT(Qualifiers(*disk), ElementsAre("Units"));
  EXPECT_EQ(disk->GetQualifierCount({}), 1u);
  EXPECT_EQ(StatusOf([&] { units->Commit({}); }), kHWXStatusInvalidOpSequence);
}

// The copier of classes tests a class's for an empty pointer and catches a property's exception.
TEST_F(Qualifier, IsAbsentByAnEmptyPointerOnClassesMethodsAndParameters) {
  const auto disk = Create("EX_Disk");
  const auto method = disk->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
  const auto parameter = method->CreateParameterDecl("Hard", Type::kCIMTypeBoolean, {});
  EXPECT_FALSE(disk->GetQualifier("PLUGINNAME", {}));
  EXPECT_FALSE(method->GetQualifier("PLUGINNAME", {}));
  EXPECT_FALSE(parameter->GetQualifier("PLUGINNAME", {}));
}

TEST_F(Qualifier, IsAbsentByAThrowOnProperties) {
  const auto disk = Create("EX_Disk");
  const auto size = AddProperty(*disk, "Size", 1);
  EXPECT_EQ(StatusOf([&] { size->GetQualifier("OVERRIDE", {}); }), kHWXStatusNotFound);
  EXPECT_FALSE(size->HasQualifier("OVERRIDE", {}));
  disk->Commit({});
  const auto inherited = Commit("EX_Sub", disk)->GetPropertyDecl("Size", {});
  EXPECT_EQ(StatusOf([&] { inherited->GetQualifier("OVERRIDE", {}); }), kHWXStatusNotFound);
}

TEST_F(Qualifier, IsRefusedUnlessTheNamespaceDeclaresIt) {
  const auto disk = Create("EX_Disk");
  const auto open = fNamespace->CreateQualifierDecl("Open", true, 0, 0, {});
  const auto foreign = TMemoryNamespace::Create("x")->CreateQualifierDecl("Units", true, 0, 0, {});
  Declare("Units", true);
  for (const auto& decl : {Ptr<ICIMQualifierDecl>(), open, foreign}) {
    EXPECT_EQ(StatusOf([&] { disk->CreateQualifier(decl, true, {}); }), kHWXStatusNotFound);
  }
}

TEST_F(Qualifier, IsRefusedWithAValueOfAnotherType) {
  const auto disk = Create("EX_Disk");
  const auto decl = Declare("Units", "none");
  EXPECT_EQ(StatusOf([&] { disk->CreateQualifier(decl, 1, {}); }), kHWXStatusTypeMismatch);
  EXPECT_NO_THROW(disk->CreateQualifier(decl, Null(Type::kCIMTypeString), {}));
}

TEST_F(Qualifier, IsRefusedTheSecondTimeOnOneElement) {
  const auto disk = Create("EX_Disk");
  const auto decl = Declare("Units", "none");
  const auto begun = disk->CreateQualifier(decl, "a", {});
  Qualify(*disk, "Units", "b");
  EXPECT_EQ(StatusOf([&] { disk->CreateQualifier(decl, "b", {}); }), kHWXStatusAlreadyExists);
  EXPECT_EQ(StatusOf([&] { begun->Commit({}); }), kHWXStatusAlreadyExists);
  EXPECT_EQ(disk->GetQualifier("Units", {})->GetValue({}), TCIMValue("b"));
}

TEST_F(Qualifier, IsFinalWithItsPropertyOrParameter) {
  const auto decl = Declare("Units", "none");
  const auto disk = Create("EX_Disk");
  const auto size = AddProperty(*disk, "Size", 1);
  EXPECT_EQ(StatusOf([&] { size->CreateQualifier(decl, "b", {}); }), kHWXStatusInvalidOpSequence);
  const auto method = disk->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
  const auto parameter = method->CreateParameterDecl("Hard", Type::kCIMTypeBoolean, {});
  Qualify(*parameter, "Units", "a");
  parameter->Commit({});
  EXPECT_EQ(StatusOf([&] { parameter->CreateQualifier(decl, "b", {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_THAT(Qualifiers(*parameter), ElementsAre("Units"));
}

TEST_F(Qualifier, IsPresentedFromASnapshotUntilToldToStop) {
  const auto disk = Create("EX_Disk");
  for (const char* name : {"A", "B", "C"})
    Declare(name, true);
  Qualify(*disk, "B", true);
  Qualify(*disk, "A", true);
  Strings seen;
  disk->EnumerateQualifiers(
      [&](Ptr<ICIMQualifier> presented) {
        seen.push_back(NameOf(presented));
        if (seen.size() == 1) Qualify(*disk, "C", true);
        return true;
      },
      {});
  EXPECT_THAT(seen, ElementsAre("B", "A"));
  int calls = 0;
  disk->EnumerateQualifiers([&](Ptr<ICIMQualifier>) { return ++calls > 9; }, {});
  EXPECT_EQ(calls, 1);
  const auto fail = [](Ptr<ICIMQualifier>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(disk->EnumerateQualifiers(fail, {}), std::logic_error);
}

// What the class says by its qualifiers.

TEST_F(Qualifier, MakesAClassAbstractOrAnAssociationOnlyWhenTrue) {
  Declare("Abstract", false, kFlavorRestricted);
  Declare("Association", false, kFlavorToSubclass);
  const auto none = Create("EX_None");
  EXPECT_FALSE(none->IsAbstract({}));
  EXPECT_FALSE(none->IsAssociation({}));
  const auto denied = Create("EX_Denied");
  Qualify(*denied, "Abstract", false);
  Qualify(*denied, "Association", Null(Type::kCIMTypeBoolean));
  EXPECT_FALSE(denied->IsAbstract({}));
  EXPECT_FALSE(denied->IsAssociation({}));
  const auto both = Create("EX_Both");
  Qualify(*both, "Abstract", true);
  Qualify(*both, "Association", true);
  EXPECT_TRUE(both->IsAbstract({}));
  EXPECT_TRUE(both->IsAssociation({}));
  both->Commit({});
  const auto sub = Create("EX_Sub", both);
  EXPECT_FALSE(sub->IsAbstract({}));  // restricted
  EXPECT_TRUE(sub->IsAssociation({}));
}

TEST_F(Qualifier, OfAnotherTypeThanBooleanMakesNothingAbstract) {
  Declare("Abstract", "no");
  const auto disk = Create("EX_Disk");
  Qualify(*disk, "Abstract", "true");
  EXPECT_FALSE(disk->IsAbstract({}));
}

// Inheritance by flavor.
class InheritedQualifier : public KitTest {
 protected:
  void SetUp() override {
    Declare("Stays", "none", kFlavorRestricted);
    Declare("Fixed", "none", kFlavorToSubclass);
    Declare("Free", "none", kFlavorDefault);
    Declare("StaysThoughFree", "none", kFlavorEnableOverride);
    fDevice = Create("EX_Device");
    const auto size = fDevice->CreatePropertyDecl("Size", 1, {});
    const auto eject = fDevice->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
    const auto hard = eject->CreateParameterDecl("Hard", Type::kCIMTypeBoolean, {});
    for (ICIMQualifiedElement* element : {static_cast<ICIMQualifiedElement*>(fDevice.get()),
                                          static_cast<ICIMQualifiedElement*>(size.get()),
                                          static_cast<ICIMQualifiedElement*>(eject.get()),
                                          static_cast<ICIMQualifiedElement*>(hard.get())}) {
      for (const char* name : {"Stays", "Fixed", "Free", "StaysThoughFree"})
        Qualify(*element, name, "device");
    }
    size->Commit({});
    hard->Commit({});
    fDevice->Commit({});
    fDisk = Create("EX_Disk", fDevice);
  }

  Ptr<ICIMClass> fDevice;
  Ptr<ICIMClass> fDisk;
};

TEST_F(InheritedQualifier, IsSeenInTheSubclassIfItsFlavorSaysSo) {
  EXPECT_THAT(Qualifiers(*fDisk), ElementsAre("Fixed", "Free"));
  EXPECT_TRUE(fDisk->GetQualifier("Fixed", {})->IsInherited({}));
  EXPECT_FALSE(fDevice->GetQualifier("Fixed", {})->IsInherited({}));
  EXPECT_EQ(StatusOf([&] { fDisk->GetQualifier("Fixed", {})->Commit({}); }),
            kHWXStatusInvalidOpSequence);
}

TEST_F(InheritedQualifier, IsSeenOnInheritedDeclarations) {
  EXPECT_THAT(Qualifiers(*fDisk->GetPropertyDecl("Size", {})), ElementsAre("Fixed", "Free"));
  const auto eject = fDisk->GetMethodDecl("Eject", {});
  EXPECT_THAT(Qualifiers(*eject), ElementsAre("Fixed", "Free"));
  EXPECT_THAT(Qualifiers(*eject->GetParameterDecl("Hard", {})), ElementsAre("Fixed", "Free"));
}

TEST_F(InheritedQualifier, IsSeenOnOverridingDeclarations) {
  const auto size = AddProperty(*fDisk, "Size", 2);
  EXPECT_THAT(Qualifiers(*size), ElementsAre("Fixed", "Free"));
  const auto eject = fDisk->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
  EXPECT_THAT(Qualifiers(*eject), ElementsAre("Fixed", "Free"));
  const auto hard = eject->CreateParameterDecl("Hard", Type::kCIMTypeBoolean, {});
  EXPECT_THAT(Qualifiers(*hard), ElementsAre("Fixed", "Free"));
}

TEST_F(InheritedQualifier, ReachesGrandchildren) {
  fDisk->Commit({});
  const auto part = Create("EX_Part", fDisk);
  EXPECT_THAT(Qualifiers(*part), ElementsAre("Fixed", "Free"));
  EXPECT_THAT(Qualifiers(*part->GetPropertyDecl("Size", {})), ElementsAre("Fixed", "Free"));
}

TEST_F(InheritedQualifier, IsOverriddenInItsPlaceIfItsFlavorAllows) {
  Declare("Own", true);
  Qualify(*fDisk, "Own", true);
  Qualify(*fDisk, "free", "disk");
  EXPECT_THAT(Qualifiers(*fDisk), ElementsAre("Fixed", "Free", "Own"));
  EXPECT_EQ(fDisk->GetQualifier("Free", {})->GetValue({}), TCIMValue("disk"));
  EXPECT_EQ(fDevice->GetQualifier("Free", {})->GetValue({}), TCIMValue("device"));
  EXPECT_EQ(StatusOf([&] { Qualify(*fDisk, "Fixed", "disk"); }), kHWXStatusNotOverridable);
}

// As the copy of an element does.
TEST_F(InheritedQualifier, MayBeRepeatedWithItsOwnValue) {
  EXPECT_NO_THROW(Qualify(*fDisk, "Fixed", "device"));
  EXPECT_EQ(StatusOf([&] { Qualify(*fDisk, "Fixed", "device"); }), kHWXStatusAlreadyExists);
}

TEST_F(InheritedQualifier, IsNoneWhereItStays) {
  EXPECT_NO_THROW(Qualify(*fDisk, "Stays", "disk"));
  EXPECT_FALSE(fDisk->GetQualifier("Stays", {})->IsInherited({}));
}

}  // namespace
}  // namespace hwxtest
