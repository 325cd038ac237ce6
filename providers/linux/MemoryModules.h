// The machine's memory: modules and the arrays of slots that take them, as the firmware tells, and
// the blocks in which the kernel manages it.
// Thread-safety: no state is kept.

#ifndef PROVIDERS_LINUX_MEMORYMODULES_H
#define PROVIDERS_LINUX_MEMORYMODULES_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "smbios/TableWalker.h"

namespace linux_machine {

/// A module that is plugged in. Texts are as the firmware has them.
struct TMemoryModule {
  std::string fTag;                     ///< "Physical Memory 0": the slot's number in the tables.
  std::optional<std::string> fLocator;  ///< What the slot is labelled, such as "DIMM A1".
  std::optional<std::string> fBank;
  std::optional<std::uint64_t> fCapacity;    ///< Bytes.
  std::optional<std::uint16_t> fFormFactor;  ///< In the value map of CIM_Chip.
  std::optional<std::string> fFormFactorName;
  std::optional<std::uint16_t> fMemoryType;  ///< In the value map of CIM_PhysicalMemory.
  std::optional<std::string> fMemoryTypeName;
  std::optional<std::uint16_t> fTotalWidth;  ///< Bits, those that correct errors included.
  std::optional<std::uint16_t> fDataWidth;   ///< Bits.
  std::optional<std::uint32_t> fMaxSpeed;    ///< Transfers per second, in millions.
  std::optional<std::uint32_t> fConfiguredSpeed;
  std::optional<std::string> fManufacturer;
  std::optional<std::string> fSerialNumber;
  std::optional<std::string> fAssetTag;
  std::optional<std::string> fPartNumber;
};

/// A set of slots. The numbers of the first three are the format's own.
struct TMemoryArray {
  std::string fTag;  ///< "Physical Memory Array 0"
  std::optional<std::uint16_t> fLocation;
  std::optional<std::uint16_t> fUse;
  std::optional<std::uint16_t> fErrorCorrection;
  std::optional<std::uint64_t> fMaxCapacity;  ///< KiB.
  std::optional<std::uint16_t> fSlots;
};

/// The memory that the kernel has taken into use, whoever made it: also a virtual machine's.
struct TSystemMemory {
  std::string fDeviceID;  ///< "System Memory"
  std::optional<std::uint64_t> fBlockSize;
  std::optional<std::uint64_t> fBlocks;
};

/// The module in a structure of type 17, of whatever length; none in an empty slot.
std::optional<TMemoryModule> ParseMemoryModule(const smbios::TStructure& structure,
                                               std::size_t number);

/// The array that a structure of type 16 describes.
std::optional<TMemoryArray> ParseMemoryArray(const smbios::TStructure& structure,
                                             std::size_t number);

std::vector<TMemoryModule> ReadMemoryModules(const std::string& root);
std::vector<TMemoryArray> ReadMemoryArrays(const std::string& root);

/// One, or none where the kernel doesn't manage its memory in blocks.
std::vector<TSystemMemory> ReadSystemMemory(const std::string& root);

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_MEMORYMODULES_H
