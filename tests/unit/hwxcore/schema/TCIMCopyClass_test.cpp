#include <algorithm>
#include <stdexcept>

#include "CopyTesting.h"

using namespace NQORHWX20;
using hwxtest::CallTrace;
using hwxtest::StatusOf;
using hwxtest::TracedNamespace;
using hwxtest::TracedText;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Pair;

namespace {

static_assert(
    std::is_same_v<decltype(&TCIMCopy::CopyClass),
                   void (*)(boost::shared_ptr<ICIMClass>, boost::shared_ptr<ICIMNamespace>)>);

class CopyClass : public hwxtest::CopyTest {
 protected:
  /// A class with something of every kind in it, each element with a qualifier of its own.
  void AddDisk(bool withStaticValue = true) {
    for (const char* const name : {"OnClass", "OnProperty", "OnMethod", "OnParameter"})
      Declare(*fSource, name, false);
    const auto disk = fSource->CreateClass("Disk", {}, {});
    Qualify(*fSource, *disk, "OnClass", true);
    const auto size = disk->CreatePropertyDecl("Size", 5UL, {});
    Qualify(*fSource, *size, "OnProperty", true);
    size->Commit({});
    if (withStaticValue) disk->SetStaticPropertyValue("Size", 6UL, {});
    const auto reset = disk->CreateMethodDecl("Reset", Type("uint32"), {});
    const auto mode = reset->CreateParameterDecl("Mode", Type("string"), {});
    Qualify(*fSource, *mode, "OnParameter", true);
    mode->Commit({});
    Qualify(*fSource, *reset, "OnMethod", true);
    disk->Commit({});
  }

  /// The calls that copy a qualifier whose declaration the target lacks.
  static Strings QualifierCalls(const std::string& element, const std::string& name) {
    const std::string from = "source." + element + "[" + name + "].";
    return {from + "GetQualifierDecl",
            "source[" + name + "].GetName",
            "target.GetQualifierDecl(" + name + ")",
            "source[" + name + "].GetFlavor",
            "source[" + name + "].GetScope",
            "source[" + name + "].GetDefaultValue",
            "source[" + name + "].GetName",
            "target.CreateQualifierDecl(" + name + ", boolean false, 127, 3)",
            "target[" + name + "].Commit",
            from + "GetValue",
            "target." + element + ".CreateQualifier(target[" + name + "], boolean true)",
            "target." + element + "[" + name + "].Commit"};
  }

  static Strings Joined(const std::vector<Strings>& parts) {
    Strings all;
    for (const Strings& part : parts)
      all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  /// What the guarded step of the property `Size` calls.
  static Strings GuardedCalls() {
    return Joined(
        {{"source.Disk.Size.GetDefaultValue", "target.Disk.CreatePropertyDecl(Size, uint64 5)",
          "source.Disk.Size.EnumerateQualifiers"},
         QualifierCalls("Disk.Size", "OnProperty"),
         {"target.Disk.Size.Commit"}});
  }

  Strings CallsOfCopy(const std::string& name) {
    const auto source = fSource->GetClass(name, {});
    return CallsOf([&] { TCIMCopy::CopyClass(source, fTarget); });
  }
};

TEST_F(CopyClass, BuildsAClassInThisOrder) {
  AddDisk();
  const Strings expected = Joined({
      {"source.Disk.IsRootClass", "source.Disk.GetName", "target.CreateClass(Disk, none)",
       "source.Disk.EnumerateQualifiers"},
      QualifierCalls("Disk", "OnClass"),
      {"source.Disk.EnumeratePropertyDecls", "source.Disk.Size.GetName",
       "target.Disk.GetPropertyDecl(Size)"},
      GuardedCalls(),
      {"source.Disk.EnumerateStaticProperties", "source.Disk::Size.GetValue",
       "source.Disk::Size.GetPropertyDecl", "source.Disk.Size.GetName",
       "target.Disk.SetStaticPropertyValue(Size, uint64 6)"},
      {"source.Disk.EnumerateMethodDecls", "source.Disk.Reset().GetReturnType",
       "source.Disk.Reset().GetName", "target.Disk.CreateMethodDecl(Reset, uint32)",
       "source.Disk.Reset().EnumerateParameterDecls", "source.Disk.Reset(Mode).GetType",
       "source.Disk.Reset(Mode).GetName", "target.Disk.Reset().CreateParameterDecl(Mode, string)",
       "source.Disk.Reset(Mode).EnumerateQualifiers"},
      QualifierCalls("Disk.Reset(Mode)", "OnParameter"),
      {"target.Disk.Reset(Mode).Commit", "source.Disk.Reset().EnumerateQualifiers"},
      QualifierCalls("Disk.Reset()", "OnMethod"),
      {"target.Disk.Commit"},
  });
  EXPECT_THAT(CallsOfCopy("Disk"), ElementsAreArray(expected));
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, PassesOverAPropertyWhoseGuardedStepFailsAnywhere) {
  AddDisk(false);
  const Strings guarded = GuardedCalls();
  for (const std::string& call : guarded) {
    CallTrace trace;
    const auto source = TracedNamespace(fSourceKit, "source", trace)->GetClass("Disk", {});
    const auto kit = TMemoryNamespace::Create("to");
    trace.Fail(call, kHWXStatusAccessDenied);
    TCIMCopy::CopyClass(source, TracedNamespace(kit, "target", trace));
    EXPECT_THAT(trace.Calls(), testing::Contains(call));
    ASSERT_TRUE(kit->FindClass("Disk")) << call;
    EXPECT_THAT(Properties(*kit->FindClass("Disk")), IsEmpty()) << call;
  }
  EXPECT_EQ(fLog.Lines().size(), guarded.size());
  EXPECT_THAT(fLog.Lines(),
              testing::Each(Pair("Debug", "TCopyPropertyDecl::operator() - Get an Exception")));
}

TEST_F(CopyClass, PassesEveryOtherFailureOnUnlogged) {
  AddDisk();
  const Strings guarded = GuardedCalls();
  for (const std::string& call : CallsOfCopy("Disk")) {
    if (std::count(guarded.begin(), guarded.end(), call) != 0) continue;
    CallTrace trace;
    const auto source = TracedNamespace(fSourceKit, "source", trace)->GetClass("Disk", {});
    const auto kit = TMemoryNamespace::Create("to");
    trace.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClass(source, TracedNamespace(kit, "target", trace)); }),
              kHWXStatusAccessDenied)
        << call;
    EXPECT_EQ(trace.Calls().back(), call);
    EXPECT_FALSE(kit->FindClass("Disk")) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, PassesEveryExceptionThatIsNotTheLibrarysOn) {
  AddDisk();
  for (const std::string& call : CallsOfCopy("Disk")) {
    CallTrace trace;
    const auto source = TracedNamespace(fSourceKit, "source", trace)->GetClass("Disk", {});
    const auto kit = TMemoryNamespace::Create("to");
    trace.Do(call, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(TCIMCopy::CopyClass(source, TracedNamespace(kit, "target", trace)),
                 std::runtime_error)
        << call;
    EXPECT_EQ(trace.Calls().back(), call);
    EXPECT_FALSE(kit->FindClass("Disk")) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, TakesNoMutex) {
  AddDisk();
  const Strings calls = CallsOfCopy("Disk");
  CallTrace trace;
  const auto source = TracedNamespace(fSourceKit, "source", trace)->GetClass("Disk", {});
  for (const std::string& call : calls)
    trace.Do(call, [&call] { EXPECT_TRUE(hwxtest::IsCopyInstMutexFree()) << call; });
  TCIMCopy::CopyClass(source, TracedNamespace(TMemoryNamespace::Create("to"), "target", trace));
}

TEST_F(CopyClass, LooksTheSuperclassUpInTheTarget) {
  for (const auto& ns : {fSource, fTarget})
    AddClass(*ns, "Device");
  AddClass(*fSource, "Disk", {}, fSource->GetClass("Device", {}));
  EXPECT_THAT(
      CallsOfCopy("Disk"),
      ElementsAre("source.Disk.IsRootClass", "source.Disk.GetSuperClass", "source.Device.GetName",
                  "target.GetClass(Device)", "source.Disk.GetName",
                  "target.CreateClass(Disk, target.Device)", "source.Disk.EnumerateQualifiers",
                  "source.Disk.EnumeratePropertyDecls", "source.Disk.EnumerateStaticProperties",
                  "source.Disk.EnumerateMethodDecls", "target.Disk.Commit"));
}

TEST_F(CopyClass, FailsUnloggedIfTheTargetLacksTheSuperclass) {
  AddClass(*fSource, "Device");
  AddClass(*fSource, "Disk", {}, fSource->GetClass("Device", {}));
  EXPECT_THAT(CallsOfCopy("Disk"),
              ElementsAre("source.Disk.IsRootClass", "source.Disk.GetSuperClass",
                          "source.Device.GetName", "target.GetClass(Device)"));
  EXPECT_EQ(fStatus, kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, LeavesItToTheTargetWhetherTheClassMayExist) {
  AddClass(*fSource, "Disk", {{"Size", 5UL}});
  AddClass(*fTarget, "Disk");
  EXPECT_THAT(CallsOfCopy("Disk"), ElementsAre("source.Disk.IsRootClass", "source.Disk.GetName",
                                               "target.CreateClass(Disk, none)"));
  EXPECT_EQ(fStatus, kHWXStatusAlreadyExists);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, LeavesItToTheTargetWhetherAMethodOrAParameterMayExist) {
  const auto disk = fSource->CreateClass("Disk", {}, {});
  const auto reset = disk->CreateMethodDecl("Reset", Type("uint32"), {});
  reset->CreateParameterDecl("Mode", Type("string"), {})->Commit({});
  disk->Commit({});
  for (const char* const call : {"target.Disk.CreateMethodDecl(Reset, uint32)",
                                 "target.Disk.Reset().CreateParameterDecl(Mode, string)"}) {
    fTrace.Fail(call, kHWXStatusAlreadyExists);
    EXPECT_EQ(CallsOfCopy("Disk").back(), call);
    EXPECT_EQ(fStatus, kHWXStatusAlreadyExists);
    fTrace.Do(call, [] {});
  }
  EXPECT_FALSE(fTargetKit->FindClass("Disk"));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, CopiesStaticValuesNullOnesAndReferencesToo) {
  const auto thing = AddClass(*fSource, "Thing", {{"Id", 0U}});
  AddClass(*fTarget, "Thing", {{"Id", 0U}});
  const auto disk = fSource->CreateClass("Disk", {}, {});
  AddProperty(*disk, "About", ReferenceTo(thing));
  AddProperty(*disk, "Label", "from the class");
  disk->SetStaticPropertyValue("About", ReferenceValue(fSource, "Thing", {{"Id", 1U}}), {});
  disk->SetStaticPropertyValue("Label", Null(Type::kCIMTypeString), {});
  disk->Commit({});
  const Strings calls = CallsOfCopy("Disk");
  const auto first = std::find(calls.begin(), calls.end(), "source.Disk.EnumerateStaticProperties");
  EXPECT_THAT(Strings(first, calls.end()),
              ElementsAre("source.Disk.EnumerateStaticProperties",  //
                          "source.Disk::About.GetValue",            // read once: no test for null
                          "source.Thing.GetName", "target.GetClass(Thing)", "source.Thing.GetName",
                          "target.GetClass(Thing)", "target.Thing.GetPropertyDecl(Id)",
                          "target.Thing.Id.GetType", "source.Disk::About.GetPropertyDecl",
                          "source.Disk.About.GetName",
                          "target.Disk.SetStaticPropertyValue(About, "
                          "reference(target.Thing Id=uint32 1))",  //
                          "source.Disk::Label.GetValue", "source.Disk::Label.GetPropertyDecl",
                          "source.Disk.Label.GetName",
                          "target.Disk.SetStaticPropertyValue(Label, string null)",
                          "source.Disk.EnumerateMethodDecls", "target.Disk.Commit"));
}

TEST_F(CopyClass, FailsIfAStaticReferenceCannotBeRewritten) {
  const auto thing = AddClass(*fSource, "Thing");
  const auto disk = fSource->CreateClass("Disk", {}, {});
  AddProperty(*disk, "About", ReferenceTo(thing));
  disk->SetStaticPropertyValue("About", ReferenceTo(thing), {});
  disk->Commit({});
  EXPECT_EQ(CallsOfCopy("Disk").back(), "target.GetClass(Thing)");
  EXPECT_EQ(fStatus, kHWXStatusNotFound);
  EXPECT_FALSE(fTargetKit->FindClass("Disk"));
  // The declaration was passed over before that.
  EXPECT_EQ(fLog.Lines().size(), 1U);
}

TEST_F(CopyClass, CreatesAMethodThenItsParametersThenItsQualifiersAndCommitsTheParametersOnly) {
  Declare(*fSource, "Note", "");
  Declare(*fTarget, "Note", "");
  const auto disk = fSource->CreateClass("Disk", {}, {});
  const auto reset = disk->CreateMethodDecl("Reset", Type("uint32"), {});
  Qualify(*fSource, *reset, "Note", "of the method");
  for (const char* const name : {"Mode", "Count"})
    reset->CreateParameterDecl(name, Type("sint16"), {})->Commit({});
  disk->CreateMethodDecl("Another", Type(Type::kCIMTypeNone), {});
  disk->Commit({});
  const Strings calls = CallsOfCopy("Disk");
  const auto first = std::find(calls.begin(), calls.end(), "source.Disk.EnumerateMethodDecls");
  EXPECT_THAT(Strings(first, calls.end()),
              ElementsAre("source.Disk.EnumerateMethodDecls",  //
                          "source.Disk.Reset().GetReturnType", "source.Disk.Reset().GetName",
                          "target.Disk.CreateMethodDecl(Reset, uint32)",
                          "source.Disk.Reset().EnumerateParameterDecls",  //
                          "source.Disk.Reset(Mode).GetType", "source.Disk.Reset(Mode).GetName",
                          "target.Disk.Reset().CreateParameterDecl(Mode, sint16)",
                          "source.Disk.Reset(Mode).EnumerateQualifiers",
                          "target.Disk.Reset(Mode).Commit",  //
                          "source.Disk.Reset(Count).GetType", "source.Disk.Reset(Count).GetName",
                          "target.Disk.Reset().CreateParameterDecl(Count, sint16)",
                          "source.Disk.Reset(Count).EnumerateQualifiers",
                          "target.Disk.Reset(Count).Commit",  //
                          "source.Disk.Reset().EnumerateQualifiers",
                          "source.Disk.Reset()[Note].GetQualifierDecl", "source[Note].GetName",
                          "target.GetQualifierDecl(Note)", "source.Disk.Reset()[Note].GetValue",
                          "target.Disk.Reset().CreateQualifier(target[Note], string of the method)",
                          "target.Disk.Reset()[Note].Commit",  //
                          "source.Disk.Another().GetReturnType", "source.Disk.Another().GetName",
                          "target.Disk.CreateMethodDecl(Another, none)",
                          "source.Disk.Another().EnumerateParameterDecls",
                          "source.Disk.Another().EnumerateQualifiers",  //
                          "target.Disk.Commit"));
}

// The first element that an enumeration presents.
template <typename Element, typename Enumerate>
boost::shared_ptr<Element> FirstOf(const Enumerate& enumerate) {
  std::vector<boost::shared_ptr<Element> > elements;
  enumerate(TAddToVectorCallback<Element>(&elements));
  return elements.at(0);
}

TEST_F(CopyClass, StaticPropertyAndMethodFunctorsHoldTheClassStronglyButTheTargetWeakly) {
  AddDisk();
  const auto disk = fSourceKit->GetClass("Disk", {});
  const auto property = FirstOf<ICIMProperty>(
      [&](const auto& callback) { disk->EnumerateStaticProperties(callback, {}); });
  const auto method = FirstOf<ICIMMethodDecl>(
      [&](const auto& callback) { disk->EnumerateMethodDecls(callback, {}); });
  const Ptr<ICIMClass> open = fTargetKit->CreateClass("Disk", {}, {});
  Ptr<ICIMNamespace> ns = TMemoryNamespace::Create("gone");
  const TCopyStaticProperty copyProperty(open, ns);
  const TCopyMethodDecl copyMethod(open, ns);
  EXPECT_EQ(open.use_count(), 3);
  EXPECT_EQ(ns.use_count(), 1);
  ns.reset();
  EXPECT_EQ(StatusOf([&] { copyProperty(property); }), kHWXStatusInvalidOpSequence);
  // At the qualifier of the parameter, which is the first to need the target.
  EXPECT_EQ(StatusOf([&] { copyMethod(method); }), kHWXStatusInvalidOpSequence);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClass, ParameterFunctorHoldsMethodAndTargetWeakly) {
  AddDisk();
  const auto disk = fSourceKit->GetClass("Disk", {});
  const auto reset = FirstOf<ICIMMethodDecl>(
      [&](const auto& callback) { disk->EnumerateMethodDecls(callback, {}); });
  const auto parameter = FirstOf<ICIMParameterDecl>(
      [&](const auto& callback) { reset->EnumerateParameterDecls(callback, {}); });
  Ptr<ICIMClass> open = fTargetKit->CreateClass("Disk", {}, {});
  Ptr<ICIMMethodDecl> method = open->CreateMethodDecl("Reset", Type("uint32"), {});
  const Ptr<ICIMNamespace> ns = TMemoryNamespace::Create("unused");
  const long holders = method.use_count();
  const TCopyParameterDecl copyParameter(method, ns);
  EXPECT_EQ(method.use_count(), holders);
  EXPECT_EQ(ns.use_count(), 1);
  method.reset();
  open.reset();
  EXPECT_EQ(StatusOf([&] { copyParameter(parameter); }), kHWXStatusInvalidOpSequence);
}

TEST_F(CopyClass, RefusesWhatAProviderDoesNotReturn) {
  AddDisk();
  AddClass(*fSource, "Child", {}, fSource->GetClass("Disk", {}));
  for (const std::string call :
       {"target.CreateClass(Disk, none)", "target.Disk.CreateMethodDecl(Reset, uint32)",
        "target.Disk.Reset().CreateParameterDecl(Mode, string)",
        "target.CreateQualifierDecl(OnClass, boolean false, 127, 3)",
        "target.Disk.CreateQualifier(target[OnClass], boolean true)"}) {
    CallTrace trace;
    const auto source = TracedNamespace(fSourceKit, "source", trace)->GetClass("Disk", {});
    const auto kit = TMemoryNamespace::Create("to");
    trace.Withhold(call);
    EXPECT_NE(StatusOf([&] { TCIMCopy::CopyClass(source, TracedNamespace(kit, "target", trace)); }),
              kHWXStatusOK)
        << call;
    EXPECT_FALSE(kit->FindClass("Disk")) << call;
  }
  fTrace.Withhold("source.Child.GetSuperClass");
  CallsOfCopy("Child");
  EXPECT_EQ(fStatus, kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClass({}, fTarget); }), kHWXStatusNotFound);
  const auto disk = fSource->GetClass("Disk", {});
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClass(disk, {}); }), kHWXStatusNotFound);
}

}  // namespace
