// Classes among their neighbours, and their way to being final.

#include "hwxkit/TMemoryClass.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ClassTree : public KitTest {};

TEST_F(ClassTree, KnowsRootAndSuperclass) {
  const auto device = Commit("EX_Device");
  const auto disk = Commit("EX_Disk", device);
  EXPECT_TRUE(device->IsRootClass({}));
  EXPECT_FALSE(disk->IsRootClass({}));
  EXPECT_EQ(disk->GetSuperClass({}), device);
  EXPECT_EQ(StatusOf([&] { device->GetSuperClass({}); }), kHWXStatusNotFound);
  EXPECT_EQ(disk->GetNamespace({}), fNamespace);
}

// A; B and C below A; D below B; E below C, in an order of commitment that mixes the branches.
class BranchedTree : public ClassTree {
 protected:
  void SetUp() override {
    fA = Commit("EX_A");
    const auto b = Create("EX_B", fA);
    const auto c = Commit("EX_C", fA);
    b->Commit({});
    Commit("EX_E", c);
    Commit("EX_D", b);
    Commit("EX_Unrelated");
  }

  Ptr<ICIMClass> fA;
};

TEST_F(BranchedTree, PresentsDirectSubclassesInTheOrderOfCommitment) {
  EXPECT_THAT(SubClasses(*fA, false), ElementsAre("EX_C", "EX_B"));
  EXPECT_EQ(fA->GetSubClassCount(false, {}), 2u);
}

TEST_F(BranchedTree, PresentsAllDescendantsInTheOrderOfCommitment) {
  EXPECT_THAT(SubClasses(*fA, true), ElementsAre("EX_C", "EX_B", "EX_E", "EX_D"));
  EXPECT_EQ(fA->GetSubClassCount(true, {}), 4u);
}

TEST_F(BranchedTree, StopsPresentingSubclassesWhenTold) {
  int calls = 0;
  fA->EnumerateSubClasses([&](Ptr<ICIMClass>) { return ++calls < 3; }, true, {});
  EXPECT_EQ(calls, 3);
}

TEST_F(BranchedTree, PassesOnWhatACallbackThrows) {
  const auto fail = [](Ptr<ICIMClass>) -> bool { throw THWXException(kHWXStatusFail); };
  EXPECT_EQ(StatusOf([&] { fA->EnumerateSubClasses(fail, true, {}); }), kHWXStatusFail);
}

TEST_F(BranchedTree, LetsACallbackChangeTheTree) {
  Strings seen;
  fA->EnumerateSubClasses(
      [&](Ptr<ICIMClass> presented) {
        seen.push_back(presented->GetName({}));
        Commit("New" + seen.back(), presented);
        return true;
      },
      true, {});
  EXPECT_THAT(seen, ElementsAre("EX_C", "EX_B", "EX_E", "EX_D"));
  EXPECT_EQ(fA->GetSubClassCount(true, {}), 8u);
}

TEST_F(BranchedTree, TellsDescentByNameInAnyCase) {
  const auto d = fNamespace->GetClass("EX_D", {});
  EXPECT_TRUE(d->IsSubClassOf("ex_a", {}));
  EXPECT_TRUE(d->IsSubClassOf("EX_B", {}));
  EXPECT_FALSE(d->IsSubClassOf("EX_D", {}));
  EXPECT_FALSE(d->IsSubClassOf("EX_C", {}));
  EXPECT_TRUE(fA->IsSuperClassOf("ex_d", {}));
  EXPECT_FALSE(fA->IsSuperClassOf("EX_A", {}));
  EXPECT_FALSE(fA->IsSuperClassOf("EX_Unrelated", {}));
  EXPECT_FALSE(fA->IsSuperClassOf("EX_None", {}));
}

TEST_F(ClassTree, HasNoSubclassUntilThatIsCommitted) {
  const auto device = Commit("EX_Device");
  const auto disk = Create("EX_Disk", device);
  EXPECT_FALSE(device->HasSubClasses({}));
  EXPECT_THAT(SubClasses(*device, true), IsEmpty());
  disk->Commit({});
  EXPECT_TRUE(device->HasSubClasses({}));
}

TEST_F(ClassTree, KeepsItsSuperclassAliveButNoSubclass) {
  boost::weak_ptr<ICIMClass> device;
  boost::weak_ptr<ICIMClass> sibling;
  Ptr<ICIMClass> disk;
  {
    const auto ns = TMemoryNamespace::Create("short");
    const auto made = TClassBuilder(ns, "EX_Device").Commit();
    device = made;
    sibling = TClassBuilder(ns, "EX_Sibling", "EX_Device").Commit();
    disk = TClassBuilder(ns, "EX_Disk", "EX_Device").Commit();
  }
  ASSERT_FALSE(device.expired());
  EXPECT_TRUE(sibling.expired());
  EXPECT_EQ(disk->GetSuperClass({}), device.lock());
  EXPECT_THAT(SubClasses(*device.lock(), true), ElementsAre("EX_Disk"));
}

TEST_F(ClassTree, IsItsElementWithoutAdjustmentAndItsQualifiedElementWithOne) {
  const auto disk = Commit("EX_Disk");
  const Ptr<ICIMElement> element = disk;
  const Ptr<ICIMQualifiedElement> qualified = disk;
  EXPECT_EQ(static_cast<void*>(element.get()), static_cast<void*>(disk.get()));
  EXPECT_NE(static_cast<void*>(qualified.get()), static_cast<void*>(disk.get()));
  EXPECT_FALSE(qualified.owner_before(disk) || disk.owner_before(qualified));
}

// The order create, fill, commit.

TEST_F(ClassTree, IsCommittedOnce) {
  const auto disk = Create("EX_Disk");
  EXPECT_FALSE(disk->IsCommitted({}));
  disk->Commit({});
  EXPECT_TRUE(disk->IsCommitted({}));
  EXPECT_EQ(StatusOf([&] { disk->Commit({}); }), kHWXStatusInvalidOpSequence);
}

TEST_F(ClassTree, RefusesDeclarationsAndQualifiersOnceFinal) {
  const auto units = Declare("Units", "none");
  const auto disk = Create("EX_Disk");
  const auto lateProperty = disk->CreatePropertyDecl("Late", 1, {});
  const auto lateQualifier = disk->CreateQualifier(units, "x", {});
  const auto method = disk->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
  const auto lateParameter = method->CreateParameterDecl("Hard", Type::kCIMTypeBoolean, {});
  const auto lateMethodQualifier = method->CreateQualifier(units, "x", {});
  disk->Commit({});

  const auto refused = [](const auto& call) { return StatusOf(call); };
  EXPECT_EQ(refused([&] { disk->CreatePropertyDecl("More", 1, {}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { disk->CreateMethodDecl("More", Type::kCIMTypeBoolean, {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { disk->CreateQualifier(units, "x", {}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { method->CreateQualifier(units, "x", {}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { method->CreateParameterDecl("X", Type::kCIMTypeBoolean, {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { lateProperty->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { lateQualifier->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { lateParameter->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(refused([&] { lateMethodQualifier->Commit({}); }), kHWXStatusInvalidOpSequence);

  EXPECT_THAT(Properties(*disk), IsEmpty());
  EXPECT_THAT(Qualifiers(*disk), IsEmpty());
  EXPECT_THAT(Qualifiers(*method), IsEmpty());
}

TEST_F(ClassTree, HasNoInstancesBeforeItIsFinal) {
  const auto disk = Create("EX_Disk");
  EXPECT_EQ(StatusOf([&] { disk->CreateInstance({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { disk->AddInstance({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_THAT(Instances(*disk, true), IsEmpty());
}

TEST_F(ClassTree, LeavesDeclarationsOfADroppedClassWithNothingToCommitTo) {
  auto disk = Create("EX_Disk");
  const auto property = disk->CreatePropertyDecl("Size", 1, {});
  const auto qualifier = disk->CreateQualifier(Declare("Units", "none"), "x", {});
  auto method = disk->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
  disk.reset();
  EXPECT_FALSE(property->GetClass({}));
  EXPECT_EQ(StatusOf([&] { property->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { qualifier->Commit({}); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { method->CreateParameterDecl("X", Type::kCIMTypeBoolean, {}); }),
            kHWXStatusInvalidOpSequence);
}

// What would let a class hold itself.

TEST_F(ClassTree, RefusesReferencesToAClassThatIsOpen) {
  const auto disk = Create("EX_Disk");
  const TCIMValue self = ReferenceTo(disk);
  const TCIMValue array(Type::kCIMTypeReference, 0, {self});
  for (const TCIMValue& value : {self, array}) {
    EXPECT_EQ(StatusOf([&] { disk->CreatePropertyDecl("Self", value, {}); }),
              kHWXStatusInvalidClass);
  }

  AddProperty(*disk, "Any", Null(Type::kCIMTypeReference));
  EXPECT_EQ(StatusOf([&] { disk->SetStaticPropertyValue("Any", self, {}); }),
            kHWXStatusInvalidClass);
  disk->SetStaticPropertyValue("Any", Null(Type::kCIMTypeReference), {});
  const auto any = disk->GetStaticProperty("Any", {});
  EXPECT_EQ(StatusOf([&] { any->SetValue(self, {}); }), kHWXStatusInvalidClass);

  const auto decl = Declare("Refers", Null(Type::kCIMTypeReference));
  EXPECT_EQ(StatusOf([&] { disk->CreateQualifier(decl, self, {}); }), kHWXStatusInvalidClass);
}

TEST_F(ClassTree, TakesReferencesToCommittedClasses) {
  const auto target = Commit("EX_Target");
  const auto disk = Create("EX_Disk", target);
  AddProperty(*disk, "Ref", ReferenceTo(target));
  AddProperty(*disk, "Refs", TCIMValue(Type::kCIMTypeReference, 0, {ReferenceTo(target)}));
  disk->Commit({});
  disk->SetStaticPropertyValue("Ref", ReferenceTo(disk), {});
  const auto statics = disk->GetStaticProperty("Ref", {});
  EXPECT_EQ(statics->GetValue({}).GetReferencedClass(), disk);
  EXPECT_EQ(disk->GetPropertyDecl("ref", {})->GetDefaultValue({}).GetReferencedClass(), target);
}

}  // namespace
}  // namespace hwxtest
