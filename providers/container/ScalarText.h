// Scalar values other than references as texts, and back. The texts don't depend on the locale.
// Thread-safety: all of it is free of state; reading and writing date-times asks the process's
// zone.

#ifndef CONTAINER_SCALARTEXT_H
#define CONTAINER_SCALARTEXT_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "hwxcore/value/TCIMValue.h"

namespace container {

/// How a text is to be read.
enum class EForm {
  kPlain,    ///< As CIM-XML has it.
  kEscaped,  ///< A string or character with backslash escapes.
  kFields,   ///< A date-time that its 25 characters can't tell, as numbers between blanks.
  kBits,     ///< A NaN other than the usual one, as the hexadecimal digits of its bits.
  kCleared   ///< A date-time or character that is null within a value that isn't.
};

/// The name of a form in files; null for the plain one.
const char* FormName(EForm form);

struct TScalarText {
  EForm fForm = EForm::kPlain;
  std::string fText;
};

/// What stands in place of a text that isn't plain, for those who know CIM-XML alone: a string with
/// its escapes, another value that comes near.
std::string StandInText(const NQORHWX20::TCIMValue& value, const TScalarText& text);

/// Why a text is no value of a type, as a phrase: "70000" is out of range for uint16.
class TMalformedText : public std::runtime_error {
 public:
  explicit TMalformedText(const std::string& why) : std::runtime_error(why) {}
};

/// The text of a value that is neither null nor an array nor a reference.
TScalarText ScalarText(const NQORHWX20::TCIMValue& value);

/// The value of a type that isn't an array or a reference. Only the white space around booleans,
/// numbers and date-times is ignored. Throws `TMalformedText`.
NQORHWX20::TCIMValue ScalarValue(NQORHWX20::TCIMValue::TCIMType type, EForm form,
                                 const std::string& text);

/// The text in quotation marks, as messages show it: cut where it is long, and printable.
std::string Quoted(std::string_view text);

}  // namespace container

#endif  // CONTAINER_SCALARTEXT_H
