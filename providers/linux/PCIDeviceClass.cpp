#include "providers/linux/BusDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

const TValueMap kClassCodes = {
    {0, "Pre 2.0"},
    {1, "Mass Storage"},
    {2, "Network"},
    {3, "Display"},
    {4, "Multimedia"},
    {5, "Memory"},
    {6, "Bridge"},
    {7, "Simple Communications"},
    {8, "Base Peripheral"},
    {9, "Input"},
    {10, "Docking Station"},
    {11, "Processor"},
    {12, "Serial Bus"},
    {13, "Wireless"},
    {14, "Intelligent I/O"},
    {15, "Satellite Communication"},
    {16, "Encryption/Decryption"},
    {17, "Data Acquisition and Signal Processing"},
    {255, "Other"},
};

template <std::uint8_t TPCIAddress::*kPart>
std::optional<std::uint8_t> AddressPart(const TPCIDevice& device) {
  return device.fAddress ? std::optional((*device.fAddress).*kPart) : std::nullopt;
}

}  // namespace

void DefinePCIDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TPCIDevice;
  TLiveClass<Row>(ns, "CIM_PCIDevice", "A device on a PCI bus.", &ReadPCIDevices)
      .Key("DeviceID", &Row::fDeviceID, "Domain, bus, device and function.")
      .Property("Name", &Row::fName, "What the maker calls the device.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the device.")
      .Property("Caption", &Row::fCaption, "What kind of device it is.")
      .Property("ClassCode", &Row::fClassCode, "The kind, roughly.")
      .Values(kClassCodes)
      .Property("VendorID", &Row::fVendorID, "The maker's number.")
      .Property("PCIDeviceID", &Row::fPCIDeviceID, "The maker's number of the product.")
      .Property("SubsystemVendorID", &Row::fSubsystemVendorID, "The number of the card's maker.")
      .Property("SubsystemID", &Row::fSubsystemID, "That maker's number of the card.")
      .Property("RevisionID", &Row::fRevisionID, "Revision of the product.")
      .Property("BusNumber", &AddressPart<&TPCIAddress::fBus>, "The bus that it is on.")
      .Property("DeviceNumber", &AddressPart<&TPCIAddress::fDevice>, "The device on that bus.")
      .Property("FunctionNumber", &AddressPart<&TPCIAddress::fFunction>,
                "The function of that device.")
      .Commit();
}

}  // namespace linux_machine
