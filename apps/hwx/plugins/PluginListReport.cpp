#include "hwx/plugins/PluginListReport.h"

#include <vector>

#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"
#include "hwx/text/Table.h"

namespace hwx {

namespace {

using TRow = std::vector<std::string>;

TJson Json(const TPlugin& plugin, const char* nameKey) {
  TJson json;
  json[nameKey] = plugin.fName;
  json["loads"] = plugin.fLoads;
  if (!plugin.fLoads) json["reason"] = plugin.fReason;
  return json;
}

TJson Json(const std::vector<TPlugin>& plugins, const char* nameKey) {
  TJson json = TJson::array();
  for (const TPlugin& plugin : plugins)
    json.push_back(Json(plugin, nameKey));
  return json;
}

std::string ShownName(const TPlugin& plugin) {
  return plugin.fName.empty() ? "(no name)" : plugin.fName;
}

std::string State(const TPlugin& plugin) {
  return plugin.fLoads ? "loads" : "doesn't load: " + plugin.fReason;
}

std::string ProviderState(const TPlugin& provider) {
  if (!provider.fLoads) return State(provider);
  return provider.fIsRegistered ? "loads, registered"
                                : "loads, but doesn't register itself under this name";
}

template <typename StateOf>
std::string Paragraph(const std::string& kind, const std::string& directory,
                      const std::vector<TPlugin>& plugins, StateOf stateOf) {
  std::vector<TRow> rows;
  rows.reserve(plugins.size() + 1);
  for (const TPlugin& plugin : plugins)
    rows.push_back({ShownName(plugin), stateOf(plugin)});
  if (rows.empty()) rows.push_back({"none"});
  return kind + " in " + Printable(directory) + "\n" + AlignedTable(rows, "  ");
}

std::string PlainPluginParagraph(const TPluginList& list) {
  const char* const kind = "Plain plug-ins";
  if (list.fHasPluginDirectory) {
    return Paragraph(kind, list.fPluginDirectory, list.fPlainPlugins, &State);
  }
  return std::string(kind) + "\n  none: " + Printable(list.fPluginDirectory) + " is absent\n";
}

}  // namespace

std::string ProvidersText(const TPluginList& list) {
  return Paragraph("Namespace providers", list.fLibraryDirectory, list.fProviders, &ProviderState) +
         "\n" + Paragraph("Namespace consumers", list.fLibraryDirectory, list.fConsumers, &State) +
         "\n" + PlainPluginParagraph(list);
}

std::string ProvidersJson(const TPluginList& list) {
  TJson providers = Json(list.fProviders, "name");
  for (std::size_t i = 0; i < list.fProviders.size(); ++i)
    providers[i]["registered"] = list.fProviders[i].fIsRegistered;
  TJson json;
  json["libraryDirectory"] = list.fLibraryDirectory;
  json["providers"] = providers;
  json["consumers"] = Json(list.fConsumers, "name");
  json["pluginDirectory"] = list.fHasPluginDirectory ? TJson(list.fPluginDirectory) : TJson();
  json["plugins"] = Json(list.fPlainPlugins, "path");
  return JsonText(json);
}

}  // namespace hwx
