#include "hwx/firmware/FirmwareQueries.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "hwx/firmware/FirmwareTables.h"
#include "hwx/text/Words.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/os/detail/BiosBuilds.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// Where the numbers of the strings stand.
constexpr std::size_t kBiosVersionField = 5;
constexpr std::size_t kProductNameField = 5;
constexpr std::size_t kSerialNumberField = 7;

// A string of the first structure of a type, or why there is none.
TAnswer<std::string> StringAt(const smbios::TTables& tables, int type, std::size_t field,
                              const std::string& noun) {
  const auto structure = tables.FindFirst(type);
  if (!structure && !tables.IsSound()) return Missing<std::string>(WhyUnsound(tables));
  if (!structure) {
    return Missing<std::string>("the firmware tables have no structure of type " +
                                std::to_string(type));
  }
  const std::string text(structure->StringAt(field));
  if (IsBlank(text)) return Missing<std::string>("the firmware tables hold no " + noun);
  return {text, {}};
}

// The library's answer, which it takes from `text`; or why it gives its default.
template <typename Query>
TAnswer<std::string> Ask(const TAnswer<std::string>& text, const std::string& whenAbsent,
                         const std::string& defaultAnswer, Query query) {
  if (!text.fValue) return text;
  const std::string quoted = whenAbsent + " in \"" + *text.fValue + "\"";
  try {
    const std::string answer = query();
    if (answer == defaultAnswer || IsBlank(answer)) return Missing<std::string>(quoted);
    return {answer, {}};
  } catch (const std::out_of_range&) {
    return Missing<std::string>(quoted + ", which breaks off behind its dash");
  }
}

TAnswer<std::string> TypeByTable(const TAnswer<std::string>& biosID) {
  if (!biosID.fValue) return biosID;
  const auto type = detail::MachineTypeOfBuild(Lower(*biosID.fValue));
  if (type) return {type, {}};
  return Missing<std::string>("no machine type is known for \"" + *biosID.fValue + "\"");
}

TAnswer<std::string> AskMachineTypeFromID() {
  try {
    const std::string type = TOSSpecific::GetMachineTypeFromID();
    if (type != "0000") return {type, {}};
    return Missing<std::string>("neither the BIOS identifier nor the product name tells one");
  } catch (const std::out_of_range&) {
    return Missing<std::string>("the product name breaks off behind its dash");
  }
}

TBiosIdentity NoBios(const TAnswer<std::string>& reason) {
  return {reason, reason, reason};
}

TSystemIdentity NoSystem(const TAnswer<std::string>& reason) {
  return {reason, reason, reason, reason};
}

}  // namespace

TBiosIdentity AskBios() {
  const smbios::TTables tables = ReadFirmware();
  if (!tables.IsReadable()) return NoBios(Missing<std::string>(WhyUnsound(tables)));
  const TFirmwareForLibrary firmware(tables);
  const auto version =
      StringAt(tables, smbios::kTypeBiosInformation, kBiosVersionField, "BIOS version");
  TBiosIdentity identity;
  identity.fBiosID = Ask(version, "no BIOS identifier", "00", &TOSSpecific::GetBiosID);
  identity.fTypeByTable = TypeByTable(identity.fBiosID);
  identity.fMachineTypeFromID = AskMachineTypeFromID();
  return identity;
}

TSystemIdentity AskSystem() {
  const smbios::TTables tables = ReadFirmware();
  if (!tables.IsReadable()) return NoSystem(Missing<std::string>(WhyUnsound(tables)));
  const TFirmwareForLibrary firmware(tables);
  const auto text = [&](std::size_t field, const std::string& noun) {
    return StringAt(tables, smbios::kTypeSystemInformation, field, noun);
  };
  TSystemIdentity identity;
  identity.fProductName = text(kProductNameField, "product name");
  identity.fSerialNumber = text(kSerialNumberField, "serial number");
  identity.fMachineType =
      Ask(identity.fProductName, "no machine type", "0000", &TOSSpecific::GetMachineType);
  identity.fModel =
      Ask(identity.fProductName, "no model", "Unknown", &TOSSpecific::GetMachineModel);
  return identity;
}

}  // namespace hwx
