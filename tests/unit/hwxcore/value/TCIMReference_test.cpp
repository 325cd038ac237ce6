// Binding, keys, copying, and finding what a reference names.

#include "hwxcore/value/TCIMReference.h"

#include "support/SchemaStubs.h"
#include "unit/hwxcore/value/ReferenceTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Type = TCIMValue::TCIMType;

class TCIMReferenceBinding : public ReferenceTest {
 protected:
  TCIMReference Keyed(const std::string& className = "Thing") const {
    TCIMReference reference = Empty();
    reference.SetClassName(className);
    reference.AddKeyValue("Id", TCIMValue(5u));
    return reference;
  }
};

TEST_F(TCIMReferenceBinding, HoldsItsNamespaceWeaklyAndItsClassStrongly) {
  TCIMReference reference = Keyed();
  EXPECT_EQ(reference.GetNamespace(), fNamespace);
  fNamespace.reset();
  EXPECT_FALSE(reference.GetNamespace());
  EXPECT_EQ(reference.GetClass()->GetName({}), "Thing");
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
  EXPECT_EQ(StatusOf([&] { reference.SetClassName("Thing"); }), kHWXStatusInvalidOpSequence);
}

TEST_F(TCIMReferenceBinding, ClassCannotChangeUnderKeys) {
  TCIMReference reference = Keyed();
  EXPECT_EQ(StatusOf([&] { reference.SetClass(fNamespace->GetClass("Other", {})); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { reference.SetClassName("Other"); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(reference.GetClassName(), "Thing");
}

TEST_F(TCIMReferenceBinding, ClassMayChangeAndGoWithoutKeys) {
  TCIMReference reference = Parsed("Thing");
  reference.SetClassName("Other");
  EXPECT_EQ(reference.GetClassName(), "Other");
  reference.SetClass(boost::shared_ptr<ICIMClass>());
  EXPECT_EQ(StatusOf([&] { reference.GetClass(); }), kHWXStatusInvalidReference);
  EXPECT_EQ(StatusOf([&] { reference.GetClassName(); }), kHWXStatusInvalidReference);
}

TEST_F(TCIMReferenceBinding, ReportsAnUnknownClassUnlogged) {
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { Empty().SetClassName("Nothing"); }), kHWXStatusUnknownClass);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(TCIMReferenceBinding, ConstructorPassesTheFailureOfThePathOn) {
  EXPECT_EQ(StatusOf([&] { Parsed("Nothing"); }), kHWXStatusUnknownClass);
}

TEST_F(TCIMReferenceBinding, ClearKeepsContextAndLabelAlone) {
  TCIMReference reference = Keyed();
  reference.SetNameSpaceName("label");
  reference.Clear();
  EXPECT_FALSE(reference.GetNamespace());
  EXPECT_EQ(StatusOf([&] { reference.GetClass(); }), kHWXStatusInvalidReference);
  EXPECT_THAT(Keys(reference), IsEmpty());
  EXPECT_EQ(reference.GetNameSpaceName(), "label");
  EXPECT_EQ(StatusOf([&] { reference.SetPath("Thing"); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { reference.SetClassName("Thing"); }), kHWXStatusInvalidOpSequence);
  reference.SetNamespace(fNamespace);
  reference.SetPath("r:Thing.Id=\"6\"");
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"6\"");
}

TEST_F(TCIMReferenceBinding, CopiesDoNotShowEachOthersKeys) {
  const TCIMReference source = Keyed();
  TCIMReference copy(source), assigned = Empty();
  assigned = source;
  copy.AddKeyValue("Name", TCIMValue("copy"));
  assigned.AddKeyValue("Name", TCIMValue("assigned"));
  EXPECT_THAT(Keys(source), ElementsAre("Id=5"));
  EXPECT_THAT(Keys(copy), ElementsAre("Id=5", "Name=copy"));
  EXPECT_THAT(Keys(assigned), ElementsAre("Id=5", "Name=assigned"));
  EXPECT_NE(copy.GetBody(), source.GetBody());
}

TEST_F(TCIMReferenceBinding, CopiesShareAllButTheKeys) {
  TCIMReference source = Keyed();
  source.SetNameSpaceName("label");
  TCIMReference copy(source), assigned({}, TCIMContext{});
  assigned = source;
  for (TCIMReference* const other : {&copy, &assigned}) {
    EXPECT_EQ(other->GetNamespace(), fNamespace);
    EXPECT_EQ(other->GetClass(), source.GetClass());
    EXPECT_EQ(other->GetNameSpaceName(), "label");
    EXPECT_TRUE(*other == source);
  }
  fNamespace.reset();
  EXPECT_FALSE(copy.GetNamespace());
  EXPECT_FALSE(assigned.GetNamespace());
}

TEST_F(TCIMReferenceBinding, AssigningReplacesTheBody) {
  TCIMReference reference = Keyed("Other");
  reference.SetNameSpaceName("label");
  reference = Empty();
  EXPECT_EQ(StatusOf([&] { reference.GetClass(); }), kHWXStatusInvalidReference);
  EXPECT_THAT(Keys(reference), IsEmpty());
  EXPECT_EQ(reference.GetNameSpaceName(), "");
}

TEST_F(TCIMReferenceBinding, AReferenceMayBeAssignedFromItsOwnKey) {
  TCIMReference link = Parsed("r:Link.From=\"r:Thing.Id=\"1\"\"");
  link.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
    const TCIMReference nested = key.second;
    link = nested;
    return false;
  });
  EXPECT_EQ(link.GetPath(), "Thing.Id=\"1\"");
}

TEST_F(TCIMReferenceBinding, AnyNamespaceMayBeSet) {
  TCIMReference reference = Keyed();
  const auto other = TMemoryNamespace::Create("other");
  reference.SetNamespace(other);
  EXPECT_EQ(reference.GetNamespace(), other);
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
  reference.SetNamespace(boost::shared_ptr<ICIMNamespace>());
  EXPECT_FALSE(reference.GetNamespace());
}

TEST_F(TCIMReferenceBinding, NothingSetsTheLabelButItsOwnOperation) {
  TCIMReference reference = Parsed("label:Thing.Id=\"5\"");
  EXPECT_EQ(reference.GetNameSpaceName(), "");
  reference.SetNameSpaceName("label");
  EXPECT_EQ(reference.GetNameSpaceName(), "label");
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
}

TEST_F(TCIMReferenceBinding, AssigningToItselfChangesNothing) {
  TCIMReference reference = Keyed();
  const TCIMReference& alias = reference;
  reference = alias;
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\"");
}

TEST_F(TCIMReferenceBinding, AddKeyValueNeedsAClass) {
  TCIMReference reference = Empty();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Id", TCIMValue(5u)); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(TCIMReferenceBinding, AddKeyValuePassesTheFailureOfTheClassOn) {
  TCIMReference reference = Parsed("Thing");
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Size", TCIMValue(5u)); }), kHWXStatusNotFound);
}

TEST_F(TCIMReferenceBinding, AddKeyValueWantsExactlyTheDeclaredType) {
  TCIMReference reference = Parsed("Thing");
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Id", TCIMValue(5)); }), kHWXStatusTypeMismatch);
  EXPECT_THAT(log.Lines(), ElementsAre(ScopedLogCapture::Line(
                               "Error", "Core: Declaration type: uint32 Value type: sint32")));
  EXPECT_THAT(Keys(reference), IsEmpty());
}

TEST_F(TCIMReferenceBinding, AddKeyValueNamesArraysAsTheirElements) {
  TCIMReference reference = Parsed("Thing");
  ScopedLogCapture log;
  const TCIMValue array(Type(Type::kCIMTypeUInt32), 0, {TCIMValue(5u)});
  EXPECT_EQ(StatusOf([&] { reference.AddKeyValue("Id", array); }), kHWXStatusTypeMismatch);
  EXPECT_THAT(log.Lines(), ElementsAre(ScopedLogCapture::Line(
                               "Error", "Core: Declaration type: uint32 Value type: uint32")));
}

TEST_F(TCIMReferenceBinding, AddKeyValueTakesANullOfTheDeclaredType) {
  TCIMReference reference = Parsed("Thing");
  reference.AddKeyValue("Id", TCIMValue(Type(Type::kCIMTypeUInt32), 0));
  bool null = false;
  reference.EnumerateKeyBindings(
      [&](std::pair<std::string, TCIMValue> key) { return null = key.second.IsNull(); });
  EXPECT_TRUE(null);
}

TEST_F(TCIMReferenceBinding, AddKeyValueKeepsTheFirst) {
  TCIMReference reference = Keyed();
  ScopedLogCapture log;
  reference.AddKeyValue("Id", TCIMValue(6u));
  EXPECT_THAT(Keys(reference), ElementsAre("Id=5"));
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(TCIMReferenceBinding, EnumerationStopsAtFalseAndCopies) {
  TCIMReference reference = Keyed();
  reference.AddKeyValue("Name", TCIMValue("x"));
  int calls = 0;
  reference.EnumerateKeyBindings([&](std::pair<std::string, TCIMValue> key) {
    key.second.Set(99u);
    return ++calls < 1;
  });
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(Keys(reference), ElementsAre("Id=5", "Name=x"));
}

TEST_F(TCIMReferenceBinding, AnEmptyCallbackThrowsOnlyWhenCalled) {
  using Callback = boost::function<bool(std::pair<std::string, TCIMValue>)>;
  EXPECT_NO_THROW(Parsed("Thing").EnumerateKeyBindings(Callback()));
  EXPECT_THROW(Keyed().EnumerateKeyBindings(Callback()), boost::bad_function_call);
}

// Finding

class CountingNamespace : public StubNamespace {
 public:
  Ptr<ICIMInstance> GetInstance(const TCIMReference& reference, Context context) override {
    ++fCalls;
    fLastPath = reference.GetPath();
    fContextSize = context.size();
    return fInstance;
  }

  int fCalls = 0;
  std::string fLastPath;
  std::size_t fContextSize = 99;
  Ptr<ICIMInstance> fInstance;
};

class IdDecl : public StubPropertyDecl {
 public:
  Type GetType(Context) override { return Type::kCIMTypeUInt32; }
};

class KeyedClass : public StubClass {
 public:
  explicit KeyedClass(Ptr<ICIMNamespace> ns) : fNamespace(ns) {}
  const std::string& GetName(Context) override { return fName; }
  Ptr<ICIMNamespace> GetNamespace(Context) override { return fNamespace; }
  Ptr<ICIMPropertyDecl> GetPropertyDecl(const std::string&, Context) override {
    return Ptr<IdDecl>(new IdDecl);
  }

 private:
  const std::string fName = "Keyed";
  const Ptr<ICIMNamespace> fNamespace;
};

class TCIMReferenceElement : public ::testing::Test {
 protected:
  TCIMReferenceElement()
      : fNamespace(new CountingNamespace),
        fClass(new KeyedClass(fNamespace)),
        // A namespace of its own, which must not be asked.
        fReference(fOwn = Ptr<CountingNamespace>(new CountingNamespace), TCIMContext()) {
    fNamespace->fInstance.reset(new StubInstance);
    fReference.SetClass(fClass);
  }

  void AddKey() { fReference.AddKeyValue("Id", TCIMValue(5u)); }

  const Ptr<CountingNamespace> fNamespace;
  const Ptr<KeyedClass> fClass;
  Ptr<CountingNamespace> fOwn;
  TCIMReference fReference;
};

TEST_F(TCIMReferenceElement, IsTheClassWhenOnlyThatIsWanted) {
  AddKey();
  EXPECT_EQ(fReference.GetCIMElement(true), fClass);
  EXPECT_EQ(fNamespace->fCalls, 0);
}

TEST_F(TCIMReferenceElement, IsTheClassWithoutKeysEvenAnEmptyOne) {
  EXPECT_EQ(fReference.GetCIMElement(false), fClass);
  fReference.SetClass(Ptr<ICIMClass>());
  EXPECT_FALSE(fReference.GetCIMElement(false));
  EXPECT_FALSE(fReference.GetCIMElement(true));
  EXPECT_EQ(fNamespace->fCalls, 0);
}

TEST_F(TCIMReferenceElement, IsAskedOfTheClassesNamespaceOnce) {
  AddKey();
  EXPECT_EQ(fReference.GetCIMElement(false), fNamespace->fInstance);
  EXPECT_EQ(fReference.GetCIMElement(false), fNamespace->fInstance);
  EXPECT_EQ(fNamespace->fCalls, 1);
  EXPECT_EQ(fNamespace->fLastPath, "Keyed.Id=\"5\"");
  EXPECT_EQ(fNamespace->fContextSize, 0u);
  EXPECT_EQ(fOwn->fCalls, 0);
}

TEST_F(TCIMReferenceElement, ComesAlongWithACopyAndAnAssignment) {
  AddKey();
  fReference.GetCIMElement(false);
  const TCIMReference copy(fReference);
  TCIMReference assigned({}, TCIMContext{});
  assigned = fReference;
  EXPECT_EQ(copy.GetCIMElement(false), fNamespace->fInstance);
  EXPECT_EQ(assigned.GetCIMElement(false), fNamespace->fInstance);
  EXPECT_EQ(fNamespace->fCalls, 1);
}

TEST_F(TCIMReferenceElement, GoesWithTheBodyThatAnAssignmentReplaces) {
  AddKey();
  const TCIMReference unfound(fReference);
  fReference.GetCIMElement(false);
  fReference = unfound;
  fReference.GetCIMElement(false);
  EXPECT_EQ(fNamespace->fCalls, 2);
}

TEST_F(TCIMReferenceElement, PlaysNoPartInComparisons) {
  AddKey();
  const TCIMReference unfound(fReference);
  fReference.GetCIMElement(false);
  EXPECT_TRUE(fReference == unfound);
  EXPECT_FALSE(fReference < unfound);
  EXPECT_FALSE(unfound < fReference);
}

TEST_F(TCIMReferenceElement, IsTheClassAlsoBehindAnInstanceThatWasFound) {
  AddKey();
  fReference.GetCIMElement(false);
  EXPECT_EQ(fReference.GetCIMElement(true), fClass);
}

TEST_F(TCIMReferenceElement, StaysWhenAKeyIsAdded) {
  AddKey();
  fReference.GetCIMElement(false);
  fReference.AddKeyValue("Other", TCIMValue(6u));
  fReference.GetCIMElement(false);
  EXPECT_EQ(fNamespace->fCalls, 1);
}

TEST_F(TCIMReferenceElement, ThrowsNotFoundAndAsksAgain) {
  AddKey();
  fNamespace->fInstance.reset();
  EXPECT_EQ(StatusOf([&] { fReference.GetCIMElement(false); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { fReference.GetCIMElement(false); }), kHWXStatusNotFound);
  EXPECT_EQ(fNamespace->fCalls, 2);
}

TEST_F(TCIMReferenceElement, ACopyAsksForItself) {
  AddKey();
  TCIMReference copy(fReference);
  copy.AddKeyValue("Other", TCIMValue(6u));
  copy.GetCIMElement(false);
  EXPECT_EQ(fNamespace->fLastPath, "Keyed.Id=\"5\",Other=\"6\"");
}

}  // namespace
}  // namespace hwxtest
