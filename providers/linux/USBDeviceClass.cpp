#include "providers/linux/BusDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineUSBDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TUSBDevice;
  TLiveClass<Row>(ns, "CIM_USBDevice", &ReadUSBDevices)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Product", &Row::fProduct)
      .Set("Caption", &Row::fCaption)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("VendorID", &Row::fVendorID)
      .Set("ProductID", &Row::fProductID)
      .Set("DeviceReleaseNumber", &Row::fRelease)
      .Set("USBVersionInBCD", &Row::fUSBVersion)
      .Set("ClassCode", &Row::fClassCode)
      .Set("SubclassCode", &Row::fSubclassCode)
      .Set("ProtocolCode", &Row::fProtocolCode)
      .Set("MaxPacketSize", &Row::fMaxPacketSize)
      .Set("NumberOfConfigs", &Row::fConfigurations)
      .Set("CurrentConfigValue", &Row::fConfiguration)
      .Commit();
}

}  // namespace linux_machine
