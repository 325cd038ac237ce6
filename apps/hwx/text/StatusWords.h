// The library's statuses and the system's errors in words. Thread-safety: a function without state.

#ifndef HWX_TEXT_STATUSWORDS_H
#define HWX_TEXT_STATUSWORDS_H

#include <string>

#include "hwxcore/value/THWXStatusCode.h"

namespace hwx {

/// A status as people say it; one without words of its own by its name.
std::string InWords(const NQORHWX20::THWXStatusCode& status);

/// What `errno` says. Thread-safety: of the calling thread.
std::string LastError();

}  // namespace hwx

#endif  // HWX_TEXT_STATUSWORDS_H
