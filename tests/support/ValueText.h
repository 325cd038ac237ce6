#ifndef HWXTESTS_SUPPORT_VALUETEXT_H
#define HWXTESTS_SUPPORT_VALUETEXT_H

#include <functional>
#include <string>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/value/TCIMValue.h"

namespace hwxtest {

/// How a text names a class.
using ClassNaming = std::function<std::string(NQORHWX20::ICIMClass&)>;

/// The name of a type, "uint8" or "uint8[]"; "none" for no type.
std::string TypeText(NQORHWX20::TCIMValue::TCIMType type);

/// A value with its type: "string x", "uint8[3] {1, null}" (3 is the maximum size), "string null",
/// "reference(EX_Disk) null" and "reference(EX_Disk Id=uint32 1, Name=string x)". Classes are
/// named by `naming`, "no class" stands for an empty pointer.
std::string ValueText(const NQORHWX20::TCIMValue& value, const ClassNaming& naming);

/// The same with the classes' own names.
std::string ValueText(const NQORHWX20::TCIMValue& value);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_VALUETEXT_H
