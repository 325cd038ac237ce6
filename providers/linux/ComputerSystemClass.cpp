#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TInstanceList.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/Classes.h"
#include "providers/linux/OperatingSystem.h"
#include "providers/linux/SystemInformation.h"

namespace linux_machine {

namespace {

void ReadComputerSystem(NQORHWX20::TInstanceList& instances) {
  const std::string root = hwxsys::SystemRoot();
  const TSystemInformation information = ReadSystemInformation(root);
  NQORHWX20::TMemoryInstance& system = instances.Add();
  system.Set("Name", ReadHostName(root));
  SetKnown(system, "ProductName", information.fProductName);
  SetKnown(system, "SerialNumber", information.fSerialNumber);
  SetKnown(system, "Manufacturer", information.fManufacturer);
  SetKnown(system, "Version", information.fVersion);
  SetKnown(system, "UUID", information.fUUID);
  SetKnown(system, "SKUNumber", information.fSKUNumber);
  SetKnown(system, "Family", information.fFamily);
  SetKnown(system, "FirmwareStatus", information.fFirmwareStatus);
}

}  // namespace

void DefineComputerSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  NQORHWX20::TClassBuilder(ns, NQORHWX20::TCIMSchemaHelper::kSystemCreationClassName)
      .Description("This machine. Texts of the firmware stand as it has them.")
      .Key("Name", "string", "The host name; \"(none)\" when nobody gave one.")
      .Property("ProductName", "string", "What the maker calls the machine.")
      .Property("SerialNumber", "string", "The maker's serial number of the machine.")
      .Property("Manufacturer", "string", "The maker of the machine.")
      .Property("Version", "string", "The maker's version of the product.")
      .Property("UUID", "string", "The identifier that no other machine has, in five groups.")
      .Property("SKUNumber", "string", "The number under which the maker sells the configuration.")
      .Property("Family", "string", "The family of products that the machine belongs to.")
      .Property("FirmwareStatus", "string",
                "Why the firmware's tables could not be read or not wholly; null when they could.")
      .Source(&ReadComputerSystem)
      .Commit();
}

}  // namespace linux_machine
