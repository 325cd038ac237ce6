#ifndef HWXTESTS_SUPPORT_NAMESPACETEXT_H
#define HWXTESTS_SUPPORT_NAMESPACETEXT_H

#include <string>
#include <vector>

#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/value/TCIMValue.h"

namespace hwxtest {

/// All that there is to a value: type, nulls, sizes, classes and keys of references, exact reals,
/// the fields of date-times. Two values have one text only if nothing tells them apart.
std::string ValueText(const NQORHWX20::TCIMValue& value);

/// All that the abstract classes tell of a namespace, line by line: qualifier declarations, classes
/// with all that they declare and inherit, static values, instances. The classes stand in the order
/// in which enumerations present them if `inOrder`, else by their names; the qualifier declarations
/// are always sorted, as their order means nothing.
std::vector<std::string> NamespaceLines(NQORHWX20::ICIMNamespace& ns, bool inOrder = true);

/// The first difference between two namespaces, as a text to read; empty if they are equal.
std::string Difference(NQORHWX20::ICIMNamespace& one, NQORHWX20::ICIMNamespace& other,
                       bool inOrder = true);

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_NAMESPACETEXT_H
