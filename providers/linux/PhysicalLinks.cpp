#include "providers/linux/Classes.h"
#include "providers/linux/Enclosures.h"
#include "providers/linux/Holders.h"
#include "providers/linux/MemoryModules.h"
#include "providers/linux/ObjectPaths.h"

// What can be touched: which part holds which, and what the parts make up.

namespace linux_machine {

namespace {

TLinks ReadPackages(const std::string& root, EHeldKind kind, const char* holderClass,
                    const char* heldClass) {
  TLinks links;
  for (const THolding& holding : ReadHoldings(root)) {
    if (holding.fKind != kind) {
      continue;
    }
    std::vector<TNamedValue> values;
    if (holding.fPlace) {
      values.emplace_back("LocationWithinContainer", *holding.fPlace);
    }
    links.push_back({Part(holderClass, holding.fHolder), Part(heldClass, holding.fHeld), values});
  }
  return links;
}

TLinks ReadBoardsInChassis(const std::string& root) {
  return ReadPackages(root, EHeldKind::kBoard, "CIM_Chassis", "CIM_Card");
}

TLinks ReadModulesOnBoards(const std::string& root) {
  return ReadPackages(root, EHeldKind::kModule, "CIM_Card", "QORSG_PhysicalMemory");
}

TLinks ReadSlotsOnBoards(const std::string& root) {
  return ReadPackages(root, EHeldKind::kSlot, "CIM_Card", "QORSG_Slot");
}

TLinks ReadRealizedMemory(const std::string& root) {
  TLinks links;
  for (const TSystemMemory& memory : ReadSystemMemory(root)) {
    for (const TMemoryModule& module : ReadMemoryModules(root)) {
      links.push_back(
          {Part("QORSG_PhysicalMemory", module.fTag), Device("CIM_Memory", memory.fDeviceID), {}});
    }
  }
  return links;
}

}  // namespace

void DefinePhysicalLinks(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  DefineLinks(ns, "CIM_PackageInChassis", &ReadBoardsInChassis);
  DefineLinks(ns, "CIM_MemoryOnCard", &ReadModulesOnBoards);
  DefineLinks(ns, "CIM_Container", &ReadSlotsOnBoards);
  DefineLinks(ns, "CIM_Realizes", &ReadRealizedMemory);
}

}  // namespace linux_machine
