#include "providers/linux/LiveClass.h"
#include "providers/linux/Slots.h"

namespace linux_machine {

void DefineSlot(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TSlot;
  TLiveClass<Row>(ns, "QORSG_Slot", &ReadSlots)
      .Key("Tag", &Row::fTag)
      .Set("ElementName", &Row::fName)
      .Set("Number", &Row::fNumber)
      .Set("MaxDataWidth", &Row::fDataWidth)
      .Set("MaxLinkWidth", &Row::fLinkWidth)
      .Set("VccMixedVoltageSupport", &Row::fVoltages)
      .Set("SupportsHotPlug", &Row::fHotPlug)
      .Set("CurrentUsage", &Row::fUsage)
      .Set("BusAddress", &Row::fBusAddress)
      .Commit();
}

}  // namespace linux_machine
