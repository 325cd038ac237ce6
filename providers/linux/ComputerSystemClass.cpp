#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxkit/TInstanceList.h"
#include "hwxsys/SystemRoot.h"
#include "providers/linux/Classes.h"
#include "providers/linux/OperatingSystem.h"
#include "providers/linux/OwnerKeys.h"
#include "providers/linux/SystemInformation.h"

namespace linux_machine {

namespace {

void ReadComputerSystem(NQORHWX20::TInstanceList& instances) {
  const std::string root = hwxsys::SystemRoot();
  const TSystemInformation information = ReadSystemInformation(root);
  NQORHWX20::TMemoryInstance& system = instances.Add();
  TOwnerKeys(*instances.GetClass(), root).Fill(system);
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
  DeclaredClass(*ns, NQORHWX20::TCIMSchemaHelper::kSystemCreationClassName)
      ->SetInstanceSource(&ReadComputerSystem);
}

}  // namespace linux_machine
