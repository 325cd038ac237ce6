#include "hwx/firmware/FirmwareQueries.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "hwx/firmware/FirmwareTables.h"
#include "hwx/identity/TypeForms.h"
#include "hwx/text/Words.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxidentity/BiosBuilds.h"

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

TAnswer<std::string> ProductName(const smbios::TTables& tables) {
  return StringAt(tables, smbios::kTypeSystemInformation, kProductNameField, "product name");
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

TAnswer<std::string> TypeByTable(const TAnswer<std::string>& biosID,
                                 const TAnswer<std::string>& version) {
  if (!biosID.fValue) return biosID;
  const auto type = hwxidentity::MachineTypeOfBuild(Lower(*biosID.fValue));
  if (type) return TypeOfVersion(*type, *version.fValue);
  return Missing<std::string>("no machine type is known for \"" + *biosID.fValue + "\"");
}

TAnswer<std::string> AskMachineTypeFromID(const TAnswer<std::string>& typeByTable,
                                          const TAnswer<std::string>& productName) {
  try {
    const std::string type = TOSSpecific::GetMachineTypeFromID();
    if (typeByTable.fValue == type) return typeByTable;
    if (type != "0000") return TypeBehindDash(type, productName.fValue.value_or(""));
    return Missing<std::string>("neither the BIOS identifier nor the product name tells one");
  } catch (const std::out_of_range&) {
    return Missing<std::string>("the product name breaks off behind its dash");
  }
}

// What the library read, judged by the text that it was read out of.
TAnswer<std::string> JudgedBy(TAnswer<std::string> answer, const TAnswer<std::string>& text,
                              TAnswer<std::string> (*judge)(const std::string&,
                                                            const std::string&)) {
  return answer.fValue ? judge(*answer.fValue, *text.fValue) : answer;
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
  identity.fTypeByTable = TypeByTable(identity.fBiosID, version);
  const auto productName = ProductName(tables);
  identity.fMachineTypeFromID = AskMachineTypeFromID(identity.fTypeByTable, productName);
  return identity;
}

TSystemIdentity AskSystem() {
  const smbios::TTables tables = ReadFirmware();
  if (!tables.IsReadable()) return NoSystem(Missing<std::string>(WhyUnsound(tables)));
  const TFirmwareForLibrary firmware(tables);
  TSystemIdentity identity;
  const auto& name = identity.fProductName = ProductName(tables);
  identity.fSerialNumber =
      StringAt(tables, smbios::kTypeSystemInformation, kSerialNumberField, "serial number");
  const auto type = Ask(name, "no machine type", "0000", &TOSSpecific::GetMachineType);
  identity.fMachineType = JudgedBy(type, name, &TypeBehindDash);
  const auto model = Ask(name, "no model", "Unknown", &TOSSpecific::GetMachineModel);
  identity.fModel = JudgedBy(model, name, &ModelBehindDash);
  return identity;
}

}  // namespace hwx
