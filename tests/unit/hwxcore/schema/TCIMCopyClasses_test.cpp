#include <algorithm>
#include <set>
#include <stdexcept>

#include "CopyTesting.h"

using namespace NQORHWX20;
using hwxtest::StatusOf;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

static_assert(std::is_same_v<decltype(&TCIMCopy::CopyClasses),
                             void (*)(boost::shared_ptr<ICIMNamespace>,
                                      boost::shared_ptr<ICIMNamespace>, bool)>);

class CopyClasses : public hwxtest::CopyTest {
 protected:
  Strings CallsOfCopy(bool skipProductInstances = false) {
    return CallsOf([&] { TCIMCopy::CopyClasses(fSource, fTarget, skipProductInstances); });
  }

  /// A class that bears the qualifier with the value true.
  Ptr<ICIMClass> AddMarked(const std::string& name, const std::string& qualifier,
                           const Ptr<ICIMClass>& superclass = {}) {
    if (!fSource->GetQualifierDecl(qualifier, {})) {
      Declare(*fSource, qualifier, false, kScopeAny, kFlavorRestricted);
    }
    const auto made = fSource->CreateClass(name, superclass, {});
    Qualify(*fSource, *made, qualifier, true);
    made->Commit({});
    return fSource->GetClass(name, {});
  }

  static Strings Joined(const std::vector<Strings>& parts) {
    Strings all;
    for (const Strings& part : parts)
      all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  static Strings DeclCalls(const std::string& name, unsigned flavor) {
    return {"source[" + name + "].GetFlavor",
            "source[" + name + "].GetScope",
            "source[" + name + "].GetDefaultValue",
            "source[" + name + "].GetName",
            "target.CreateQualifierDecl(" + name + ", boolean false, 127, " +
                std::to_string(flavor) + ")",
            "target[" + name + "].Commit"};
  }

  /// The calls for a root class without contents, up to its commit.
  static Strings CopyCalls(const std::string& name, const Strings& qualifierCalls = {}) {
    const std::string from = "source." + name + ".";
    return Joined({{from + "IsAssociation", from + "IsRootClass", from + "GetName",
                    "target.CreateClass(" + name + ", none)", from + "EnumerateQualifiers"},
                   qualifierCalls,
                   {from + "EnumeratePropertyDecls", from + "EnumerateStaticProperties",
                    from + "EnumerateMethodDecls", "target." + name + ".Commit"}});
  }

  /// The calls behind them, for a class that isn't the product.
  static Strings CheckCalls(const std::string& name) {
    const std::string from = "source." + name + ".";
    return {from + "GetQualifier(PLUGINNAME)", from + "IsAbstract", from + "GetName"};
  }

  /// The calls for a qualifier whose declaration the target has.
  static Strings QualifierCalls(const std::string& element, const std::string& name) {
    const std::string from = "source." + element + "[" + name + "].";
    return {from + "GetQualifierDecl",
            "source[" + name + "].GetName",
            "target.GetQualifierDecl(" + name + ")",
            from + "GetValue",
            "target." + element + ".CreateQualifier(target[" + name + "], boolean true)",
            "target." + element + "[" + name + "].Commit"};
  }

  std::size_t CountOf(const std::string& name) {
    return fTargetKit->FindClass(name)->GetInstanceCount(false, {});
  }
};

TEST_F(CopyClasses, EnumeratesThreeTimesInAnEmptyNamespace) {
  EXPECT_THAT(CallsOfCopy(), ElementsAre("source.EnumerateQualifierDecls",
                                         "source.EnumerateClasses", "source.EnumerateClasses"));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClasses, CopiesDeclarationsInTheirOrderWithoutALookUp) {
  Declare(*fSource, "Key", false, kScopeAny, kFlavorToSubclass);
  Declare(*fSource, "Abstract", false, kScopeAny, kFlavorRestricted);
  EXPECT_THAT(CallsOfCopy(),
              ElementsAreArray(Joined({{"source.EnumerateQualifierDecls"},
                                       DeclCalls("Key", kFlavorToSubclass),
                                       DeclCalls("Abstract", kFlavorRestricted),
                                       {"source.EnumerateClasses", "source.EnumerateClasses"}})));
}

TEST_F(CopyClasses, HandsTheDefaultValueOfADeclarationOnAsItStands) {
  Declare(*fSource, "About", ReferenceTo(AddClass(*fSource, "Thing")));
  EXPECT_THAT(CallsOfCopy(), Contains("target.CreateQualifierDecl(About, "
                                      "reference(source.Thing) null, 127, 3)"));
}

TEST_F(CopyClasses, LeavesItToTheTargetWhetherADeclarationMayExist) {
  Declare(*fSource, "Key", false);
  Declare(*fTarget, "Key", false);
  AddClass(*fSource, "Disk");
  EXPECT_EQ(CallsOfCopy().back(), "target.CreateQualifierDecl(Key, boolean false, 127, 3)");
  EXPECT_EQ(fStatus, kHWXStatusAlreadyExists);
  EXPECT_FALSE(fTargetKit->FindClass("Disk"));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClasses, CopiesAssociationsInTheSecondPassWhereverTheyStand) {
  for (const bool associationFirst : {true, false}) {
    SCOPED_TRACE(associationFirst);
    const auto kit = TMemoryNamespace::Create("from");
    const auto source = hwxtest::TracedNamespace(kit, "source", fTrace);
    Declare(*source, "Association", false);
    const auto addAssociation = [&] {
      const auto link = source->CreateClass("Link", {}, {});
      Qualify(*source, *link, "Association", true);
      link->Commit({});
    };
    if (associationFirst) addAssociation();
    AddClass(*source, "Disk");
    if (!associationFirst) addAssociation();
    const auto target = hwxtest::TracedNamespace(TMemoryNamespace::Create("to"), "target", fTrace);

    const Strings diskFirst =
        Joined({CopyCalls("Disk"), CheckCalls("Disk"), {"source.Disk.EnumerateSubClasses(deep)"}});
    const Strings linkFirst = {"source.Link.IsAssociation",
                               "source.Link.EnumerateSubClasses(deep)"};
    const Strings diskSecond = {"source.Disk.IsAssociation",
                                "source.Disk.EnumerateSubClasses(deep)"};
    const Strings linkSecond = Joined({CopyCalls("Link", QualifierCalls("Link", "Association")),
                                       CheckCalls("Link"),
                                       {"source.Link.EnumerateSubClasses(deep)"}});
    EXPECT_THAT(CallsOf([&] { TCIMCopy::CopyClasses(source, target, false); }),
                ElementsAreArray(Joined({{"source.EnumerateQualifierDecls"},
                                         DeclCalls("Association", kFlavorDefault),
                                         {"source.EnumerateClasses"},
                                         associationFirst ? linkFirst : diskFirst,
                                         associationFirst ? diskFirst : linkFirst,
                                         {"source.EnumerateClasses"},
                                         associationFirst ? linkSecond : diskSecond,
                                         associationFirst ? diskSecond : linkSecond})));
    EXPECT_EQ(fStatus, kHWXStatusOK);
  }
}

TEST_F(CopyClasses, CopiesASuperclassAheadOfItsSubclasses) {
  const auto top = AddClass(*fSource, "Top");
  const auto middle = AddClass(*fSource, "Middle", {}, top);
  AddClass(*fSource, "Bottom", {}, middle);
  Strings created;
  for (const std::string& call : CallsOfCopy())
    if (call.find("CreateClass") != std::string::npos) created.push_back(call);
  EXPECT_THAT(created,
              ElementsAre("target.CreateClass(Top, none)", "target.CreateClass(Middle, target.Top)",
                          "target.CreateClass(Bottom, target.Middle)"));
}

TEST_F(CopyClasses, FailsUnloggedOnAPlainClassBelowAnAssociation) {
  const auto link = AddMarked("Link", "Association");
  AddClass(*fSource, "Plain", {}, link);
  AddClass(*fSource, "Last");
  // In the first pass, which has no association yet.
  EXPECT_EQ(CallsOfCopy().back(), "target.GetClass(Link)");
  EXPECT_EQ(fStatus, kHWXStatusNotFound);
  EXPECT_THAT(fTargetKit->GetClasses(), IsEmpty());
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClasses, CopiesAnAssociationBelowAPlainClassInTheSecondPass) {
  const auto top = AddClass(*fSource, "Top");
  AddMarked("Link", "Association", top);
  AddClass(*fSource, "Other", {}, top);
  CallsOfCopy();
  EXPECT_EQ(fStatus, kHWXStatusOK);
  Strings names;
  for (const auto& copied : fTargetKit->GetClasses())
    names.push_back(copied->GetName({}));
  EXPECT_THAT(names, ElementsAre("Top", "Other", "Link"));
}

TEST_F(CopyClasses, RollsNothingBack) {
  AddClass(*fSource, "First");
  AddClass(*fSource, "Second");
  AddClass(*fSource, "Third");
  fTrace.Fail("target.Second.Commit", kHWXStatusAccessDenied);
  EXPECT_EQ(CallsOfCopy().back(), "target.Second.Commit");
  EXPECT_EQ(fStatus, kHWXStatusAccessDenied);
  EXPECT_TRUE(fTargetKit->FindClass("First"));
  EXPECT_FALSE(fTargetKit->FindClass("Second"));
  EXPECT_FALSE(fTargetKit->FindClass("Third"));
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyClasses, RefusesNamespacesThatAreNotThere) {
  Declare(*fSource, "Key", false);
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClasses({}, fTarget, false); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClasses(fSource, {}, false); }),
            kHWXStatusInvalidOpSequence);
}

TEST_F(CopyClasses, FunctorsHoldTheTargetWeakly) {
  Declare(*fSource, "Key", false);
  const auto disk = AddClass(*fSource, "Disk");
  Ptr<ICIMNamespace> ns = TMemoryNamespace::Create("gone");
  const TCopyQualifierDecls decls(ns);
  const TCopyClass one(ns, false, false), otherPass(ns, true, false);
  const TCopyClassTree tree(ns, false, false);
  EXPECT_EQ(ns.use_count(), 1);
  ns.reset();
  EXPECT_EQ(StatusOf([&] { decls(fSource->GetQualifierDecl("Key", {})); }),
            kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { one(disk); }), kHWXStatusInvalidOpSequence);
  EXPECT_EQ(StatusOf([&] { tree(disk); }), kHWXStatusInvalidOpSequence);
  EXPECT_TRUE(otherPass(disk));  // which has no need of the target
}

TEST_F(CopyClasses, FunctorsGoOnInEveryPath) {
  Declare(*fSource, "Key", false);
  const auto disk = AddClass(*fSource, "Disk");
  for (const bool associationPass : {false, true}) {
    const boost::function<bool(Ptr<ICIMClass>)> one = TCopyClass(fTarget, associationPass, false);
    EXPECT_TRUE(one(disk));
    const auto kit = TMemoryNamespace::Create("to");
    const boost::function<bool(Ptr<ICIMClass>)> tree =
        TCopyClassTree(Ptr<ICIMNamespace>(kit), associationPass, false);
    EXPECT_TRUE(tree(disk));
    EXPECT_EQ(kit->FindClass("Disk") != nullptr, !associationPass);
  }
  EXPECT_TRUE(TCopyQualifierDecls(fTarget)(fSource->GetQualifierDecl("Key", {})));
}

}  // namespace
