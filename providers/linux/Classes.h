// The classes that the provider publishes. Each function defines one in a namespace, together with
// where its instances come from: the machine, read anew for every enumeration.
// Thread-safety: none, as the kit has none.

#ifndef PROVIDERS_LINUX_CLASSES_H
#define PROVIDERS_LINUX_CLASSES_H

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>

#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxsys/SystemRoot.h"

namespace linux_machine {

void DefineComputerSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineOperatingSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineProduct(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineScsiDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineBIOSElement(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineCard(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineChassis(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineDiskDrive(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineDiskPartition(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineEthernetPort(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineFileSystem(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefinePCIDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefinePhysicalMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefinePhysicalMemoryArray(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineProcessor(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineUSBDevice(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineBattery(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineCacheMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineFan(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineMediumExtent(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineNumericSensor(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefinePowerSupply(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineProcessorParts(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineSlot(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefinePhysicalLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineProcessorLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineStorageLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineSystemLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);
void DefineClassStatus(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns);

/// Sets a property, or leaves it the typed null that it is from the start.
template <typename Value>
void SetKnown(NQORHWX20::TMemoryInstance& instance, const char* name,
              const std::optional<Value>& value) {
  if (value) {
    instance.Set(name, *value);
  }
}

}  // namespace linux_machine

#endif  // PROVIDERS_LINUX_CLASSES_H
