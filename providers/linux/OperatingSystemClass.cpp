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
#include "providers/linux/TimeZone.h"

namespace linux_machine {

namespace {

using NQORHWX20::TCIMDateTime;

constexpr unsigned short kOSTypeLinux = 36;          // in the value map of CIM_OperatingSystem
constexpr int kLastYear = 9999;                      // that a date-time's text has room for
constexpr std::uint64_t kLastSecond = 253402300799;  // of that year

// How far the local time was ahead of UTC at a moment: by this machine's rules, or by those of the
// machine whose files lie below `root`.
long OffsetAt(const std::string& root, time_t moment) {
  if (!root.empty()) {
    return ReadTimeZone(root).OffsetAt(moment);
  }
  struct tm fields {};
  ::tzset();  // localtime_r alone may not notice a change of TZ
  return ::localtime_r(&moment, &fields) == nullptr ? 0 : fields.tm_gmtoff;
}

// A moment in the local time that held then, with its offset from UTC. None beyond year 9999.
std::optional<TCIMDateTime> LocalTime(const std::string& root,
                                      std::optional<std::uint64_t> seconds) {
  if (!seconds || *seconds > kLastSecond) {
    return std::nullopt;
  }
  const time_t moment = static_cast<time_t>(*seconds);
  const long offset = OffsetAt(root, moment);
  const time_t shifted = moment + offset;
  struct tm fields {};
  if (::gmtime_r(&shifted, &fields) == nullptr || fields.tm_year > kLastYear - 1900) {
    return std::nullopt;
  }
  return TCIMDateTime(
      static_cast<unsigned short>(fields.tm_year + 1900),
      static_cast<unsigned short>(fields.tm_mon + 1), static_cast<unsigned int>(fields.tm_mday),
      static_cast<unsigned short>(fields.tm_hour), static_cast<unsigned short>(fields.tm_min),
      static_cast<unsigned short>(fields.tm_sec), 0, static_cast<short>(offset / 60));
}

// The time now: by the library on this machine, and by the other machine's rules on another.
TCIMDateTime LocalTimeNow(const std::string& root) {
  const TCIMDateTime now = NQORHWX20::TOSSpecific::GetLocalTime();
  return root.empty() ? now
                      : LocalTime(root, static_cast<std::uint64_t>(::time(nullptr))).value_or(now);
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
  const TCIMDateTime now = LocalTimeNow(root);
  const TMemory& memory = read.fMemory;
  NQORHWX20::TMemoryInstance& system = instances.Add();
  TOwnerKeys(*instances.GetClass(), root).Fill(system);
  system.Set("Name", read.fName);
  SetKnown(system, "Version", read.fVersion);
  SetKnown(system, "Description", read.fDescription);
  SetKnown(system, "KernelRelease", read.fKernelRelease);
  system.Set("OSType", kOSTypeLinux);
  SetKnown(system, "LastBootUpTime", LocalTime(root, read.fBootTime));
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
