#include "providers/linux/LiveClass.h"
#include "providers/linux/MemoryModules.h"

namespace linux_machine {

void DefinePhysicalMemoryArray(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TMemoryArray;
  TLiveClass<Row>(ns, "QORSG_PhysicalMemoryArray", &ReadMemoryArrays)
      .Key("Tag", &Row::fTag)
      .Set("Location", &Row::fLocation)
      .Set("Use", &Row::fUse)
      .Set("MemoryErrorCorrection", &Row::fErrorCorrection)
      .Set("MaxCapacity", &Row::fMaxCapacity)
      .Set("MemoryDevices", &Row::fSlots)
      .Commit();
}

}  // namespace linux_machine
