#include "providers/linux/LiveClass.h"
#include "providers/linux/MemoryModules.h"

namespace linux_machine {

void DefineMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TSystemMemory;
  TLiveClass<Row>(ns, "CIM_Memory", "The memory that the kernel has taken into use.",
                  &ReadSystemMemory)
      .Key("DeviceID", &Row::fDeviceID, "\"System Memory\".")
      .Property("BlockSize", &Row::fBlockSize, "The size of the blocks that the kernel manages.")
      .Units("Bytes")
      .Property("NumberOfBlocks", &Row::fBlocks, "Blocks in use.")
      .Property(
          "Volatile", [](const Row&) { return true; }, "Whether it forgets without power.")
      .Commit();
}

}  // namespace linux_machine
