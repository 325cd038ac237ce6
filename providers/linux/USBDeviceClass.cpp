#include "providers/linux/BusDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineUSBDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TUSBDevice;
  TLiveClass<Row>(ns, "CIM_USBDevice", "A device on a USB bus, hubs included.", &ReadUSBDevices)
      .Key("DeviceID", &Row::fDeviceID, "The ports on the way to the device.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the device.")
      .Property("Product", &Row::fProduct, "What the maker calls the device.")
      .Property("Caption", &Row::fCaption, "What kind of device it is.")
      .Property("SerialNumber", &Row::fSerialNumber, "The maker's number of this device.")
      .Property("VendorID", &Row::fVendorID, "The maker's number.")
      .Property("ProductID", &Row::fProductID, "The maker's number of the product.")
      .Property("DeviceReleaseNumber", &Row::fRelease,
                "Version of the product, in decimal digits of four bits each.")
      .Property("USBVersionInBCD", &Row::fUSBVersion,
                "Version of the bus that it is made for, in such digits.")
      .Property("ClassCode", &Row::fClassCode, "The kind of device, by the bus's number.")
      .Property("SubclassCode", &Row::fSubclassCode, "The kind within that.")
      .Property("ProtocolCode", &Row::fProtocolCode, "The protocol that it speaks.")
      .Property("MaxPacketSize", &Row::fMaxPacketSize, "The longest packet of its first endpoint.")
      .Units("Bytes")
      .Property("NumberOfConfigs", &Row::fConfigurations, "Configurations that it has.")
      .Property("CurrentConfigValue", &Row::fConfiguration, "The one that is in use.")
      .Commit();
}

}  // namespace linux_machine
