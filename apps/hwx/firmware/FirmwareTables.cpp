#include "hwx/firmware/FirmwareTables.h"

#include <cstdlib>

#include "hwx/text/Failure.h"
#include "hwxsys/KernelCopy.h"
#include "hwxsys/SystemRoot.h"
#include "smbios/TableReader.h"

namespace hwx {

namespace {

const char kVariable[] = "HWX_SMBIOS_TABLES";

}  // namespace

std::string FirmwareLocation() {
  return smbios::TablesLocation(hwxsys::SystemRoot());
}

smbios::TTables ReadFirmware() {
  return smbios::ReadTables(hwxsys::FollowedInRoot(FirmwareLocation()));
}

std::string WhyUnsound(const smbios::TTables& tables) {
  return smbios::WhyUnsound(tables, FirmwareLocation());
}

smbios::TTables ReadSoundFirmware(const TGlobalOptions& options) {
  smbios::TTables tables = ReadFirmware();
  if (tables.IsSound()) return tables;
  const std::string given = options.fFirmware ? "--firmware " + *options.fFirmware + ": " : "";
  throw TFailure(given + WhyUnsound(tables));
}

TFirmwareForLibrary::TFirmwareForLibrary() : fIsNeeded(!hwxsys::IsOtherFirmware()) {
  if (fIsNeeded) ::setenv(kVariable, FirmwareLocation().c_str(), 1);
}

TFirmwareForLibrary::~TFirmwareForLibrary() {
  if (fIsNeeded) ::unsetenv(kVariable);
}

}  // namespace hwx
