#include "hwx/plugins/PluginListReport.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

namespace hwx {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

TPluginList SomePlugins() {
  TPluginList list;
  list.fLibraryDirectory = "/opt/lib";
  list.fPluginDirectory = "/opt/lib/hwx";
  list.fHasPluginDirectory = true;
  list.fProviders = {{"broken", false, false, "file too short"},
                     {"mute", true, false, ""},
                     {"plugin", true, true, ""}};
  list.fPlainPlugins = {{"/opt/lib/hwx/a/libx.pi.so", true, false, ""}};
  return list;
}

TEST(ProvidersText, HasAParagraphForEachKind) {
  EXPECT_EQ(ProvidersText(SomePlugins()),
            "Namespace providers in /opt/lib\n"
            "  broken  doesn't load: file too short\n"
            "  mute    loads, but doesn't register itself under this name\n"
            "  plugin  loads, registered\n"
            "\n"
            "Namespace consumers in /opt/lib\n"
            "  none\n"
            "\n"
            "Plain plug-ins in /opt/lib/hwx\n"
            "  /opt/lib/hwx/a/libx.pi.so  loads\n");
}

TEST(ProvidersText, TellsThatTheDirectoryOfPlainPluginsIsAbsent) {
  TPluginList list = SomePlugins();
  list.fHasPluginDirectory = false;
  list.fPlainPlugins.clear();
  EXPECT_THAT(ProvidersText(list), HasSubstr("Plain plug-ins\n  none: /opt/lib/hwx is absent\n"));
}

TEST(ProvidersText, ShowsAnEmptyAndADangerousNameSafely) {
  TPluginList list = SomePlugins();
  list.fLibraryDirectory = "/opt/\x1b[2J";
  list.fProviders = {{"", true, false, ""}, {"a\x1b", false, false, "b\x1b"}};
  const std::string text = ProvidersText(list);
  EXPECT_THAT(text, Not(HasSubstr("\x1b")));
  EXPECT_THAT(text, HasSubstr("  (no name)  loads, but"));
  EXPECT_THAT(text, HasSubstr("  a\\x1b      doesn't load: b\\x1b\n"));
}

TEST(ProvidersJson, HoldsTheSame) {
  const json expected = {
      {"libraryDirectory", "/opt/lib"},
      {"providers",
       {{{"name", "broken"}, {"loads", false}, {"reason", "file too short"}, {"registered", false}},
        {{"name", "mute"}, {"loads", true}, {"registered", false}},
        {{"name", "plugin"}, {"loads", true}, {"registered", true}}}},
      {"consumers", json::array()},
      {"pluginDirectory", "/opt/lib/hwx"},
      {"plugins", {{{"path", "/opt/lib/hwx/a/libx.pi.so"}, {"loads", true}}}}};
  EXPECT_EQ(json::parse(ProvidersJson(SomePlugins())), expected);
}

TEST(ProvidersJson, HasNoPluginDirectoryWhereThereIsNone) {
  TPluginList list = SomePlugins();
  list.fHasPluginDirectory = false;
  EXPECT_EQ(json::parse(ProvidersJson(list))["pluginDirectory"], nullptr);
}

}  // namespace
}  // namespace hwx
