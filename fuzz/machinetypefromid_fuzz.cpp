// The machine type by the BIOS identifier, from any table and from any answer to a read.

#include <algorithm>
#include <cctype>
#include <map>

#include "ExpectedBuild.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

const std::map<std::string, std::string> kTypes = {
    {"a3", "7141"}, {"a8", "3837"}, {"ay", "7164"}, {"d6", "4199"}, {"g0", "7145"}, {"gu", "4367"},
    {"gy", "7327"}, {"hi", "7872"}, {"hs", "7376"}, {"j2", "4253"}, {"k3", "4192"}, {"ko", "8722"},
    {"m9", "4190"}, {"ml", "7148"}, {"p9", "1936"}, {"tm", "7321"}, {"vv", "7915"}, {"y4", "7836"}};

TOutcome Expected() {
  const TOutcome type = Run(&TOSSpecific::GetMachineType);
  std::string code = ExpectedBuild(ExpectedVersion().value_or(std::string())).substr(0, 2);
  std::transform(code.begin(), code.end(), code.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  const auto known = kTypes.find(code);
  return type.fIsError || known == kTypes.end() ? type : Result(known->second);
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return Seeds();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ServeTable(data, size);
  Require(Run(&TOSSpecific::GetMachineTypeFromID) == Expected());
  ServeAnswer(data, size);
  const TOutcome outcome = Run(&TOSSpecific::GetMachineTypeFromID);
  Require(outcome.fIsError || outcome.fText.size() <= 4);
  return 0;
}
