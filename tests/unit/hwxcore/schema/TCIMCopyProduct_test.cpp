#include <algorithm>
#include <set>
#include <stdexcept>

#include "CopyTesting.h"
#include "support/SchemaStubs.h"

using namespace NQORHWX20;
using hwxtest::CallTrace;
using hwxtest::StatusOf;
using hwxtest::TracedNamespace;
using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const char kProduct[] = "QORSG_HWXProduct";

class CopyProduct : public hwxtest::CopyTest {
 protected:
  /// A class with instances of the versions "1.0" and "2.0", and a qualifier that is true.
  void AddProduct(const std::string& name, const std::string& qualifier = "") {
    const auto made = fSource->CreateClass(name, {}, {});
    if (!qualifier.empty()) {
      Declare(*fSource, qualifier, false, kScopeAny, kFlavorRestricted);
      Qualify(*fSource, *made, qualifier, true);
    }
    AddProperty(*made, "Version", "");
    made->Commit({});
    for (const char* const version : {"1.0", "2.0"})
      AddInstance(*made, {{"Version", version}});
  }

  /// The calls of `CopyClasses` from the commit of the class to the end of the first pass.
  Strings CallsOfCopy(const std::string& name, bool skipProductInstances) {
    Strings calls = CallsOf([&] { TCIMCopy::CopyClasses(fSource, fTarget, skipProductInstances); });
    calls.erase(calls.begin(), std::find(calls.begin(), calls.end(), "target." + name + ".Commit"));
    calls.erase(std::find(calls.begin(), calls.end(), "source.EnumerateClasses"), calls.end());
    return calls;
  }

  static Strings Joined(const std::vector<Strings>& parts) {
    Strings all;
    for (const Strings& part : parts)
      all.insert(all.end(), part.begin(), part.end());
    return all;
  }

  /// The calls that copy an instance of the product.
  static Strings CopyCalls(int number, const std::string& version) {
    const std::string instance = "source.QORSG_HWXProduct#" + std::to_string(number) + ".";
    return {instance + "GetClass",
            "source.QORSG_HWXProduct.GetName",
            "target.GetClass(QORSG_HWXProduct)",
            "target.QORSG_HWXProduct.CreateInstance",
            instance + "EnumerateProperties",
            instance + "Version.GetValue",
            instance + "Version.GetValue",
            instance + "Version.GetPropertyDecl",
            "source.QORSG_HWXProduct.Version.GetName",
            "target.QORSG_HWXProduct#new.SetPropertyValue(Version, string " + version + ")",
            "target.QORSG_HWXProduct.AddInstance(target.QORSG_HWXProduct#new)"};
  }

  static Strings ClassCalls(int number) {
    return {"source.QORSG_HWXProduct#" + std::to_string(number) + ".GetClass",
            "source.QORSG_HWXProduct.GetName"};
  }

  unsigned CountOf(const std::string& name) {
    return fTargetKit->FindClass(name)->GetInstanceCount(false, {});
  }
};

TEST_F(CopyProduct, CopiesBothInstances) {
  AddProduct(kProduct);
  EXPECT_THAT(
      CallsOfCopy(kProduct, false),
      ElementsAreArray(Joined(
          {{"target.QORSG_HWXProduct.Commit", "source.QORSG_HWXProduct.GetQualifier(PLUGINNAME)",
            "source.QORSG_HWXProduct.IsAbstract", "source.QORSG_HWXProduct.GetName",
            "source.QORSG_HWXProduct.EnumerateInstances(shallow)"},
           ClassCalls(0),
           CopyCalls(0, "1.0"),  //
           ClassCalls(1),
           CopyCalls(1, "2.0"),
           {"source.QORSG_HWXProduct.EnumerateSubClasses(deep)"}})));
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_EQ(CountOf(kProduct), 2U);
}

TEST_F(CopyProduct, StillReadsTheirClassesWhenNoneIsToBeCopied) {
  AddProduct(kProduct);
  EXPECT_THAT(
      CallsOfCopy(kProduct, true),
      ElementsAreArray(Joined(
          {{"target.QORSG_HWXProduct.Commit", "source.QORSG_HWXProduct.GetQualifier(PLUGINNAME)",
            "source.QORSG_HWXProduct.IsAbstract", "source.QORSG_HWXProduct.GetName",
            "source.QORSG_HWXProduct.EnumerateInstances(shallow)"},
           ClassCalls(0),
           ClassCalls(1),
           {"source.QORSG_HWXProduct.EnumerateSubClasses(deep)"}})));
  EXPECT_EQ(CountOf(kProduct), 0U);
}

TEST_F(CopyProduct, CopiesNoneOfAPluginsOrAnAbstractClass) {
  for (const char* const qualifier : {"PluginName", "Abstract"}) {
    const auto kit = TMemoryNamespace::Create("from");
    const auto source = TracedNamespace(kit, "source", fTrace);
    const auto targetKit = TMemoryNamespace::Create("to");
    const auto target = TracedNamespace(targetKit, "target", fTrace);
    AddClass(*source, "Other");
    Declare(*source, qualifier, false, kScopeAny, kFlavorRestricted);
    const auto product = source->CreateClass(kProduct, {}, {});
    Qualify(*source, *product, qualifier, true);
    product->Commit({});
    Strings calls = CallsOf([&] { TCIMCopy::CopyClasses(source, target, false); });
    // Both are always asked, in this order; the name isn't any more.
    const auto commit = std::find(calls.begin(), calls.end(), "target.QORSG_HWXProduct.Commit");
    ASSERT_GE(calls.end() - commit, 4);
    EXPECT_THAT(Strings(commit + 1, commit + 4),
                ElementsAre("source.QORSG_HWXProduct.GetQualifier(PLUGINNAME)",
                            "source.QORSG_HWXProduct.IsAbstract",
                            "source.QORSG_HWXProduct.EnumerateSubClasses(deep)"));
    EXPECT_THAT(calls, Not(Contains(HasSubstr("EnumerateInstances"))));
    EXPECT_TRUE(targetKit->FindClass(kProduct));
  }
}

TEST_F(CopyProduct, TakesAPluginsQualifierOfAnyValueForAMark) {
  Declare(*fSource, "PLUGINNAME", Null(Type::kCIMTypeString));
  const auto product = fSource->CreateClass(kProduct, {}, {});
  Qualify(*fSource, *product, "PLUGINNAME", Null(Type::kCIMTypeString));
  product->Commit({});
  AddInstance(*product, {});
  CallsOfCopy(kProduct, false);
  EXPECT_EQ(CountOf(kProduct), 0U);
}

TEST_F(CopyProduct, CopiesInstancesOfNoOtherClass) {
  for (const char* const name : {"EX_Disk", "QORSG_HWXProducts", "QORSG_HWXProduc"})
    AddProduct(name);
  const Strings calls = CallsOf([&] { TCIMCopy::CopyClasses(fSource, fTarget, false); });
  EXPECT_EQ(fStatus, kHWXStatusOK);
  EXPECT_THAT(calls, Not(Contains(HasSubstr("Instance"))));
}

TEST_F(CopyProduct, ComparesTheNameExactly) {
  AddProduct("qorsg_hwxproduct");
  EXPECT_THAT(CallsOfCopy("qorsg_hwxproduct", false), Not(Contains(HasSubstr("Instance"))));
}

TEST_F(CopyProduct, LeavesTheInstancesOfASubclassBehind) {
  AddProduct(kProduct);
  const auto special = AddClass(*fSource, "EX_Special", {}, fSource->GetClass(kProduct, {}));
  AddInstance(*special, {{"Version", "3.0"}});
  CallsOfCopy(kProduct, false);
  EXPECT_EQ(CountOf(kProduct), 2U);
  EXPECT_EQ(CountOf("EX_Special"), 0U);
}

// A product class whose provider presents an instance of another class as its own.
class MixedProduct : public hwxtest::StubClass {
 public:
  explicit MixedProduct(const boost::shared_ptr<ICIMInstance>& instance) : fInstance(instance) {}

  const std::string& GetName(TCIMContext) override { return fName; }
  bool IsAssociation(TCIMContext) override { return false; }
  bool IsAbstract(TCIMContext) override { return false; }
  bool IsRootClass(TCIMContext) override { return true; }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string&, TCIMContext) override {
    return {};
  }
  void EnumerateQualifiers(const hwxtest::Callback<ICIMQualifier>&, TCIMContext) override {}
  void EnumeratePropertyDecls(const hwxtest::Callback<ICIMPropertyDecl>&, TCIMContext) override {}
  void EnumerateStaticProperties(const hwxtest::Callback<ICIMProperty>&, TCIMContext) override {}
  void EnumerateMethodDecls(const hwxtest::Callback<ICIMMethodDecl>&, TCIMContext) override {}
  void EnumerateInstances(const hwxtest::Callback<ICIMInstance>& callback, bool,
                          TCIMContext) override {
    callback(fInstance);
  }

 private:
  const std::string fName = kProduct;
  const boost::shared_ptr<ICIMInstance> fInstance;
};

TEST_F(CopyProduct, LeavesAnInstanceBehindWhoseOwnClassIsAnother) {
  const auto disk = AddClass(*fSource, "EX_Disk");
  const Ptr<ICIMClass> mixed(new MixedProduct(AddInstance(*disk, {})));
  AddClass(*fTarget, "EX_Disk");
  fTrace.Forget();
  EXPECT_TRUE(TCopyClass(fTarget, false, false)(mixed));
  EXPECT_THAT(fTrace.Calls(), ElementsAre("target.CreateClass(QORSG_HWXProduct, none)",
                                          "target.QORSG_HWXProduct.Commit",
                                          "source.EX_Disk#new.GetClass", "source.EX_Disk.GetName"));
}

TEST_F(CopyProduct, TakesTheMutexForTheInstancesAlone) {
  AddProduct(kProduct);
  const Strings calls = CallsOf([&] { TCIMCopy::CopyClasses(fSource, fTarget, false); });
  // The calls that are made in the copy of an instance and nowhere else.
  const std::set<std::string> held = {
      "target.GetClass(QORSG_HWXProduct)", "target.QORSG_HWXProduct.CreateInstance",
      "source.QORSG_HWXProduct#0.EnumerateProperties",
      "target.QORSG_HWXProduct.AddInstance(target.QORSG_HWXProduct#new)"};
  const std::set<std::string> free = {"source.EnumerateClasses",
                                      "target.CreateClass(QORSG_HWXProduct, none)",
                                      "target.QORSG_HWXProduct.Commit",
                                      "source.QORSG_HWXProduct.IsAbstract",
                                      "source.QORSG_HWXProduct.EnumerateInstances(shallow)",
                                      "source.QORSG_HWXProduct.EnumerateSubClasses(deep)"};
  int asked = 0;
  CallTrace trace;
  const auto source = TracedNamespace(fSourceKit, "source", trace);
  const auto target = TracedNamespace(TMemoryNamespace::Create("to"), "target", trace);
  for (const bool isFree : {false, true}) {
    for (const std::string& call : isFree ? free : held) {
      trace.Do(call, [&asked, isFree, call] {
        ++asked;
        EXPECT_EQ(hwxtest::IsCopyInstMutexFree(), isFree) << call;
      });
    }
  }
  TCIMCopy::CopyClasses(source, target, false);
  EXPECT_EQ(trace.Calls(), calls);
  EXPECT_GE(asked, 14);
  EXPECT_TRUE(hwxtest::IsCopyInstMutexFree());
}

TEST_F(CopyProduct, PassesTheFailureOfEveryStepOnUnlogged) {
  AddProduct(kProduct);
  const auto guarded = [](const std::string& call) {
    return call.find(".Version.GetDefaultValue") != std::string::npos ||
           call.find("CreatePropertyDecl") != std::string::npos ||
           call.find("Version.EnumerateQualifiers") != std::string::npos ||
           call.find("Version.Commit") != std::string::npos;
  };
  for (const std::string& call : CallsOf([&] { TCIMCopy::CopyClasses(fSource, fTarget, false); })) {
    if (guarded(call)) continue;
    CallTrace trace;
    const auto source = TracedNamespace(fSourceKit, "source", trace);
    const auto target = TracedNamespace(TMemoryNamespace::Create("to"), "target", trace);
    trace.Fail(call, kHWXStatusAccessDenied);
    EXPECT_EQ(StatusOf([&] { TCIMCopy::CopyClasses(source, target, false); }),
              kHWXStatusAccessDenied)
        << call;
    EXPECT_EQ(trace.Calls().back(), call);
    trace.Do(call, [] { throw std::runtime_error("broken"); });
    const auto other = TracedNamespace(TMemoryNamespace::Create("to"), "target", trace);
    EXPECT_THROW(TCIMCopy::CopyClasses(source, other, false), std::runtime_error) << call;
    EXPECT_TRUE(hwxtest::IsCopyInstMutexFree()) << call;
  }
  EXPECT_THAT(fLog.Lines(), IsEmpty());
}

TEST_F(CopyProduct, LeavesItToTheTargetWhetherAnInstanceMayExist) {
  AddClass(*fTarget, kProduct, {{"Version", ""}});
  const auto product = AddClass(*fSource, kProduct, {{"Version", ""}});
  AddInstance(*product, {{"Version", "1.0"}});
  const char call[] = "target.QORSG_HWXProduct.AddInstance(target.QORSG_HWXProduct#new)";
  fTrace.Fail(call, kHWXStatusAlreadyExists);
  std::vector<Ptr<ICIMInstance> > instances;
  product->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(&instances), false, {});
  EXPECT_EQ(CallsOf([&] { TCIMCopy::CopyInstance(instances[0], fTarget); }).back(), call);
  EXPECT_EQ(fStatus, kHWXStatusAlreadyExists);
}

}  // namespace
