// What references ask of the schema: the order of the calls, their contexts, and what becomes of
// the failures.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMReferenceImpl.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "unit/hwxcore/value/RecordedSchema.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

using Type = TCIMValue::TCIMType;

class TCIMReferenceCalls : public ::testing::Test {
 protected:
  TCIMReferenceCalls() {
    fSchema.AddClass("Thing", {{"Id", Null(Type::kCIMTypeUInt32)},
                               {"Name", Null(Type::kCIMTypeString)},
                               {"Sign", Null(Type::kCIMTypeChar16)}});
    fSchema.AddClass(
        "Link", {{"From", Null(Type::kCIMTypeReference)}, {"Label", Null(Type::kCIMTypeString)}});
    fContext["who"].Set("me");
  }

  static TCIMValue Null(Type::ECIMType type) { return TCIMValue(Type(type), 0); }

  TCIMReference Empty() const { return TCIMReference(fSchema.Get(), fContext); }

  // A reference of the class with a key, none of which was recorded.
  TCIMReference Keyed() {
    TCIMReference reference = Empty();
    reference.SetClass(fSchema.Find("Thing"));
    reference.AddKeyValue("Id", TCIMValue(5u));
    fSchema.TakeCalls();
    return reference;
  }

  // Expects `path` to fail without a log entry, and returns what the reference is left with.
  TCIMReference Failed(const std::string& path, int status) {
    TCIMReference reference = Empty();
    ScopedLogCapture log;
    EXPECT_EQ(StatusOf([&] { reference.SetPath(path); }), status) << path;
    EXPECT_THAT(log.Lines(), IsEmpty()) << path;
    return reference;
  }

  static std::size_t CountKeys(const TCIMReference& reference) {
    std::size_t count = 0;
    reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue>) { return ++count > 0; });
    return count;
  }

  RecordedSchema fSchema;
  TCIMContext fContext;
};

// Paths

TEST_F(TCIMReferenceCalls, APathAsksForTheClassAndThenTwiceForEachKey) {
  Empty().SetPath("r:Thing.Id=\"5\",Name=\"x\"");
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("GetClass(Thing)", "who=me"), Pair("Thing.GetPropertyDecl(Id)", ""),
                          Pair("Thing.Id.GetDefaultValue", ""), Pair("Thing.Id.GetType", ""),
                          Pair("Thing.GetPropertyDecl(Id)", ""), Pair("Thing.Id.GetType", ""),
                          Pair("Thing.GetPropertyDecl(Name)", ""),
                          Pair("Thing.Name.GetDefaultValue", ""), Pair("Thing.Name.GetType", ""),
                          Pair("Thing.GetPropertyDecl(Name)", ""), Pair("Thing.Name.GetType", "")));
}

TEST_F(TCIMReferenceCalls, APathWithoutKeysAsksForTheClassAlone) {
  Empty().SetPath("Thing");
  EXPECT_THAT(fSchema.TakeCalls(), ElementsAre(Pair("GetClass(Thing)", "who=me")));
}

TEST_F(TCIMReferenceCalls, ANestedPathIsReadWithTheOuterContextBeforeItsKeyIsAdded) {
  Empty().SetPath("r:Link.From=\"s:Thing.Id=\"5\"\"");
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("GetClass(Link)", "who=me"), Pair("Link.GetPropertyDecl(From)", ""),
                          Pair("Link.From.GetDefaultValue", ""), Pair("GetClass(Thing)", "who=me"),
                          Pair("Thing.GetPropertyDecl(Id)", ""),
                          Pair("Thing.Id.GetDefaultValue", ""), Pair("Thing.Id.GetType", ""),
                          Pair("Thing.GetPropertyDecl(Id)", ""), Pair("Thing.Id.GetType", ""),
                          Pair("Link.GetPropertyDecl(From)", ""), Pair("Link.From.GetType", "")));
}

TEST_F(TCIMReferenceCalls, ANestedReferenceCarriesTheNamespaceAndContextOfTheOuter) {
  TCIMReference link = Empty();
  link.SetPath("r:Link.From=\"s:Thing.Id=\"5\"\"");
  TCIMReference nested({}, TCIMContext{});
  link.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
    EXPECT_EQ(key.second.GetReferencedClass(), fSchema.Find("Thing"));
    nested = key.second;
    return true;
  });
  EXPECT_EQ(nested.GetNamespace(), fSchema.Get());
  fSchema.TakeCalls();
  nested.Clear();
  nested.SetNamespace(fSchema.Get());
  nested.SetClassName("Thing");
  EXPECT_THAT(fSchema.TakeCalls(), ElementsAre(Pair("GetClass(Thing)", "who=me")));
}

// The default value tells a nested path from a text, and the type tells what the text becomes.

TEST_F(TCIMReferenceCalls, AReferenceKeyWithoutAReferenceForADefaultIsReadAsTextWithoutContext) {
  fSchema.SetType("Link.Label", Type::kCIMTypeReference);
  TCIMReference link = Empty();
  link.SetPath("r:Link.Label=\"s:Thing.Id=\\\"5\\\"\"");
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("GetClass(Link)", "who=me"), Pair("Link.GetPropertyDecl(Label)", ""),
                          Pair("Link.Label.GetDefaultValue", ""), Pair("Link.Label.GetType", ""),
                          Pair("GetClass(Thing)", ""), Pair("Thing.GetPropertyDecl(Id)", ""),
                          Pair("Thing.Id.GetDefaultValue", ""), Pair("Thing.Id.GetType", ""),
                          Pair("Thing.GetPropertyDecl(Id)", ""), Pair("Thing.Id.GetType", ""),
                          Pair("Link.GetPropertyDecl(Label)", ""), Pair("Link.Label.GetType", "")));
  EXPECT_EQ(link.GetPath(), "Link.Label=\"Thing.Id=\"5\"\"");
}

TEST_F(TCIMReferenceCalls, AKeyOfAnotherTypeWithAReferenceForADefaultIsReadNestedAndRefused) {
  fSchema.SetType("Link.From", Type::kCIMTypeString);
  TCIMReference left = Empty();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { left.SetPath("r:Link.From=\"s:Thing.Id=\"5\"\""); }),
            kHWXStatusTypeMismatch);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Error", "Core: Declaration type: string Value type: reference")));
  EXPECT_EQ(left.GetPath(), "Link");
}

TEST_F(TCIMReferenceCalls, AKeyThatIsAnArrayOfReferencesCannotBeRead) {
  fSchema.AddClass("Set", {{"Members", TCIMValue(Type(Type::kCIMTypeReference), 2)}});
  EXPECT_EQ(Failed("r:Set.Members=\"s:Thing.Id=\"", kHWXStatusTypeMismatch).GetPath(), "Set");
}

TEST_F(TCIMReferenceCalls, ClassesOfAPathWithKeysAreAskedOfTheParser) {
  RecordedSchema other;
  TCIMReference target(other.Get(), TCIMContext());
  unsigned long position = 0;
  const TCIMReference parser = Empty();
  parser.GetBody()->ParsePath(target.GetBody(), "r:Thing.Id=\"5\"", position);
  EXPECT_EQ(position, 14u);
  EXPECT_EQ(target.GetClass(), fSchema.Find("Thing"));
  EXPECT_THAT(other.TakeCalls(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, TheClassOfAPathWithoutKeysIsAskedOfTheTarget) {
  RecordedSchema other;
  other.AddClass("Thing", {});
  TCIMReference target(other.Get(), TCIMContext());
  unsigned long position = 0;
  const TCIMReference parser = Empty();
  parser.GetBody()->ParsePath(target.GetBody(), "Thing", position);
  EXPECT_EQ(position, 5u);
  EXPECT_EQ(target.GetClass(), other.Find("Thing"));
  EXPECT_THAT(fSchema.TakeCalls(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, ParsePathCannotRebindATargetWithKeys) {
  TCIMReference target = Keyed();
  const TCIMReference parser = Empty();
  unsigned long position = 0;
  EXPECT_EQ(StatusOf([&] { parser.GetBody()->ParsePath(target.GetBody(), "r:Link.x", position); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_THAT(fSchema.TakeCalls(), ElementsAre(Pair("GetClass(Link)", "who=me")));
}

TEST_F(TCIMReferenceCalls, ARefusedPathAsksNothing) {
  TCIMReference bound = Empty();
  bound.SetClass(fSchema.Find("Thing"));
  EXPECT_EQ(StatusOf([&] { bound.SetPath("Thing"); }), kHWXStatusInvalidOpSequence);
  TCIMReference keyed = Keyed();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { keyed.SetPath("r:Thing.Id=\"6\""); }), kHWXStatusInvalidOpSequence);
  EXPECT_THAT(fSchema.TakeCalls(), IsEmpty());
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, AFaultInTheTextStopsTheQuestions) {
  EXPECT_EQ(StatusOf([&] { Empty().SetPath("r:Thing.Id=5"); }), kHWXStatusInvalidReference);
  EXPECT_THAT(fSchema.TakeCalls(), ElementsAre(Pair("GetClass(Thing)", "who=me"),
                                               Pair("Thing.GetPropertyDecl(Id)", "")));
  EXPECT_EQ(StatusOf([&] { Empty().SetPath("r:Thing.Id=\"5"); }), kHWXStatusInvalidReference);
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("GetClass(Thing)", "who=me"), Pair("Thing.GetPropertyDecl(Id)", ""),
                          Pair("Thing.Id.GetDefaultValue", "")));
  EXPECT_EQ(StatusOf([&] { Empty().SetPath("r:Thing.Id"); }), kHWXStatusInvalidReference);
  EXPECT_THAT(fSchema.TakeCalls(), ElementsAre(Pair("GetClass(Thing)", "who=me")));
}

TEST_F(TCIMReferenceCalls, AnUnknownPropertyIsReportedBeforeAMissingMark) {
  const std::string path = "r:Thing.Size=5";
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { Empty().SetPath(path); }), kHWXStatusInvalidReference);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair(
                  "Error", "Reference specifies invalid property, property=Size, path=" + path)));
}

// Failures of the provider in a path

TEST_F(TCIMReferenceCalls, OtherFailuresToFindTheClassPassUnlogged) {
  fSchema.Fail("GetClass(Thing)", kHWXStatusAccessDenied);
  const TCIMReference keyed = Failed("r:Thing.Id=\"5\"", kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { keyed.GetClass(); }), kHWXStatusInvalidReference);
  Failed("Thing", kHWXStatusAccessDenied);
}

TEST_F(TCIMReferenceCalls, OtherFailuresToFindAPropertyPassUnlogged) {
  fSchema.Fail("Thing.GetPropertyDecl(Name)", kHWXStatusAccessDenied);
  const TCIMReference left = Failed("r:Thing.Id=\"5\",Name=\"x\"", kHWXStatusAccessDenied);
  EXPECT_EQ(left.GetPath(), "Thing.Id=\"5\"");
}

TEST_F(TCIMReferenceCalls, FailuresOfADeclarationPassEvenThatItIsNotFound) {
  fSchema.Fail("Thing.Id.GetDefaultValue", kHWXStatusNotFound);
  Failed("r:Thing.Id=\"5\"", kHWXStatusNotFound);
  fSchema.Fail("Thing.Name.GetType", kHWXStatusNotFound);
  Failed("r:Thing.Name=\"5\"", kHWXStatusNotFound);
}

TEST_F(TCIMReferenceCalls, OtherExceptionsPassAsTheyAre) {
  fSchema.Do("GetClass(Thing)", [] { throw std::runtime_error("broken"); });
  EXPECT_THROW(Empty().SetPath("r:Thing.Id=\"5\""), std::runtime_error);
  EXPECT_THROW(Empty().SetPath("Thing"), std::runtime_error);
}

TEST_F(TCIMReferenceCalls, AClassThatIsAnEmptyPointerIsNotFound) {
  class NoClass : public StubNamespace {
   public:
    Ptr<ICIMClass> GetClass(const std::string&, Context) override { return {}; }
  };
  const Ptr<NoClass> ns(new NoClass);
  const std::string path = "r:Thing.Id=\"5\"";
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { TCIMReference(ns, path, fContext); }), kHWXStatusInvalidReference);
  EXPECT_THAT(log.Lines(),
              ElementsAre(Pair("Error", "Reference specifies invalid class, path=" + path)));
  TCIMReference reference(ns, fContext);
  reference.SetClassName("Thing");
  EXPECT_EQ(StatusOf([&] { reference.GetClass(); }), kHWXStatusInvalidReference);
}

TEST_F(TCIMReferenceCalls, TheNamespaceLivesOnWhileItIsAsked) {
  fSchema.Do("GetClass(Thing)", [&] { fSchema.Release(); });
  TCIMReference reference = Empty();
  reference.SetPath("r:Thing.Id=\"5\"");
  EXPECT_FALSE(reference.GetNamespace());
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
}

// Other operations

TEST_F(TCIMReferenceCalls, SetClassNameAsksWithTheContextThatIsSet) {
  TCIMReference reference = Empty();
  reference.SetClassName("Thing");
  TCIMContext other;
  other["a"].Set("1");
  other["b"].Set("2");
  reference.SetContext(other);
  other["c"].Set("3");
  reference.SetClassName("Link");
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("GetClass(Thing)", "who=me"), Pair("GetClass(Link)", "a=1 b=2")));
}

TEST_F(TCIMReferenceCalls, AFailedLookUpKeepsTheClass) {
  TCIMReference reference = Empty();
  reference.SetClassName("Thing");
  fSchema.Fail("GetClass(Link)", kHWXStatusAccessDenied);
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { reference.SetClassName("Nothing"); }), kHWXStatusUnknownClass);
  EXPECT_EQ(StatusOf([&] { reference.SetClassName("Link"); }), kHWXStatusAccessDenied);
  EXPECT_EQ(reference.GetClass(), fSchema.Find("Thing"));
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, SetClassNameAsksNothingWhenItIsRefused) {
  TCIMReference keyed = Keyed();
  EXPECT_EQ(StatusOf([&] { keyed.SetClassName("Thing"); }), kHWXStatusInvalidOpSequence);
  TCIMReference nowhere({}, fContext);
  EXPECT_EQ(StatusOf([&] { nowhere.SetClassName("Thing"); }), kHWXStatusInvalidOpSequence);
  EXPECT_THAT(fSchema.TakeCalls(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, ACopyAndAnAssignedHandleAskWithTheContextOfTheSource) {
  TCIMReference source = Empty();
  TCIMReference copy(source), assigned({}, TCIMContext{});
  assigned = source;
  source.SetContext(TCIMContext());
  copy.SetClassName("Thing");
  assigned.SetClassName("Thing");
  source.SetClassName("Thing");
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("GetClass(Thing)", "who=me"), Pair("GetClass(Thing)", "who=me"),
                          Pair("GetClass(Thing)", "")));
}

TEST_F(TCIMReferenceCalls, SetClassAsksNothing) {
  Empty().SetClass(fSchema.Find("Thing"));
  EXPECT_THAT(fSchema.TakeCalls(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, AddKeyValueAsksForTheDeclaredTypeAlone) {
  TCIMReference reference = Keyed();
  reference.AddKeyValue("Name", TCIMValue("x"));
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("Thing.GetPropertyDecl(Name)", ""), Pair("Thing.Name.GetType", "")));
}

TEST_F(TCIMReferenceCalls, AddKeyValueChecksAKeyThatIsThereToo) {
  TCIMReference reference = Keyed();
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Id", TCIMValue("6")); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
}

TEST_F(TCIMReferenceCalls, AddKeyValueTakesACharacterThatAPathCannotGive) {
  TCIMReference reference = Keyed();
  reference.AddKeyValue("Sign", TCIMValue(TCIMChar16(static_cast<unsigned short>(65))));
  EXPECT_EQ(CountKeys(reference), 2u);
}

TEST_F(TCIMReferenceCalls, AddKeyValueCannotNameAValueWithoutTypeInTheLog) {
  TCIMReference reference = Keyed();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Name", TCIMValue()); }), kHWXStatusTypeMismatch);
  EXPECT_THAT(log.Lines(), IsEmpty());
  EXPECT_EQ(CountKeys(reference), 1u);
}

TEST_F(TCIMReferenceCalls, AddKeyValuePassesFailuresOfTheProviderUnlogged) {
  TCIMReference reference = Keyed();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Size", TCIMValue(1u)); }), kHWXStatusNotFound);
  fSchema.Fail("Thing.GetPropertyDecl(Name)", kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Name", TCIMValue("x")); }),
            kHWXStatusAccessDenied);
  EXPECT_THAT(log.Lines(), IsEmpty());
  EXPECT_EQ(CountKeys(reference), 1u);
}

TEST_F(TCIMReferenceCalls, PrintingAsksForTheNameOfTheClass) {
  const TCIMReference reference = Keyed();
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
  EXPECT_EQ(reference.GetClassName(), "Thing");
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("Thing.GetName", ""), Pair("Thing.GetName", "")));
  EXPECT_EQ(&reference.GetClassName(), &fSchema.Find("Thing")->GetName({}));
}

TEST_F(TCIMReferenceCalls, EnumeratingAsksNothing) {
  const TCIMReference reference = Keyed();
  EXPECT_EQ(CountKeys(reference), 1u);
  EXPECT_EQ(CountKeys(Empty()), 0u);
  EXPECT_THAT(fSchema.TakeCalls(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, ComparingAndCopyingAskNothing) {
  const TCIMReference reference = Keyed();
  TCIMReference copy(reference);
  copy = reference;
  EXPECT_TRUE(copy == reference);
  EXPECT_FALSE(copy < reference);
  EXPECT_THAT(fSchema.TakeCalls(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, FindingAsksTheClassForItsNamespaceWithoutContext) {
  fSchema.SetInstance(Ptr<ICIMInstance>(new StubInstance));
  const TCIMReference reference = Keyed();
  reference.GetCIMElement(false);
  EXPECT_THAT(fSchema.TakeCalls(),
              ElementsAre(Pair("Thing.GetNamespace", ""), Pair("GetInstance", "")));
  EXPECT_EQ(fSchema.Asked(), &reference);
}

TEST_F(TCIMReferenceCalls, ACopyAndAnAssignedHandleFindAsThemselves) {
  const TCIMReference source = Keyed();
  const TCIMReference copy(source);
  EXPECT_EQ(StatusOf([&] { copy.GetCIMElement(false); }), kHWXStatusNotFound);
  EXPECT_EQ(fSchema.Asked(), &copy);
  TCIMReference assigned = Empty();
  assigned = source;
  EXPECT_EQ(StatusOf([&] { assigned.GetCIMElement(false); }), kHWXStatusNotFound);
  EXPECT_EQ(fSchema.Asked(), &assigned);
}

TEST_F(TCIMReferenceCalls, FailuresToFindPassUnchanged) {
  const TCIMReference reference = Keyed();
  ScopedLogCapture log;
  fSchema.Fail("GetInstance", kHWXStatusAccessDenied);
  EXPECT_EQ(StatusOf([&] { reference.GetCIMElement(false); }), kHWXStatusAccessDenied);
  fSchema.Fail("Thing.GetNamespace", kHWXStatusInvalidCIMName);
  EXPECT_EQ(StatusOf([&] { reference.GetCIMElement(false); }), kHWXStatusInvalidCIMName);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(TCIMReferenceCalls, ClearForgetsTheInstanceThatWasFound) {
  fSchema.SetInstance(Ptr<ICIMInstance>(new StubInstance));
  TCIMReference reference = Keyed();
  reference.GetCIMElement(false);
  reference.Clear();
  reference.SetClass(fSchema.Find("Thing"));
  reference.AddKeyValue("Id", TCIMValue(5u));
  fSchema.TakeCalls();
  reference.GetCIMElement(false);
  EXPECT_EQ(fSchema.TakeCalls().size(), 2u);
}

TEST_F(TCIMReferenceCalls, AClassWithoutNamespaceHasNoInstance) {
  const TCIMReference reference = Keyed();
  fSchema.Release();
  EXPECT_EQ(StatusOf([&] { reference.GetCIMElement(false); }), kHWXStatusNotFound);
}

}  // namespace
}  // namespace hwxtest
