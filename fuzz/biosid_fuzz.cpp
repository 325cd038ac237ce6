// The BIOS identifier, from any table and from any answer to a read.

#include "ExpectedBuild.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

TOutcome Expected() {
  const std::string version = ExpectedVersion().value_or(std::string());
  if (version.size() < 2) return Result("00");
  const std::string build = ExpectedBuild(version);
  return build.size() < 2 ? Error("basic_string::erase") : Result(build.substr(0, 2));
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return Seeds();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ServeTable(data, size);
  Require(Run(&TOSSpecific::GetBiosID) == Expected());
  ServeAnswer(data, size);
  const TOutcome outcome = Run(&TOSSpecific::GetBiosID);
  Require(outcome.fIsError || outcome.fText.size() == 2);
  return 0;
}
