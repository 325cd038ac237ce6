#include "providers/linux/LiveClass.h"
#include "providers/linux/NetworkPorts.h"

namespace linux_machine {

void DefineEthernetPort(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TNetworkPort;
  TLiveClass<Row>(ns, "CIM_EthernetPort", &ReadNetworkPorts)
      .Key("DeviceID", &Row::fDeviceID)
      .Set("PermanentAddress", &Row::fPermanentAddress)
      .Set("NetworkAddresses", &Row::fAddresses)
      .Set("LinkTechnology", &Row::fLinkTechnology)
      .Set("Speed", &Row::fSpeed)
      .Set("FullDuplex", &Row::fFullDuplex)
      .Set("ActiveMaximumTransmissionUnit", &Row::fMTU)
      .Set("EnabledState", &Row::fEnabledState)
      .Set("OperationalStatus", &Row::fOperationalStatus)
      .Commit();
}

}  // namespace linux_machine
