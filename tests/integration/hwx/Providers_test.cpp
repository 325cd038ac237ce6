// Plug-ins that are there, missing, or broken, as `hwx providers` and `hwx identity` meet them.

#include <gmock/gmock.h>

#include "integration/hwx/HwxTest.h"
#include "support/Machines.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ProvidersTest : public HwxTest {
 protected:
  ProvidersTest() {
    fTree.Use(fHwx);
    fHwx.On(MakeRackServer(fMachine.Path()));
  }

  json List(std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.begin(), {"providers", "--json"});
    return Succeed(arguments).Json();
  }

  // The entry of one provider.
  json Provider(const std::string& name) {
    const json list = List();
    for (const json& provider : list["providers"]) {
      if (provider["name"] == name) return provider;
    }
    return json();
  }

  void ExpectIdentityFails(const std::string& reason) {
    EXPECT_THAT(FailureOf({"identity", "--json"}), StartsWith("hwx: " + reason));
  }

  HwxTree fTree;
  TemporaryDirectory fMachine;
};

TEST_F(ProvidersTest, ListsTheProvidersAsLoadedAndRegistered) {
  const json list = List();
  EXPECT_EQ(list["libraryDirectory"], fTree.Library());
  EXPECT_EQ(list["providers"],
            json::parse(R"([{"name": "container", "loads": true, "registered": true},
                            {"name": "plugin", "loads": true, "registered": true}])"));
  EXPECT_EQ(list["consumers"], json::array());
  EXPECT_EQ(list["plugins"], json::array());
  EXPECT_EQ(list["pluginDirectory"], nullptr);
}

TEST_F(ProvidersTest, PrintsParagraphsForPeople) {
  const HwxResult result = fHwx.Run({"providers"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fOut, "Namespace providers in " + fTree.Library() +
                             "\n"
                             "  container  loads, registered\n"
                             "  plugin     loads, registered\n"
                             "\n"
                             "Namespace consumers in " +
                             fTree.Library() +
                             "\n"
                             "  none\n"
                             "\n"
                             "Plain plug-ins\n"
                             "  none: " +
                             fTree.Library() + "/hwx is absent\n");
}

TEST_F(ProvidersTest, ListsNoProviderWhereThereIsNone) {
  fTree.Remove("libplugin.nsp.so");
  fTree.Remove("libcontainer.nsp.so");
  EXPECT_EQ(List()["providers"], json::array());
  ExpectIdentityFails("there is no provider: " + fTree.Library() + "/libplugin.nsp.so is absent\n");
}

TEST_F(ProvidersTest, TellWhyAFileThatIsNoModuleDoesNotLoad) {
  fTree.AddText("libbroken.nsp.so", "this is no module\n");
  const json broken = Provider("broken");
  EXPECT_EQ(broken["loads"], false);
  EXPECT_EQ(broken["registered"], false);
  EXPECT_THAT(broken["reason"].get<std::string>(),
              StartsWith(fTree.Library() + "/libbroken.nsp.so: "));
  EXPECT_EQ(fHwx.Run({"identity"}).fStatus, 0);  // the machine's own provider is well
}

TEST_F(ProvidersTest, IdentityFailsOnABrokenProvider) {
  fTree.Remove("libplugin.nsp.so");
  fTree.AddText("libplugin.nsp.so", "this is no module\n");
  ExpectIdentityFails("the provider can't be loaded: Couldn't load NSP: plugin (" +
                      fTree.Library() + "/libplugin.nsp.so: ");
}

TEST_F(ProvidersTest, TellOneThatLoadsButDoesNotRegister) {
  fTree.AddLink("libmute.nsp.so", fTree / "liblogger.so");
  EXPECT_EQ(Provider("mute"),
            json::parse(R"({"name": "mute", "loads": true, "registered": false})"));
}

TEST_F(ProvidersTest, IdentityFailsOnAProviderThatDoesNotRegister) {
  fTree.Remove("libplugin.nsp.so");
  fTree.AddLink("libplugin.nsp.so", fTree / "liblogger.so");
  ExpectIdentityFails("the provider was loaded, but didn't register itself as \"plugin\"\n");
}

TEST_F(ProvidersTest, TellNamesThatOnlyResembleAPlugins) {
  fTree.AddText("libfoo.nsp.so.1", "");
  const json foo = Provider("foo.n");
  EXPECT_EQ(foo["loads"], false);
  EXPECT_THAT(foo["reason"].get<std::string>(),
              StartsWith("no plug-in, but a file whose name resembles one's: "));
}

TEST_F(ProvidersTest, AreSortedByName) {
  for (const char* name : {"libzeta.nsp.so", "libalpha.nsp.so", "libZeta.nsp.so"})
    fTree.AddText(name, "no module");
  std::vector<std::string> names;
  const json list = List();
  for (const json& provider : list["providers"])
    names.push_back(provider["name"]);
  EXPECT_EQ(names, (std::vector<std::string>{"Zeta", "alpha", "container", "plugin", "zeta"}));
}

TEST_F(ProvidersTest, ListConsumersWithTheReasonOfThoseThatFail) {
  fTree.AddLink("libcounting.nsc.so", HWX_TEST_CONSUMER);
  fTree.AddLink("libhollow.nsc.so", fTree / "liblogger.so");
  const json consumers = List()["consumers"];
  ASSERT_EQ(consumers.size(), 2u);
  EXPECT_EQ(consumers[0], json::parse(R"({"name": "counting", "loads": true})"));
  EXPECT_EQ(consumers[1]["name"], "hollow");
  EXPECT_EQ(consumers[1]["loads"], false);
  EXPECT_EQ(consumers[1]["reason"],
            "Couldn't find 'CreateINamespaceConsumer' in " + fTree.Library() + "/libhollow.nsc.so");
}

TEST_F(ProvidersTest, ListPlainPluginsOfTheLibrarysDirectory) {
  fTree.AddLink("hwx/good/libgood.pi.so", fTree / "liblogger.so");
  fTree.AddText("hwx/bad/libbad.pi.so", "no module");
  const json list = List();  // JSON: what the library prints of a failure is kept out of it
  EXPECT_EQ(list["pluginDirectory"], fTree / "hwx");
  ASSERT_EQ(list["plugins"].size(), 2u);
  EXPECT_EQ(list["plugins"][0]["path"], fTree / "hwx/bad/libbad.pi.so");
  EXPECT_EQ(list["plugins"][0]["loads"], false);
  EXPECT_THAT(list["plugins"][0]["reason"].get<std::string>(),
              StartsWith(fTree / "hwx/bad/libbad.pi.so: "));
  EXPECT_EQ(list["plugins"][1]["path"], fTree / "hwx/good/libgood.pi.so");
  EXPECT_EQ(list["plugins"][1]["loads"], true);
  EXPECT_THAT(fHwx.Run({"providers"}).fOut, Not(HasSubstr("Failed to load plugin")));
}

TEST_F(ProvidersTest, LookForPlainPluginsWhereTheyAreTold) {
  fTree.AddLink("elsewhere/a/x.pi.so", fTree / "liblogger.so");
  const json list = List({"--plugin-dir", fTree / "elsewhere"});
  EXPECT_EQ(list["pluginDirectory"], fTree / "elsewhere");
  ASSERT_EQ(list["plugins"].size(), 1u);
  EXPECT_EQ(list["plugins"][0]["path"], fTree / "elsewhere/a/x.pi.so");
}

TEST_F(ProvidersTest, FailForADirectoryThatIsAbsent) {
  const HwxResult result = fHwx.Run({"providers", "--plugin-dir", "/nowhere"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_EQ(result.fErr,
            "hwx: no plug-ins can be searched for in /nowhere: it, or a directory in it, can't be "
            "opened\n");
}

}  // namespace
}  // namespace hwxtest
