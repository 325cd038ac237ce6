#include "providers/linux/LiveClass.h"
#include "providers/linux/NetworkPorts.h"

namespace linux_machine {

namespace {

const TValueMap kLinkTechnologies = {
    {0, "Unknown"},     {1, "Other"},    {2, "Ethernet"},   {3, "IB"},
    {4, "FC"},          {5, "FDDI"},     {6, "ATM"},        {7, "Token Ring"},
    {8, "Frame Relay"}, {9, "Infrared"}, {10, "BlueTooth"}, {11, "Wireless LAN"},
};

const TValueMap kEnabledStates = {
    {0, "Unknown"},
    {1, "Other"},
    {2, "Enabled"},
    {3, "Disabled"},
    {4, "Shutting Down"},
    {5, "Not Applicable"},
    {6, "Enabled but Offline"},
    {7, "In Test"},
    {8, "Deferred"},
    {9, "Quiesce"},
    {10, "Starting"},
};

const TValueMap kOperationalStatuses = {
    {0, "Unknown"},
    {1, "Other"},
    {2, "OK"},
    {3, "Degraded"},
    {4, "Stressed"},
    {5, "Predictive Failure"},
    {6, "Error"},
    {7, "Non-Recoverable Error"},
    {8, "Starting"},
    {9, "Stopping"},
    {10, "Stopped"},
    {11, "In Service"},
    {12, "No Contact"},
    {13, "Lost Communication"},
    {14, "Aborted"},
    {15, "Dormant"},
    {16, "Supporting Entity in Error"},
    {17, "Completed"},
    {18, "Power Mode"},
};

}  // namespace

void DefineEthernetPort(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TNetworkPort;
  TLiveClass<Row>(ns, "CIM_EthernetPort",
                  "A network port that speaks Ethernet, also a wireless or a virtual one.",
                  &ReadNetworkPorts)
      .Key("DeviceID", &Row::fDeviceID, "The kernel's name of the port.")
      .Property("PermanentAddress", &Row::fPermanentAddress,
                "The hardware address that the port came with, as twelve digits.")
      .Property("NetworkAddresses", &Row::fAddresses, "The hardware address that it uses.")
      .Property("LinkTechnology", &Row::fLinkTechnology, "The kind of network.")
      .Values(kLinkTechnologies)
      .Property("Speed", &Row::fSpeed, "The speed of the link; null without a link.")
      .Units("Bits per Second")
      .Property("FullDuplex", &Row::fFullDuplex, "Whether both ends may send at once.")
      .Property("ActiveMaximumTransmissionUnit", &Row::fMTU, "The longest frame's contents.")
      .Units("Bytes")
      .Property("EnabledState", &Row::fEnabledState,
                "Whether the port is switched on and, if so, has a link.")
      .Values(kEnabledStates)
      .Property("OperationalStatus", &Row::fOperationalStatus, "Whether it carries traffic.")
      .Values(kOperationalStatuses)
      .Commit();
}

}  // namespace linux_machine
