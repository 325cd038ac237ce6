#ifndef HWXCORE_SCHEMA_DETAIL_EXISTING_H
#define HWXCORE_SCHEMA_DETAIL_EXISTING_H

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include "hwxcore/value/THWXException.h"

namespace NQORHWX20::detail {

/// `object` itself, to be used at once. What a provider hands out instead of throwing is not
/// trusted to be there: throws `kHWXStatusNotFound` for an empty pointer.
template <typename T>
const boost::shared_ptr<T>& Existing(const boost::shared_ptr<T>& object) {
  if (!object) throw THWXException(kHWXStatusNotFound);
  return object;
}

/// A strong handle from a weak one. Throws `kHWXStatusInvalidOpSequence` if the object is gone.
template <typename T>
boost::shared_ptr<T> Locked(const boost::weak_ptr<T>& object) {
  boost::shared_ptr<T> locked = object.lock();
  if (!locked) throw THWXException(kHWXStatusInvalidOpSequence);
  return locked;
}

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_SCHEMA_DETAIL_EXISTING_H
