#include "providers/linux/Enclosures.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineCard(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TBoard;
  TLiveClass<Row>(ns, "CIM_Card", "A board, such as the main one.", &ReadBoards)
      .Key("Tag", &Row::fTag, "\"Card\" and the number of the board, from 0.")
      .Property("ElementName", &Row::fLocation, "Where in the chassis it is.")
      .Property("Manufacturer", &Row::fManufacturer, "The maker of the board.")
      .Property("Model", &Row::fModel, "What the maker calls the board.")
      .Property("Version", &Row::fVersion, "The maker's version of the board.")
      .Property("SerialNumber", &Row::fSerialNumber, "The maker's number of this board.")
      .Property("OtherIdentifyingInfo", &Row::fAssetTag, "The owner's number of the board.")
      .Property("HostingBoard", &Row::fHosting, "Whether it carries other boards.")
      .Property("RequiresDaughterBoard", &Row::fRequiresDaughterBoard,
                "Whether it works with another board only.")
      .Property("Removable", &Row::fRemovable, "Whether it can be taken out.")
      .Property("Replaceable", &Row::fReplaceable, "Whether another can take its place.")
      .Property("HotSwappable", &Row::fHotSwappable, "Whether that can be done while it runs.")
      .Commit();
}

}  // namespace linux_machine
