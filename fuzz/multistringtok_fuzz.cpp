// The strings of a table out of any bytes, of any size, with any separator.

#include "FuzzedFirmware.h"
#include "hwxcore/os/TOSSpecific.h"

namespace {

using namespace fuzz;
using NQORHWX20::TOSSpecific;

void Check(const Bytes& bytes, char separator) {
  std::vector<char> text(bytes.begin(), bytes.end());
  const std::vector<std::string> strings =
      TOSSpecific::multiStringTok(text.data(), text.size(), separator);
  // Put together again, they are the bytes' beginning, and behind it no string ends in time.
  std::string together;
  char end = separator;
  for (const std::string& string : strings) {
    Require(string.find(end) == std::string::npos);
    together += string;
    together += end;
    end = '\0';
  }
  const std::string whole(text.begin(), text.end());
  Require(whole.compare(0, together.size(), together) == 0);
  Require(together.empty() || together.size() + 2 <= whole.size());
  const std::size_t next = whole.find(end, together.size());
  Require(next == std::string::npos || next + 2 >= whole.size());
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return Seeds();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Bytes bytes(data, data + size);
  Check(bytes, '\0');
  if (size != 0) Check(bytes, static_cast<char>(data[size / 2]));
  return 0;
}
