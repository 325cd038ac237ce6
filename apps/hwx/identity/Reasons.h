// Why a query of the machine found nothing, in words. A query ends in a bare status, so the
// namespace is looked at once more for what stood in the way.
// Thread-safety: that of the namespace.

#ifndef HWX_IDENTITY_REASONS_H
#define HWX_IDENTITY_REASONS_H

#include <optional>
#include <string>

#include "hwx/inventory/Namespace.h"
#include "hwxcore/value/TCIMValue.h"

namespace hwx {

/// What a query reads.
struct TQueriedProperty {
  const char* fClass;
  const char* fProperty;
  const char* fNoun;  ///< What people call it.
  NQORHWX20::TCIMValue::TCIMType::ECIMType fType;
  bool fIsOfFirmware;      ///< Whether it comes from the firmware's tables.
  bool fNeedsOneInstance;  ///< Whether the query refuses several instances.
};

/// Why `queried` can't be read; missing if it can. Failures of the namespace are told as reasons.
std::optional<std::string> WhyUnreadable(const NamespacePtr& machine,
                                         const TQueriedProperty& queried);

/// Why the firmware's tables can't be read, as the provider tells it: empty if they were read well,
/// missing if the provider doesn't tell.
std::optional<std::string> FirmwareStatus(const NamespacePtr& machine);

}  // namespace hwx

#endif  // HWX_IDENTITY_REASONS_H
