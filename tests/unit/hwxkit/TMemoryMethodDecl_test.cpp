// Method declarations and their parameters.

#include "hwxkit/TMemoryMethodDecl.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MethodDecl : public KitTest {
 protected:
  static Strings Parameters(ICIMMethodDecl& of) {
    return NamesFrom<ICIMParameterDecl>(
        [&](const auto& callback) { of.EnumerateParameterDecls(callback, {}); });
  }

  static Ptr<ICIMParameterDecl> AddParameter(ICIMMethodDecl& to, const std::string& name,
                                             Type::ECIMType type = Type::kCIMTypeBoolean) {
    const auto parameter = to.CreateParameterDecl(name, type, {});
    parameter->Commit({});
    return parameter;
  }
};

TEST_F(MethodDecl, IsInItsClassAtOnceAsItHasNoCommitStep) {
  const auto disk = Create("EX_Disk");
  const auto eject = disk->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {});
  EXPECT_EQ(disk->GetMethodDecl("EJECT", {}), eject);
  EXPECT_EQ(eject->GetName({}), "Eject");
  EXPECT_EQ(eject->GetReturnType({}), Type::kCIMTypeUInt32);
  EXPECT_EQ(eject->GetClass({}), disk);
  EXPECT_THAT(Methods(*disk), ElementsAre("Eject"));
  EXPECT_EQ(disk->GetMethodDeclCount({}), 1u);
}

TEST_F(MethodDecl, MayReturnNothing) {
  const auto method = Create("EX_Disk")->CreateMethodDecl("Eject", Type::kCIMTypeNone, {});
  EXPECT_EQ(method->GetReturnType({}), Type::kCIMTypeNone);
}

TEST_F(MethodDecl, IsReportedAbsentByAThrow) {
  EXPECT_EQ(StatusOf([&] { Create("EX_Disk")->GetMethodDecl("Eject", {}); }), kHWXStatusNotFound);
}

TEST_F(MethodDecl, IsRefusedWithABadNameOrTypeAndTheSecondTime) {
  const auto disk = Create("EX_Disk");
  disk->CreateMethodDecl("Eject", Type::kCIMTypeBoolean, {});
  const auto create = [&](const char* name, Type type) {
    return StatusOf([&] { disk->CreateMethodDecl(name, type, {}); });
  };
  EXPECT_EQ(create("", Type::kCIMTypeBoolean), kHWXStatusInvalidCIMName);
  EXPECT_EQ(create("Other", Type::kCIMTypeArrayFlag), kHWXStatusTypeMismatch);
  EXPECT_EQ(create("eject", Type::kCIMTypeBoolean), kHWXStatusAlreadyExists);
}

TEST_F(MethodDecl, HasAParameterOnlyOnceThatIsCommitted) {
  const auto disk = Create("EX_Disk");
  const auto eject = disk->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {});
  const auto hard = eject->CreateParameterDecl("Hard", kStringArray, {});
  EXPECT_THAT(Parameters(*eject), IsEmpty());
  EXPECT_EQ(StatusOf([&] { eject->GetParameterDecl("Hard", {}); }), kHWXStatusNotFound);
  hard->Commit({});
  EXPECT_EQ(eject->GetParameterDecl("HARD", {}), hard);
  EXPECT_EQ(hard->GetName({}), "Hard");
  EXPECT_EQ(hard->GetType({}), kStringArray);
  EXPECT_EQ(hard->GetMethodDecl({}), eject);
  EXPECT_EQ(StatusOf([&] { hard->Commit({}); }), kHWXStatusInvalidOpSequence);
}

TEST_F(MethodDecl, PresentsParametersInTheOrderOfCommitmentUntilToldToStop) {
  const auto disk = Create("EX_Disk");
  const auto eject = disk->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {});
  for (const char* name : {"C", "A", "B"})
    AddParameter(*eject, name);
  EXPECT_THAT(Parameters(*eject), ElementsAre("C", "A", "B"));
  int calls = 0;
  eject->EnumerateParameterDecls([&](Ptr<ICIMParameterDecl>) { return ++calls < 2; }, {});
  EXPECT_EQ(calls, 2);
  const auto fail = [](Ptr<ICIMParameterDecl>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(eject->EnumerateParameterDecls(fail, {}), std::logic_error);
}

TEST_F(MethodDecl, RefusesBadParameters) {
  const auto disk = Create("EX_Disk");
  const auto eject = disk->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {});
  const auto begun = eject->CreateParameterDecl("Hard", Type::kCIMTypeBoolean, {});
  AddParameter(*eject, "Hard");
  const auto create = [&](const char* name, Type type) {
    return StatusOf([&] { eject->CreateParameterDecl(name, type, {}); });
  };
  EXPECT_EQ(create("1", Type::kCIMTypeBoolean), kHWXStatusInvalidCIMName);
  EXPECT_EQ(create("Other", Type::kCIMTypeNone), kHWXStatusTypeMismatch);
  EXPECT_EQ(create("hard", Type::kCIMTypeBoolean), kHWXStatusAlreadyExists);
  EXPECT_EQ(StatusOf([&] { begun->Commit({}); }), kHWXStatusAlreadyExists);
}

TEST_F(MethodDecl, IsPresentedUntilToldToStopFromASnapshot) {
  const auto disk = Create("EX_Disk");
  disk->CreateMethodDecl("B", Type::kCIMTypeUInt32, {});
  disk->CreateMethodDecl("A", Type::kCIMTypeUInt32, {});
  Strings seen;
  disk->EnumerateMethodDecls(
      [&](Ptr<ICIMMethodDecl> method) {
        seen.push_back(NameOf(method));
        disk->CreateMethodDecl(seen.back() + "2", Type::kCIMTypeUInt32, {});
        return true;
      },
      {});
  EXPECT_THAT(seen, ElementsAre("B", "A"));
  int calls = 0;
  disk->EnumerateMethodDecls([&](Ptr<ICIMMethodDecl>) { return ++calls > 9; }, {});
  EXPECT_EQ(calls, 1);
  const auto fail = [](Ptr<ICIMMethodDecl>) -> bool { throw std::logic_error("mine"); };
  EXPECT_THROW(disk->EnumerateMethodDecls(fail, {}), std::logic_error);
}

// Inheritance: EX_Device has Eject(Hard, Now) and Reset().
class InheritedMethod : public MethodDecl {
 protected:
  void SetUp() override {
    fDevice = Create("EX_Device");
    const auto eject = fDevice->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {});
    AddParameter(*eject, "Hard");
    AddParameter(*eject, "Now");
    fDevice->CreateMethodDecl("Reset", Type::kCIMTypeUInt32, {});
    fDevice->Commit({});
    fDisk = Create("EX_Disk", fDevice);
  }

  Ptr<ICIMClass> fDevice;
  Ptr<ICIMClass> fDisk;
};

TEST_F(InheritedMethod, IsSeenWithItsParametersBeforeTheClasssOwn) {
  fDisk->CreateMethodDecl("Format", Type::kCIMTypeUInt32, {});
  EXPECT_THAT(Methods(*fDisk), ElementsAre("Eject", "Reset", "Format"));
  const auto eject = fDisk->GetMethodDecl("eject", {});
  EXPECT_EQ(eject->GetClass({}), fDevice);
  EXPECT_THAT(Parameters(*eject), ElementsAre("Hard", "Now"));
  EXPECT_EQ(eject->GetParameterDecl("Now", {})->GetMethodDecl({}), eject);
  EXPECT_THAT(Methods(*fDevice), ElementsAre("Eject", "Reset"));
}

TEST_F(InheritedMethod, IsFinal) {
  const auto eject = fDisk->GetMethodDecl("Eject", {});
  EXPECT_EQ(StatusOf([&] { eject->CreateParameterDecl("X", Type::kCIMTypeBoolean, {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { eject->CreateQualifier(Declare("Q", true), true, {}); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { eject->GetParameterDecl("Hard", {})->Commit({}); }),
            kHWXStatusInvalidOpSequence);
}

TEST_F(InheritedMethod, IsOverriddenInItsPlaceWithParametersOfItsOwn) {
  const auto over = fDisk->CreateMethodDecl("eject", Type::kCIMTypeUInt32, {});
  AddParameter(*over, "Soft");
  EXPECT_THAT(Methods(*fDisk), ElementsAre("eject", "Reset"));
  EXPECT_EQ(fDisk->GetMethodDecl("Eject", {}), over);
  EXPECT_EQ(over->GetClass({}), fDisk);
  EXPECT_THAT(Parameters(*over), ElementsAre("Soft"));
  EXPECT_THAT(Parameters(*fDevice->GetMethodDecl("Eject", {})), ElementsAre("Hard", "Now"));
  EXPECT_EQ(StatusOf([&] { fDisk->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {}); }),
            kHWXStatusAlreadyExists);
}

TEST_F(InheritedMethod, IsNotOverriddenByAnotherReturnType) {
  EXPECT_EQ(StatusOf([&] { fDisk->CreateMethodDecl("Eject", Type::kCIMTypeString, {}); }),
            kHWXStatusNotOverridable);
}

TEST_F(InheritedMethod, ReachesGrandchildren) {
  const auto over = fDisk->CreateMethodDecl("Eject", Type::kCIMTypeUInt32, {});
  AddParameter(*over, "Soft");
  fDisk->Commit({});
  const auto part = Commit("EX_Part", fDisk);
  EXPECT_THAT(Methods(*part), ElementsAre("Eject", "Reset"));
  EXPECT_THAT(Parameters(*part->GetMethodDecl("Eject", {})), ElementsAre("Soft"));
  EXPECT_EQ(part->GetMethodDecl("Reset", {})->GetClass({}), fDevice);
}

}  // namespace
}  // namespace hwxtest
