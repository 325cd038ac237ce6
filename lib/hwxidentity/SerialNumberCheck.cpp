#include "hwxidentity/SerialNumberCheck.h"

#include <algorithm>
#include <iterator>

#include "hwxsys/Words.h"

namespace hwxidentity {

namespace {

const char* const kFillers[] = {
    "to be filled by o.e.m.",
    "to be filled by oem",
    "default string",
    "system serial number",
    "chassis serial number",
    "serial number",
    "not specified",
    "not available",
    "not applicable",
    "not provided",
    "n/a",
    "none",
    "null",
    "empty",
    "unknown",
    "invalid",
    "oem",
    "o.e.m.",
    "0123456789",
    "123456789",
    "1234567890",
};

bool IsOneCharacterRepeated(const std::string& text) {
  return text.find_first_not_of(text.front()) == std::string::npos;
}

// The function of <cctype> would ask the process's locale, and in Turkish "I" is no capital "i".
char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsFiller(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), &LowerCase);
  return std::find(std::begin(kFillers), std::end(kFillers), text) != std::end(kFillers);
}

}  // namespace

std::optional<std::string> CheckedSerialNumber(const std::string& text) {
  const std::string trimmed(hwxsys::Trimmed(text));
  if (trimmed.empty() || IsOneCharacterRepeated(trimmed) || IsFiller(trimmed)) return std::nullopt;
  return trimmed;
}

}  // namespace hwxidentity
