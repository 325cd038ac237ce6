#ifndef HWXKIT_DETAIL_CONTEXTPROVIDER_H
#define HWXKIT_DETAIL_CONTEXTPROVIDER_H

#include <string>

#include "hwxcore/value/TCIMContext.h"

namespace NQORHWX20::detail {

/// Whether a call with this context is for that provider: the key "nspID" is absent, or is a string
/// that holds exactly its name.
inline bool IsForProvider(const TCIMContext& context, const std::string& providerName) {
  const auto found = context.find("nspID");
  return found == context.end() || found->second == TCIMValue(providerName);
}

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_CONTEXTPROVIDER_H
