// Whether a machine type that the library reads out of a text is one, or only looks like one.
//
// Makers that write machine type and model into the product name put them in brackets:
// "-[7915AC1]-". That is a fact. The library also takes a name of four or seven characters whole,
// and what stands behind the first dash of any other name. Most names of that kind are no machine
// types, so what is read out of them is a guess; and what isn't four letters or digits is none.
// Thread-safety: functions without state.

#ifndef HWX_IDENTITY_TYPEFORMS_H
#define HWX_IDENTITY_TYPEFORMS_H

#include <string>

#include "hwx/text/Answer.h"

namespace hwx {

/// What the library's schema queries read out of a product name, with the form in which it stands
/// there: as a fact or as a guess.
TAnswer<std::string> AnswerInName(const std::string& value, const std::string& productName);

/// The same for what its firmware queries read: the machine type behind the first dash, else in the
/// name itself. Missing if that is no machine type, or not the one that stands in brackets.
TAnswer<std::string> TypeBehindDash(const std::string& type, const std::string& productName);

/// The same for the model behind that type, three letters, digits or blanks.
TAnswer<std::string> ModelBehindDash(const std::string& model, const std::string& productName);

/// The machine type that is known for a BIOS identifier: a guess unless the maker puts the BIOS
/// version in brackets, as those do whose identifiers are known.
TAnswer<std::string> TypeOfVersion(const std::string& type, const std::string& biosVersion);

}  // namespace hwx

#endif  // HWX_IDENTITY_TYPEFORMS_H
