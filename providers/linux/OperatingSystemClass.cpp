#include <time.h>

#include <limits>

#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/Classes.h"
#include "providers/linux/OperatingSystem.h"

namespace linux_machine {

namespace {

using NQORHWX20::TCIMDateTime;
using NQORHWX20::TCIMValue;

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
  const TOperatingSystem read = ReadOperatingSystem(hwxsys::SystemRoot());
  const TCIMDateTime now = NQORHWX20::TOSSpecific::GetLocalTime();
  const TMemory& memory = read.fMemory;
  NQORHWX20::TMemoryInstance& system = instances.Add();
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
  const TCIMValue kibibytes("KiloBytes");
  NQORHWX20::TClassBuilder(ns, NQORHWX20::TCIMSchemaHelper::kOperatingSystemCreationClassName)
      .Description("The operating system that runs on this machine.")
      .Key("Name", "string", "What people call the system, such as \"Debian GNU/Linux\".")
      .Property("Version", "string",
                "The distribution's version; the kernel's release where the distribution has none.")
      .Property("Description", "string", "Name and version as the distribution writes them.")
      .Property("KernelRelease", "string", "The release of the running kernel.")
      .Property("OSType", "uint16", "The kind of operating system: 36, which is Linux.")
      .Property("LastBootUpTime", "datetime", "When the system was started, in local time.")
      .Property("LocalDateTime", "datetime", "The local time of this reading.")
      .Property("CurrentTimeZone", "sint16", "How far the local time is ahead of UTC.")
      .Qualifier("Units", "Minutes")
      .Property("TotalVisibleMemorySize", "uint64", "Memory that the kernel manages.")
      .Qualifier("Units", kibibytes)
      .Property("FreePhysicalMemory", "uint64", "Memory that is used for nothing, not even caches.")
      .Qualifier("Units", kibibytes)
      .Property("TotalSwapSpaceSize", "uint64", "Swap space.")
      .Qualifier("Units", kibibytes)
      .Property("TotalVirtualMemorySize", "uint64", "Memory and swap space together.")
      .Qualifier("Units", kibibytes)
      .Property("FreeVirtualMemory", "uint64", "Free memory and free swap space together.")
      .Qualifier("Units", kibibytes)
      .Property("NumberOfUsers", "uint32", "Login sessions.")
      .Property("NumberOfProcesses", "uint32", "Processes that this user can see.")
      .Property("MaxNumberOfProcesses", "uint32",
                "Processes and threads that there can be at once.")
      .Source(&ReadRunningSystem)
      .Commit();
}

}  // namespace linux_machine
