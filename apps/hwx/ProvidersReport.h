// What the command "providers" prints; see IdentityReport.h.
// Thread-safety: functions without state.

#ifndef HWX_PROVIDERSREPORT_H
#define HWX_PROVIDERSREPORT_H

#include <string>

#include "hwx/Providers.h"

namespace hwx {

/// A paragraph for each kind of plug-in.
std::string ProvidersText(const TPluginList& list);

/// The same as JSON.
std::string ProvidersJson(const TPluginList& list);

}  // namespace hwx

#endif  // HWX_PROVIDERSREPORT_H
