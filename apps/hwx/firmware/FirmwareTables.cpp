#include "hwx/firmware/FirmwareTables.h"

#include <cstdlib>

#include "hwx/text/Failure.h"
#include "smbios/TableReader.h"

namespace hwx {

namespace {

const char kVariable[] = "HWX_SMBIOS_TABLES";

}  // namespace

std::string SystemRoot() {
  const char* const value = std::getenv("HWX_SYSROOT");
  std::string root = value ? value : "";
  while (!root.empty() && root.back() == '/')
    root.pop_back();
  return root;
}

bool IsOtherFirmware() {
  return std::getenv(kVariable) != nullptr;
}

std::string FirmwareLocation() {
  return smbios::TablesLocation(SystemRoot());
}

smbios::TTables ReadFirmware() {
  return smbios::ReadTables(FirmwareLocation());
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

TFirmwareForLibrary::TFirmwareForLibrary() : fIsNeeded(!IsOtherFirmware()) {
  if (fIsNeeded) ::setenv(kVariable, FirmwareLocation().c_str(), 1);
}

TFirmwareForLibrary::~TFirmwareForLibrary() {
  if (fIsNeeded) ::unsetenv(kVariable);
}

}  // namespace hwx
