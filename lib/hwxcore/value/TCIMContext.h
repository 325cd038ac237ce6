#ifndef HWXCORE_VALUE_TCIMCONTEXT_H
#define HWXCORE_VALUE_TCIMCONTEXT_H

#include <map>
#include <string>

#include "hwxcore/value/TCIMValue.h"

namespace NQORHWX20 {

/// Named values that travel with a call to a provider, by value, so that the callee owns a copy.
/// The key "nspID" names the provider that is to answer.
using TCIMContext = std::map<std::string, TCIMValue>;

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMCONTEXT_H
