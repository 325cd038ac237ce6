#ifndef HWX_IDENTITY_IDENTITY_H
#define HWX_IDENTITY_IDENTITY_H

#include <string>

#include "hwx/identity/Reasons.h"
#include "hwx/inventory/Namespace.h"
#include "hwx/text/Answer.h"

namespace hwx {

/// Who a machine is. A text that is blank counts as missing, and so do product names and serial
/// numbers that are filler.
///
/// Thread-safety: a plain value.
struct TIdentity {
  TAnswer<std::string> fMachineType;  ///< Four characters.
  TAnswer<std::string> fModel;        ///< Three characters; blanks among them are kept.
  TAnswer<std::string> fProductName;
  TAnswer<std::string> fSerialNumber;
  TAnswer<std::string> fBiosID;             ///< Two characters, in the case that the firmware gave.
  TAnswer<std::string> fMachineTypeByBios;  ///< Four characters.
  TAnswer<std::string> fSystemName;
  TAnswer<std::string> fOperatingSystemName;
  TAnswer<std::string> fOperatingSystemVersion;
  TAnswer<unsigned short> fOperatingSystemType;  ///< The CIM number.
  TAnswer<std::string> fOperatingSystemTypeName;
  TAnswer<std::string> fXenDomain;  ///< "control", "guest", or "none" where there is no Xen.
  TAnswer<std::string> fDataSourceVersion;
  TAnswer<std::string> fDataSourceBuild;
};

/// Asks a namespace, by the library's queries, who its machine is, its firmware what the type 0
/// structure tells, and this system in which domain it runs. Failures become reasons.
/// Thread-safety: that of the namespace, and of the environment, which no thread may use meanwhile.
TIdentity AskIdentity(const NamespacePtr& machine);

}  // namespace hwx

#endif  // HWX_IDENTITY_IDENTITY_H
