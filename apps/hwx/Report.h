// What the commands print: tables for people, JSON for programs. Both end in a newline and hold
// nothing that steers a terminal, whatever the firmware says.
// Thread-safety: functions without state.

#ifndef HWX_REPORT_H
#define HWX_REPORT_H

#include <string>

#include "hwx/Identity.h"
#include "hwx/Providers.h"

namespace hwx {

/// A line for each value; a reason stands in parentheses.
std::string IdentityText(const TIdentity& identity);

/// An object for each value: {"value": ...}, or {"value": null, "reason": "..."}. Bytes that aren't
/// UTF-8 are replaced by U+FFFD; characters outside ASCII are escaped.
std::string IdentityJson(const TIdentity& identity);

/// A paragraph for each kind of plug-in.
std::string ProvidersText(const TPluginList& list);

/// The same as JSON.
std::string ProvidersJson(const TPluginList& list);

}  // namespace hwx

#endif  // HWX_REPORT_H
