#include "hwx/plugins/PluginList.h"

#include <algorithm>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <filesystem>
#include <set>

#include "hwx/text/Failure.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/INamespaceProvider.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/ChildReading.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

std::set<std::string> RegisteredNames() {
  std::set<std::string> names;
  boost::function<bool(boost::shared_ptr<INamespaceProvider>)> add =
      [&names](boost::shared_ptr<INamespaceProvider> provider) {
        names.insert(provider->GetName(TCIMContext()));
        return true;
      };
  TRootObject::GetNamespaceProviderManager()->EnumerateNamespaceProviders(add);
  return names;
}

// Loads a plug-in in a child of its own, so that it can do no harm, and asks there whether it is
// registered.
template <typename Load>
TPlugin Loaded(const std::string& name, Load load, const TChildLimits& limits) {
  TPlugin plugin;
  plugin.fName = name;
  const auto call = [&] {
    load(name);
    return std::string(RegisteredNames().count(name) != 0 ? "registered" : "");
  };
  try {
    plugin.fIsRegistered = !CallInChild(call, limits).empty();
    plugin.fLoads = true;
  } catch (const THWXException& failure) {
    plugin.fReason = InWords(failure);
  }
  return plugin;
}

// The library takes any file with ".nsp" or ".nsc" in its name for a plug-in. The name that it
// makes of that may lead to no file.
void ExplainLooseMatch(TPlugin& plugin, const std::string& path) {
  std::error_code ignored;
  if (plugin.fLoads || std::filesystem::exists(path, ignored)) return;
  plugin.fReason = "no plug-in, but a file whose name resembles one's: " + plugin.fReason;
}

template <typename Load>
std::vector<TPlugin> LoadServices(std::vector<std::string> names, const std::string& word,
                                  Load load, const TChildLimits& limits) {
  std::sort(names.begin(), names.end());
  const std::string front = TOSSpecific::GetHWXRootPath() + "/lib";
  const std::string ending = "." + word + ".so";
  std::vector<TPlugin> plugins;
  for (const std::string& name : names) {
    plugins.push_back(Loaded(name, load, limits));
    ExplainLooseMatch(plugins.back(), std::string(front).append(name).append(ending));
  }
  return plugins;
}

std::vector<TPlugin> ListProviders(const TChildLimits& limits) {
  return LoadServices(TOSSpecific::FindNSPs(), "nsp", &TOSSpecific::LoadNSPLibrary, limits);
}

std::vector<TPlugin> ListConsumers(const TChildLimits& limits) {
  return LoadServices(TOSSpecific::FindNSCs(), "nsc", &TOSSpecific::LoadNSCLibrary, limits);
}

std::vector<TPlugin> ListPlainPlugins(const std::string& directory, const TChildLimits& limits) {
  std::vector<TPlugin> plugins;
  for (const std::string& path : TOSSpecific::FindPlugins(directory))
    plugins.push_back(Loaded(path, &TOSSpecific::LoadPluginLibrary, limits));
  return plugins;
}

// Runs a step that throws a bare status if the directory can't be opened.
template <typename Step>
auto Searched(const std::string& directory, Step step) {
  try {
    return step();
  } catch (const THWXException&) {
    throw TFailure("no plug-ins can be searched for in " + directory +
                   ": it, or a directory in it, can't be opened");
  }
}

}  // namespace

TPluginList ListPlugins(const std::optional<std::string>& pluginDirectory,
                        const TChildLimits& limits) {
  TPluginList list;
  list.fLibraryDirectory = TOSSpecific::GetHWXRootPath();
  list.fPluginDirectory = pluginDirectory.value_or(list.fLibraryDirectory + "/hwx");
  list.fHasPluginDirectory = pluginDirectory || TOSSpecific::DirExists(list.fPluginDirectory);
  list.fProviders = Searched(list.fLibraryDirectory, [&] { return ListProviders(limits); });
  list.fConsumers = Searched(list.fLibraryDirectory, [&] { return ListConsumers(limits); });
  if (list.fHasPluginDirectory) {
    list.fPlainPlugins = Searched(list.fPluginDirectory,
                                  [&] { return ListPlainPlugins(list.fPluginDirectory, limits); });
  }
  return list;
}

}  // namespace hwx
