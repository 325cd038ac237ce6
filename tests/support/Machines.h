#ifndef HWXTESTS_SUPPORT_MACHINES_H
#define HWXTESTS_SUPPORT_MACHINES_H

#include <cstdint>
#include <optional>
#include <string>

#include "support/SmbiosTables.h"

namespace hwxtest {

// Whole machines, as the live provider sees them below `HWX_SYSROOT`:
//
//     TemporaryDirectory directory;
//     ScopedEnvironment root("HWX_SYSROOT", MakeRackServer(directory.Path()));
//     ScopedEnvironment tables("HWX_SMBIOS_TABLES", std::nullopt);
//
// Each `Make...` fills an empty directory and returns it. The values below are those that tests
// compare with.

/// Firmware tables in /sys/firmware, their copy in /sys/class/dmi, four SCSI devices, and all that
/// `AddDebian` adds. Host "rack7", product "Example Rack Server 3650 -[7915AC1]-", serial
/// "KQ12345".
std::string MakeRackServer(const std::string& directory);

/// One for each fixed form of a product name; host "fixed", serial "KQ54321". The last two are the
/// form without brackets, as it is told (28 characters) and as its parts add up (27).
std::string MakeK3455(const std::string& directory);       ///< "QOR eCorvex k3455-[7940AB1]"
std::string MakeK225(const std::string& directory);        ///< "QOR eCorvex k225-[8647CD2]"
std::string MakeK3500(const std::string& directory);       ///< "QOR eCorvex k3500- 8837EF3 -"
std::string MakeK3500Short(const std::string& directory);  ///< "QOR eCorvex k3500- 8837EF3-"

/// A virtual machine without firmware tables, of which the kernel knows a maker, "Example
/// Hypervisors", and a product, "Virtual Machine 9".
std::string MakeVirtualMachine(const std::string& directory);

/// A container: no firmware at all.
std::string MakeContainer(const std::string& directory);

/// Filler in place of most values: product "To Be Filled By O.E.M.", serial and version "Default
/// string", maker of blanks alone.
std::string MakeFillerMachine(const std::string& directory);

/// Tables cut off in their first structure; garbage, far too much, or a directory where a small
/// text should be. What can be read: one session, absurd figures of memory, and one device,
/// "0:0:0:0" of revision "A1".
std::string MakeBrokenMachine(const std::string& directory);

/// The rack server with tables, and serial number in their copy, of mode 000: only root reads them.
/// Everybody may enter the directory itself.
std::string MakeLockedMachine(const std::string& directory);

/// Writes a file below the machine's directory, and makes the directories on the way.
void WriteMachineFile(const std::string& directory, const std::string& path,
                      const std::string& text);

/// What a system of Debian 12 shows: /etc/os-release, /proc and /run. Booted 2023-11-14 22:13:20
/// UTC; 16 GiB of memory and 2 GiB of swap; two sessions; three processes.
void AddDebian(const std::string& directory, const std::string& hostName);

/// Tables that say this of the system, with a BIOS and the end marker, below /sys/firmware.
void AddFirmware(const std::string& directory, const SmbiosSystem& system);

/// A SCSI device as /sys shows it. Texts are padded with blanks as the kernel pads them.
struct ScsiDevice {
  std::string address;                ///< "0:0:1:0"
  std::optional<std::string> type;    ///< The number, as text.
  std::optional<std::string> vendor;  ///< None of these: no such file.
  std::optional<std::string> model;
  std::optional<std::string> revision;
  std::string block;    ///< Name of the block device, empty for none.
  std::string generic;  ///< Name of the generic device, empty for none.
};
void AddScsiDevice(const std::string& directory, const ScsiDevice& device);

/// A record of utmp: a session of `user`, or of another `type` than USER_PROCESS.
std::string UtmpRecord(const std::string& user, std::int16_t type = 7);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_MACHINES_H
