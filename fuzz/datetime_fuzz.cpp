// Date-times from any text: what is refused, what comes back, and what the operators do with it.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Require.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/THWXException.h"

namespace {

using fuzz::Require;
using namespace NQORHWX20;

/// Whether `call` succeeds; a failure must have the one status.
template <typename Call>
bool Succeeds(Call call) {
  try {
    call();
    return true;
  } catch (const THWXException& failure) {
    Require(failure.GetStatus() == kHWXStatusInvalidDateTime);
    return false;
  }
}

std::string TextOf(const TCIMDateTime& dateTime) {
  return dateTime.IsNull() ? "" : dateTime.ToString();
}

/// The text that a date-time made from `text` prints: the same, but for the days of an interval,
/// which are cut, and the sign of no offset.
std::string Expected(std::string text) {
  if (text[21] == ':') {
    const std::string days = std::to_string(std::stoul(text.substr(0, 8)) % 65536);
    text.replace(0, 8, std::string(8 - days.size(), '0') + days);
  } else if (text.compare(22, 3, "000") == 0) {
    text[21] = '+';
  }
  return text;
}

void CheckText(const std::string& text) {
  TCIMDateTime made;
  const bool valid = Succeeds([&] { made = TCIMDateTime(text); });
  TCIMDateTime set(9, 8, 7, 6, 5);
  const std::string before = set.ToString();
  Require(Succeeds([&] { set.Set(text); }) == valid);
  Require(set.ToString() == (valid ? Expected(text) : before));
  if (!valid) return;
  Require(TextOf(made) == Expected(text));
  Require(TextOf(TCIMDateTime(made.ToString())) == made.ToString());
  made.ToUIString();
}

/// A date-time of any fields, as far as they are valid.
class Fields {
 public:
  Fields(const std::uint8_t* data, std::size_t size) : fData(data), fSize(size) {}

  TCIMDateTime Next() {
    TCIMDateTime result;
    const auto kind = Number<std::uint8_t>();
    const auto day = Number<unsigned int>();
    const auto hour = Number<unsigned short>();
    const auto minute = Number<unsigned short>();
    const auto second = Number<unsigned short>();
    const auto microSeconds = Number<unsigned int>();
    const auto year = Number<unsigned short>();
    const auto month = Number<unsigned short>();
    const auto offset = static_cast<short>(Number<unsigned short>());
    Succeeds([&] {
      if (kind % 4 == 0) {
        result.Set(day, hour % 24, minute % 60, second % 60, microSeconds % 1000000);
      } else if (kind % 4 == 1) {
        result.Set(static_cast<unsigned short>(1900 + year % 200), month % 13, day % 32, hour % 24,
                   minute % 60, second % 60, microSeconds, offset);
      } else {
        result.Set(year, month, day, hour, minute, second, microSeconds, offset);
      }
    });
    return result;
  }

 private:
  template <typename Integer>
  Integer Number() {
    Integer number = 0;
    for (std::size_t i = 0; i != sizeof number; ++i) {
      const std::uint8_t byte = fSize == 0 ? 0 : fData[fPosition++ % fSize];
      number = static_cast<Integer>((static_cast<std::uint64_t>(number) << 8) | byte);
    }
    return number;
  }

  const std::uint8_t* fData;
  std::size_t fSize;
  std::size_t fPosition = 0;
};

void CheckComparisons(const TCIMDateTime& one, const TCIMDateTime& other) {
  bool less = false;
  bool greater = false;
  bool equal = false;
  const bool comparable = Succeeds([&] { less = one < other; });
  Require(Succeeds([&] { greater = other < one; }) == comparable);
  Require(Succeeds([&] { equal = one == other; }) == comparable);
  if (comparable) Require(less + greater + equal == 1);
}

void CheckArithmetic(const TCIMDateTime& one, const TCIMDateTime& other) {
  TCIMDateTime sum;
  TCIMDateTime otherSum;
  Require(Succeeds([&] { sum = one + other; }) == Succeeds([&] { otherSum = other + one; }));
  Require(TextOf(sum) == TextOf(otherSum));
  TCIMDateTime difference;
  TCIMDateTime otherDifference;
  const bool both = Succeeds([&] { difference = one - other; }) &&
                    Succeeds([&] { otherDifference = other - one; });
  if (!both) return;
  Require(difference.IsInterval() == (one.IsInterval() == other.IsInterval()));
  // Of unlike ones, the microseconds change sides.
  if (difference.IsInterval()) Require(TextOf(difference) == TextOf(otherDifference));
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
  std::vector<std::vector<std::uint8_t>> seeds;
  for (const std::string text :
       {"20070102030405.000006+060", "00000001020304.000005:000", "19691231235959.999999-000",
        "19700101000059.000000+001", "00065537235959.999999:000", "99999999999999.999999-999"}) {
    seeds.emplace_back(text.begin(), text.end());
  }
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckText(std::string(data, data + size));
  Fields fields(data, size);
  const TCIMDateTime one = fields.Next();
  const TCIMDateTime other = fields.Next();
  CheckComparisons(one, other);
  CheckComparisons(one, one);
  CheckArithmetic(one, other);
  return 0;
}
