#include "providers/linux/Caches.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

namespace {

constexpr std::uint64_t kByte = 1;

}  // namespace

void DefineCacheMemory(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TCache;
  TLiveClass<Row>(ns, "CIM_CacheMemory", &ReadCaches)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("ElementName", &Row::fName)
      .SetAll("BlockSize", kByte)
      .Set("NumberOfBlocks", &Row::fSize)
      .SetAll("Volatile", true)
      .Commit();
}

}  // namespace linux_machine
