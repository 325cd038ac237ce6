#include "providers/linux/LiveClass.h"
#include "providers/linux/MemoryModules.h"

namespace linux_machine {

void DefineMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TSystemMemory;
  TLiveClass<Row>(ns, "CIM_Memory", &ReadSystemMemory)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("BlockSize", &Row::fBlockSize)
      .Set("NumberOfBlocks", &Row::fBlocks)
      .SetAll("Volatile", true)
      .Commit();
}

}  // namespace linux_machine
