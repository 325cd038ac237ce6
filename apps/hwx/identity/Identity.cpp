#include "hwx/identity/Identity.h"

#include "hwx/firmware/FirmwareQueries.h"
#include "hwx/identity/TypeForms.h"
#include "hwx/text/StatusWords.h"
#include "hwx/text/Words.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/schema/ClassNames.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxcore/value/THWXException.h"
#include "hwxidentity/SerialNumberCheck.h"
#include "hwxsys/SystemRoot.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

constexpr auto kText = TCIMValue::TCIMType::kCIMTypeString;
constexpr auto kNumber = TCIMValue::TCIMType::kCIMTypeUInt16;

const char kComputer[] = "QORSG_ComputerSystem";
const char kSystem[] = "QORSG_OperatingSystem";

// Class, property, noun, type, whether it comes from the firmware, whether exactly one instance is
// needed.
const TQueriedProperty kProductName = {kComputer, "ProductName", "product name", kText, true, true};
const TQueriedProperty kSerialNumber = {kComputer, "SerialNumber", "serial number",
                                        kText,     true,           true};
const TQueriedProperty kSystemName = {kComputer, "Name", "system name", kText, false, true};
const TQueriedProperty kOSName = {kSystem, "Name", "operating system name", kText, false, true};
const TQueriedProperty kOSVersion = {kSystem, "Version", "operating system version",
                                     kText,   false,     true};
const TQueriedProperty kOSType = {kSystem, "OSType", "operating system type", kNumber, false, true};
const TQueriedProperty kSourceVersion = {
    kProductClassName, "Version", "data source version", kText, false, false};
const TQueriedProperty kSourceBuild = {
    kProductClassName, "Build", "data source build", kText, false, false};

std::string BlankReason(const TQueriedProperty& queried) {
  return std::string("the ") + queried.fNoun + " is blank";
}

std::string ExplainByStatus(const THWXStatusCode& status) {
  return "the provider failed: " + InWords(status);
}

// Why a query failed. If its property can't be read, that is the reason; else `explain` finds one
// from the status.
template <typename Explain>
std::string Why(const NamespacePtr& machine, const TQueriedProperty& queried,
                const THWXStatusCode& status, Explain explain) {
  const auto unreadable = WhyUnreadable(machine, queried);
  if (unreadable) return *unreadable;
  try {
    return explain(status);
  } catch (const THWXException& failure) {
    return ExplainByStatus(failure.GetStatus());
  }
}

template <typename Query, typename Explain>
auto Ask(const NamespacePtr& machine, const TQueriedProperty& queried, Query query, Explain explain)
    -> TAnswer<decltype(query())> {
  using T = decltype(query());
  try {
    return {query(), std::string()};
  } catch (const THWXException& failure) {
    return Missing<T>(Why(machine, queried, failure.GetStatus(), explain));
  } catch (const std::exception& failure) {
    return Missing<T>(std::string("the provider failed: ") + failure.what());
  }
}

TAnswer<std::string> AskText(const NamespacePtr& machine, const TQueriedProperty& queried,
                             std::string (*query)(NamespacePtr)) {
  auto answer = Ask(
      machine, queried, [&] { return query(machine); }, &ExplainByStatus);
  if (!answer.fValue || !IsBlank(*answer.fValue)) return answer;
  return Missing<std::string>(WhyUnreadable(machine, queried).value_or(BlankReason(queried)));
}

// Machine type and model, and the product name that holds them.
struct TTypeAndModel {
  std::string fSeven;
  std::string fProductName;
};

TAnswer<TTypeAndModel> AskMTM(const NamespacePtr& machine) {
  const auto explain = [&](const THWXStatusCode& status) {
    if (status != kHWXStatusInvalidFormat) return ExplainByStatus(status);
    const std::string name = TCIMSchemaHelper::GetRawMTMString(machine);
    if (IsBlank(name)) return BlankReason(kProductName);
    return "product name " + Quoted(name) + " holds no machine type";
  };
  const auto query = [&] {
    return TTypeAndModel{TCIMSchemaHelper::GetMTM(machine),
                         TCIMSchemaHelper::GetRawMTMString(machine)};
  };
  return Ask(machine, kProductName, query, explain);
}

void AskTypeAndModel(const NamespacePtr& machine, TIdentity& identity) {
  const TAnswer<TTypeAndModel> mtm = AskMTM(machine);
  if (!mtm.fValue) {
    identity.fMachineType = identity.fModel = Missing<std::string>(mtm.fReason);
    return;
  }
  const std::string& name = mtm.fValue->fProductName;
  identity.fMachineType = AnswerInName(mtm.fValue->fSeven.substr(0, 4), name);
  const std::string model = mtm.fValue->fSeven.substr(4, 3);
  identity.fModel =
      model == "xxx" || IsBlank(model)
          ? Missing<std::string>("the product name holds a machine type, but no model")
          : AnswerInName(model, name);
}

// Refuses filler by the rule for serial numbers: makers use the same words for both.
TAnswer<std::string> AskProductName(const NamespacePtr& machine) {
  auto answer = AskText(machine, kProductName, &TCIMSchemaHelper::GetSystemProductName);
  if (!answer.fValue || hwxidentity::CheckedSerialNumber(*answer.fValue)) return answer;
  return Missing<std::string>(Quoted(*answer.fValue) + " is a filler, not a product name");
}

TAnswer<std::string> AskSerialNumber(const NamespacePtr& machine) {
  const auto explain = [&](const THWXStatusCode& status) {
    if (status != kHWXStatusNotFound) return ExplainByStatus(status);
    const std::string text = TCIMSchemaHelper::GetRawSerialNumberString(machine, TCIMContext());
    if (IsBlank(text)) return BlankReason(kSerialNumber);
    return Quoted(text) + " is a filler, not a serial number";
  };
  return Ask(
      machine, kSerialNumber,
      [&] { return TCIMSchemaHelper::GetSerialNumber(machine, TCIMContext()); }, explain);
}

// The words of CIM's value map for the systems that this program can meet. Others show as a number.
TAnswer<std::string> OperatingSystemTypeName(const TAnswer<unsigned short>& type) {
  if (!type.fValue) return Missing<std::string>(type.fReason);
  switch (*type.fValue) {
    case 0:
      return {"Unknown", {}};
    case 1:
      return {"Other", {}};
    case 36:
      return {"LINUX", {}};
    default:
      return Missing<std::string>("no name for the number " + std::to_string(*type.fValue));
  }
}

void AskFirmware(TIdentity& identity) {
  const TBiosIdentity bios = AskBios();
  identity.fBiosID = bios.fBiosID;
  identity.fMachineTypeByBios = bios.fMachineTypeFromID;
}

void AskOperatingSystem(const NamespacePtr& machine, TIdentity& identity) {
  identity.fOperatingSystemName =
      AskText(machine, kOSName, &TCIMSchemaHelper::GetOperatingSystemName);
  identity.fOperatingSystemVersion =
      AskText(machine, kOSVersion, &TCIMSchemaHelper::GetOperatingSystemVersion);
  identity.fOperatingSystemType = Ask(
      machine, kOSType, [&] { return TCIMSchemaHelper::GetOperatingSystemType(machine); },
      &ExplainByStatus);
  identity.fOperatingSystemTypeName = OperatingSystemTypeName(identity.fOperatingSystemType);
}

// What the library asks of this machine, asked of the one whose files lie below `root`.
int RunningTypeOnXen(const std::string& root) {
  const std::string file = hwxsys::FollowedInRoot(root + "/proc/xen/capabilities");
  if (!TOSSpecific::FileExists(file)) return 2;
  return TOSSpecific::CaptureFile(file).find("control_d") == std::string::npos ? 1 : 0;
}

TAnswer<std::string> AskXenDomain() {
  static const char* const kDomains[] = {"control", "guest", "none"};
  const std::string root = hwxsys::SystemRoot();
  try {
    const int type = root.empty() ? TOSSpecific::GetRunningTypeOnXen() : RunningTypeOnXen(root);
    return {kDomains[type], std::string()};
  } catch (const THWXException&) {  // one status for all causes
    return Missing<std::string>("/proc/xen/capabilities can't be read");
  }
}

std::string SourceVersion(NamespacePtr machine) {
  return TCIMSchemaHelper::GetDataSourceVersion(machine, TCIMContext());
}

// Empty if there is none, where the other queries throw.
std::string SourceBuild(NamespacePtr machine) {
  return TCIMSchemaHelper::GetDataSourceBuild(machine, TCIMContext());
}

}  // namespace

TIdentity AskIdentity(const NamespacePtr& machine) {
  TIdentity identity;
  AskTypeAndModel(machine, identity);
  identity.fProductName = AskProductName(machine);
  identity.fSerialNumber = AskSerialNumber(machine);
  AskFirmware(identity);
  identity.fSystemName = AskText(machine, kSystemName, &TCIMSchemaHelper::GetSystemName);
  AskOperatingSystem(machine, identity);
  identity.fXenDomain = AskXenDomain();
  identity.fDataSourceVersion = AskText(machine, kSourceVersion, &SourceVersion);
  identity.fDataSourceBuild = AskText(machine, kSourceBuild, &SourceBuild);
  return identity;
}

}  // namespace hwx
