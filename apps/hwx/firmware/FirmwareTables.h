// The firmware's tables that the program is about: those that "--firmware" or the environment
// names, else this machine's. Thread-safety: reads the environment, which no thread may change
// meanwhile.

#ifndef HWX_FIRMWARE_FIRMWARETABLES_H
#define HWX_FIRMWARE_FIRMWARETABLES_H

#include <optional>
#include <string>

#include "hwx/commands/Command.h"
#include "hwxsys/Descriptor.h"
#include "smbios/TTables.h"

namespace hwx {

/// The file or directory that holds the tables.
std::string FirmwareLocation();

/// The tables as they are, sound or not.
smbios::TTables ReadFirmware();

/// Why the tables are absent or unsound, in words; empty if they are sound.
std::string WhyUnsound(const smbios::TTables& tables);

/// The tables for a command that can't do without them. Throws `TFailure` unless they are readable.
smbios::TTables RequireFirmware(const TGlobalOptions& options);

/// Says on the standard error stream where and how readable tables are damaged, or that they have
/// no entry point; with "--verbose" also that there are fewer bytes than announced.
void WarnOfFirmware(const smbios::TTables& tables, const TGlobalOptions& options);

/// While it lives, the library reads the tables at `FirmwareLocation`. The library itself doesn't
/// know `HWX_SYSROOT`. It refuses tables that are damaged near their beginning, so it gets only the
/// part in front of the damage.
///
/// Thread-safety: changes the environment, for the main thread while there are no others.
class TFirmwareForLibrary {
 public:
  /// `tables` are those at `FirmwareLocation`, readable. Throws `TFailure` if there is no memory
  /// for their sound part.
  explicit TFirmwareForLibrary(const smbios::TTables& tables);
  ~TFirmwareForLibrary();
  TFirmwareForLibrary(const TFirmwareForLibrary&) = delete;
  TFirmwareForLibrary& operator=(const TFirmwareForLibrary&) = delete;

 private:
  std::optional<std::string> fBefore;  // what the environment held
  hwxsys::TDescriptor fSoundPart;
};

}  // namespace hwx

#endif  // HWX_FIRMWARE_FIRMWARETABLES_H
