// Providers: what they open, how they enter the registry, and a real one across modules.

#include "hwxkit/TMemoryProvider.h"

#include <boost/make_shared.hpp>
#include <cstdlib>

#include "support/ChildProcess.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;

Ptr<ICIMNamespace> BuildNamespace() {
  const auto ns = TMemoryNamespace::Create("root/made", "made");
  TClassBuilder(ns, "EX_Disk").Key("ID", "string").Commit();
  return ns;
}

TCIMContext For(const TCIMValue& provider) {
  TCIMContext context;
  context.emplace(TCIMSchemaHelper::kContextName, provider);
  return context;
}

TEST(MemoryProvider, HasItsName) {
  EXPECT_EQ(TMemoryProvider("made", &BuildNamespace).GetName({}), "made");
}

TEST(MemoryProvider, OpensItsNamespaceAnewAndKeepsNone) {
  TMemoryProvider provider("made", &BuildNamespace);
  const auto first = provider.OpenNamespace({});
  boost::weak_ptr<ICIMNamespace> second = provider.OpenNamespace(For("made"));
  EXPECT_TRUE(first->GetClass("EX_Disk", For("made")));
  EXPECT_TRUE(second.expired());
}

TEST(MemoryProvider, OpensNothingForAnotherProvider) {
  TMemoryProvider provider("made", &BuildNamespace);
  for (const TCIMValue& other :
       {TCIMValue("cmpi"), TCIMValue("MADE"), TCIMValue(1), Null(Type::kCIMTypeString)}) {
    EXPECT_EQ(StatusOf([&] { provider.OpenNamespace(For(other)); }), kHWXStatusNotFound);
  }
}

TEST(MemoryProvider, PassesOnWhatItsFactoryThrows) {
  TMemoryProvider provider("made", []() -> Ptr<ICIMNamespace> { throw std::runtime_error("no"); });
  EXPECT_THROW(provider.OpenNamespace({}), std::runtime_error);
}

TEST(MemoryProvider, AnswersTheQueriesOfFrontEnds) {
  const auto ns = TMemoryNamespace::Create("root/machine", TCIMSchemaHelper::kPluginNSPName);
  TClassBuilder(ns, TCIMSchemaHelper::kSystemCreationClassName)
      .Key("Name", "string")
      .Source([](TInstanceList& list) { list.Add().Set("Name", "rack7"); })
      .Commit();
  EXPECT_EQ(TCIMSchemaHelper::GetSystemName(ns), "rack7");
}

// The registry keeps what is in it, so each of these has a process to itself.

TEST(ProviderRegistration, EntersTheProviderAndMayGo) {
  const int status = RunInChild([] {
    { const TProviderRegistration registration("made", &BuildNamespace); }
    const auto source = boost::dynamic_pointer_cast<INamespaceSource>(
        TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("made"));
    EXPECT_TRUE(source && source->OpenNamespace({})->GetClass("EX_Disk", {}));
    return 0;
  });
  EXPECT_EQ(status, 0);
}

TEST(ProviderRegistration, LeavesANameThatIsTakenWithItsFirstProvider) {
  const int status = RunInChild([] {
    const TProviderRegistration first("made", &BuildNamespace);
    const TProviderRegistration second("made", [] { return Ptr<ICIMNamespace>(); });
    const auto source = boost::dynamic_pointer_cast<INamespaceSource>(
        TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("made"));
    EXPECT_TRUE(source && source->OpenNamespace({}));
    return 0;
  });
  EXPECT_EQ(status, 0);
}

// The module of the live provider: the types on both sides have to be the same ones.

TEST(ProviderModule, RegistersWhenLoadedAsASourceThatOtherModulesSee) {
  const int status = RunInChild([] {
    TOSSpecific::LoadNSPLibrary("plugin");
    const auto provider =
        TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("plugin");
    EXPECT_TRUE(boost::dynamic_pointer_cast<TMemoryProvider>(provider));
    const auto source = boost::dynamic_pointer_cast<INamespaceSource>(provider);
    if (!source) return 2;
    const auto ns = source->OpenNamespace(For("plugin"));
    EXPECT_TRUE(boost::dynamic_pointer_cast<TMemoryNamespace>(ns));
    const auto system = ns->GetClass("QORSG_ComputerSystem", {});
    EXPECT_TRUE(boost::dynamic_pointer_cast<TMemoryClass>(system));
    // What only works if this module's classes are that one's too.
    ns->CreateClass("EX_Sub", system, {})->Commit({});
    EXPECT_THAT(SubClasses(*system, true), testing::ElementsAre("EX_Sub"));
    return 0;
  });
  EXPECT_EQ(status, 0);
}

TEST(ProviderModule, IsStillThereWhenTheRegistryLetsGoOfItsProvider) {
  const int status = RunInChild([]() -> int {
    TOSSpecific::LoadNSPLibrary("plugin");
    TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("plugin");
    std::exit(0);  // all the way, with static objects
  });
  EXPECT_EQ(status, 0);
}

// A provider that says when it goes, held by the registry.
class TFarewellProvider : public TMemoryProvider {
 public:
  TFarewellProvider() : TMemoryProvider("farewell", &BuildNamespace) {}
  ~TFarewellProvider() override { ::_exit(fStaticsGone ? 42 : 43); }

  static bool fStaticsGone;
};

bool TFarewellProvider::fStaticsGone = false;

struct TStaticOfTheModule {
  ~TStaticOfTheModule() { TFarewellProvider::fStaticsGone = true; }
};

TEST(ProviderModule, LosesItsStaticObjectsBeforeTheRegistryLetsGo) {
  const int status = RunInChild([]() -> int {
    static const TStaticOfTheModule ofTheModule;
    TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(
        boost::make_shared<TFarewellProvider>());
    std::exit(0);
  });
  EXPECT_EQ(status, 42);
}

}  // namespace
}  // namespace hwxtest
