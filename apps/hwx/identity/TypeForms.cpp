#include "hwx/identity/TypeForms.h"

#include <algorithm>
#include <optional>

#include "hwx/text/Words.h"
#include "hwxidentity/MachineTypeModel.h"

namespace hwx {

namespace {

constexpr std::size_t kTypeSize = 4;
constexpr std::size_t kModelSize = 3;

const char kInBrackets[] = "in brackets in the product name";
const char kOfProductLine[] = "at its place in the names of a product line";
const char kOfFourCharacters[] = "a product name of four characters";
const char kOfSevenCharacters[] = "a product name of seven characters";
const char kBehindDash[] = "behind a dash in the product name";

TAnswer<std::string> Fact(const std::string& value, const char* form) {
  return {value, {}, false, form};
}

TAnswer<std::string> Guess(const std::string& value, const char* form) {
  return {value, {}, true, form};
}

bool IsLetterOrDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsType(const std::string& text) {
  return text.size() == kTypeSize && std::all_of(text.begin(), text.end(), &IsLetterOrDigit);
}

bool IsModel(const std::string& text) {
  return text.size() == kModelSize && std::all_of(text.begin(), text.end(), [](char c) {
           return c == ' ' || IsLetterOrDigit(c);
         });
}

// Whether the name is nothing but machine type and model, or may be.
bool IsBare(const std::string& productName) {
  const std::size_t end = productName.find_last_not_of(' ') + 1;
  return (end == kTypeSize || end == kTypeSize + kModelSize) &&
         productName.find('-') == std::string::npos;
}

const char* BareForm(const std::string& productName) {
  const bool isFour = productName.find_last_not_of(' ') + 1 == kTypeSize;
  return isFour ? kOfFourCharacters : kOfSevenCharacters;
}

// Machine type and model where the name marks them as such.
std::optional<std::string> MarkedTypeAndModel(const std::string& productName) {
  if (IsBare(productName)) return std::nullopt;
  return hwxidentity::ParseMachineTypeModel(productName);
}

const char* MarkedForm(const std::string& productName) {
  return productName.find("-[") == std::string::npos ? kOfProductLine : kInBrackets;
}

TAnswer<std::string> NoneBehindDash(const std::string& text, const std::string& productName,
                                    const std::string& why) {
  return Missing<std::string>(Quoted(text) + " in " + Quoted(productName) + " " + why);
}

// `part` of `marked`, the piece of what the name marks, must be what the library read.
TAnswer<std::string> PartBehindDash(const std::string& part, const std::string& productName,
                                    const std::optional<std::string>& marked) {
  if (!marked) return Guess(part, IsBare(productName) ? BareForm(productName) : kBehindDash);
  if (part == *marked) return Fact(part, MarkedForm(productName));
  return NoneBehindDash(part, productName, "isn't the " + Quoted(*marked) + " that it marks");
}

std::optional<std::string> Piece(const std::optional<std::string>& text, std::size_t start,
                                 std::size_t size) {
  return text ? std::optional(text->substr(start, size)) : std::nullopt;
}

}  // namespace

TAnswer<std::string> AnswerInName(const std::string& value, const std::string& productName) {
  return IsBare(productName) ? Guess(value, BareForm(productName))
                             : Fact(value, MarkedForm(productName));
}

TAnswer<std::string> TypeBehindDash(const std::string& type, const std::string& productName) {
  if (!IsType(type))
    return NoneBehindDash(type, productName, "is no machine type: not four letters or digits");
  return PartBehindDash(type, productName, Piece(MarkedTypeAndModel(productName), 0, kTypeSize));
}

TAnswer<std::string> ModelBehindDash(const std::string& model, const std::string& productName) {
  if (!IsModel(model))
    return NoneBehindDash(model, productName, "is no model: not three letters, digits or blanks");
  return PartBehindDash(model, productName,
                        Piece(MarkedTypeAndModel(productName), kTypeSize, kModelSize));
}

TAnswer<std::string> TypeOfVersion(const std::string& type, const std::string& biosVersion) {
  const std::size_t opening = biosVersion.find('[');
  const bool isMarked =
      opening != std::string::npos && biosVersion.find(']', opening) != std::string::npos;
  return isMarked ? Fact(type, "by a BIOS version in brackets")
                  : Guess(type, "by the beginning of a BIOS version without brackets");
}

}  // namespace hwx
