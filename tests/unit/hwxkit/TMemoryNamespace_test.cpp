#include "hwxkit/TMemoryNamespace.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Namespace : public KitTest {};

TEST_F(Namespace, HasItsName) {
  EXPECT_EQ(fNamespace->GetName({}), "root/test");
}

TEST_F(Namespace, StartsEmpty) {
  EXPECT_THAT(RootClasses(*fNamespace), IsEmpty());
  EXPECT_EQ(fNamespace->GetClassCount({}), 0u);
}

TEST_F(Namespace, ThrowsForAnAbsentClass) {
  EXPECT_EQ(StatusOf([&] { fNamespace->GetClass("EX_None", {}); }), kHWXStatusNotFound);
  EXPECT_FALSE(fNamespace->FindClass("EX_None"));
}

TEST_F(Namespace, HoldsAClassOnlyOnceItIsCommitted) {
  const auto made = Create("EX_Disk");
  EXPECT_EQ(StatusOf([&] { fNamespace->GetClass("EX_Disk", {}); }), kHWXStatusNotFound);
  EXPECT_THAT(RootClasses(*fNamespace), IsEmpty());
  made->Commit({});
  EXPECT_EQ(fNamespace->GetClass("EX_Disk", {}), made);
  EXPECT_EQ(fNamespace->FindClass("EX_Disk"), made);
  EXPECT_THAT(RootClasses(*fNamespace), ElementsAre("EX_Disk"));
}

TEST_F(Namespace, FindsAClassInAnyCaseAndKeepsItsOwn) {
  Commit("EX_Disk");
  EXPECT_EQ(fNamespace->GetClass("ex_dISK", {})->GetName({}), "EX_Disk");
}

TEST_F(Namespace, RefusesABadClassName) {
  EXPECT_EQ(StatusOf([&] { Create("EX Disk"); }), kHWXStatusInvalidCIMName);
}

TEST_F(Namespace, RefusesASecondClassOfTheName) {
  Commit("EX_Disk");
  EXPECT_EQ(StatusOf([&] { Create("ex_disk"); }), kHWXStatusAlreadyExists);
}

TEST_F(Namespace, RefusesTheCommitmentOfASecondClassOfTheName) {
  const auto first = Create("EX_Disk");
  const auto second = Create("EX_Disk");
  second->Commit({});
  EXPECT_EQ(StatusOf([&] { first->Commit({}); }), kHWXStatusAlreadyExists);
  EXPECT_FALSE(first->IsCommitted({}));
  EXPECT_EQ(fNamespace->GetClass("EX_Disk", {}), second);
}

TEST_F(Namespace, RefusesASuperclassThatIsOpen) {
  const auto open = Create("EX_Device");
  EXPECT_EQ(StatusOf([&] { Create("EX_Disk", open); }), kHWXStatusInvalidOpSequence);
}

TEST_F(Namespace, RefusesASuperclassOfAnotherNamespace) {
  const auto other = TMemoryNamespace::Create("other");
  const auto foreign = other->CreateClass("EX_Device", {}, {});
  foreign->Commit({});
  EXPECT_EQ(StatusOf([&] { Create("EX_Disk", foreign); }), kHWXStatusInvalidClass);
}

TEST_F(Namespace, PresentsRootClassesAloneInTheOrderOfCommitment) {
  const auto late = Create("EX_A");
  const auto first = Commit("EX_C");
  Commit("EX_Sub", first);
  Commit("EX_B");
  late->Commit({});
  EXPECT_THAT(RootClasses(*fNamespace), ElementsAre("EX_C", "EX_B", "EX_A"));
  EXPECT_EQ(fNamespace->GetClassCount({}), 4u);
}

TEST_F(Namespace, StopsPresentingClassesWhenTold) {
  Commit("EX_A");
  Commit("EX_B");
  Commit("EX_C");
  int calls = 0;
  fNamespace->EnumerateClasses([&](Ptr<ICIMClass>) { return ++calls < 2; }, {});
  EXPECT_EQ(calls, 2);
}

TEST_F(Namespace, PassesOnWhatACallbackThrows) {
  Commit("EX_A");
  const auto fail = [](Ptr<ICIMClass>) -> bool { throw std::runtime_error("mine"); };
  EXPECT_THROW(fNamespace->EnumerateClasses(fail, {}), std::runtime_error);
}

TEST_F(Namespace, LetsACallbackChangeIt) {
  Commit("EX_A");
  Commit("EX_B");
  Strings seen;
  fNamespace->EnumerateClasses(
      [&](Ptr<ICIMClass> presented) {
        seen.push_back(presented->GetName({}));
        Commit("EX_New" + seen.back());
        presented->Delete({});
        return true;
      },
      {});
  EXPECT_THAT(seen, ElementsAre("EX_A", "EX_B"));
  EXPECT_THAT(RootClasses(*fNamespace), ElementsAre("EX_NewEX_A", "EX_NewEX_B"));
}

TEST_F(Namespace, DeletesAClassAndItsInstances) {
  const auto disk = Build("EX_Disk").Key("ID", "string").Commit();
  const auto instance = disk->NewInstance();
  instance->Set("ID", "sda");
  disk->AddInstance(instance);
  fNamespace->DeleteClass("ex_DISK", {});
  EXPECT_EQ(StatusOf([&] { fNamespace->GetClass("EX_Disk", {}); }), kHWXStatusNotFound);
  EXPECT_THAT(Instances(*disk), IsEmpty());
  EXPECT_EQ(StatusOf([&] { disk->AddInstance(instance); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { disk->Delete({}); }), kHWXStatusInvalidOpSequence);
}

TEST_F(Namespace, MakesADeletedClassAnewWithoutWhatTheOldOneHeld) {
  for (int i = 0; i < 3; ++i) {
    const auto disk = Build("EX_Disk").Key("ID", "string").StaticValue("ID", "none").Commit();
    disk->AddInstance(disk->NewInstance()->Set("ID", "sda").shared_from_this());
    EXPECT_THAT(Instances(*disk), ElementsAre("sda"));
    fNamespace->DeleteClass("EX_Disk", {});
    EXPECT_THAT(Statics(*disk), IsEmpty());
  }
}

TEST_F(Namespace, DeletesNoAbsentClassAndNoneWithSubclasses) {
  const auto device = Commit("EX_Device");
  const auto disk = Commit("EX_Disk", device);
  EXPECT_EQ(StatusOf([&] { fNamespace->DeleteClass("EX_None", {}); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { device->Delete({}); }), kHWXStatusInvalidOpSequence);
  disk->Delete({});
  EXPECT_FALSE(device->HasSubClasses({}));
  EXPECT_NO_THROW(device->Delete({}));
}

TEST_F(Namespace, RefusesADeletedSuperclass) {
  const auto device = Commit("EX_Device");
  const auto begun = Create("EX_Begun", device);
  device->Delete({});
  EXPECT_EQ(StatusOf([&] { begun->Commit({}); }), kHWXStatusInvalidClass);
  EXPECT_EQ(StatusOf([&] { Create("EX_Disk", device); }), kHWXStatusInvalidClass);
}

// Instances by reference.

class NamespaceReferences : public KitTest {
 protected:
  NamespaceReferences() {
    Build("EX_Disk").Key("ID", "uint32").Key("Bus", "string").Commit();
    Build("EX_FastDisk", "EX_Disk").Commit();
    Build("EX_Slot").KeyReference("Disk", "EX_Disk").Commit();
  }

  TCIMReference Reference(const std::string& path) const {
    return TCIMReference(fNamespace, path, {});
  }

  // Adds an instance with the keys of `path` to that class.
  Ptr<ICIMInstance> Add(const std::string& path) {
    const TCIMReference reference = Reference(path);
    const auto made = fNamespace->FindClass(reference.GetClassName())->NewInstance();
    reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
      made->Set(key.first, key.second);
      return true;
    });
    fNamespace->FindClass(reference.GetClassName())->AddInstance(made);
    return made;
  }

  Ptr<ICIMInstance> Found(const std::string& path) const {
    return fNamespace->GetInstance(Reference(path), {});
  }
};

TEST_F(NamespaceReferences, FindTheInstanceWithTheirKeys) {
  const auto first = Add("r:EX_Disk.ID=\"1\",Bus=\"a\"");
  const auto second = Add("r:EX_Disk.ID=\"2\",Bus=\"a\"");
  EXPECT_EQ(Found("r:EX_Disk.Bus=\"a\",ID=\"1\""), first);
  EXPECT_EQ(Found("r:EX_Disk.Bus=\"a\",ID=\"2\""), second);
  EXPECT_FALSE(Found("r:EX_Disk.Bus=\"b\",ID=\"1\""));
  EXPECT_EQ(Reference("r:EX_Disk.ID=\"1\",Bus=\"a\"").GetCIMElement(false), first);
}

TEST_F(NamespaceReferences, FindInstancesOfSubclassesToo) {
  const auto fast = Add("r:EX_FastDisk.ID=\"1\",Bus=\"a\"");
  EXPECT_EQ(Found("r:EX_Disk.ID=\"1\",Bus=\"a\""), fast);
  const auto disk = Add("r:EX_Disk.ID=\"2\",Bus=\"a\"");
  EXPECT_FALSE(Found("r:EX_FastDisk.ID=\"2\",Bus=\"a\""));
}

TEST_F(NamespaceReferences, FindNothingUnlessAllKeysAreThere) {
  Add("r:EX_Disk.ID=\"1\",Bus=\"a\"");
  EXPECT_FALSE(Found("EX_Disk"));
  EXPECT_FALSE(Found("r:EX_Disk.ID=\"1\""));
}

TEST_F(NamespaceReferences, WithoutAClassAreInvalid) {
  const TCIMReference none(fNamespace, {});
  EXPECT_EQ(StatusOf([&] { fNamespace->GetInstance(none, {}); }), kHWXStatusInvalidReference);
}

TEST_F(NamespaceReferences, AreKeysByWhatTheyNameNotByHowItIsWritten) {
  const auto slot = Add("r:EX_Slot.Disk=\"r:EX_Disk.ID=\"1\",Bus=\"a\"\"");
  EXPECT_EQ(Found("r:ex_slot.DISK=\"x:ex_disk.BUS=\"a\",id=\"1\"\""), slot);
  EXPECT_FALSE(Found("r:EX_Slot.Disk=\"r:EX_Disk.ID=\"2\",Bus=\"a\"\""));
  EXPECT_FALSE(Found("r:EX_Slot.Disk=\"r:EX_FastDisk.ID=\"1\",Bus=\"a\"\""));
}

TEST_F(NamespaceReferences, OfAnotherNamespaceFindByName) {
  const auto disk = Add("r:EX_Disk.ID=\"1\",Bus=\"a\"");
  const auto other = TMemoryNamespace::Create("other");
  TClassBuilder(other, "EX_Disk").Key("ID", "uint32").Key("Bus", "string").Commit();
  const TCIMReference reference(other, "r:EX_Disk.ID=\"1\",Bus=\"a\"", {});
  EXPECT_EQ(fNamespace->GetInstance(reference, {}), disk);
}

// The context.

TEST(NamespaceOfAProvider, AnswersThatProviderAndThoseWhoNameNone) {
  const auto ns = TMemoryNamespace::Create("root/test", "plugin");
  TClassBuilder(ns, "EX_Disk").Commit();
  TCIMContext mine;
  mine.emplace(TCIMSchemaHelper::kContextName, TCIMValue("plugin"));
  TCIMContext other;
  other.emplace(TCIMSchemaHelper::kContextName, TCIMValue("cmpi"));
  TCIMContext malformed;
  malformed.emplace(TCIMSchemaHelper::kContextName, TCIMValue(1));

  EXPECT_TRUE(ns->GetClass("EX_Disk", {}));
  EXPECT_TRUE(ns->GetClass("EX_Disk", mine));
  for (const TCIMContext& context : {other, malformed}) {
    EXPECT_EQ(StatusOf([&] { ns->GetClass("EX_Disk", context); }), kHWXStatusNotFound);
    int calls = 0;
    ns->EnumerateClasses([&](Ptr<ICIMClass>) { return ++calls > 0; }, context);
    EXPECT_EQ(calls, 0);
  }
}

TEST_F(Namespace, WithoutAProviderAnswersEveryContext) {
  Commit("EX_Disk");
  TCIMContext any;
  any.emplace(TCIMSchemaHelper::kContextName, TCIMValue("cmpi"));
  EXPECT_TRUE(fNamespace->GetClass("EX_Disk", any));
}

// Qualifier declarations.

TEST_F(Namespace, HoldsAQualifierDeclarationOnlyOnceItIsCommitted) {
  const auto decl = fNamespace->CreateQualifierDecl("Units", "none", 3, 5, {});
  EXPECT_FALSE(fNamespace->GetQualifierDecl("Units", {}));
  decl->Commit({});
  EXPECT_EQ(fNamespace->GetQualifierDecl("UNITS", {}), decl);
  EXPECT_EQ(decl->GetName({}), "Units");
  EXPECT_EQ(decl->GetType({}), Type::kCIMTypeString);
  EXPECT_EQ(decl->GetDefaultValue({}), TCIMValue("none"));
  EXPECT_EQ(decl->GetScope({}), 3u);
  EXPECT_EQ(decl->GetFlavor({}), 5u);
  EXPECT_EQ(decl->GetNamespace({}), fNamespace);
}

TEST_F(Namespace, TellsAnAbsentQualifierDeclarationByAnEmptyPointer) {
  EXPECT_FALSE(fNamespace->GetQualifierDecl("Units", {}));
}

TEST_F(Namespace, RefusesBadQualifierDeclarations) {
  Declare("Units", "none");
  const auto create = [&](const std::string& name, const TCIMValue& value) {
    return StatusOf([&] { fNamespace->CreateQualifierDecl(name, value, 0, 0, {}); });
  };
  EXPECT_EQ(create("9", true), kHWXStatusInvalidCIMName);
  EXPECT_EQ(create("units", true), kHWXStatusAlreadyExists);
  EXPECT_EQ(create("Other", TCIMValue()), kHWXStatusTypeMismatch);
  EXPECT_EQ(create("Other", ReferenceTo(Create("EX_Open"))), kHWXStatusInvalidClass);
}

TEST_F(Namespace, CommitsAQualifierDeclarationOnce) {
  const auto first = fNamespace->CreateQualifierDecl("Units", true, 0, 0, {});
  const auto second = fNamespace->CreateQualifierDecl("Units", true, 0, 0, {});
  first->Commit({});
  EXPECT_EQ(StatusOf([&] { first->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { second->Commit({}); }), kHWXStatusAlreadyExists);
}

TEST_F(Namespace, PresentsQualifierDeclarationsInTheOrderOfCommitment) {
  Declare("B", true);
  Declare("A", true);
  const auto all = NamesFrom<ICIMQualifierDecl>(
      [&](const auto& callback) { fNamespace->EnumerateQualifierDecls(callback, {}); });
  EXPECT_THAT(all, ElementsAre("B", "A"));
  int calls = 0;
  fNamespace->EnumerateQualifierDecls([&](Ptr<ICIMQualifierDecl>) { return ++calls > 5; }, {});
  EXPECT_EQ(calls, 1);
}

// Lifetimes. What keeps itself alive shows as a leak under the sanitizer.

TEST(NamespaceLifetime, EndsWithItsLastHandleWhateverItHolds) {
  boost::weak_ptr<ICIMNamespace> watched;
  {
    const auto ns = TMemoryNamespace::Create("short");
    watched = ns;
    const auto disk = TClassBuilder(ns, "EX_Disk").Key("ID", "string").Commit();
    TClassBuilder(ns, "EX_On")
        .Association()
        .KeyReference("Disk", "EX_Disk")
        .StaticValue("Disk", ReferenceTo(disk))
        .Method("Eject", "boolean")
        .Parameter("Hard", "boolean")
        .Commit();
    TClassBuilder(ns, "EX_Sub", "EX_Disk").Commit();
    disk->AddInstance(disk->NewInstance()->Set("ID", "sda").shared_from_this());
    disk->SetStaticPropertyValue("ID", "none", {});
  }
  EXPECT_TRUE(watched.expired());
}

TEST(NamespaceLifetime, IsNotProlongedByAnythingInIt) {
  boost::weak_ptr<ICIMNamespace> watched;
  Ptr<TMemoryInstance> instance;
  Ptr<ICIMQualifierDecl> decl;
  {
    const auto ns = TMemoryNamespace::Create("short");
    watched = ns;
    const auto disk = TClassBuilder(ns, "EX_Disk").Key("ID", "string").Commit();
    instance = disk->NewInstance();
    instance->Set("ID", "sda");
    disk->AddInstance(instance);
    decl = ns->GetQualifierDecl("Key", {});
  }
  EXPECT_TRUE(watched.expired());
  const auto disk = instance->GetClass({});  // the instance holds its class
  EXPECT_EQ(disk->GetName({}), "EX_Disk");
  EXPECT_THAT(Properties(*disk), ElementsAre("ID"));
  EXPECT_FALSE(disk->GetNamespace({}));
  EXPECT_FALSE(instance->GetNamespace({}));
  EXPECT_FALSE(decl->GetNamespace({}));
  EXPECT_THAT(Instances(*disk), IsEmpty());
  EXPECT_EQ(instance->GetProperty("ID", {})->GetStringValue(), "sda");
  EXPECT_EQ(StatusOf([&] { disk->SetStaticPropertyValue("ID", "x", {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { disk->AddInstance(disk->CreateInstance({})); }),
            kHWXStatusInvalidOpSequence);
}

TEST(NamespaceLifetime, LeavesNothingToCommitTo) {
  auto ns = TMemoryNamespace::Create("short");
  const auto open = ns->CreateClass("EX_Disk", {}, {});
  const auto decl = ns->CreateQualifierDecl("Units", true, 0, 0, {});
  ns.reset();
  EXPECT_EQ(StatusOf([&] { open->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { decl->Commit({}); }), kHWXStatusInvalidOpSequence);
}

}  // namespace
}  // namespace hwxtest
