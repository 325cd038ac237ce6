// The copy of a numbered string out of any bytes.

#include <algorithm>

#include "FuzzedFirmware.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

// The strings that a NUL ends.
std::vector<std::string> EndedStrings(const std::string& text) {
  std::vector<std::string> strings;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find('\0', start)) != std::string::npos; start = end + 1)
    strings.push_back(text.substr(start, end - start));
  return strings;
}

void Check(const std::string& text, int index) {
  const std::vector<std::string> strings = EndedStrings(text);
  std::vector<char> source(text.begin(), text.end());
  std::vector<char> destination(text.size(), '#');
  const int found = TOSSpecific::getBIDString(source.data(), destination.data(),
                                              static_cast<int>(text.size()), index);
  const bool isThere = index > 0 && static_cast<std::size_t>(index) <= strings.size();
  Require(found == (isThere ? 1 : 0));
  std::string expected;
  if (isThere) expected = strings[static_cast<std::size_t>(index) - 1];
  if (isThere && index > 1) expected.push_back('\0');
  expected.resize(text.size(), '#');
  Require(std::equal(expected.begin(), expected.end(), destination.begin(), destination.end()));
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  const std::string texts[] = {std::string("Maker\0[AB12-1.05]\0date\0\0", 24),
                               std::string(3, '\0'), "no end"};
  std::vector<Bytes> seeds = Seeds();
  for (const std::string& text : texts)
    seeds.emplace_back(text.begin(), text.end());
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const int any = size == 0 ? 0 : static_cast<signed char>(data[size - 1]);
  for (const int index : {any, 0, 1, 2, 3})
    Check(text, index);
  return 0;
}
