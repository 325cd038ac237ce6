// What the command "firmware show" prints: a paragraph for each structure for people, JSON for
// programs. As IdentityReport.h. Thread-safety: functions without state.

#ifndef HWX_FIRMWARE_FIRMWAREREPORT_H
#define HWX_FIRMWARE_FIRMWAREREPORT_H

#include <string>

#include "smbios/TTables.h"

namespace hwx {

/// A line about the tables, then each structure: its type, its handle and its size, and below them
/// its strings with their numbers.
std::string FirmwareText(const std::string& location, const smbios::TTables& tables);

/// {"location": "...", "version": "3.2", "entryPoint": "64-bit", "size": ..., "damage": null,
/// "structures": [{"handle": ..., "type": ..., "name": "...", "formattedSize": ..., "size": ...,
/// "strings": ["...", ...]}, ...]}. Sizes are in bytes, of the structures that were read; "damage"
/// says where and how the table is damaged behind them; "name" is null for a type without one.
std::string FirmwareJson(const std::string& location, const smbios::TTables& tables);

}  // namespace hwx

#endif  // HWX_FIRMWARE_FIRMWAREREPORT_H
