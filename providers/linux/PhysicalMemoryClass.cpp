#include "providers/linux/LiveClass.h"
#include "providers/linux/MemoryModules.h"

namespace linux_machine {

namespace {

const TValueMap kFormFactors = {
    {0, "Unknown"}, {1, "Other"},       {2, "SIP"},     {3, "DIP"},    {4, "ZIP"},
    {5, "SOJ"},     {6, "Proprietary"}, {7, "SIMM"},    {8, "DIMM"},   {9, "TSOP"},
    {10, "PGA"},    {11, "RIMM"},       {12, "SODIMM"}, {13, "SRIMM"}, {14, "SMD"},
    {15, "SSMP"},   {16, "QFP"},        {17, "TQFP"},   {18, "SOIC"},  {19, "LCC"},
    {20, "PLCC"},   {21, "BGA"},        {22, "FPBGA"},  {23, "LGA"},   {24, "FB-DIMM"},
};

const TValueMap kMemoryTypes = {
    {0, "Unknown"},    {1, "Other"},   {2, "DRAM"},    {3, "Synchronous DRAM"},
    {4, "Cache DRAM"}, {5, "EDO"},     {6, "EDRAM"},   {7, "VRAM"},
    {8, "SRAM"},       {9, "RAM"},     {10, "ROM"},    {11, "Flash"},
    {12, "EEPROM"},    {13, "FEPROM"}, {14, "EPROM"},  {15, "CDRAM"},
    {16, "3DRAM"},     {17, "SDRAM"},  {18, "SGRAM"},  {19, "RDRAM"},
    {20, "DDR"},       {21, "DDR-2"},  {22, "BRAM"},   {23, "FB-DIMM"},
    {24, "DDR3"},      {25, "FBD2"},   {26, "DDR4"},   {27, "LPDDR"},
    {28, "LPDDR2"},    {29, "LPDDR3"}, {30, "LPDDR4"}, {31, "Logical non-volatile device"},
    {32, "HBM"},       {33, "HBM2"},   {34, "DDR5"},   {35, "LPDDR5"},
};

}  // namespace

void DefinePhysicalMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TMemoryModule;
  TLiveClass<Row>(ns, "CIM_PhysicalMemory", "A memory module that is plugged in.",
                  &ReadMemoryModules)
      .Key("Tag", &Row::fTag, "\"Physical Memory\" and the number of the slot, from 0.")
      .Property("ElementName", &Row::fLocator, "What the slot is labelled.")
      .Property("BankLabel", &Row::fBank, "The bank that the slot belongs to.")
      .Property("Capacity", &Row::fCapacity, "What the module holds.")
      .Units("Bytes")
      .Property("FormFactor", &Row::fFormFactor, "The shape of the module.")
      .Values(kFormFactors)
      .Property("MemoryType", &Row::fMemoryType, "The technology of the memory.")
      .Values(kMemoryTypes)
      .Property("TotalWidth", &Row::fTotalWidth, "Lines for data and for correcting errors.")
      .Units("Bits")
      .Property("DataWidth", &Row::fDataWidth, "Lines for data.")
      .Units("Bits")
      .Property("MaxMemorySpeed", &Row::fMaxSpeed, "The speed that the module is made for.")
      .Units("MegaHertz")
      .Property("ConfiguredMemoryClockSpeed", &Row::fConfiguredSpeed, "The speed that it runs at.")
      .Units("MegaHertz")
      .Property(
          "IsSpeedInMhz", [](const Row& row) { return row.fMaxSpeed.has_value(); },
          "Whether MaxMemorySpeed tells the speed; there is no other property that does.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the module.")
      .Property("SerialNumber", &Row::fSerialNumber, "The maker's number of this module.")
      .Property("PartNumber", &Row::fPartNumber, "The maker's number of the product.")
      .Property("OtherIdentifyingInfo", &Row::fAssetTag, "The owner's number of the module.")
      .Commit();
}

}  // namespace linux_machine
