// Type names and values from any text: no failure but the ones that are told, and every number what
// a plain stream reads, in the classic locale and in one that writes numbers differently.

#include <cstdint>
#include <cstring>
#include <locale>
#include <string>
#include <vector>

#include "Require.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxcore/value/THWXException.h"
#include "support/StatusOf.h"
#include "support/StreamText.h"

namespace {

using fuzz::Require;
using hwxtest::StatusOf;
using namespace NQORHWX20;
using TCIMType = TCIMValue::TCIMType;
using Bytes = std::vector<std::uint8_t>;

TCIMValue Read(TCIMType type, std::string text) {
  return TCIMValue(type, text, boost::shared_ptr<ICIMNamespace>());
}

void CheckTypeName(const std::string& name) {
  const TCIMType type(name);
  if (type == TCIMType::kCIMTypeNone) {
    Require(StatusOf([&] { type.ToString(); }) == kHWXStatusTypeMismatch);
    return;
  }
  Require(type >= TCIMType::kCIMTypeBoolean && type <= TCIMType::kCIMTypeReference);
  Require(type.ToString().size() == name.size());
  Require(TCIMType(type.ToString()) == type);
}

// `Wide` is what the stream reads for a value of the type `Number`.
template <typename Number, typename Wide = Number>
void CheckNumber(TCIMType type, const std::string& text) {
  const TCIMValue value = Read(type, text);
  Require(!value.IsNull() && value.GetType() == type);
  const auto expected = static_cast<Number>(hwxtest::StreamedNumber<Wide>(text));
  Require(hwxtest::IsSame(value.operator Number(), expected));
  Require(TCIMValue(value) == value);
  Require(!value.ToString(10).empty());
}

void CheckNumbers(const std::string& text) {
  CheckNumber<bool>(TCIMType::kCIMTypeBoolean, text);
  CheckNumber<unsigned char, unsigned int>(TCIMType::kCIMTypeUInt8, text);
  CheckNumber<signed char, int>(TCIMType::kCIMTypeSInt8, text);
  CheckNumber<unsigned short>(TCIMType::kCIMTypeUInt16, text);
  CheckNumber<short>(TCIMType::kCIMTypeSInt16, text);
  CheckNumber<unsigned int>(TCIMType::kCIMTypeUInt32, text);
  CheckNumber<int>(TCIMType::kCIMTypeSInt32, text);
  CheckNumber<unsigned long>(TCIMType::kCIMTypeUInt64, text);
  CheckNumber<long>(TCIMType::kCIMTypeSInt64, text);
  CheckNumber<float>(TCIMType::kCIMTypeReal32, text);
  CheckNumber<double>(TCIMType::kCIMTypeReal64, text);
}

void CheckOtherTypes(const std::string& text) {
  for (const auto type : {TCIMType::kCIMTypeString, TCIMType::kCIMTypeChar16}) {
    const TCIMValue value = Read(type, text);
    Require(value.GetType() == TCIMType::kCIMTypeString && value.ToString(10) == text);
  }
  const int status = StatusOf([&] { Read(TCIMType::kCIMTypeDateTime, text).ToString(10); });
  Require(status == kHWXStatusOK || status == kHWXStatusInvalidDateTime);
  for (const int tag : {-1, 0, 16, 17, 22, 30, 31, 32, 38, 1000}) {
    const TCIMType type = static_cast<TCIMType::ECIMType>(tag);
    Require(StatusOf([&] { Read(type, text); }) == kHWXStatusTypeMismatch);
  }
}

Bytes Seed(const char* text) {
  return Bytes(text, text + std::strlen(text));
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return {Seed("uint8"),
          Seed("DateTime"),
          Seed("reference"),
          Seed("true"),
          Seed("false"),
          Seed("4294967295"),
          Seed("-2147483648"),
          Seed("0x7fFF"),
          Seed("0177"),
          Seed("18446744073709551616"),
          Seed(" +12.5e-3"),
          Seed("1.234.567,89"),
          Seed("1e308"),
          Seed("3.4028235e38"),
          Seed("4.9e-324"),
          Seed("wahr"),
          Seed("20070102030405.000006+060")};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::locale& classic = std::locale::classic();
  static const std::locale other(classic, new hwxtest::TPunctuation(',', '.', "\3"));
  const std::string text(reinterpret_cast<const char*>(data), size);
  CheckTypeName(text);
  CheckNumbers(text);
  CheckOtherTypes(text);
  std::locale::global(other);
  CheckNumbers(text);
  std::locale::global(classic);
  return 0;
}
