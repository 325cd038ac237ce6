// Machine types and models from any product name.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Require.h"
#include "hwxcore/schema/TCIMSchemaHelper.h"
#include "hwxidentity/MachineTypeModel.h"

namespace {

using fuzz::Require;
using Bytes = std::vector<std::uint8_t>;
using NQORHWX20::TCIMSchemaHelper;

// A result is a machine type that stands in the name, and a model that stands behind it or isn't
// known.
void CheckResult(const std::string& productName, const std::string& mtm) {
  Require(mtm.size() == 7);
  Require(TCIMSchemaHelper::IsValidMTM(mtm));
  const bool standsThere = productName.find(mtm) != std::string::npos;
  const bool hasUnknownModel =
      mtm.substr(4) == "xxx" && productName.find(mtm.substr(0, 4)) != std::string::npos;
  Require(standsThere || hasUnknownModel);
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  std::vector<Bytes> seeds;
  for (const std::string name :
       {"QOR eCorvex k3455-[7870A1B]", "QOR eCorvex k225-[7870A1B]", "QOR eCorvex k225-[7870   ]",
        "QOR eCorvex k3500- 7870A1Bx-", "QOR eCorvex k3500- 7870A1B-", "Rack -[7870A1B]-",
        "Rack -[7870]-", "Rack -[7870   ]-", "7870A1B", "7870"}) {
    seeds.emplace_back(name.begin(), name.end());
  }
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string productName(data, data + size);
  if (const auto mtm = hwxidentity::ParseMachineTypeModel(productName)) {
    CheckResult(productName, *mtm);
  }
  return 0;
}
