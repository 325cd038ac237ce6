// The library's failures and the system's errors in words. Thread-safety: functions without state.

#ifndef HWX_TEXT_STATUSWORDS_H
#define HWX_TEXT_STATUSWORDS_H

#include <string>

#include "hwxcore/value/THWXException.h"
#include "hwxcore/value/THWXStatusCode.h"

namespace hwx {

/// A status as people say it; one without words of its own by its name.
std::string InWords(const NQORHWX20::THWXStatusCode& status);

/// What the failure tells of itself; of one that has nothing to tell, the status.
std::string InWords(const NQORHWX20::THWXException& failure);

/// What `errno` says. Thread-safety: of the calling thread.
std::string LastError();

}  // namespace hwx

#endif  // HWX_TEXT_STATUSWORDS_H
