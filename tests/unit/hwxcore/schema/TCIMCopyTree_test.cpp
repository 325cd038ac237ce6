#include <algorithm>
#include <stdexcept>

#include "CopyTesting.h"
#include "support/MadeSchema.h"
#include "support/NamespaceText.h"

using namespace NQORHWX20;
using hwxtest::Difference;
using hwxtest::MadeSchemaPlan;
using hwxtest::MakeSchema;
using hwxtest::StatusOf;
using testing::Each;
using testing::IsEmpty;
using testing::Pair;

namespace {

class CopyTree : public hwxtest::CopyTest {
 protected:
  void Copy() { TCIMCopy::CopyClasses(fSourceKit, fTargetKit, false); }

  static Strings Lines(ICIMNamespace& ns) {
    return hwxtest::NamespaceLines(ns, hwxtest::kAsCopied);
  }

  static Strings Names(TMemoryNamespace& ns) {
    Strings names;
    for (const auto& one : ns.GetClasses())
      names.push_back(one->GetName({}));
    return names;
  }

  /// The names in the order in which a copy meets them.
  Strings NamesInOrder() {
    Strings names;
    for (const bool associations : {false, true}) {
      const auto add = [&](Ptr<ICIMClass> met) {
        if (met->IsAssociation({}) == associations) names.push_back(met->GetName({}));
        return true;
      };
      fSourceKit->EnumerateClasses(
          [&](Ptr<ICIMClass> root) {
            add(root);
            root->EnumerateSubClasses(add, true, {});
            return true;
          },
          {});
    }
    return names;
  }
};

TEST_F(CopyTree, CopiesALargeSchemaWhole) {
  MakeSchema(fSourceKit, {});
  const Strings lines = Lines(*fSourceKit);
  ASSERT_GT(lines.size(), 20000U);
  Copy();
  EXPECT_EQ(Difference(Lines(*fTargetKit), lines), "");
  EXPECT_EQ(fTargetKit->GetClassCount({}), 1500U);
  EXPECT_EQ(Names(*fTargetKit), NamesInOrder());
  EXPECT_THAT(fLog.Lines(), IsEmpty());
  EXPECT_EQ(Difference(Lines(*fSourceKit), lines), "");
}

TEST_F(CopyTree, CopiesACopyToTheSameSchema) {
  MadeSchemaPlan plan;
  plan.fClasses = 200;
  plan.fSeed = 2;
  MakeSchema(fSourceKit, plan);
  Copy();
  const auto third = TMemoryNamespace::Create("third");
  TCIMCopy::CopyClasses(fTargetKit, third, false);
  EXPECT_EQ(Difference(*third, *fSourceKit, hwxtest::kAsCopied), "");
}

TEST_F(CopyTree, BindsEveryReferenceToTheTarget) {
  MakeSchema(fSourceKit, {});
  Copy();
  unsigned references = 0;
  for (const auto& copied : fTargetKit->GetClasses()) {
    copied->EnumeratePropertyDecls(
        [&](Ptr<ICIMPropertyDecl> decl) {
          const TCIMValue& value = decl->GetDefaultValue({});
          if (!value.IsReference()) return true;
          ++references;
          EXPECT_EQ(value.GetReferencedClass()->GetNamespace({}), fTargetKit);
          return true;
        },
        {});
  }
  EXPECT_GT(references, 500U);
}

TEST_F(CopyTree, LosesThePropertiesThatReferToAClassOfALaterTreeAndNothingElse) {
  MadeSchemaPlan plan;
  plan.fForwardReferences = 20;
  MakeSchema(fSourceKit, plan);
  Strings expected = Lines(*fSourceKit);
  const auto isForward = [](const std::string& line) {
    return line.find(".Forward") != std::string::npos;
  };
  // A subclass inherits such a property, and loses it for itself.
  const auto lost = std::count_if(expected.begin(), expected.end(), isForward);
  ASSERT_GT(lost, 20);
  expected.erase(std::remove_if(expected.begin(), expected.end(), isForward), expected.end());
  Copy();
  EXPECT_EQ(Difference(Lines(*fTargetKit), expected), "");
  EXPECT_EQ(static_cast<long>(fLog.Lines().size()), lost);
  EXPECT_THAT(fLog.Lines(),
              Each(Pair("Debug", "TCopyPropertyDecl::operator() - Get an Exception")));
}

TEST_F(CopyTree, CopiesAChainAsDeepAsTheKitTakes) {
  constexpr unsigned kDepth = TMemoryNamespace::kMaxClassDepth;
  MadeSchemaPlan plan;
  plan.fClasses = 1;
  MakeSchema(fSourceKit, plan);
  for (unsigned number = 1; number < kDepth; ++number) {
    TClassBuilder(fSourceKit, "EX_" + std::to_string(number), "EX_" + std::to_string(number - 1))
        .Qualifier("Version", std::to_string(number))
        .Commit();
  }
  Copy();
  EXPECT_EQ(Difference(*fTargetKit, *fSourceKit, hwxtest::kAsCopied), "");
  const auto last = fTargetKit->FindClass("EX_" + std::to_string(kDepth - 1));
  EXPECT_TRUE(last->IsSubClassOf("EX_0", {}));
}

TEST_F(CopyTree, StopsAtTheFirstFailureWithWhatCameBefore) {
  MakeSchema(fSourceKit, {});
  const Strings order = NamesInOrder();
  for (const std::size_t stop : {std::size_t{0}, std::size_t{700}, order.size() - 1}) {
    hwxtest::CallTrace trace;
    const auto kit = TMemoryNamespace::Create("to");
    const auto target = hwxtest::TracedNamespace(kit, "target", trace);
    const std::string call = "target." + order[stop] + ".Commit";
    trace.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClasses(fSourceKit, target, false); }),
              kHWXStatusAccessDenied);
    EXPECT_EQ(trace.Calls().back(), call);
    EXPECT_EQ(Names(*kit), Strings(order.begin(), order.begin() + static_cast<long>(stop)));
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

}  // namespace
