#include "providers/linux/BusDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

template <std::uint8_t TPCIAddress::*kPart>
std::optional<std::uint8_t> AddressPart(const TPCIDevice& device) {
  return device.fAddress ? std::optional((*device.fAddress).*kPart) : std::nullopt;
}

}  // namespace

void DefinePCIDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TPCIDevice;
  TLiveClass<Row>(ns, "QORSG_PCIDevice", &ReadPCIDevices)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("Name", &Row::fName)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Caption", &Row::fCaption)
      .Set("ClassCode", &Row::fClassCode)
      .Set("VendorID", &Row::fVendorID)
      .Set("PCIDeviceID", &Row::fPCIDeviceID)
      .Set("SubsystemVendorID", &Row::fSubsystemVendorID)
      .Set("SubsystemID", &Row::fSubsystemID)
      .Set("RevisionID", &Row::fRevisionID)
      .Set("BusNumber", &AddressPart<&TPCIAddress::fBus>)
      .Set("DeviceNumber", &AddressPart<&TPCIAddress::fDevice>)
      .Set("FunctionNumber", &AddressPart<&TPCIAddress::fFunction>)
      .Commit();
}

}  // namespace linux_machine
