#include "hwx/Report.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "hwx/Printable.h"
#include "hwx/Table.h"

namespace hwx {

namespace {

using TJson = nlohmann::ordered_json;
using TRow = std::vector<std::string>;

// Pure ASCII: so no control character, also of the higher ones, reaches a terminal raw.
std::string Dump(const TJson& json) {
  constexpr int kIndent = 2;
  return json.dump(kIndent, ' ', true, TJson::error_handler_t::replace) + "\n";
}

template <typename T>
TJson Json(const TAnswer<T>& answer) {
  TJson json;
  if (answer.fValue) {
    json["value"] = *answer.fValue;
  } else {
    json["value"] = nullptr;
    json["reason"] = answer.fReason;
  }
  return json;
}

std::string Text(const TAnswer<std::string>& answer) {
  return answer.fValue ? *answer.fValue : "(" + answer.fReason + ")";
}

std::string TypeText(const TIdentity& identity) {
  const auto& number = identity.fOperatingSystemType;
  const auto& name = identity.fOperatingSystemTypeName;
  if (!number.fValue) return "(" + number.fReason + ")";
  return std::to_string(*number.fValue) + " (" + name.fValue.value_or(name.fReason) + ")";
}

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

std::string IdentityText(const TIdentity& identity) {
  return AlignedTable({
      {"Machine type", Text(identity.fMachineType)},
      {"Model", Text(identity.fModel)},
      {"Product name", Text(identity.fProductName)},
      {"Serial number", Text(identity.fSerialNumber)},
      {"System name", Text(identity.fSystemName)},
      {"Operating system", Text(identity.fOperatingSystemName)},
      {"Operating system version", Text(identity.fOperatingSystemVersion)},
      {"Operating system type", TypeText(identity)},
      {"Data source version", Text(identity.fDataSourceVersion)},
      {"Data source build", Text(identity.fDataSourceBuild)},
  });
}

std::string IdentityJson(const TIdentity& identity) {
  return Dump({
      {"machineType", Json(identity.fMachineType)},
      {"model", Json(identity.fModel)},
      {"productName", Json(identity.fProductName)},
      {"serialNumber", Json(identity.fSerialNumber)},
      {"systemName", Json(identity.fSystemName)},
      {"operatingSystemName", Json(identity.fOperatingSystemName)},
      {"operatingSystemVersion", Json(identity.fOperatingSystemVersion)},
      {"operatingSystemType", Json(identity.fOperatingSystemType)},
      {"operatingSystemTypeName", Json(identity.fOperatingSystemTypeName)},
      {"dataSourceVersion", Json(identity.fDataSourceVersion)},
      {"dataSourceBuild", Json(identity.fDataSourceBuild)},
  });
}

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
  return Dump(json);
}

}  // namespace hwx
