#include "providers/linux/LiveClass.h"

#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/THWXException.h"

namespace linux_machine {

using NQORHWX20::TCIMValue;

TCIMValue ToValue(const TDate& date) {
  try {
    return NQORHWX20::TCIMDateTime(date.fYear, date.fMonth, date.fDay, 0, 0, 0, 0, 0);
  } catch (const NQORHWX20::THWXException&) {
    return TCIMValue(TTag::kCIMTypeDateTime, 0);
  }
}

void DeclareValues(NQORHWX20::TClassBuilder& builder, const TValueMap& values) {
  std::vector<std::string> numbers;
  std::vector<std::string> texts;
  for (const auto& [number, text] : values) {
    numbers.push_back(std::to_string(number));
    texts.emplace_back(text);
  }
  builder.Qualifier("ValueMap", ToValue(numbers)).Qualifier("Values", ToValue(texts));
}

}  // namespace linux_machine
