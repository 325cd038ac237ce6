#include <stdexcept>

#include "CopyTesting.h"

using namespace NQORHWX20;
using hwxtest::StatusOf;
using hwxtest::TracedText;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CopyReference : public hwxtest::CopyTest {
 protected:
  // The classes Thing (Id and Name), Link (From and To lead to things, Label) and Chain (Next leads
  // to a link).
  CopyReference() {
    for (const auto& ns : {fSource, fTarget}) {
      const auto thing = AddClass(*ns, "Thing", {{"Id", 0U}, {"Name", ""}});
      const auto link = AddClass(
          *ns, "Link", {{"From", ReferenceTo(thing)}, {"Label", ""}, {"To", ReferenceTo(thing)}});
      AddClass(*ns, "Chain", {{"Next", ReferenceTo(link)}});
    }
  }

  TCIMValue Thing(unsigned int id, const std::string& name) {
    return ReferenceValue(fSource, "Thing", {{"Id", id}, {"Name", name}});
  }

  TCIMValue Copied(const TCIMValue& value) { return TCIMCopy::CopyValue(value, fTarget); }
};

TEST_F(CopyReference, BindsANullReferenceToTheTargetsClass) {
  const TCIMValue value = ReferenceTo(fSource->GetClass("Thing", {}));
  fTrace.Forget();
  const TCIMValue copy = Copied(value);
  EXPECT_THAT(fTrace.Calls(), ElementsAre("source.Thing.GetName", "target.GetClass(Thing)"));
  EXPECT_TRUE(copy.IsNull());
  EXPECT_EQ(copy.GetType(), Type::kCIMTypeReference);
  EXPECT_EQ(copy.GetMaxArraySize(), 0U);
  EXPECT_EQ(copy.GetReferencedClass(), fTarget->GetClass("Thing", {}));
}

TEST_F(CopyReference, BuildsAReferenceAnewOnTheTargetByItsNames) {
  const TCIMValue value = Thing(7, "seven");
  fTrace.Forget();
  const TCIMValue copy = Copied(value);
  EXPECT_THAT(fTrace.Calls(),
              ElementsAre("source.Thing.GetName", "target.GetClass(Thing)",  // the class it bears
                          "source.Thing.GetName", "target.GetClass(Thing)",  // the reference's own
                          "target.Thing.GetPropertyDecl(Id)", "target.Thing.Id.GetType",
                          "target.Thing.GetPropertyDecl(Name)", "target.Thing.Name.GetType"));
  EXPECT_EQ(TracedText(copy), "reference(target.Thing Id=uint32 7, Name=string seven)");
  EXPECT_EQ(copy.GetReferencedClass(), fTarget->GetClass("Thing", {}));
  const TCIMReference reference = copy;
  EXPECT_EQ(reference.GetNamespace(), fTarget);
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"7\",Name=\"seven\"");
}

TEST_F(CopyReference, LeavesTheSourceBoundToItsNamespace) {
  const TCIMValue value = Thing(7, "seven");
  Copied(value);
  EXPECT_EQ(TracedText(value), "reference(source.Thing Id=uint32 7, Name=string seven)");
  EXPECT_EQ(value.operator TCIMReference().GetNamespace(), fSource);
}

TEST_F(CopyReference, LeavesContextAndLabelBehind) {
  TCIMReference source = Reference(fSource, "Thing", {{"Id", 1U}});
  source.SetContext({{"nspID", "cmpi"}});
  source.SetNameSpaceName("somewhere");
  TCIMReference copy = Copied(TCIMValue(source));
  EXPECT_EQ(copy.GetNameSpaceName(), "");
  source.Clear();
  source.SetNamespace(fSource);
  EXPECT_THAT(CallsOf([&] { source.SetClassName("Thing"); }),
              ElementsAre("source.GetClass(Thing) {nspID=cmpi}"));
  copy.Clear();
  copy.SetNamespace(fTarget);
  EXPECT_THAT(CallsOf([&] { copy.SetClassName("Thing"); }), ElementsAre("target.GetClass(Thing)"));
}

TEST_F(CopyReference, CopiesAReferenceWithoutKeys) {
  const TCIMValue copy = Copied(ReferenceValue(fSource, "Thing", {}));
  EXPECT_FALSE(copy.IsNull());
  EXPECT_EQ(TracedText(copy), "reference(target.Thing)");
}

TEST_F(CopyReference, RewritesAReferenceInAKey) {
  const TCIMValue value = ReferenceValue(fSource, "Link", {{"From", Thing(1, "a")}});
  fTrace.Forget();
  const TCIMValue copy = Copied(value);
  EXPECT_THAT(fTrace.Calls(),
              ElementsAre("source.Link.GetName", "target.GetClass(Link)", "source.Link.GetName",
                          "target.GetClass(Link)",  //
                          "source.Thing.GetName", "target.GetClass(Thing)", "source.Thing.GetName",
                          "target.GetClass(Thing)", "target.Thing.GetPropertyDecl(Id)",
                          "target.Thing.Id.GetType", "target.Thing.GetPropertyDecl(Name)",
                          "target.Thing.Name.GetType",  //
                          "target.Link.GetPropertyDecl(From)", "target.Link.From.GetType"));
  EXPECT_EQ(TracedText(copy),
            "reference(target.Link "
            "From=reference(target.Thing Id=uint32 1, Name=string a))");
}

TEST_F(CopyReference, RewritesEveryLevelAndEveryKey) {
  const TCIMValue link = ReferenceValue(
      fSource, "Link", {{"From", Thing(1, "a")}, {"Label", "x"}, {"To", Thing(2, "b")}});
  const TCIMValue copy = Copied(ReferenceValue(fSource, "Chain", {{"Next", link}}));
  EXPECT_EQ(TracedText(copy),
            "reference(target.Chain Next=reference(target.Link "
            "From=reference(target.Thing Id=uint32 1, Name=string a), Label=string x, "
            "To=reference(target.Thing Id=uint32 2, Name=string b)))");
  // The namespaces of the nested ones are checked by hand: a text doesn't show them.
  copy.operator TCIMReference().EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> next) {
    const TCIMReference nested = next.second;
    EXPECT_EQ(nested.GetNamespace(), fTarget);
    nested.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
      if (key.second.IsReference()) {
        EXPECT_EQ(key.second.operator TCIMReference().GetNamespace(), fTarget);
      }
      return true;
    });
    return true;
  });
}

TEST_F(CopyReference, RewritesReferencesThatNestAsDeeplyAsAPathMay) {
  TCIMValue value = Thing(1, "a");
  for (int level = 0; level < 200; ++level)
    value = ReferenceValue(fSource, "Chain", {{"Next", value}});
  std::string expected = TracedText(value);
  const std::string from = "source.", to = "target.";
  for (std::size_t at = 0; (at = expected.find(from, at)) != std::string::npos;)
    expected.replace(at, from.size(), to);
  EXPECT_EQ(TracedText(Copied(value)), expected);
}

TEST_F(CopyReference, BindsANullReferenceInAKey) {
  const TCIMValue none = ReferenceTo(fSource->GetClass("Thing", {}));
  EXPECT_EQ(TracedText(Copied(ReferenceValue(fSource, "Link", {{"From", none}}))),
            "reference(target.Link From=reference(target.Thing) null)");
}

TEST_F(CopyReference, CopiesWithinOneNamespace) {
  EXPECT_EQ(TracedText(TCIMCopy::CopyValue(Thing(1, "a"), fSource)),
            "reference(source.Thing Id=uint32 1, Name=string a)");
}

TEST_F(CopyReference, DoesNotTakeTheMutexOfInstances) {
  const TCIMValue value = Thing(1, "a");
  bool free = false;
  fTrace.Do("target.GetClass(Thing)", [&] { free = hwxtest::IsCopyInstMutexFree(); });
  Copied(value);
  EXPECT_TRUE(free);
}

TEST_F(CopyReference, FailsIfTheTargetLacksTheClass) {
  AddClass(*fSource, "Only", {{"Id", 0U}});
  const TCIMValue value = ReferenceValue(fSource, "Only", {{"Id", 1U}});
  const TCIMValue null = ReferenceTo(fSource->GetClass("Only", {}));
  for (const TCIMValue* const copied : {&value, &null}) {
    EXPECT_THAT(CallsOf([&] { Copied(*copied); }),
                ElementsAre("source.Only.GetName", "target.GetClass(Only)"));
    EXPECT_EQ(fStatus, kHWXStatusNotFound);
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyReference, FailsIfTheTargetLacksTheClassOfANestedReference) {
  AddClass(*fSource, "Only", {{"Id", 0U}});
  for (const auto& ns : {fSource, fTarget})
    AddClass(*ns, "Holder", {{"Held", ReferenceTo(ns->GetClass("Thing", {}))}});
  // The declared class isn't checked by a reference, so this key leads elsewhere.
  const TCIMValue value =
      ReferenceValue(fSource, "Holder", {{"Held", ReferenceValue(fSource, "Only", {{"Id", 1U}})}});
  EXPECT_EQ(StatusOf([&] { Copied(value); }), kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyReference, FailsAsTheReferenceDoesIfTheClassGoesBetweenTheLookUps) {
  const TCIMValue value = Thing(1, "a");
  int calls = 0;
  fTrace.Do("target.GetClass(Thing)", [&] {
    if (++calls == 2) throw THWXException(kHWXStatusNotFound);
  });
  EXPECT_EQ(StatusOf([&] { Copied(value); }), kHWXStatusUnknownClass);
  EXPECT_EQ(calls, 2);
}

TEST_F(CopyReference, FailsWithALogEntryIfAKeyHasAnotherTypeInTheTarget) {
  AddClass(*fSource, "Odd", {{"Id", 0U}, {"Later", 0U}});
  AddClass(*fTarget, "Odd", {{"Id", 0UL}, {"Later", 0U}});
  const TCIMValue value = ReferenceValue(fSource, "Odd", {{"Id", 1U}, {"Later", 1U}});
  EXPECT_THAT(CallsOf([&] { Copied(value); }),
              ElementsAre("source.Odd.GetName", "target.GetClass(Odd)", "source.Odd.GetName",
                          "target.GetClass(Odd)", "target.Odd.GetPropertyDecl(Id)",
                          "target.Odd.Id.GetType"));
  EXPECT_EQ(fStatus, kHWXStatusTypeMismatch);
  EXPECT_THAT(fLog.Lines(),
              ElementsAre(Pair("Error", "Core: Declaration type: uint64 Value type: uint32")));
}

TEST_F(CopyReference, FailsUnloggedIfTheTargetsClassLacksAKey) {
  AddClass(*fSource, "Odd", {{"Id", 0U}});
  AddClass(*fTarget, "Odd");
  const TCIMValue value = ReferenceValue(fSource, "Odd", {{"Id", 1U}});
  EXPECT_EQ(StatusOf([&] { Copied(value); }), kHWXStatusNotFound);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyReference, PassesEveryOtherExceptionOn) {
  const TCIMValue value = Thing(1, "a");
  for (const char* const call :
       {"source.Thing.GetName", "target.GetClass(Thing)", "target.Thing.GetPropertyDecl(Name)"}) {
    int calls = 0;
    fTrace.Do(call, [&] {
      ++calls;
      throw std::runtime_error("broken");
    });
    EXPECT_THROW(Copied(value), std::runtime_error) << call;
    EXPECT_EQ(calls, 1) << call;
    fTrace.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { Copied(value); }), kHWXStatusAccessDenied) << call;
    fTrace.Do(call, [] {});
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

// What is left undefined elsewhere ends in a status here.

TEST_F(CopyReference, RefusesAReferenceThatCarriesNoClass) {
  EXPECT_THAT(CallsOf([&] { Copied(Null(Type::kCIMTypeReference)); }), IsEmpty());
  EXPECT_EQ(fStatus, kHWXStatusInvalidReference);
}

TEST_F(CopyReference, RefusesATargetThatIsNotThere) {
  const TCIMValue value = Thing(1, "a");
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyValue(value, {}); }), kHWXStatusNotFound);
}

TEST_F(CopyReference, RefusesATargetThatReturnsNoClass) {
  const TCIMValue value = Thing(1, "a");
  fTrace.Withhold("target.GetClass(Thing)");
  EXPECT_NE(StatusOf([&] { Copied(value); }), kHWXStatusOK);
}

TEST_F(CopyReference, KeyFunctorAddsTheKeyAndGoesOn) {
  TCIMReference built(fTarget, {});
  built.SetClassName("Link");
  const boost::function<bool(std::pair<std::string, TCIMValue>)> functor =
      TCopyReferenceKeys(fTarget, &built);
  EXPECT_TRUE(functor({"From", Thing(1, "a")}));
  EXPECT_TRUE(functor({"Label", "x"}));
  EXPECT_EQ(TracedText(TCIMValue(built)),
            "reference(target.Link From=reference(target.Thing Id=uint32 1, Name=string a), "
            "Label=string x)");
}

TEST_F(CopyReference, KeyFunctorHoldsTheTargetWeakly) {
  boost::shared_ptr<ICIMNamespace> target = TMemoryNamespace::Create("gone");
  TCIMReference built(target, {});
  const TCopyReferenceKeys functor(target, &built);
  EXPECT_EQ(target.use_count(), 1);
  target.reset();
  EXPECT_EQ(StatusOf([&] { functor({"Label", "x"}); }), kHWXStatusInvalidOpSequence);
}

}  // namespace
