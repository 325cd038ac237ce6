// The text within brackets, of any text.

#include "FuzzedFirmware.h"
#include "hwxcore/os/TOSSpecific.h"

using namespace fuzz;

std::vector<Bytes> FuzzSeeds() {
  std::vector<Bytes> seeds = Seeds();
  for (const std::string text : {"-[EXE105A-1.05]-", "a]b[c]d[e", "[]", "plain"})
    seeds.emplace_back(text.begin(), text.end());
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string before(data, data + size);
  std::string text = before;
  Require(NQORHWX20::TOSSpecific::removeNonAlpaNumeric(text) == 1);
  const std::size_t opening = before.find('[');
  const std::size_t start = opening == std::string::npos ? 0 : opening + 1;
  const std::size_t closing = before.find(']', start);
  const std::size_t end = closing == std::string::npos ? size : closing;
  Require(text == before.substr(start, end - start));
  return 0;
}
