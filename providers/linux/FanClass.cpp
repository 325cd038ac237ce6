#include "providers/linux/LiveClass.h"
#include "providers/linux/Sensors.h"

namespace linux_machine {

void DefineFan(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TFan;
  TLiveClass<Row>(ns, "CIM_Fan", &ReadFans)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("ElementName", &Row::fLabel)
      .SetAll("ActiveCooling", true)
      .Set("VariableSpeed", &Row::fIsControlled)
      .Set("DesiredSpeed", &Row::fTarget)
      .Commit();
}

}  // namespace linux_machine
