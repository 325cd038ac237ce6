#include "providers/linux/BlockDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineDiskPartition(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TPartition;
  TLiveClass<Row>(ns, "QORSG_DiskPartition", &ReadPartitions)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("ElementName", &Row::fLabel)
      .SetAll("BlockSize", kSectorSize)
      .Set("NumberOfBlocks", &Row::fBlocks)
      .Set("StartingAddress", &Row::fStart)
      .Set("Access", &Row::fAccess)
      .SetAll("Primordial", false)
      .Commit();
}

}  // namespace linux_machine
