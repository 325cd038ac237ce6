#ifndef HWXKIT_DETAIL_REFERENCEDCLASS_H
#define HWXKIT_DETAIL_REFERENCEDCLASS_H

#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20::detail {

/// Throws `kHWXStatusInvalidClass` if the value, or an element of it, is a reference to a class of
/// the kit that isn't committed. A value holds its class strongly, so without this rule a class
/// could come to hold itself by way of its own default values, static values or qualifiers.
void CheckReferencedClass(const TCIMValue& value);

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_REFERENCEDCLASS_H
