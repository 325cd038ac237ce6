// The provider "plugin": this machine as it is now. It enters itself in the registry when the
// module is loaded.

#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxkit/TProviderRegistration.h"
#include "providers/linux/Classes.h"
#include "providers/linux/Schema.h"

namespace linux_machine {

namespace {

boost::shared_ptr<NQORHWX20::ICIMNamespace> BuildNamespace() {
  const boost::shared_ptr<NQORHWX20::TMemoryNamespace> ns = NQORHWX20::TMemoryNamespace::Create(
      "root/machine", NQORHWX20::TCIMSchemaHelper::kPluginNSPName);
  hwxsys::SystemRoot();  // throws at once if HWX_SYSROOT names no directory
  PublishSchema(ns);
  DefineComputerSystem(ns);
  DefineOperatingSystem(ns);
  DefineProduct(ns);
  DefineScsiDevice(ns);
  DefineBIOSElement(ns);
  DefineChassis(ns);
  DefineCard(ns);
  DefineProcessor(ns);
  DefineMemory(ns);
  DefinePhysicalMemory(ns);
  DefinePhysicalMemoryArray(ns);
  DefineEthernetPort(ns);
  DefineDiskDrive(ns);
  DefineDiskPartition(ns);
  DefineFileSystem(ns);
  DefinePCIDevice(ns);
  DefineUSBDevice(ns);
  DefineProcessorParts(ns);
  DefineCacheMemory(ns);
  DefineMediumExtent(ns);
  DefineSlot(ns);
  DefinePowerSupply(ns);
  DefineBattery(ns);
  DefineFan(ns);
  DefineNumericSensor(ns);
  DefineSystemLinks(ns);
  DefinePhysicalLinks(ns);
  DefineStorageLinks(ns);
  DefineProcessorLinks(ns);
  DefineClassStatus(ns);
  return ns;
}

const NQORHWX20::TProviderRegistration kRegistration(NQORHWX20::TCIMSchemaHelper::kPluginNSPName,
                                                     &BuildNamespace);

}  // namespace

}  // namespace linux_machine
