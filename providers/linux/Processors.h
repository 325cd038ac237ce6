// The machine's processors: the packages that run, with what the firmware tells of their sockets.
// Thread-safety: no state is kept. Reading looks at the environment, which no thread may change
// meanwhile.

#ifndef PROVIDERS_LINUX_PROCESSORS_H
#define PROVIDERS_LINUX_PROCESSORS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "providers/linux/CpuInfo.h"
#include "smbios/TableWalker.h"

namespace linux_machine {

/// A package. Numbers of families, of upgrade methods and of the status are the firmware's, which
/// CIM shares.
struct TProcessor {
  std::string fDeviceID;  ///< "CPU0"
  std::optional<std::string> fName;
  std::optional<std::string> fSocket;
  std::optional<std::string> fManufacturer;
  std::optional<std::uint16_t> fFamily;
  std::optional<std::uint16_t> fUpgradeMethod;
  std::optional<std::uint32_t> fMaxClockSpeed;  ///< MHz
  std::optional<std::uint32_t> fCurrentClockSpeed;
  std::optional<std::uint32_t> fExternalBusClockSpeed;
  std::optional<std::uint16_t> fDataWidth;  ///< Bits
  std::optional<std::uint16_t> fAddressWidth;
  std::optional<std::string> fStepping;
  std::optional<std::uint16_t> fStatus;
  std::optional<std::vector<std::uint16_t>> fCharacteristics;  ///< In the value map of CIM.
  std::optional<std::uint16_t> fEnabledCores;
  std::optional<std::uint32_t> fThreads;
};

/// The packages that logical processors make up, in the order of their first one.
std::vector<TProcessor> GroupProcessors(const std::vector<TLogicalProcessor>& logical);

/// The processor in the socket that a structure of type 4 describes, of whatever length. None in an
/// empty socket, and for one that isn't a central processor.
std::optional<TProcessor> ParseProcessor(const smbios::TStructure& structure, std::size_t number);

/// The packages with what the firmware knows beyond the kernel. Kernel and firmware number them in
/// the same order, so if both have the same number of them, it is clear which is which. Otherwise
/// nothing is added.
std::vector<TProcessor> MergeProcessors(std::vector<TProcessor> packages,
                                        const std::vector<TProcessor>& sockets);

/// The logical processors that run, of the machine whose /proc and /sys lie below `root`, in the
/// order of their numbers: those of /proc/cpuinfo, or if that numbers none, those of /sys. /sys
/// tells which of them share a package or a core. None if `HWX_SMBIOS_TABLES` names tables that
/// list processors: these are another machine's. Throws `std::runtime_error` if /proc/cpuinfo is
/// larger than any machine's.
std::vector<TLogicalProcessor> ReadLogicalProcessors(const std::string& root);

/// The processors of the machine whose /proc and /sys lie below `root`. Where `HWX_SMBIOS_TABLES`
/// names another machine's tables, those that they list, if any.
std::vector<TProcessor> ReadProcessors(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_PROCESSORS_H
