#include "providers/linux/LiveClass.h"
#include "providers/linux/MemoryModules.h"

namespace linux_machine {

namespace {

const TValueMap kLocations = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "System Board"},
    {4, "ISA Add-on Card"},
    {5, "EISA Add-on Card"},
    {6, "PCI Add-on Card"},
    {7, "MCA Add-on Card"},
    {8, "PCMCIA Add-on Card"},
    {9, "Proprietary Add-on Card"},
    {10, "NuBus"},
    {160, "PC-98/C20 Add-on Card"},
    {161, "PC-98/C24 Add-on Card"},
    {162, "PC-98/E Add-on Card"},
    {163, "PC-98/Local Bus Add-on Card"},
    {164, "CXL Add-on Card"},
};

const TValueMap kUses = {
    {1, "Other"},        {2, "Unknown"},          {3, "System Memory"}, {4, "Video Memory"},
    {5, "Flash Memory"}, {6, "Non-volatile RAM"}, {7, "Cache Memory"},
};

const TValueMap kErrorCorrections = {
    {1, "Other"},          {2, "Unknown"},       {3, "None"}, {4, "Parity"},
    {5, "Single-bit ECC"}, {6, "Multi-bit ECC"}, {7, "CRC"},
};

}  // namespace

void DefinePhysicalMemoryArray(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TMemoryArray;
  TLiveClass<Row>(ns, "CIM_PhysicalMemoryArray", "A set of slots for memory modules.",
                  &ReadMemoryArrays)
      .Key("Tag", &Row::fTag, "\"Physical Memory Array\" and the number of the array, from 0.")
      .Property("Location", &Row::fLocation, "Where the slots are.")
      .Values(kLocations)
      .Property("Use", &Row::fUse, "What the memory is for.")
      .Values(kUses)
      .Property("MemoryErrorCorrection", &Row::fErrorCorrection, "How errors are corrected.")
      .Values(kErrorCorrections)
      .Property("MaxCapacity", &Row::fMaxCapacity, "What all modules together may hold.")
      .Units("KiloBytes")
      .Property("MemoryDevices", &Row::fSlots, "Slots, empty ones included.")
      .Commit();
}

}  // namespace linux_machine
