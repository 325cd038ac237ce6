// The firmware's tables that the program is about: those that "--firmware" or the environment
// names, else this machine's. Thread-safety: reads the environment, which no thread may change
// meanwhile.

#ifndef HWX_FIRMWARE_FIRMWARETABLES_H
#define HWX_FIRMWARE_FIRMWARETABLES_H

#include <optional>
#include <string>

#include "hwx/commands/Command.h"
#include "smbios/TTables.h"

namespace hwx {

/// The file or directory that holds the tables.
std::string FirmwareLocation();

/// The tables as they are, sound or not.
smbios::TTables ReadFirmware();

/// Why the tables are absent or unsound, in words; empty if they are sound.
std::string WhyUnsound(const smbios::TTables& tables);

/// The tables for a command that can't do without them. Throws `TFailure` unless they are sound.
smbios::TTables ReadSoundFirmware(const TGlobalOptions& options);

/// While it lives, the library reads the tables at `FirmwareLocation`. The library itself doesn't
/// know `HWX_SYSROOT`.
///
/// Thread-safety: changes the environment, for the main thread while there are no others.
class TFirmwareForLibrary {
 public:
  TFirmwareForLibrary();
  ~TFirmwareForLibrary();
  TFirmwareForLibrary(const TFirmwareForLibrary&) = delete;
  TFirmwareForLibrary& operator=(const TFirmwareForLibrary&) = delete;

 private:
  bool fIsNeeded;
};

}  // namespace hwx

#endif  // HWX_FIRMWARE_FIRMWARETABLES_H
