#include "providers/linux/Enclosures.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineCard(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TBoard;
  TLiveClass<Row>(ns, "CIM_Card", &ReadBoards)
      .Key("Tag", &Row::fTag)
      .Set("ElementName", &Row::fLocation)
      .Set("Manufacturer", &Row::fManufacturer)
      .Set("Model", &Row::fModel)
      .Set("Version", &Row::fVersion)
      .Set("SerialNumber", &Row::fSerialNumber)
      .Set("OtherIdentifyingInfo", &Row::fAssetTag)
      .Set("HostingBoard", &Row::fHosting)
      .Set("RequiresDaughterBoard", &Row::fRequiresDaughterBoard)
      .Set("RemovalConditions", &RemovalConditions)
      .Set("CanBeFRUed", &Row::fReplaceable)
      .Commit();
}

}  // namespace linux_machine
