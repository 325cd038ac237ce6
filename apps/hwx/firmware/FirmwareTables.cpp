#include "hwx/firmware/FirmwareTables.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwxsys/KernelCopy.h"
#include "hwxsys/SystemRoot.h"
#include "smbios/Dump.h"
#include "smbios/TableReader.h"

namespace hwx {

namespace {

const char kVariable[] = "HWX_SMBIOS_TABLES";

hwxsys::TDescriptor FileInMemory(const std::vector<std::uint8_t>& bytes) {
  hwxsys::TDescriptor file(::memfd_create("firmware-tables", MFD_CLOEXEC));
  const auto size = static_cast<ssize_t>(bytes.size());
  if (!file.IsOpen() || ::write(file.Get(), bytes.data(), bytes.size()) != size)
    throw TFailure(std::string("no memory for the firmware's tables: ") + std::strerror(errno));
  return file;
}

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

smbios::TTables RequireFirmware(const TGlobalOptions& options) {
  smbios::TTables tables = ReadFirmware();
  if (tables.IsReadable()) return tables;
  const std::string given = options.fFirmware ? "--firmware " + *options.fFirmware + ": " : "";
  throw TFailure(given + WhyUnsound(tables));
}

void WarnOfFirmware(const smbios::TTables& tables, const TGlobalOptions& options) {
  const std::string warning = tables.Warning();
  if (!warning.empty()) ReportError("warning: " + warning);
  if (options.fVerbose && !tables.Remark().empty()) ReportError("note: " + tables.Remark());
}

TFirmwareForLibrary::TFirmwareForLibrary(const smbios::TTables& tables) {
  std::string location = hwxsys::FollowedInRoot(FirmwareLocation());
  if (!tables.IsSound()) {
    fSoundPart = FileInMemory(smbios::MakeDump(tables.SoundPart()));
    location = "/proc/self/fd/" + std::to_string(fSoundPart.Get());
  }
  if (const char* const value = std::getenv(kVariable)) fBefore = value;
  ::setenv(kVariable, location.c_str(), 1);
}

TFirmwareForLibrary::~TFirmwareForLibrary() {
  if (fBefore) {
    ::setenv(kVariable, fBefore->c_str(), 1);
  } else {
    ::unsetenv(kVariable);
  }
}

}  // namespace hwx
