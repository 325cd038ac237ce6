#include "hwxcore/schema/TNamespaceProviderManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <boost/weak_ptr.hpp>
#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "hwxcore/schema/INamespaceProvider.h"
#include "hwxcore/schema/TRootObject.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TextOf.h"
#include "support/VirtualSlots.h"

using hwxtest::ScopedLogCapture;
using hwxtest::StatusOf;
using NQORHWX20::INamespaceProvider;
using NQORHWX20::INamespaceProviderManager;
using NQORHWX20::TCIMContext;
using NQORHWX20::TNamespaceProviderManager;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

using ProviderPtr = boost::shared_ptr<INamespaceProvider>;
using ProviderCallback = boost::function<bool(ProviderPtr)>;

class Provider : public INamespaceProvider {
 public:
  explicit Provider(const std::string& name) : fName(name) {}

  const std::string& GetName(TCIMContext context) override {
    EXPECT_TRUE(context.empty());
    return fName;
  }

 private:
  const std::string fName;
};

class NamelessProvider : public INamespaceProvider {
 public:
  const std::string& GetName(TCIMContext) override { throw std::runtime_error("no name"); }
};

// Says so when it goes.
class TellingProvider : public Provider {
 public:
  TellingProvider() : Provider("telling") {}
  ~TellingProvider() override { std::cerr << "provider released"; }
};

ProviderPtr MakeProvider(const std::string& name) {
  return ProviderPtr(new Provider(name));
}

std::vector<std::string> NamesIn(const TNamespaceProviderManager& registry) {
  std::vector<std::string> names;
  ProviderCallback callback = [&](ProviderPtr provider) {
    names.push_back(provider->GetName(TCIMContext()));
    return true;
  };
  registry.EnumerateNamespaceProviders(callback);
  return names;
}

TEST(INamespaceProviderManager, HasItsOperationsInTheSlotsOfTheInterface) {
  hwxtest::SlotTable()
      .Has(&INamespaceProviderManager::RegisterNamespaceProvider)
      .Has(&INamespaceProviderManager::GetNamespaceProvider)
      .Has(&INamespaceProviderManager::EnumerateNamespaceProviders);
  EXPECT_EQ(sizeof(INamespaceProviderManager), sizeof(void*));
}

TEST(INamespaceProvider, HasItsOperationInTheSlotOfTheInterface) {
  hwxtest::SlotTable().Has(&INamespaceProvider::GetName);
  EXPECT_EQ(sizeof(INamespaceProvider), sizeof(void*));
}

TEST(TNamespaceProviderManager, GivesAProviderByItsExactName) {
  TNamespaceProviderManager registry;
  const ProviderPtr a = MakeProvider("a");
  const ProviderPtr unnamed = MakeProvider("");
  registry.RegisterNamespaceProvider(a);
  registry.RegisterNamespaceProvider(unnamed);
  ScopedLogCapture log;
  EXPECT_EQ(registry.GetNamespaceProvider("a"), a);
  EXPECT_EQ(registry.GetNamespaceProvider(""), unnamed);
  EXPECT_THAT(log.Lines(), IsEmpty());
  EXPECT_EQ(StatusOf([&] { registry.GetNamespaceProvider("A"); }), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "Failed to find nsp named A")));
}

TEST(TNamespaceProviderManager, LogsAndThrowsForAnEmptyNameInAnEmptyRegistry) {
  const TNamespaceProviderManager registry;
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { registry.GetNamespaceProvider(""); }), NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "Failed to find nsp named ")));
}

TEST(TNamespaceProviderManager, KeepsTheFirstProviderOfAName) {
  TNamespaceProviderManager registry;
  const ProviderPtr first = MakeProvider("a");
  ProviderPtr second = MakeProvider("a");
  const boost::weak_ptr<INamespaceProvider> observer = second;
  registry.RegisterNamespaceProvider(first);
  ScopedLogCapture log;
  registry.RegisterNamespaceProvider(second);
  EXPECT_THAT(log.Lines(), IsEmpty());
  EXPECT_EQ(registry.GetNamespaceProvider("a"), first);
  EXPECT_THAT(NamesIn(registry), ElementsAre("a"));
  second.reset();
  EXPECT_TRUE(observer.expired());
}

TEST(TNamespaceProviderManager, HoldsItsProviders) {
  TNamespaceProviderManager registry;
  ProviderPtr provider = MakeProvider("a");
  const boost::weak_ptr<INamespaceProvider> observer = provider;
  registry.RegisterNamespaceProvider(provider);
  provider.reset();
  EXPECT_FALSE(observer.expired());
}

TEST(TNamespaceProviderManager, PresentsProvidersInTheByteOrderOfTheirNames) {
  TNamespaceProviderManager registry;
  for (const char* const name : {"b", "a", "\xC3\xA4", "B", "aa", ""})
    registry.RegisterNamespaceProvider(MakeProvider(name));
  EXPECT_THAT(NamesIn(registry), ElementsAre("", "B", "a", "aa", "b", "\xC3\xA4"));
}

TEST(TNamespaceProviderManager, StopsWhenTheCallbackSaysSo) {
  TNamespaceProviderManager registry;
  for (const char* const name : {"a", "b", "c"})
    registry.RegisterNamespaceProvider(MakeProvider(name));
  int calls = 0;
  ProviderCallback first = [&](ProviderPtr) { return ++calls, false; };
  registry.EnumerateNamespaceProviders(first);
  EXPECT_EQ(calls, 1);
  calls = 0;
  ProviderCallback second = [&](ProviderPtr) { return ++calls < 2; };
  registry.EnumerateNamespaceProviders(second);
  EXPECT_EQ(calls, 2);
}

TEST(TNamespaceProviderManager, CallsAnEmptyCallbackOnlyWhereThereIsAProvider) {
  TNamespaceProviderManager registry;
  ProviderCallback empty;
  EXPECT_NO_THROW(registry.EnumerateNamespaceProviders(empty));
  registry.RegisterNamespaceProvider(MakeProvider("a"));
  EXPECT_EQ(hwxtest::TextOf<boost::bad_function_call>(
                [&] { registry.EnumerateNamespaceProviders(empty); }),
            "call to empty boost::function");
}

TEST(TNamespaceProviderManager, PassesTheExceptionOfACallbackThrough) {
  TNamespaceProviderManager registry;
  registry.RegisterNamespaceProvider(MakeProvider("a"));
  registry.RegisterNamespaceProvider(MakeProvider("b"));
  int calls = 0;
  ProviderCallback failing = [&](ProviderPtr) -> bool {
    ++calls;
    throw std::runtime_error("enough");
  };
  EXPECT_THROW(registry.EnumerateNamespaceProviders(failing), std::runtime_error);
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(NamesIn(registry), ElementsAre("a", "b"));
}

TEST(TNamespaceProviderManager, PassesTheExceptionOfGetNameThroughAndStaysAsItWas) {
  TNamespaceProviderManager registry;
  registry.RegisterNamespaceProvider(MakeProvider("a"));
  const ProviderPtr nameless(new NamelessProvider);
  ScopedLogCapture log;
  EXPECT_THROW(registry.RegisterNamespaceProvider(nameless), std::runtime_error);
  EXPECT_THAT(NamesIn(registry), ElementsAre("a"));
  EXPECT_EQ(nameless.use_count(), 1);
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(TNamespaceProviderManager, TakesNoEmptyPointer) {
  TNamespaceProviderManager registry;
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { registry.RegisterNamespaceProvider(ProviderPtr()); }),
            NQORHWX20::kHWXStatusNotFound);
  EXPECT_THAT(NamesIn(registry), IsEmpty());
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST(TNamespaceProviderManager, IsOneForTheProcess) {
  const auto first = NQORHWX20::TRootObject::GetNamespaceProviderManager();
  EXPECT_TRUE(first);
  EXPECT_EQ(NQORHWX20::TRootObject::GetNamespaceProviderManager(), first);
  EXPECT_EQ(TNamespaceProviderManager::GetInstance(), first);
  NQORHWX20::ManagerInit();
  EXPECT_EQ(TNamespaceProviderManager::GetInstance(), first);
}

TEST(TNamespaceProviderManagerDeathTest, ReleasesItsProvidersWhenTheProcessExits) {
  EXPECT_EXIT(
      {
        TNamespaceProviderManager::GetInstance()->RegisterNamespaceProvider(
            ProviderPtr(new TellingProvider));
        std::cerr << "leaving, ";
        std::exit(0);
      },
      testing::ExitedWithCode(0), "leaving, provider released");
}

}  // namespace
