// The module in the registry, as front ends use it.

#include "hwxkit/IContainerSource.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "support/Machines.h"
#include "support/NamespaceText.h"
#include "support/RandomNamespace.h"
#include "support/SchemaStubs.h"
#include "support/ScopedEnvironment.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"
#include "support/TemporaryDirectory.h"
#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

Ptr<INamespaceSource> Registered(const std::string& name) {
  TOSSpecific::LoadNSPLibrary(name);
  return boost::dynamic_pointer_cast<INamespaceSource>(
      TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider(name));
}

class ContainerProvider : public ::testing::Test {
 protected:
  ContainerProvider() {
    if (!fContainers) throw std::runtime_error("the provider isn't registered");
  }

  const Ptr<IContainerSource> fContainers =
      boost::dynamic_pointer_cast<IContainerSource>(Registered("container"));
  TemporaryDirectory fDirectory;
};

TEST_F(ContainerProvider, HasItsName) {
  EXPECT_EQ(fContainers->GetName({}), "container");
}

TEST_F(ContainerProvider, MakesContainersThatAreEmpty) {
  const auto ns = fContainers->NewContainer("root/mine");
  EXPECT_THAT(NamespaceLines(*ns), ElementsAre("namespace root/mine"));
  EXPECT_EQ(fContainers->NewContainer()->GetName({}), "root/container");
}

TEST_F(ContainerProvider, OpensANewContainerWithoutAFile) {
  EXPECT_EQ(fContainers->OpenNamespace({})->GetName({}), "root/container");
  EXPECT_EQ(fContainers->OpenNamespace({{"nspID", TCIMValue(std::string("container"))}})
                ->GetClassCount({}),
            0u);
}

TEST_F(ContainerProvider, IsNotAskedForAnother) {
  EXPECT_EQ(StatusOf([&] {
              fContainers->OpenNamespace({{"nspID", TCIMValue(std::string("plugin"))}});
            }),
            kHWXStatusNotFound);
}

TEST_F(ContainerProvider, OpensTheFileThatTheContextNames) {
  const std::string path = fDirectory / "one.xml";
  fContainers->SaveContainer(fContainers->NewContainer("root/saved"), path);
  EXPECT_EQ(fContainers->OpenNamespace({{"file", TCIMValue(path)}})->GetName({}), "root/saved");
  EXPECT_EQ(StatusOf([&] {
              fContainers->OpenNamespace({{"file", TCIMValue(1)}});
            }),
            kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] {
              fContainers->OpenNamespace({{"file", Null(Type::kCIMTypeString)}});
            }),
            kHWXStatusValueIsNULL);
}

TEST_F(ContainerProvider, SavesAndLoads) {
  const Namespace ns = RandomNamespace(3);
  for (const char* name : {"one.xml", "one.xml.gz"}) {
    fContainers->SaveContainer(ns, fDirectory / name);
    EXPECT_EQ(Difference(*ns, *fContainers->LoadContainer(fDirectory / name)), "");
  }
}

TEST_F(ContainerProvider, LogsWhyAFileDoesNotLoad) {
  const std::string path = fDirectory / "absent.xml";
  ScopedLogCapture log;
  const Failure failure = FailureOf([&] { fContainers->LoadContainer(path); });
  EXPECT_EQ(failure.status, kHWXStatusFileNotFound);
  EXPECT_EQ(failure.text, path + ": can't be opened: No such file or directory");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", failure.text)));
}

TEST_F(ContainerProvider, LogsWhyANamespaceIsNotSaved) {
  const std::string path = fDirectory / "absent/one.xml";
  ScopedLogCapture log;
  const Failure failure =
      FailureOf([&] { fContainers->SaveContainer(fContainers->NewContainer(), path); });
  EXPECT_EQ(failure.status, kHWXStatusFileNotFound);
  EXPECT_EQ(failure.text, path + ": no file can be made beside it: No such file or directory");
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", failure.text)));
}

TEST_F(ContainerProvider, LogsNothingWhenAllIsWell) {
  ScopedLogCapture log;
  fContainers->SaveContainer(fContainers->NewContainer(), fDirectory / "one.xml");
  fContainers->LoadContainer(fDirectory / "one.xml");
  EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(ContainerProvider, SavesNamespacesOfTheKitAlone) {
  const std::string path = fDirectory / "one.xml";
  for (const Ptr<ICIMNamespace>& ns :
       {Ptr<ICIMNamespace>(), Ptr<ICIMNamespace>(new StubNamespace)}) {
    const Failure failure = FailureOf([&] { fContainers->SaveContainer(ns, path); });
    EXPECT_EQ(failure.status, kHWXStatusNotSupported);
    EXPECT_EQ(failure.text, path + ": the namespace isn't one that can be kept in a file");
    EXPECT_FALSE(std::filesystem::exists(path));
  }
}

TEST_F(ContainerProvider, ServesThreadsWithNamespacesOfTheirOwn) {
  const auto work = [this](std::uint64_t number) {
    const std::string path = fDirectory / std::to_string(number) + ".xml.gz";
    for (std::uint64_t seed = number; seed < 40; seed += 4) {
      const Namespace ns = RandomNamespace(seed);
      fContainers->SaveContainer(ns, path);
      EXPECT_EQ(Difference(*ns, *fContainers->LoadContainer(path)), "") << seed;
    }
  };
  std::vector<std::thread> threads;
  for (std::uint64_t number = 0; number < 4; ++number)
    threads.emplace_back(work, number);
  for (std::thread& thread : threads)
    thread.join();
}

TEST_F(ContainerProvider, AnswersForTheMachineThatWasSaved) {
  TemporaryDirectory machine;
  const ScopedEnvironment root("HWX_SYSROOT", MakeRackServer(machine.Path()));
  const auto live = Registered("plugin")->OpenNamespace({});
  const std::string path = fDirectory / "machine.xml.gz";
  fContainers->SaveContainer(live, path);
  const auto loaded = fContainers->LoadContainer(path);
  EXPECT_EQ(loaded->GetClassCount({}), live->GetClassCount({}));
  const TCIMContext context = {{"nspID", TCIMValue(std::string("plugin"))}};
  EXPECT_EQ(TCIMSchemaHelper::GetSerialNumber(loaded, context),
            TCIMSchemaHelper::GetSerialNumber(live, context));
  EXPECT_EQ(TCIMSchemaHelper::GetMTM(loaded), TCIMSchemaHelper::GetMTM(live));
}

}  // namespace

}  // namespace hwxtest
