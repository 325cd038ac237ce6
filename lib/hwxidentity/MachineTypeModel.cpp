#include "hwxidentity/MachineTypeModel.h"

#include <cctype>
#include <cstddef>
#include <string_view>

namespace hwxidentity {

namespace {

constexpr std::size_t kTypeLength = 4;
constexpr std::size_t kMTMLength = 7;
const char kUnknownModel[] = "xxx";

bool IsAlphanumericAt(const std::string& text, std::size_t position) {
  return position < text.size() && std::isalnum(static_cast<unsigned char>(text[position])) != 0;
}

bool IsModelCharacterAt(const std::string& text, std::size_t position) {
  return IsAlphanumericAt(text, position) || (position < text.size() && text[position] == ' ');
}

// The form that the product names of one product line have: the length, the head, and the closing
// character with its place. Type and model are the seven characters behind the head.
struct TFixedForm {
  std::size_t fLength;
  std::string_view fHead;
  char fClosing;
  std::size_t fClosingAt;
};

const TFixedForm kFixedForms[] = {
    {27, "QOR eCorvex k3455-[", ']', 26},
    {26, "QOR eCorvex k225-[", ']', 25},
    // Without brackets. The names come in two lengths: the longer ones have one more character, of
    // any kind, in front of the dash. Contract: form-without-brackets.
    {28, "QOR eCorvex k3500- ", '-', 27},
    {27, "QOR eCorvex k3500- ", '-', 26},
};

bool Applies(const TFixedForm& form, const std::string& name) {
  return name.size() == form.fLength && name.compare(0, form.fHead.size(), form.fHead) == 0 &&
         name[form.fClosingAt] == form.fClosing &&
         IsMachineTypeModel(name.substr(form.fHead.size(), kMTMLength));
}

std::string WithUnknownModel(const std::string& name) {
  return name.substr(0, kTypeLength) + kUnknownModel;
}

// Contract: blank-model-is-unknown.
std::string WithoutBlankModel(const std::string& mtm) {
  return mtm.compare(kTypeLength, std::string::npos, "   ") == 0 ? WithUnknownModel(mtm) : mtm;
}

bool ClosesAt(const std::string& name, std::size_t position) {
  return position < name.size() && name[position] == ']';
}

// The form "...-[tttt" + "mmm" or nothing + "]...", with the mark at `mark`.
std::optional<std::string> ParseBracketed(const std::string& name, std::size_t mark) {
  const std::size_t begin = mark + 2;
  const std::string candidate = name.substr(begin, kMTMLength);
  if (ClosesAt(name, begin + kMTMLength) && IsMachineTypeModel(candidate)) {
    return WithoutBlankModel(candidate);
  }
  if (ClosesAt(name, begin + kTypeLength) && IsMachineType(candidate)) {
    return WithUnknownModel(candidate);
  }
  return std::nullopt;
}

std::optional<std::string> ParseBare(const std::string& name) {
  if (name.size() == kTypeLength && IsMachineType(name)) {
    return WithUnknownModel(name);
  }
  if (name.size() == kMTMLength && IsMachineTypeModel(name)) {
    return WithoutBlankModel(name);
  }
  return std::nullopt;
}

}  // namespace

bool IsMachineType(const std::string& text) {
  return IsAlphanumericAt(text, 0) && IsAlphanumericAt(text, 1) && IsAlphanumericAt(text, 2) &&
         IsAlphanumericAt(text, 3);
}

bool IsMachineTypeModel(const std::string& text) {
  // The type may hold no blanks. Contract: blanks-in-model, length-unchecked.
  return IsMachineType(text) && IsModelCharacterAt(text, 4) && IsModelCharacterAt(text, 5) &&
         IsModelCharacterAt(text, 6);
}

std::optional<std::string> ParseMachineTypeModel(std::string productName) {
  productName.erase(productName.find_last_not_of(' ') + 1);
  for (const TFixedForm& form : kFixedForms) {
    // Contract: fixed-form-keeps-blanks.
    if (Applies(form, productName)) return productName.substr(form.fHead.size(), kMTMLength);
  }
  // Contract: first-mark-alone.
  const std::size_t mark = productName.find("-[");
  return mark == std::string::npos ? ParseBare(productName) : ParseBracketed(productName, mark);
}

}  // namespace hwxidentity
