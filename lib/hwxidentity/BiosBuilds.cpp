#include "hwxidentity/BiosBuilds.h"

#include <algorithm>
#include <iterator>

namespace hwxidentity {

namespace {

struct TBuild {
  const char* fCode;
  const char* fMachineType;
};

// In the order in which they are tried.
constexpr TBuild kBuilds[] = {
    {"a3", "7141"}, {"k3", "4192"}, {"gu", "4367"}, {"m9", "4190"}, {"p9", "1936"}, {"d6", "4199"},
    {"y4", "7836"}, {"tm", "7321"}, {"gy", "7327"}, {"g0", "7145"}, {"hi", "7872"}, {"hs", "7376"},
    {"ml", "7148"}, {"j2", "4253"}, {"ay", "7164"}, {"ko", "8722"}, {"vv", "7915"}, {"a8", "3837"},
};

}  // namespace

std::optional<std::string> MachineTypeOfBuild(const std::string& code) {
  const auto occurs = [&](const TBuild& known) {
    return code.find(known.fCode) != std::string::npos;
  };
  const auto place = std::find_if(std::begin(kBuilds), std::end(kBuilds), occurs);
  if (place == std::end(kBuilds)) return std::nullopt;
  return place->fMachineType;
}

}  // namespace hwxidentity
