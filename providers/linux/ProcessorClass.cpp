#include "providers/linux/LiveClass.h"
#include "providers/linux/Processors.h"

namespace linux_machine {

namespace {

const TValueMap kUpgradeMethods = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Daughter Board"},
    {4, "ZIF Socket"},
    {5, "Replacement/Piggy Back"},
    {6, "None"},
    {7, "LIF Socket"},
    {8, "Slot 1"},
    {9, "Slot 2"},
    {10, "370 Pin Socket"},
    {11, "Slot A"},
    {12, "Slot M"},
    {13, "Socket 423"},
    {14, "Socket A (Socket 462)"},
    {15, "Socket 478"},
    {16, "Socket 754"},
    {17, "Socket 940"},
    {18, "Socket 939"},
    {19, "Socket mPGA604"},
    {20, "Socket LGA771"},
    {21, "Socket LGA775"},
    {22, "Socket S1"},
    {23, "Socket AM2"},
    {24, "Socket F (1207)"},
    {25, "Socket LGA1366"},
    {26, "Socket G34"},
    {27, "Socket AM3"},
    {28, "Socket C32"},
    {29, "Socket LGA1156"},
    {30, "Socket LGA1567"},
    {31, "Socket PGA988A"},
    {32, "Socket BGA1288"},
    {33, "rPGA988B"},
    {34, "BGA1023"},
    {35, "BGA1224"},
    {36, "LGA1155"},
    {37, "LGA1356"},
    {38, "LGA2011"},
    {39, "Socket FS1"},
    {40, "Socket FS2"},
    {41, "Socket FM1"},
    {42, "Socket FM2"},
    {43, "Socket LGA2011-3"},
    {44, "Socket LGA1356-3"},
    {45, "Socket LGA1150"},
};

const TValueMap kStatuses = {
    {0, "Unknown"},
    {1, "CPU Enabled"},
    {2, "CPU Disabled by User"},
    {3, "CPU Disabled By BIOS (POST Error)"},
    {4, "CPU Is Idle"},
    {7, "Other"},
};

const TValueMap kCharacteristics = {
    {0, "Unknown"},
    {1, "DMTF Reserved"},
    {2, "64-bit Capable"},
    {3, "32-bit Capable"},
    {4, "Enhanced Virtualization"},
    {5, "Hardware Thread"},
    {6, "NX-bit"},
    {7, "Power/Performance Control"},
    {8, "Core Frequency Boosting"},
};

}  // namespace

void DefineProcessor(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TProcessor;
  TLiveClass<Row>(ns, "CIM_Processor", "A processor that is plugged in, with all its cores.",
                  &ReadProcessors)
      .Key("DeviceID", &Row::fDeviceID, "\"CPU\" and the number of the processor, from 0.")
      .Property("Name", &Row::fName, "What the maker calls the processor.")
      .Property("ElementName", &Row::fSocket, "What its socket is labelled.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the processor.")
      .Property("Family", &Row::fFamily, "The family that it belongs to, by the firmware's number.")
      .Property("UpgradeMethod", &Row::fUpgradeMethod, "The kind of its socket.")
      .Values(kUpgradeMethods)
      .Property("MaxClockSpeed", &Row::fMaxClockSpeed, "The highest clock speed.")
      .Units("MegaHertz")
      .Property("CurrentClockSpeed", &Row::fCurrentClockSpeed, "The clock speed of its first core.")
      .Units("MegaHertz")
      .Property("ExternalBusClockSpeed", &Row::fExternalBusClockSpeed, "The clock of its bus.")
      .Units("MegaHertz")
      .Property("DataWidth", &Row::fDataWidth, "The width of its registers.")
      .Units("Bits")
      .Property("AddressWidth", &Row::fAddressWidth, "The width of a physical address.")
      .Units("Bits")
      .Property("Stepping", &Row::fStepping, "The revision of the processor in its family.")
      .Property("CPUStatus", &Row::fStatus, "Whether the processor is in use.")
      .Values(kStatuses)
      .Property("Characteristics", &Row::fCharacteristics, "What the processor can do.")
      .Values(kCharacteristics)
      .Property("NumberOfEnabledCores", &Row::fEnabledCores, "Cores that are in use.")
      .Property("NumberOfHardwareThreads", &Row::fThreads, "Threads that these cores run at once.")
      .Commit();
}

}  // namespace linux_machine
