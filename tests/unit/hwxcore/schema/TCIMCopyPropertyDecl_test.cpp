#include <stdexcept>

#include "CopyTesting.h"

using namespace NQORHWX20;
using hwxtest::StatusOf;
using hwxtest::TracedText;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CopyPropertyDecl : public hwxtest::CopyTest {
 protected:
  static auto Entry() { return Pair("Debug", "TCopyPropertyDecl::operator() - Get an Exception"); }

  /// The source's class Disk, which inherits Size from Device; with `override` it overrides it.
  Ptr<ICIMClass> Disk(bool override) {
    for (const auto& ns : {fSource, fTarget}) {
      Declare(*ns, "Override", Null(Type::kCIMTypeString), kScopeAny, kFlavorRestricted);
      AddClass(*ns, "Device", {{"Size", 5UL}});
    }
    const auto disk = fSource->CreateClass("Disk", fSource->GetClass("Device", {}), {});
    if (override) {
      const auto size = disk->CreatePropertyDecl("Size", 7UL, {});
      Qualify(*fSource, *size, "Override", "Size");
      size->Commit({});
    }
    disk->Commit({});
    fOpen = fTarget->CreateClass("Disk", fTarget->GetClass("Device", {}), {});
    return disk;
  }

  /// Runs the functor on the source's declarations and the target's open class.
  Strings CallsOfCopy(const Ptr<ICIMClass>& source) {
    return CallsOf([&] { source->EnumeratePropertyDecls(TCopyPropertyDecl(fOpen, fTarget), {}); });
  }

  Ptr<ICIMClass> fOpen;
};

TEST_F(CopyPropertyDecl, LeavesAnInheritedPropertyAlone) {
  EXPECT_THAT(
      CallsOfCopy(Disk(false)),
      ElementsAre("source.Disk.EnumeratePropertyDecls", "source.Disk.Size.GetName",
                  "target.Disk.GetPropertyDecl(Size)", "source.Disk.Size.GetQualifier(OVERRIDE)"));
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyPropertyDecl, TakesAnyFailureOfTheLibraryForALackOfTheQualifier) {
  const auto disk = Disk(true);
  fTrace.Fail("source.Disk.Size.GetQualifier(OVERRIDE)", kHWXStatusAccessDenied);
  EXPECT_EQ(CallsOfCopy(disk).back(), "source.Disk.Size.GetQualifier(OVERRIDE)");
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyPropertyDecl, DeclaresAPropertyAgainThatOverrides) {
  EXPECT_THAT(
      CallsOfCopy(Disk(true)),
      ElementsAre("source.Disk.EnumeratePropertyDecls", "source.Disk.Size.GetName",
                  "target.Disk.GetPropertyDecl(Size)", "source.Disk.Size.GetQualifier(OVERRIDE)",
                  "source.Disk.Size.GetDefaultValue",
                  "target.Disk.CreatePropertyDecl(Size, uint64 7)",
                  "source.Disk.Size.EnumerateQualifiers",
                  "source.Disk.Size[Override].GetQualifierDecl", "source[Override].GetName",
                  "target.GetQualifierDecl(Override)", "source.Disk.Size[Override].GetValue",
                  "target.Disk.Size.CreateQualifier(target[Override], string Size)",
                  "target.Disk.Size[Override].Commit", "target.Disk.Size.Commit"));
  EXPECT_EQ(TracedText(fOpen->GetPropertyDecl("Size", {})->GetDefaultValue({})), "uint64 7");
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyPropertyDecl, TakesAnyAnswerForTheQualifierAlsoAnEmptyOne) {
  const auto disk = Disk(false);
  fTrace.Withhold("source.Disk.Size.GetQualifier(OVERRIDE)");
  const Strings calls = CallsOfCopy(disk);
  EXPECT_THAT(calls, testing::Contains("target.Disk.CreatePropertyDecl(Size, uint64 5)"));
  EXPECT_EQ(calls.back(), "target.Disk.Size.Commit");
}

TEST_F(CopyPropertyDecl, TakesAnyAnswerOfTheTargetForTheProperty) {
  const auto disk = Disk(false);
  fTrace.Withhold("target.Disk.GetPropertyDecl(Size)");
  EXPECT_EQ(CallsOfCopy(disk).back(), "source.Disk.Size.GetQualifier(OVERRIDE)");
  EXPECT_EQ(fStatus, kHWXStatusOK);
}

TEST_F(CopyPropertyDecl, DoesNotAskForTheQualifierOfANewProperty) {
  AddClass(*fSource, "Disk", {{"Size", 5UL}});
  fOpen = fTarget->CreateClass("Disk", {}, {});
  EXPECT_THAT(CallsOfCopy(fSource->GetClass("Disk", {})),
              ElementsAre("source.Disk.EnumeratePropertyDecls", "source.Disk.Size.GetName",
                          "target.Disk.GetPropertyDecl(Size)", "source.Disk.Size.GetDefaultValue",
                          "target.Disk.CreatePropertyDecl(Size, uint64 5)",
                          "source.Disk.Size.EnumerateQualifiers", "target.Disk.Size.Commit"));
}

TEST_F(CopyPropertyDecl, PassesEveryOtherStatusOfTheLookUpOnUnlogged) {
  const auto disk = Disk(true);
  fTrace.Fail("target.Disk.GetPropertyDecl(Size)", kHWXStatusAccessDenied);
  EXPECT_EQ(CallsOfCopy(disk).back(), "target.Disk.GetPropertyDecl(Size)");
  EXPECT_EQ(fStatus, kHWXStatusAccessDenied);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyPropertyDecl, PassesExceptionsThatAreNotTheLibrarysOnFromEachStep) {
  const auto disk = Disk(true);
  for (const std::string& call : CallsOfCopy(disk)) {
    fTrace.Do(call, [] { throw std::runtime_error("broken"); });
    fOpen = fTarget->CreateClass("Disk", fTarget->GetClass("Device", {}), {});
    EXPECT_THROW(CallsOfCopy(disk), std::runtime_error) << call;
    fTrace.Do(call, [] {});
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyPropertyDecl, PassesOverADefaultValueThatCannotBeCopiedAndGoesOn) {
  const auto only = AddClass(*fSource, "Only");
  const auto disk = AddClass(*fSource, "Disk", {{"About", ReferenceTo(only)}, {"Size", 5UL}});
  fTrace.Forget();
  TCIMCopy::CopyClass(disk, fTarget);
  EXPECT_THAT(fTrace.Calls(),
              ElementsAre("source.Disk.IsRootClass", "source.Disk.GetName",
                          "target.CreateClass(Disk, none)", "source.Disk.EnumerateQualifiers",
                          "source.Disk.EnumeratePropertyDecls",  //
                          "source.Disk.About.GetName", "target.Disk.GetPropertyDecl(About)",
                          "source.Disk.About.GetDefaultValue", "source.Only.GetName",
                          "target.GetClass(Only)",  //
                          "source.Disk.Size.GetName", "target.Disk.GetPropertyDecl(Size)",
                          "source.Disk.Size.GetDefaultValue",
                          "target.Disk.CreatePropertyDecl(Size, uint64 5)",
                          "source.Disk.Size.EnumerateQualifiers", "target.Disk.Size.Commit",  //
                          "source.Disk.EnumerateStaticProperties",
                          "source.Disk.EnumerateMethodDecls", "target.Disk.Commit"));
  EXPECT_THAT(Properties(*fTarget->GetClass("Disk", {})), ElementsAre("Size"));
  EXPECT_THAT(fLog.Lines(), ElementsAre(Entry()));
}

TEST_F(CopyPropertyDecl, RewritesADefaultValueThatIsAReference) {
  const auto thing = AddClass(*fSource, "Thing");
  AddClass(*fTarget, "Thing");
  TCIMCopy::CopyClass(AddClass(*fSource, "Disk", {{"About", ReferenceTo(thing)}}), fTarget);
  EXPECT_EQ(
      TracedText(fTarget->GetClass("Disk", {})->GetPropertyDecl("About", {})->GetDefaultValue({})),
      "reference(target.Thing) null");
}

TEST_F(CopyPropertyDecl, WritesItsEntryAtDebugLevel) {
  const auto disk = Disk(true);
  fTrace.Fail("target.Disk.Size.Commit", kHWXStatusAccessDenied);
  TLogger::SetLogThreshold(ILogger::kHWXLogStatus);
  CallsOfCopy(disk);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
  TLogger::SetLogThreshold(ILogger::kHWXLogDebug);
  CallsOfCopy(disk);
  EXPECT_THAT(fLog.Lines(), ElementsAre(Entry()));
}

TEST_F(CopyPropertyDecl, CountsATargetThatReturnsNoDeclarationAsAFailure) {
  const auto disk = Disk(true);
  fTrace.Withhold("target.Disk.CreatePropertyDecl(Size, uint64 7)");
  CallsOfCopy(disk);
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(fLog.Lines(), ElementsAre(Entry()));
}

TEST_F(CopyPropertyDecl, HoldsTheClassStronglyButTheTargetWeakly) {
  const auto decl = AddClass(*fSource, "Disk", {{"Size", 5UL}})->GetPropertyDecl("Size", {});
  const auto kit = TMemoryNamespace::Create("held");
  const Ptr<ICIMClass> open = kit->CreateClass("Disk", {}, {});
  Ptr<ICIMNamespace> ns = TMemoryNamespace::Create("gone");
  const boost::function<bool(Ptr<ICIMPropertyDecl>)> functor = TCopyPropertyDecl(open, ns);
  EXPECT_EQ(open.use_count(), 2);
  EXPECT_EQ(ns.use_count(), 1);
  ns.reset();
  // The lock is inside the guarded step.
  EXPECT_TRUE(functor(decl));
  EXPECT_THAT(fLog.Lines(), ElementsAre(Entry()));
  EXPECT_THAT(Properties(*open), IsEmpty());
}

}  // namespace
