#include "hwx/identity/IdentityReport.h"

#include "hwx/text/Table.h"

namespace hwx {

namespace {

std::string Text(const TAnswer<std::string>& answer) {
  if (!answer.fValue) return "(" + answer.fReason + ")";
  return answer.fIsGuess ? *answer.fValue + " (a guess)" : *answer.fValue;
}

std::string TypeText(const TIdentity& identity) {
  const auto& number = identity.fOperatingSystemType;
  const auto& name = identity.fOperatingSystemTypeName;
  if (!number.fValue) return "(" + number.fReason + ")";
  return std::to_string(*number.fValue) + " (" + name.fValue.value_or(name.fReason) + ")";
}

}  // namespace

std::string IdentityText(const TIdentity& identity) {
  return AlignedTable({
      {"Machine type", Text(identity.fMachineType)},
      {"Model", Text(identity.fModel)},
      {"Product name", Text(identity.fProductName)},
      {"Serial number", Text(identity.fSerialNumber)},
      {"BIOS identifier", Text(identity.fBiosID)},
      {"Machine type by BIOS", Text(identity.fMachineTypeByBios)},
      {"System name", Text(identity.fSystemName)},
      {"Operating system", Text(identity.fOperatingSystemName)},
      {"Operating system version", Text(identity.fOperatingSystemVersion)},
      {"Operating system type", TypeText(identity)},
      {"Xen domain", Text(identity.fXenDomain)},
      {"Data source version", Text(identity.fDataSourceVersion)},
      {"Data source build", Text(identity.fDataSourceBuild)},
  });
}

TJson IdentityObject(const TIdentity& identity) {
  return {
      {"machineType", Json(identity.fMachineType)},
      {"model", Json(identity.fModel)},
      {"productName", Json(identity.fProductName)},
      {"serialNumber", Json(identity.fSerialNumber)},
      {"biosIdentifier", Json(identity.fBiosID)},
      {"machineTypeByBios", Json(identity.fMachineTypeByBios)},
      {"systemName", Json(identity.fSystemName)},
      {"operatingSystemName", Json(identity.fOperatingSystemName)},
      {"operatingSystemVersion", Json(identity.fOperatingSystemVersion)},
      {"operatingSystemType", Json(identity.fOperatingSystemType)},
      {"operatingSystemTypeName", Json(identity.fOperatingSystemTypeName)},
      {"xenDomain", Json(identity.fXenDomain)},
      {"dataSourceVersion", Json(identity.fDataSourceVersion)},
      {"dataSourceBuild", Json(identity.fDataSourceBuild)},
  };
}

std::string IdentityJson(const TIdentity& identity) {
  return JsonText(IdentityObject(identity));
}

}  // namespace hwx
