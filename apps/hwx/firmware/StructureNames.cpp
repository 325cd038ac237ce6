#include "hwx/firmware/StructureNames.h"

#include <iterator>

namespace hwx {

namespace {

// By type, from 0.
const char* const kNames[] = {"BIOS Information",
                              "System Information",
                              "Baseboard Information",
                              "System Enclosure",
                              "Processor Information",
                              "Memory Controller Information",
                              "Memory Module Information",
                              "Cache Information",
                              "Port Connector Information",
                              "System Slots",
                              "On Board Devices Information",
                              "OEM Strings",
                              "System Configuration Options",
                              "BIOS Language Information",
                              "Group Associations",
                              "System Event Log",
                              "Physical Memory Array",
                              "Memory Device",
                              "32-Bit Memory Error Information",
                              "Memory Array Mapped Address",
                              "Memory Device Mapped Address",
                              "Built-in Pointing Device",
                              "Portable Battery",
                              "System Reset",
                              "Hardware Security",
                              "System Power Controls",
                              "Voltage Probe",
                              "Cooling Device",
                              "Temperature Probe",
                              "Electrical Current Probe",
                              "Out-of-Band Remote Access",
                              "Boot Integrity Services Entry Point",
                              "System Boot Information",
                              "64-Bit Memory Error Information",
                              "Management Device",
                              "Management Device Component",
                              "Management Device Threshold Data",
                              "Memory Channel",
                              "IPMI Device Information",
                              "System Power Supply",
                              "Additional Information",
                              "Onboard Devices Extended Information",
                              "Management Controller Host Interface",
                              "TPM Device",
                              "Processor Additional Information",
                              "Firmware Inventory Information",
                              "String Property"};

constexpr std::uint8_t kInactive = 126;
constexpr std::uint8_t kEndOfTable = 127;

}  // namespace

const char* StructureName(std::uint8_t type) {
  if (type == kInactive) return "Inactive";
  if (type == kEndOfTable) return "End-of-Table";
  return type < std::size(kNames) ? kNames[type] : nullptr;
}

}  // namespace hwx
