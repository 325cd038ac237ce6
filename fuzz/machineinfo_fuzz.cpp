// The fields of the system's structure, from any table and from any answer to a read.

#include "FuzzedFirmware.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

struct TInfo {
  std::string fType = "0000";
  std::string fName = "Unknown";
  std::string fModel = "Unknown";
  std::string fSerialNumber = "Unknown";
  std::string fError = {};  // in place of all of them
};

TInfo Failed(const std::string& error) {
  TInfo info;
  info.fError = error;
  return info;
}

TInfo Expected() {
  TInfo info;
  const auto system = Served(smbios::kTypeSystemInformation);
  if (!system || system->Size() + (system->HasStrings() ? 1 : 0) > 1024) return info;
  const auto name = StringOf(*system, CopiedByte(*system, 5));
  if (!name) return info;
  const std::size_t dash = name->find('-');
  if (dash != std::string::npos) {
    if (dash + 6 > name->size()) return Failed("basic_string::substr");
    info.fName = name->substr(0, dash);
    info.fType = name->substr(dash + 2, 4);
    info.fModel = name->substr(dash + 6, 3);
  } else if (name->size() == 7) {
    info.fType = name->substr(0, 4);
  }
  const std::size_t number = CopiedByte(*system, 7);
  if (number == 0) return info;
  const auto serialNumber = StringOf(*system, number);
  if (!serialNumber) return Failed("vector::_M_range_check");
  info.fSerialNumber = *serialNumber;
  return info;
}

TOutcome Ask(const std::string& field) {
  return Run([&] { return TOSSpecific::GetMachineInfo(field); });
}

void CheckField(const std::string& field, const std::string& text, const std::string& error) {
  Require(Ask(field) == (error.empty() ? Result(text) : Error(error)));
}

void CheckTable() {
  const TInfo info = Expected();
  CheckField("type", info.fType, info.fError);
  CheckField("name", info.fName, info.fError);
  CheckField("model", info.fModel, info.fError);
  CheckField("SN", info.fSerialNumber, info.fError);
  CheckField("", "error param of GetMachineInfo", info.fError);
  Require(Run(&TOSSpecific::GetMachineSN) == Ask("SN"));
  Require(Run(&TOSSpecific::GetMachineModel) == Ask("model"));
  Require(Run(&TOSSpecific::GetMachineName) == Ask("name"));
  Require(Run(&TOSSpecific::GetOperatingSystemName) == Ask("name"));
}

void CheckAnswer() {
  const bool fails = Ask("type").fIsError;
  for (const char* field : {"name", "model", "SN"})
    Require(Ask(field).fIsError == fails);
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return Seeds();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ServeTable(data, size);
  CheckTable();
  ServeAnswer(data, size);
  CheckAnswer();
  return 0;
}
