#ifndef HWXTESTS_SUPPORT_STATUSOF_H
#define HWXTESTS_SUPPORT_STATUSOF_H

#include "hwxcore/value/THWXException.h"

namespace hwxtest {

/// The status that `call` throws, `kHWXStatusOK` if it throws none. Other exceptions pass.
template <typename Call>
int StatusOf(Call call) {
  try {
    call();
    return NQORHWX20::kHWXStatusOK;
  } catch (const NQORHWX20::THWXException& failure) {
    return failure.GetStatus();
  }
}

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_STATUSOF_H
