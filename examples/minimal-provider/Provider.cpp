// The provider "minimal": the network interfaces of this machine.

#include <hwxkit/hwxkit.h>

#include "NetworkInterfaces.h"

using namespace NQORHWX20;

namespace {

// Called for each enumeration, so that every one sees the machine as it is.
void ListInterfaces(TInstanceList& list) {
  for (const TNetworkInterface& read : ReadNetworkInterfaces()) {
    TMemoryInstance& instance = list.Add();  // all properties null but those with a default value
    instance.Set("DeviceID", read.fName);
    if (read.fAddress) instance.Set("Address", *read.fAddress);
    if (read.fMTU) instance.Set("MTU", *read.fMTU);
  }
}

boost::shared_ptr<ICIMNamespace> BuildNamespace() {
  const auto ns = TMemoryNamespace::Create("root/minimal", "minimal");
  TClassBuilder(ns, "EX_Device")
      .Abstract()
      .Description("A device of this machine.")
      .Key("DeviceID", "string", "The kernel's name of the device.")
      .Commit();
  TClassBuilder(ns, "EX_NetworkInterface", "EX_Device")
      .Description("A network interface, physical or not.")
      .Property("Address", "string", "Its address in the link layer.")
      .Property("MTU", "uint32", "The longest packet that it takes.")
      .Qualifier("Units", "Bytes")
      .Source(&ListInterfaces)
      .Commit();
  return ns;
}

// Enters the provider in the registry when the module is loaded.
const TProviderRegistration kRegistration("minimal", &BuildNamespace);

}  // namespace
