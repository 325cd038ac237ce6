#include "hwx/plugins/PluginList.h"

#include <algorithm>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>

#include "hwx/text/Failure.h"
#include "hwx/text/StatusWords.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/INamespaceProvider.h"
#include "hwxcore/schema/INamespaceProviderManager.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/THWXException.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// Keeps what is written to std::cout out of the program's own output.
class TSilencedCout {
 public:
  TSilencedCout() : fBefore(std::cout.rdbuf(fSink.rdbuf())) {}
  ~TSilencedCout() { std::cout.rdbuf(fBefore); }
  TSilencedCout(const TSilencedCout&) = delete;
  TSilencedCout& operator=(const TSilencedCout&) = delete;

 private:
  std::ostringstream fSink;
  std::streambuf* fBefore;
};

template <typename Load>
TPlugin Loaded(const std::string& name, Load load) {
  TPlugin plugin;
  plugin.fName = name;
  const TSilencedCout silence;
  try {
    load(name);
    plugin.fLoads = true;
  } catch (const THWXException& failure) {
    plugin.fReason = InWords(failure);
  } catch (const std::exception& failure) {
    plugin.fReason = failure.what();
  } catch (...) {
    plugin.fReason = "its own code failed";
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
                                  Load load) {
  std::sort(names.begin(), names.end());
  const std::string front = TOSSpecific::GetHWXRootPath() + "/lib";
  const std::string ending = "." + word + ".so";
  std::vector<TPlugin> plugins;
  for (const std::string& name : names) {
    plugins.push_back(Loaded(name, load));
    ExplainLooseMatch(plugins.back(), std::string(front).append(name).append(ending));
  }
  return plugins;
}

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

std::vector<TPlugin> ListProviders() {
  auto providers = LoadServices(TOSSpecific::FindNSPs(), "nsp", &TOSSpecific::LoadNSPLibrary);
  const std::set<std::string> registered = RegisteredNames();
  for (TPlugin& provider : providers)
    provider.fIsRegistered = provider.fLoads && registered.count(provider.fName) != 0;
  return providers;
}

std::vector<TPlugin> ListConsumers() {
  // The consumer objects are not deleted: only the plug-in knows their type.
  return LoadServices(TOSSpecific::FindNSCs(), "nsc", &TOSSpecific::LoadNSCLibrary);
}

std::vector<TPlugin> ListPlainPlugins(const std::string& directory) {
  std::vector<TPlugin> plugins;
  for (const std::string& path : TOSSpecific::FindPlugins(directory)) {
    plugins.push_back(Loaded(path, &TOSSpecific::LoadPluginLibrary));
  }
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

TPluginList ListPlugins(const std::optional<std::string>& pluginDirectory) {
  TPluginList list;
  list.fLibraryDirectory = TOSSpecific::GetHWXRootPath();
  list.fPluginDirectory = pluginDirectory.value_or(list.fLibraryDirectory + "/hwx");
  list.fHasPluginDirectory = pluginDirectory || TOSSpecific::DirExists(list.fPluginDirectory);
  list.fProviders = Searched(list.fLibraryDirectory, &ListProviders);
  list.fConsumers = Searched(list.fLibraryDirectory, &ListConsumers);
  if (list.fHasPluginDirectory) {
    list.fPlainPlugins =
        Searched(list.fPluginDirectory, [&] { return ListPlainPlugins(list.fPluginDirectory); });
  }
  return list;
}

}  // namespace hwx
