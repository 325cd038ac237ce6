// What the inventory reads, from any bytes: the kernel's texts, the databases of names, and
// structures of the firmware's tables.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Require.h"
#include "providers/linux/BiosInformation.h"
#include "providers/linux/BlockDevices.h"
#include "providers/linux/BusDevices.h"
#include "providers/linux/Enclosures.h"
#include "providers/linux/FileSystems.h"
#include "providers/linux/IdDatabase.h"
#include "providers/linux/MemoryModules.h"
#include "providers/linux/NetworkPorts.h"
#include "providers/linux/Processors.h"

namespace {

using fuzz::Require;
using namespace linux_machine;
using Bytes = std::vector<std::uint8_t>;

void CheckProcessors(std::string_view text) {
  const auto logical = ParseCpuInfo(text).fProcessors;
  const auto packages = GroupProcessors(logical);
  std::size_t threads = 0;
  for (const TProcessor& package : packages)
    threads += *package.fThreads;
  Require(threads == logical.size());
  Require(MergeProcessors(packages, packages).size() == packages.size());
}

void CheckMounts(std::string_view text) {
  const auto mounts = hwxsys::ParseMountInfo(text);
  const auto selected = SelectFileSystems(mounts);
  Require(selected.size() <= mounts.size());
  for (const TMount& mount : selected)
    IsSafeToAsk(mount, mounts);
}

void CheckWords(std::string_view text) {
  const auto address = ParseMACAddress(text);
  Require(!address || address->size() == 12);
  ParseLinkSpeed(text);
  ParsePCIAddress(text);
  ParseUSBVersion(text);
  ParseUnitSerialNumber(text);
  const auto variable = EventVariable(text, "PARTNAME");
  Require(!variable || variable->size() < text.size());
  const auto date = ParseFirmwareDate(text);
  Require(!date || (date->fMonth >= 1 && date->fMonth <= 12 && date->fDay >= 1));
}

void CheckNames(std::string_view text) {
  const TIdDatabase names{std::string(text)};
  names.Vendor(0x1234);
  names.Device(0x1234, 0x0001);
  names.Class(2, 0);
}

void CheckStructures(const std::uint8_t* data, std::size_t size) {
  smbios::WalkTable(data, size, 0, [](const smbios::TStructure& structure) {
    ParseMemoryModule(structure, 0);
    ParseMemoryArray(structure, 0);
    ParseChassis(structure, 0);
    ParseBoard(structure, 0);
    ParseProcessor(structure, 0);
    TBios bios = ParseBios(structure);
    ParseBiosLanguages(structure, bios);
    return true;
  });
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  std::vector<Bytes> seeds = {{17, 27,  0, 0,  0, 0,  72,   0,  64, 0,  0, 32,  0, 9,
                               0,  1,   2, 26, 0, 0,  0x80, 12, 3,  4,  5, 6,   1, 'A',
                               0,  'B', 0, 0,  3, 21, 1,    0,  1,  23, 1, 1,   1, 3,
                               3,  3,   3, 0,  0, 0,  0,    2,  1,  2,  3, 'C', 0, 0}};
  for (const std::string_view text :
       {"processor : 0\nphysical id : 0\ncore id : 0\ncpu MHz : 2500.1\nflags : lm\n\n",
        "36 35 98:0 /a /m\\040n rw,ro master:1 - ext4 /dev/sda1 rw\n",
        "1234  Maker\n\t0001  Device\n\t\t0001 0002  Sub\nC 02  Network\n\t00  Ethernet\n",
        "02:fc:00:00:00:0a", "0000:03:1f.6", " 2.10", "03/01/2021", "PARTNAME=boot\n"}) {
    seeds.emplace_back(text.begin(), text.end());
  }
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckProcessors(text);
  CheckMounts(text);
  CheckWords(text);
  CheckNames(text);
  CheckStructures(data, size);
  return 0;
}
