// Property declarations and static values, with what subclasses make of them.

#include "hwxkit/TMemoryPropertyDecl.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PropertyDecl : public KitTest {};

TEST_F(PropertyDecl, TellsWhatItWasMadeOf) {
  const auto disk = Create("EX_Disk");
  const auto size = AddProperty(*disk, "Size", 7UL);
  EXPECT_EQ(size->GetName({}), "Size");
  EXPECT_EQ(size->GetType({}), Type::kCIMTypeUInt64);
  EXPECT_EQ(size->GetDefaultValue({}), TCIMValue(7UL));
  EXPECT_EQ(size->GetClass({}), disk);
}

TEST_F(PropertyDecl, IsInItsClassOnlyOnceItIsCommitted) {
  const auto disk = Create("EX_Disk");
  const auto size = disk->CreatePropertyDecl("Size", 7UL, {});
  EXPECT_EQ(StatusOf([&] { disk->GetPropertyDecl("Size", {}); }), kHWXStatusNotFound);
  EXPECT_THAT(Properties(*disk), IsEmpty());
  size->Commit({});
  EXPECT_EQ(disk->GetPropertyDecl("sIZE", {}), size);
  EXPECT_THAT(Properties(*disk), ElementsAre("Size"));
  EXPECT_EQ(StatusOf([&] { size->Commit({}); }), kHWXStatusInvalidOpSequence);
}

TEST_F(PropertyDecl, IsReportedAbsentByAThrow) {
  const auto disk = Commit("EX_Disk");
  EXPECT_EQ(StatusOf([&] { disk->GetPropertyDecl("Size", {}); }), kHWXStatusNotFound);
}

TEST_F(PropertyDecl, IsRefusedWithABadNameOrWithoutAType) {
  const auto disk = Create("EX_Disk");
  EXPECT_EQ(StatusOf([&] { disk->CreatePropertyDecl("", 1, {}); }), kHWXStatusInvalidCIMName);
  EXPECT_EQ(StatusOf([&] { disk->CreatePropertyDecl("Size", TCIMValue(), {}); }),
            kHWXStatusTypeMismatch);
}

TEST_F(PropertyDecl, IsRefusedTheSecondTimeInOneClass) {
  const auto disk = Create("EX_Disk");
  const auto begun = disk->CreatePropertyDecl("Size", 1, {});
  AddProperty(*disk, "Size", 2);
  EXPECT_EQ(StatusOf([&] { disk->CreatePropertyDecl("SIZE", 3, {}); }), kHWXStatusAlreadyExists);
  EXPECT_EQ(StatusOf([&] { begun->Commit({}); }), kHWXStatusAlreadyExists);
  EXPECT_EQ(disk->GetPropertyDecl("Size", {})->GetDefaultValue({}), TCIMValue(2));
}

TEST_F(PropertyDecl, StopsBeingPresentedWhenTold) {
  const auto disk = Create("EX_Disk");
  AddProperty(*disk, "A", 1);
  AddProperty(*disk, "B", 1);
  int calls = 0;
  disk->EnumeratePropertyDecls([&](Ptr<ICIMPropertyDecl>) { return ++calls > 9; }, {});
  EXPECT_EQ(calls, 1);
}

TEST_F(PropertyDecl, IsPresentedFromASnapshot) {
  const auto disk = Create("EX_Disk");
  AddProperty(*disk, "A", 1);
  AddProperty(*disk, "B", 1);
  Strings seen;
  disk->EnumeratePropertyDecls(
      [&](Ptr<ICIMPropertyDecl> decl) {
        seen.push_back(decl->GetName({}));
        AddProperty(*disk, seen.back() + "2", 1);
        return true;
      },
      {});
  EXPECT_THAT(seen, ElementsAre("A", "B"));
  EXPECT_THAT(Properties(*disk), ElementsAre("A", "B", "A2", "B2"));
  const auto fail = [](Ptr<ICIMPropertyDecl>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(disk->EnumeratePropertyDecls(fail, {}), std::logic_error);
}

// Inheritance: EX_Device has A, B and C.
class InheritedProperty : public KitTest {
 protected:
  void SetUp() override {
    fDevice = Create("EX_Device");
    for (const char* name : {"A", "B", "C"})
      AddProperty(*fDevice, name, 1);
    fDevice->Commit({});
    fDisk = Create("EX_Disk", fDevice);
  }

  Ptr<ICIMClass> fDevice;
  Ptr<ICIMClass> fDisk;
};

TEST_F(InheritedProperty, IsSeenInAClassThatIsStillOpen) {
  EXPECT_EQ(fDisk->GetPropertyDecl("b", {})->GetName({}), "B");
  EXPECT_THAT(Properties(*fDisk), ElementsAre("A", "B", "C"));
  EXPECT_EQ(fDisk->GetPropertyDeclCount({}), 3u);
}

TEST_F(InheritedProperty, ComesBeforeTheClasssOwn) {
  AddProperty(*fDisk, "Size", 1);
  fDisk->Commit({});
  const auto partition = Create("EX_Partition", fDisk);
  AddProperty(*partition, "Number", 1);
  EXPECT_THAT(Properties(*partition), ElementsAre("A", "B", "C", "Size", "Number"));
  EXPECT_THAT(Properties(*fDevice), ElementsAre("A", "B", "C"));
}

TEST_F(InheritedProperty, IsOverriddenInItsPlace) {
  AddProperty(*fDisk, "Size", 1);
  const auto over = AddProperty(*fDisk, "b", 5);
  EXPECT_THAT(Properties(*fDisk), ElementsAre("A", "b", "C", "Size"));
  EXPECT_EQ(fDisk->GetPropertyDecl("B", {}), over);
  EXPECT_EQ(over->GetClass({}), fDisk);
  EXPECT_EQ(fDevice->GetPropertyDecl("B", {})->GetDefaultValue({}), TCIMValue(1));
  EXPECT_EQ(StatusOf([&] { fDisk->CreatePropertyDecl("B", 6, {}); }), kHWXStatusAlreadyExists);
}

TEST_F(InheritedProperty, IsNotOverriddenBeforeTheCommitmentOrByAnotherType) {
  const auto inherited = fDisk->GetPropertyDecl("B", {});
  fDisk->CreatePropertyDecl("B", 5, {});
  EXPECT_EQ(fDisk->GetPropertyDecl("B", {}), inherited);
  EXPECT_EQ(StatusOf([&] { fDisk->CreatePropertyDecl("B", "text", {}); }),
            kHWXStatusNotOverridable);
}

TEST_F(InheritedProperty, KnowsTheClassThatDeclaresIt) {
  EXPECT_EQ(fDisk->GetPropertyDecl("A", {})->GetClass({}), fDevice);
  EXPECT_EQ(StatusOf([&] { fDisk->GetPropertyDecl("A", {})->Commit({}); }),
            kHWXStatusInvalidOpSequence);
}

// Keys.

TEST_F(PropertyDecl, IsAKeyByItsQualifierInSubclassesToo) {
  Build("EX_Device").Key("ID", "string").Property("Size", "uint64").Commit();
  const auto disk =
      Build("EX_Disk", "EX_Device").Property("ID", "string").Key("Part", "uint8").Commit();
  const auto keys = NamesFrom<ICIMPropertyDecl>(
      [&](const auto& callback) { disk->EnumerateKeyPropertyDecls(callback, {}); });
  EXPECT_THAT(keys, ElementsAre("ID", "Part"));
}

TEST_F(PropertyDecl, IsNoKeyByAQualifierThatIsFalse) {
  const auto disk = Build("EX_Disk").Property("ID", "string").Qualifier("Key", false).Commit();
  EXPECT_FALSE(disk->FindPropertyDecl("ID")->IsKey());
}

// Static values.

TEST_F(PropertyDecl, TakesAStaticValueBeforeAndAfterTheClassIsFinal) {
  const auto disk = Create("EX_Disk");
  AddProperty(*disk, "Size", 1);
  AddProperty(*disk, "Sort", "none");
  disk->SetStaticPropertyValue("size", 2, {});
  EXPECT_EQ(disk->GetStaticProperty("SIZE", {})->GetValue({}), TCIMValue(2));
  disk->Commit({});
  EXPECT_EQ(disk->GetStaticProperty("Size", {})->GetValue({}), TCIMValue(2));
  disk->SetStaticPropertyValue("Size", 3, {});
  disk->SetStaticPropertyValue("Sort", Null(Type::kCIMTypeString), {});
  EXPECT_THAT(Statics(*disk), ElementsAre("Size", "Sort"));
  const auto size = disk->GetStaticProperty("Size", {});
  EXPECT_EQ(size->GetValue({}), TCIMValue(3));
  EXPECT_EQ(size->GetPropertyDecl({}), disk->GetPropertyDecl("Size", {}));
  EXPECT_FALSE(size->GetInstance({}));
  EXPECT_TRUE(disk->GetStaticProperty("Sort", {})->IsNull({}));
}

TEST_F(PropertyDecl, RefusesStaticValuesOfNoPropertyOrAnotherType) {
  const auto disk = Create("EX_Disk");
  AddProperty(*disk, "Size", 1);
  EXPECT_EQ(StatusOf([&] { disk->SetStaticPropertyValue("None", 1, {}); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { disk->SetStaticPropertyValue("Size", 1U, {}); }),
            kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { disk->SetStaticPropertyValue("Size", TCIMValue(), {}); }),
            kHWXStatusTypeMismatch);
  EXPECT_THAT(Statics(*disk), IsEmpty());
  EXPECT_EQ(StatusOf([&] { disk->GetStaticProperty("Size", {}); }), kHWXStatusNotFound);
}

TEST_F(PropertyDecl, PresentsStaticValuesWhereTheyWereSetAndFindsThemInSubclasses) {
  const auto device = Create("EX_Device");
  AddProperty(*device, "Size", 1);
  device->SetStaticPropertyValue("Size", 2, {});
  device->Commit({});
  const auto disk = Commit("EX_Disk", device);
  EXPECT_THAT(Statics(*disk), IsEmpty());
  EXPECT_EQ(disk->GetStaticProperty("Size", {})->GetValue({}), TCIMValue(2));
  disk->SetStaticPropertyValue("Size", 3, {});
  EXPECT_EQ(disk->GetStaticProperty("Size", {})->GetValue({}), TCIMValue(3));
  EXPECT_EQ(device->GetStaticProperty("Size", {})->GetValue({}), TCIMValue(2));
  disk->DeleteStaticProperty("SIZE", {});
  EXPECT_EQ(disk->GetStaticProperty("Size", {})->GetValue({}), TCIMValue(2));
  EXPECT_EQ(StatusOf([&] { disk->DeleteStaticProperty("Size", {}); }), kHWXStatusNotFound);
}

TEST_F(PropertyDecl, PresentsStaticValuesUntilToldToStop) {
  const auto disk = Create("EX_Disk");
  for (const char* name : {"A", "B"}) {
    AddProperty(*disk, name, 1);
    disk->SetStaticPropertyValue(name, 2, {});
  }
  int calls = 0;
  disk->EnumerateStaticProperties([&](Ptr<ICIMProperty>) { return ++calls > 9; }, {});
  EXPECT_EQ(calls, 1);
  const auto fail = [](Ptr<ICIMProperty>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(disk->EnumerateStaticProperties(fail, {}), std::logic_error);
}

}  // namespace
}  // namespace hwxtest
