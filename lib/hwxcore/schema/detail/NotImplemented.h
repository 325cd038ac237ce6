#ifndef HWXCORE_SCHEMA_DETAIL_NOTIMPLEMENTED_H
#define HWXCORE_SCHEMA_DETAIL_NOTIMPLEMENTED_H

#include "hwxcore/value/THWXException.h"

namespace NQORHWX20::detail {

/// The default body of the schema operations that a provider may leave out.
[[noreturn]] inline void ThrowNotImplemented() {
  throw THWXException(kHWXStatusNotImplemented);
}

}  // namespace NQORHWX20::detail

#endif  // HWXCORE_SCHEMA_DETAIL_NOTIMPLEMENTED_H
