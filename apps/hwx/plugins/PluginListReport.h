// What the command "providers" prints; see IdentityReport.h.
// Thread-safety: functions without state.

#ifndef HWX_PLUGINS_PLUGINLISTREPORT_H
#define HWX_PLUGINS_PLUGINLISTREPORT_H

#include <string>

#include "hwx/plugins/PluginList.h"

namespace hwx {

/// A paragraph for each kind of plug-in.
std::string ProvidersText(const TPluginList& list);

/// The same as JSON.
std::string ProvidersJson(const TPluginList& list);

}  // namespace hwx

#endif  // HWX_PLUGINS_PLUGINLISTREPORT_H
