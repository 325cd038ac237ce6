#include <stdexcept>

#include "CopyTesting.h"
#include "support/SchemaStubs.h"

using namespace NQORHWX20;
using hwxtest::StatusOf;
using hwxtest::TracedText;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CopyQualifier : public hwxtest::CopyTest {
 protected:
  /// An uncommitted class of the target, which can be given qualifiers.
  Ptr<ICIMClass> OpenClass(const std::string& name) {
    const auto made = fTarget->CreateClass(name, {}, {});
    fOpen.push_back(made);
    return made;
  }

  /// A class of the source with one qualifier, which `Copy` hands to the functor.
  Ptr<ICIMClass> Qualified(const std::string& className, const std::string& qualifier,
                           const TCIMValue& value) {
    const auto made = fSource->CreateClass(className, {}, {});
    Qualify(*fSource, *made, qualifier, value);
    made->Commit({});
    return made;
  }

  void Copy(ICIMClass& from, const Ptr<ICIMQualifiedElement>& to) {
    from.EnumerateQualifiers(TCopyQualifier(to, fTarget), {});
  }

  std::vector<Ptr<ICIMClass> > fOpen;
};

TEST_F(CopyQualifier, CreatesTheDeclarationThatTheTargetLacks) {
  Declare(*fSource, "Units", "Bytes", kScopeProperty | kScopeClass, kFlavorTranslatable);
  const auto source = Qualified("Disk", "Units", "Miles");
  const auto target = OpenClass("Disk");
  EXPECT_THAT(CallsOf([&] { Copy(*source, target); }),
              ElementsAre("source.Disk.EnumerateQualifiers",  //
                          "source.Disk[Units].GetQualifierDecl", "source[Units].GetName",
                          "target.GetQualifierDecl(Units)",  //
                          "source[Units].GetFlavor", "source[Units].GetScope",
                          "source[Units].GetDefaultValue", "source[Units].GetName",
                          "target.CreateQualifierDecl(Units, string Bytes, 9, 4)",
                          "target[Units].Commit",  //
                          "source.Disk[Units].GetValue",
                          "target.Disk.CreateQualifier(target[Units], string Miles)",
                          "target.Disk[Units].Commit"));
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyQualifier, FindsTheDeclarationTheSecondTime) {
  Declare(*fSource, "Key", false);
  const auto first = Qualified("One", "Key", true);
  const auto second = Qualified("Two", "Key", true);
  const auto target = OpenClass("One");
  Copy(*first, target);
  const auto other = OpenClass("Two");
  EXPECT_THAT(
      CallsOf([&] { Copy(*second, other); }),
      ElementsAre("source.Two.EnumerateQualifiers", "source.Two[Key].GetQualifierDecl",
                  "source[Key].GetName", "target.GetQualifierDecl(Key)", "source.Two[Key].GetValue",
                  "target.Two.CreateQualifier(target[Key], boolean true)",
                  "target.Two[Key].Commit"));
}

TEST_F(CopyQualifier, LeavesTheTargetsOwnDeclarationAsItIs) {
  Declare(*fSource, "Units", "Bytes", kScopeAny, kFlavorDefault);
  Declare(*fTarget, "Units", "Miles", kScopeClass, kFlavorRestricted);
  const auto source = Qualified("Disk", "Units", "Feet");
  const auto target = OpenClass("Disk");
  Copy(*source, target);
  const auto decl = fTarget->GetQualifierDecl("Units", {});
  EXPECT_EQ(TracedText(decl->GetDefaultValue({})), "string Miles");
  EXPECT_EQ(decl->GetScope({}), static_cast<unsigned>(kScopeClass));
  EXPECT_EQ(decl->GetFlavor({}), static_cast<unsigned>(kFlavorRestricted));
  EXPECT_EQ(TracedText(target->GetQualifier("Units", {})->GetValue({})), "string Feet");
}

TEST_F(CopyQualifier, CopiesANullValueLikeAnyOther) {
  Declare(*fSource, "Units", "Bytes");
  const auto source = Qualified("Disk", "Units", Null(Type::kCIMTypeString));
  const auto target = OpenClass("Disk");
  Copy(*source, target);
  EXPECT_EQ(TracedText(target->GetQualifier("Units", {})->GetValue({})), "string null");
}

TEST_F(CopyQualifier, RewritesTheValueButNotTheDefaultValueOfTheDeclaration) {
  const auto thing = AddClass(*fSource, "Thing", {{"Id", 0U}});
  AddClass(*fTarget, "Thing", {{"Id", 0U}});
  Declare(*fSource, "About", ReferenceTo(thing));
  const auto source = Qualified("Disk", "About", ReferenceValue(fSource, "Thing", {{"Id", 1U}}));
  const auto target = OpenClass("Disk");
  EXPECT_THAT(CallsOf([&] { Copy(*source, target); }),
              testing::IsSupersetOf({testing::StrEq("target.CreateQualifierDecl(About, "
                                                    "reference(source.Thing) null, 127, 3)"),
                                     testing::StrEq("target.Disk.CreateQualifier(target[About], "
                                                    "reference(target.Thing Id=uint32 1))")}));
}

TEST_F(CopyQualifier, PassesTheFailureOfEveryStepOnWithoutALogEntry) {
  Declare(*fSource, "Units", "Bytes");
  const auto source = Qualified("Disk", "Units", "Miles");
  const auto target = OpenClass("Disk");
  const Strings calls = CallsOf([&] { Copy(*source, target); });
  ASSERT_EQ(calls.size(), 13U);
  for (const std::string& call : calls) {
    // A target of its own for each, as a failed copy may leave the declaration.
    hwxtest::CallTrace trace;
    const auto ns = hwxtest::TracedNamespace(TMemoryNamespace::Create("to"), "target", trace);
    const auto element = ns->CreateClass("Disk", {}, {});
    fTrace.Fail(call, kHWXStatusAccessDenied);
    trace.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { source->EnumerateQualifiers(TCopyQualifier(element, ns), {}); }),
              kHWXStatusAccessDenied)
        << call;
    fTrace.Do(call, [] {});
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyQualifier, FailsIfAReferenceCannotBeRewritten) {
  const auto thing = AddClass(*fSource, "Thing", {{"Id", 0U}});
  Declare(*fSource, "About", ReferenceTo(thing));
  const auto source = Qualified("Disk", "About", ReferenceTo(thing));
  const auto target = OpenClass("Disk");
  EXPECT_EQ(StatusOf([&] { Copy(*source, target); }), kHWXStatusNotFound);
  EXPECT_FALSE(target->GetQualifier("About", {}));
  EXPECT_TRUE(fTarget->GetQualifierDecl("About", {}));  // nothing is rolled back
}

TEST_F(CopyQualifier, GoesOnAndHoldsElementAndTargetWeakly) {
  Declare(*fSource, "Units", "Bytes");
  const auto qualifier = Qualified("Disk", "Units", "Miles")->GetQualifier("Units", {});
  boost::shared_ptr<ICIMNamespace> ns = TMemoryNamespace::Create("gone");
  boost::shared_ptr<ICIMQualifiedElement> element = ns->CreateClass("Disk", {}, {});
  const boost::function<bool(Ptr<ICIMQualifier>)> functor = TCopyQualifier(element, ns);
  EXPECT_TRUE(functor(qualifier));
  EXPECT_EQ(ns.use_count(), 1);
  EXPECT_EQ(element.use_count(), 1);
  element.reset();
  EXPECT_EQ(StatusOf([&] { functor(qualifier); }), kHWXStatusInvalidOpSequence);
  ns.reset();
  EXPECT_EQ(StatusOf([&] { functor(qualifier); }), kHWXStatusInvalidOpSequence);
}

TEST_F(CopyQualifier, RefusesAQualifierWithoutADeclaration) {
  Declare(*fSource, "Units", "Bytes");
  const auto source = Qualified("Disk", "Units", "Miles");
  const auto target = OpenClass("Disk");
  fTrace.Withhold("source.Disk[Units].GetQualifierDecl");
  EXPECT_EQ(StatusOf([&] { Copy(*source, target); }), kHWXStatusNotFound);
}

// A declaration whose default value is looked at by address.
class OneDecl : public hwxtest::StubQualifierDecl {
 public:
  void Commit(TCIMContext) override {}
  const std::string& GetName(TCIMContext) override { return fName; }
  const TCIMValue& GetDefaultValue(TCIMContext) override { return fDefaultValue; }
  unsigned int GetScope(TCIMContext) override { return 1; }
  unsigned int GetFlavor(TCIMContext) override { return 2; }

  const std::string fName = "Units";
  const TCIMValue fDefaultValue = "Bytes";
};

class OneQualifier : public hwxtest::StubQualifier {
 public:
  explicit OneQualifier(const boost::shared_ptr<OneDecl>& decl) : fDecl(decl) {}
  void Commit(TCIMContext) override {}
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TCIMContext) override { return fDecl; }
  const TCIMValue& GetValue(TCIMContext) override { return fDecl->fDefaultValue; }

 private:
  const boost::shared_ptr<OneDecl> fDecl;
};

class OneElement : public hwxtest::StubQualifiedElement {
 public:
  explicit OneElement(const boost::shared_ptr<OneDecl>& decl) : fDecl(decl) {}
  boost::shared_ptr<ICIMQualifier> CreateQualifier(boost::shared_ptr<ICIMQualifierDecl>,
                                                   const TCIMValue&, TCIMContext) override {
    return boost::shared_ptr<ICIMQualifier>(new OneQualifier(fDecl));
  }

 private:
  const boost::shared_ptr<OneDecl> fDecl;
};

class AddressKeeper : public hwxtest::StubNamespace {
 public:
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string&, TCIMContext) override {
    return {};
  }
  boost::shared_ptr<ICIMQualifierDecl> CreateQualifierDecl(const std::string&,
                                                           const TCIMValue& defaultValue,
                                                           unsigned int, unsigned int,
                                                           TCIMContext) override {
    fAddress = &defaultValue;
    return boost::shared_ptr<ICIMQualifierDecl>(new OneDecl);
  }

  const TCIMValue* fAddress = nullptr;
};

TEST(CopyQualifierDecl, HandsOnACopyOfTheDefaultValueForAQualifierAndItselfForADeclaration) {
  const boost::shared_ptr<OneDecl> decl(new OneDecl);
  const boost::shared_ptr<AddressKeeper> ns(new AddressKeeper);
  EXPECT_TRUE(TCopyQualifierDecls(ns)(decl));
  EXPECT_EQ(ns->fAddress, &decl->fDefaultValue);
  const boost::shared_ptr<OneElement> element(new OneElement(decl));
  EXPECT_TRUE(
      TCopyQualifier(element, ns)(boost::shared_ptr<ICIMQualifier>(new OneQualifier(decl))));
  EXPECT_NE(ns->fAddress, &decl->fDefaultValue);
}

}  // namespace
