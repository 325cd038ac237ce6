// The plug-ins of the library: which there are, which load. Thread-safety: for the main thread,
// before there are others.

#ifndef HWX_PLUGINS_PLUGINLIST_H
#define HWX_PLUGINS_PLUGINLIST_H

#include <optional>
#include <string>
#include <vector>

#include "hwxkit/TChildLimits.h"

namespace hwx {

/// One plug-in.
struct TPlugin {
  std::string fName;  ///< A plain plug-in's is its path. Any bytes, also none.
  bool fLoads = false;
  bool fIsRegistered = false;  ///< For providers: whether the registry has it under its name.
  std::string fReason;         ///< Why it doesn't load; any bytes.
};

/// All plug-ins, each kind sorted by the bytes of the names.
struct TPluginList {
  std::string fLibraryDirectory;  ///< Where providers and consumers are looked for.
  std::string fPluginDirectory;   ///< Where plain plug-ins are.
  bool fHasPluginDirectory = false;
  std::vector<TPlugin> fProviders;
  std::vector<TPlugin> fConsumers;
  std::vector<TPlugin> fPlainPlugins;
};

/// Finds the plug-ins and loads each, in a child of this process, so their own code runs. Plain
/// plug-ins are looked for in `pluginDirectory`; without one, in the directory "hwx" beside the
/// library, if there is one. Throws `TFailure` if a directory can't be searched.
TPluginList ListPlugins(const std::optional<std::string>& pluginDirectory,
                        const NQORHWX20::TChildLimits& limits);

}  // namespace hwx

#endif  // HWX_PLUGINS_PLUGINLIST_H
