// What the command "config" prints; see IdentityReport.h.
// Thread-safety: functions without state.

#ifndef HWX_TEXT_CONFIGREPORT_H
#define HWX_TEXT_CONFIGREPORT_H

#include <string>
#include <vector>

namespace hwx {

/// A line for each key.
std::string ConfigKeysText(const std::vector<std::string>& keys);

/// {"file": "...", "keys": ["...", ...]}
std::string ConfigKeysJson(const std::string& file, const std::vector<std::string>& keys);

/// One line. What can't be seen on a terminal shows as \xNN, a carriage return at the end too.
std::string ConfigValueText(const std::string& value);

/// {"file": "...", "key": "...", "value": "..."}
std::string ConfigValueJson(const std::string& file, const std::string& key,
                            const std::string& value);

}  // namespace hwx

#endif  // HWX_TEXT_CONFIGREPORT_H
