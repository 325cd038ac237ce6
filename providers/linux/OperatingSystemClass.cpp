#include <time.h>

#include <limits>

#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxkit/TInstanceList.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/Classes.h"
#include "providers/linux/OperatingSystem.h"
#include "providers/linux/OwnerKeys.h"

namespace linux_machine {

namespace {

using NQORHWX20::TCIMDateTime;

constexpr unsigned short kOSTypeLinux = 36;  // in the value map of CIM_OperatingSystem
constexpr int kLastYear = 9999;              // that a date-time's text has room for

// A moment in the local time that held then, with its offset from UTC. None beyond year 9999.
std::optional<TCIMDateTime> LocalTime(std::optional<std::uint64_t> seconds) {
  if (!seconds || *seconds > static_cast<std::uint64_t>(std::numeric_limits<time_t>::max())) {
    return std::nullopt;
  }
  const time_t moment = static_cast<time_t>(*seconds);
  struct tm fields {};
  ::tzset();  // localtime_r alone may not notice a change of TZ
  if (::localtime_r(&moment, &fields) == nullptr || fields.tm_year > kLastYear - 1900) {
    return std::nullopt;
  }
  return TCIMDateTime(
      static_cast<unsigned short>(fields.tm_year + 1900),
      static_cast<unsigned short>(fields.tm_mon + 1), static_cast<unsigned int>(fields.tm_mday),
      static_cast<unsigned short>(fields.tm_hour), static_cast<unsigned short>(fields.tm_min),
      static_cast<unsigned short>(fields.tm_sec), 0, static_cast<short>(fields.tm_gmtoff / 60));
}

// Numbers of the kernel may be anything in a copied /proc: a sum that doesn't fit is not known.
std::optional<std::uint64_t> Sum(std::optional<std::uint64_t> left,
                                 std::optional<std::uint64_t> right) {
  if (!left || !right || *left > std::numeric_limits<std::uint64_t>::max() - *right) {
    return std::nullopt;
  }
  return *left + *right;
}

void ReadRunningSystem(NQORHWX20::TInstanceList& instances) {
  const std::string root = hwxsys::SystemRoot();
  const TOperatingSystem read = ReadOperatingSystem(root);
  const TCIMDateTime now = NQORHWX20::TOSSpecific::GetLocalTime();
  const TMemory& memory = read.fMemory;
  NQORHWX20::TMemoryInstance& system = instances.Add();
  TOwnerKeys(*instances.GetClass(), root).Fill(system);
  system.Set("Name", read.fName);
  SetKnown(system, "Version", read.fVersion);
  SetKnown(system, "Description", read.fDescription);
  SetKnown(system, "KernelRelease", read.fKernelRelease);
  system.Set("OSType", kOSTypeLinux);
  SetKnown(system, "LastBootUpTime", LocalTime(read.fBootTime));
  system.Set("LocalDateTime", now);
  system.Set("CurrentTimeZone", now.GetUTCOffset());
  SetKnown(system, "TotalVisibleMemorySize", memory.fTotal);
  SetKnown(system, "FreePhysicalMemory", memory.fFree);
  SetKnown(system, "TotalSwapSpaceSize", memory.fSwapTotal);
  SetKnown(system, "TotalVirtualMemorySize", Sum(memory.fTotal, memory.fSwapTotal));
  SetKnown(system, "FreeVirtualMemory", Sum(memory.fFree, memory.fSwapFree));
  SetKnown(system, "NumberOfUsers", read.fUsers);
  SetKnown(system, "NumberOfProcesses", read.fProcesses);
  SetKnown(system, "MaxNumberOfProcesses", read.fMaxProcesses);
}

}  // namespace

void DefineOperatingSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  DeclaredClass(*ns, NQORHWX20::TCIMSchemaHelper::kOperatingSystemCreationClassName)
      ->SetInstanceSource(&ReadRunningSystem);
}

}  // namespace linux_machine
