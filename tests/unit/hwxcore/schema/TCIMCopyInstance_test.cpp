#include <stdexcept>

#include "CopyTesting.h"

using namespace NQORHWX20;
using hwxtest::IsCopyInstMutexFree;
using hwxtest::StatusOf;
using hwxtest::TracedText;
using hwxtest::Untraced;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CopyInstance : public hwxtest::CopyTest {
 protected:
  CopyInstance() {
    for (const auto& ns : {fSource, fTarget}) {
      AddClass(*ns, "Disk", {{"Label", "from the class"}, {"Size", 0UL}});
    }
  }

  Ptr<ICIMInstance> Disk(const TCIMValue& label, const TCIMValue& size) {
    const auto disk = fSource->GetClass("Disk", {});
    AddInstance(*disk, {{"Label", label}, {"Size", size}});
    return Instances(*disk).back();
  }

  /// The instances as they come out of the traced namespace.
  static std::vector<Ptr<ICIMInstance> > Instances(ICIMClass& of) {
    std::vector<Ptr<ICIMInstance> > instances;
    of.EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&instances), false, {});
    return instances;
  }

  std::size_t TargetCount() {
    return fTargetKit->GetClass("Disk", {})->GetInstanceCount(false, {});
  }

  Ptr<ICIMInstance> Copy(const Ptr<ICIMInstance>& instance) {
    return TCIMCopy::CopyInstance(instance, fTarget);
  }

  static std::string Read(ICIMInstance& instance, const std::string& property) {
    return TracedText(Untraced(Ptr<ICIMInstance>(&instance, [](ICIMInstance*) {}))
                          ->GetProperty(property, {})
                          ->GetValue({}));
  }
};

TEST_F(CopyInstance, CreatesFillsAndAddsInThisOrder) {
  const auto disk = Disk("sda", 5UL);
  Ptr<ICIMInstance> copy;
  EXPECT_THAT(CallsOf([&] { copy = Copy(disk); }),
              ElementsAre("source.Disk#0.GetClass", "source.Disk.GetName", "target.GetClass(Disk)",
                          "target.Disk.CreateInstance",  //
                          "source.Disk#0.EnumerateProperties",
                          "source.Disk#0.Label.GetValue",  // whether it is null
                          "source.Disk#0.Label.GetValue", "source.Disk#0.Label.GetPropertyDecl",
                          "source.Disk.Label.GetName",
                          "target.Disk#new.SetPropertyValue(Label, string sda)",
                          "source.Disk#0.Size.GetValue", "source.Disk#0.Size.GetValue",
                          "source.Disk#0.Size.GetPropertyDecl", "source.Disk.Size.GetName",
                          "target.Disk#new.SetPropertyValue(Size, uint64 5)",  //
                          "target.Disk.AddInstance(target.Disk#new)"));
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
  const auto held = Instances(*fTarget->GetClass("Disk", {}));
  ASSERT_EQ(held.size(), 1U);
  EXPECT_EQ(Untraced(copy), Untraced(held[0]));
  EXPECT_EQ(Read(*copy, "Label"), "string sda");
  EXPECT_EQ(Read(*copy, "Size"), "uint64 5");
}

TEST_F(CopyInstance, LeavesANullPropertyAtWhatTheNewInstanceStartsWith) {
  const auto disk = Disk(Null(Type::kCIMTypeString), 5UL);
  Ptr<ICIMInstance> copy;
  EXPECT_THAT(CallsOf([&] { copy = Copy(disk); }),
              ElementsAre("source.Disk#0.GetClass", "source.Disk.GetName", "target.GetClass(Disk)",
                          "target.Disk.CreateInstance", "source.Disk#0.EnumerateProperties",
                          "source.Disk#0.Label.GetValue",  //
                          "source.Disk#0.Size.GetValue", "source.Disk#0.Size.GetValue",
                          "source.Disk#0.Size.GetPropertyDecl", "source.Disk.Size.GetName",
                          "target.Disk#new.SetPropertyValue(Size, uint64 5)",
                          "target.Disk.AddInstance(target.Disk#new)"));
  EXPECT_EQ(Read(*copy, "Label"), "string from the class");
}

TEST_F(CopyInstance, RewritesReferences) {
  for (const auto& ns : {fSource, fTarget}) {
    AddClass(*ns, "Part", {{"Of", ReferenceTo(ns->GetClass("Disk", {}))}});
  }
  const auto part = fSource->GetClass("Part", {});
  AddInstance(*part, {{"Of", ReferenceValue(fSource, "Disk", {{"Label", "sda"}})}});
  const auto copy = Copy(Instances(*part)[0]);
  EXPECT_EQ(Read(*copy, "Of"), "reference(target.Disk Label=string sda)");
}

TEST_F(CopyInstance, SkipsANullReferenceToo) {
  AddClass(*fSource, "Part", {{"Of", ReferenceTo(fSource->GetClass("Disk", {}))}});
  AddClass(*fTarget, "Part", {{"Of", ReferenceTo(fTarget->GetClass("Disk", {}))}});
  const auto part = fSource->GetClass("Part", {});
  AddInstance(*part, {});
  const auto instance = Instances(*part)[0];
  EXPECT_THAT(CallsOf([&] { Copy(instance); }),
              ElementsAre("source.Part#0.GetClass", "source.Part.GetName", "target.GetClass(Part)",
                          "target.Part.CreateInstance", "source.Part#0.EnumerateProperties",
                          "source.Part#0.Of.GetValue", "target.Part.AddInstance(target.Part#new)"));
}

TEST_F(CopyInstance, LooksForNoSuchInstanceFirst) {
  const auto disk = Disk("sda", 5UL);
  Copy(disk);
  Copy(disk);
  EXPECT_EQ(TargetCount(), 2U);  // the class has no key, so the target takes both
}

TEST_F(CopyInstance, GoesByTheNameOfTheClassAlone) {
  AddClass(*fSource, "Odd", {{"Known", 1U}, {"Unknown", 2U}});
  AddClass(*fTarget, "Odd", {{"Known", 0U}, {"More", "of the target"}});
  const auto odd = fSource->GetClass("Odd", {});
  AddInstance(*odd, {{"Unknown", Null(Type::kCIMTypeUInt32)}});
  const auto copy = Copy(Instances(*odd)[0]);
  EXPECT_EQ(Read(*copy, "Known"), "uint32 1");
  EXPECT_EQ(Read(*copy, "More"), "string of the target");
}

TEST_F(CopyInstance, CreatesNothingIfTheTargetLacksTheClass) {
  AddClass(*fSource, "Only", {{"Id", 1U}});
  const auto only = fSource->GetClass("Only", {});
  AddInstance(*only, {});
  const auto instance = Instances(*only)[0];
  EXPECT_THAT(
      CallsOf([&] { Copy(instance); }),
      ElementsAre("source.Only#0.GetClass", "source.Only.GetName", "target.GetClass(Only)"));
  EXPECT_EQ(fStatus, kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyInstance, EndsAtTheFirstPropertyThatFailsAndAddsNothing) {
  AddClass(*fSource, "Odd", {{"A", 1U}, {"B", 2U}, {"C", 3U}});
  AddClass(*fTarget, "Odd", {{"A", 0U}, {"C", 0U}});
  const auto odd = fSource->GetClass("Odd", {});
  AddInstance(*odd, {});
  const auto instance = Instances(*odd)[0];
  const Strings calls = CallsOf([&] { Copy(instance); });
  EXPECT_EQ(fStatus, kHWXStatusNotFound);
  EXPECT_EQ(calls.back(), "target.Odd#new.SetPropertyValue(B, uint32 2)");
  EXPECT_THAT(Instances(*fTarget->GetClass("Odd", {})), IsEmpty());
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyInstance, PassesEveryFailureOnWithoutALogEntryAndReleasesTheMutex) {
  const auto disk = Disk("sda", 5UL);
  for (const std::string& call : CallsOf([&] { Copy(disk); })) {
    const std::size_t before = TargetCount();
    fTrace.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { Copy(disk); }), kHWXStatusAccessDenied) << call;
    EXPECT_TRUE(IsCopyInstMutexFree()) << call;
    fTrace.Do(call, [] { throw std::runtime_error("broken"); });
    EXPECT_THROW(Copy(disk), std::runtime_error) << call;
    EXPECT_TRUE(IsCopyInstMutexFree()) << call;
    fTrace.Do(call, [] {});
    EXPECT_EQ(TargetCount(), before) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyInstance, HoldsTheMutexFromTheFirstCallToTheLast) {
  const auto disk = Disk("sda", 5UL);
  const Strings calls = CallsOf([&] { Copy(disk); });
  EXPECT_TRUE(IsCopyInstMutexFree());
  for (const std::string& call : calls)
    fTrace.Do(call, [&, call] { EXPECT_FALSE(IsCopyInstMutexFree()) << call; });
  EXPECT_EQ(CallsOf([&] { Copy(disk); }), calls);
  EXPECT_TRUE(IsCopyInstMutexFree());
}

TEST_F(CopyInstance, MayBeCalledFromAProviderDuringACopy) {
  const auto outer = Disk("sda", 5UL);
  const auto inner = Disk("sdb", 6UL);
  bool nested = false;
  fTrace.Do("source.Disk#0.EnumerateProperties", [&] {
    if (nested) return;
    nested = true;
    Copy(inner);
    EXPECT_FALSE(IsCopyInstMutexFree());  // the outer copy holds it still
  });
  Copy(outer);
  EXPECT_TRUE(nested);
  EXPECT_TRUE(IsCopyInstMutexFree());
  const auto copies = Instances(*fTarget->GetClass("Disk", {}));
  ASSERT_EQ(copies.size(), 2U);
  EXPECT_EQ(Read(*copies[0], "Label"), "string sdb");
  EXPECT_EQ(Read(*copies[1], "Label"), "string sda");
}

TEST_F(CopyInstance, RefusesWhatAProviderDoesNotReturn) {
  const auto disk = Disk("sda", 5UL);
  for (const char* const call :
       {"source.Disk#0.GetClass", "target.GetClass(Disk)", "target.Disk.CreateInstance"}) {
    hwxtest::CallTrace trace;
    const auto source = hwxtest::TracedNamespace(fSourceKit, "source", trace);
    const auto target = hwxtest::TracedNamespace(fTargetKit, "target", trace);
    const auto instance = Instances(*source->GetClass("Disk", {}))[0];
    trace.Withhold(call);
    EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyInstance(instance, target); }), kHWXStatusNotFound)
        << call;
  }
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyInstance({}, fTarget); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyInstance(disk, {}); }), kHWXStatusNotFound);
  EXPECT_TRUE(IsCopyInstMutexFree());
  EXPECT_EQ(TargetCount(), 0U);
}

TEST_F(CopyInstance, PropertyFunctorGoesOnAndHoldsTheInstanceStronglyButTheTargetWeakly) {
  const auto property = Disk("sda", 5UL);
  std::vector<Ptr<ICIMProperty> > properties;
  property->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(&properties), {});
  Ptr<ICIMNamespace> ns = TMemoryNamespace::Create("gone");
  const Ptr<ICIMInstance> instance = fTarget->GetClass("Disk", {})->CreateInstance({});
  const boost::function<bool(Ptr<ICIMProperty>)> functor = TCopyInstanceProperty(ns, instance);
  EXPECT_TRUE(functor(properties[0]));
  EXPECT_EQ(instance.use_count(), 2);
  EXPECT_EQ(ns.use_count(), 1);
  ns.reset();
  EXPECT_EQ(StatusOf([&] { functor(properties[0]); }), kHWXStatusInvalidOpSequence);
}

}  // namespace
