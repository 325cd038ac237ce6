#include "hwxkit/CIMName.h"

#include <algorithm>

#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

// The functions of <cctype> would ask the process locale.
unsigned char LowerCase(unsigned char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c - 'A' + 'a') : c;
}

bool IsFirstCharacter(unsigned char c) {
  const unsigned char lower = LowerCase(c);
  return (lower >= 'a' && lower <= 'z') || c == '_' || c >= 0x80;
}

bool IsFurtherCharacter(unsigned char c) {
  return IsFirstCharacter(c) || (c >= '0' && c <= '9');
}

}  // namespace

bool IsCIMName(const std::string& name) {
  return !name.empty() && IsFirstCharacter(static_cast<unsigned char>(name[0])) &&
         std::all_of(name.begin(), name.end(),
                     [](char c) { return IsFurtherCharacter(static_cast<unsigned char>(c)); });
}

void CheckCIMName(const std::string& name) {
  if (!IsCIMName(name)) throw THWXException(kHWXStatusInvalidCIMName);
}

bool IsSameCIMName(const std::string& left, const std::string& right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
    return LowerCase(static_cast<unsigned char>(a)) == LowerCase(static_cast<unsigned char>(b));
  });
}

std::string FoldedCIMName(std::string name) {
  for (char& c : name)
    c = static_cast<char>(LowerCase(static_cast<unsigned char>(c)));
  return name;
}

std::size_t TCIMNameHash::operator()(const std::string& name) const {
  std::size_t hash = 14695981039346656037U;  // FNV-1a
  for (const char c : name)
    hash = (hash ^ LowerCase(static_cast<unsigned char>(c))) * 1099511628211U;
  return hash;
}

}  // namespace NQORHWX20
