// A version taken apart, of any text, and with any text for the build.

#include <algorithm>

#include "FuzzedFirmware.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

void Check(const std::string& before) {
  std::string text = before;
  std::string build = before;
  Require(TOSSpecific::breakApartVersion(text, build) == 1);
  if (before.find('-') == std::string::npos) {
    Require(text == before && build == before);
    return;
  }
  Require(build + "-" + text == before);
  const auto dashes = std::count(build.begin(), build.end(), '-');
  Require(dashes == 1 || (dashes == 0 && text.find('-') == std::string::npos));
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  std::vector<Bytes> seeds = Seeds();
  for (const std::string text : {"EXE105A-1.05", "AB-12-1.05", "-1", "-", "--", "plain"})
    seeds.emplace_back(text.begin(), text.end());
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  Check(text);
  std::string front = text.substr(0, size / 2);
  std::string back = text.substr(size / 2);
  Require(TOSSpecific::breakApartVersion(front, back) == 1);
  return 0;
}
