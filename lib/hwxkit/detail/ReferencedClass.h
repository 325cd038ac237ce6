#ifndef HWXKIT_DETAIL_REFERENCEDCLASS_H
#define HWXKIT_DETAIL_REFERENCEDCLASS_H

#include <boost/shared_ptr.hpp>

#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20::detail {

/// Throws `kHWXStatusInvalidClass` if the value, an element of it or a key in it is a reference to
/// a class of the kit that isn't committed, and `kHWXStatusInvalidReference` for a reference that
/// isn't null and has no class. A value holds its classes strongly, so without this rule a class
/// could come to hold itself by way of its own default values, static values or qualifiers.
void CheckReferencedClass(const TCIMValue& value);

/// Throws `kHWXStatusInvalidClass` if the value is a reference to a class that neither has the name
/// of `declared` nor descends from a class that has, and `kHWXStatusInvalidReference` as above.
/// Names count, so that a reference may lead to another namespace. An empty `declared` allows every
/// class, and a null needs none.
void CheckRefersTo(const boost::shared_ptr<ICIMClass>& declared, const TCIMValue& value);

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_REFERENCEDCLASS_H
