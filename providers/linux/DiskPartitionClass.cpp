#include "providers/linux/BlockDevices.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

const TValueMap kAccesses = {{0, "Unknown"},
                             {1, "Readable"},
                             {2, "Writeable"},
                             {3, "Read/Write Supported"},
                             {4, "Write Once"}};

}  // namespace

void DefineDiskPartition(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TPartition;
  TLiveClass<Row>(ns, "CIM_DiskPartition", "A part of a disk.", &ReadPartitions)
      .Key("DeviceID", &Row::fDeviceID, "Path of the block device.")
      .Property("ElementName", &Row::fLabel, "The partition's name in the partition table.")
      .Property(
          "BlockSize", [](const Row&) { return kSectorSize; },
          "The size of the blocks that are counted.")
      .Units("Bytes")
      .Property("NumberOfBlocks", &Row::fBlocks, "What the partition holds, in such blocks.")
      .Property("StartingAddress", &Row::fStart, "Where on the disk the partition begins.")
      .Units("Bytes")
      .Property("Access", &Row::fAccess, "Whether the kernel lets it be written.")
      .Values(kAccesses)
      .Commit();
}

}  // namespace linux_machine
