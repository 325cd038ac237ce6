// What the firmware tells about the machine as a whole: maker, product, serial number.
// Thread-safety: no state is kept. Reading looks at the environment, which no thread may change
// meanwhile.

#ifndef PROVIDERS_LINUX_SYSTEMINFORMATION_H
#define PROVIDERS_LINUX_SYSTEMINFORMATION_H

#include <cstdint>
#include <optional>
#include <string>

#include "smbios/TTables.h"

namespace linux_machine {

/// The fields of the System Information structure. Texts are as the firmware has them, with blanks
/// at their ends and with filler ("To Be Filled By O.E.M."). A text that the firmware leaves out or
/// leaves empty is missing.
struct TSystemInformation {
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fProductName;
  std::optional<std::string> fVersion;
  std::optional<std::string> fSerialNumber;
  std::optional<std::string> fUUID;  ///< Such as "00112233-4455-6677-8899-aabbccddeeff".
  std::optional<std::string> fSKUNumber;
  std::optional<std::string> fFamily;

  /// Why the firmware's tables didn't give the fields, for people; missing when they did.
  std::optional<std::string> fFirmwareStatus;
};

/// The fields in a structure of type 1, of whatever length. The version of the tables' format,
/// `major` and `minor`, decides the order of the UUID's bytes.
TSystemInformation ParseSystemInformation(const smbios::TStructure& structure, int major,
                                          int minor);

/// Reads the machine whose /sys lies below `root`: from the firmware's tables, the part in front of
/// a damage too, else from what the kernel kept of them in /sys/class/dmi/id. Tables that
/// `HWX_SMBIOS_TABLES` names are another machine's, and nothing is added to them.
TSystemInformation ReadSystemInformation(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_SYSTEMINFORMATION_H
