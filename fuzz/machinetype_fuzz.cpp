// The machine type in the product name, from any table and from any answer to a read.

#include "FuzzedFirmware.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

// The product name, as it is read into 1024 bytes, one NUL more than the structure has included.
std::optional<std::string> ProductName() {
  const auto system = Served(smbios::kTypeSystemInformation);
  if (!system || system->Size() + (system->HasStrings() ? 1 : 0) > 1024) return std::nullopt;
  return StringOf(*system, CopiedByte(*system, 5));
}

TOutcome Expected() {
  const auto name = ProductName();
  if (!name) return Result("0000");
  const std::size_t dash = name->find('-');
  if (dash == std::string::npos) return Result(name->size() == 7 ? name->substr(0, 4) : "0000");
  if (dash + 1 == name->size()) return Error("basic_string::substr");
  return Result(name->substr(dash + 2, 4));
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return Seeds();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ServeTable(data, size);
  Require(Run(&TOSSpecific::GetMachineType) == Expected());
  ServeAnswer(data, size);
  const TOutcome outcome = Run(&TOSSpecific::GetMachineType);
  Require(outcome.fIsError || outcome.fText.size() <= 4);
  return 0;
}
