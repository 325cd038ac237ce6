// What the command "identity" prints: a table for people, JSON for programs. Both end in a newline
// and hold nothing that steers a terminal, whatever the firmware says.
// Thread-safety: functions without state.

#ifndef HWX_IDENTITY_IDENTITYREPORT_H
#define HWX_IDENTITY_IDENTITYREPORT_H

#include <string>

#include "hwx/identity/Identity.h"
#include "hwx/text/Json.h"

namespace hwx {

/// A line for each value; a reason stands in parentheses, and behind a guess that it is one.
std::string IdentityText(const TIdentity& identity);

/// An object for each value: {"value": ...}, with "guess": true for a guess, or {"value": null,
/// "reason": "..."}. Bytes that aren't UTF-8 are replaced by U+FFFD; characters outside ASCII are
/// escaped.
std::string IdentityJson(const TIdentity& identity);

/// The same, to add more to it.
TJson IdentityObject(const TIdentity& identity);

}  // namespace hwx

#endif  // HWX_IDENTITY_IDENTITYREPORT_H
