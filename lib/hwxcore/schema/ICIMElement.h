#ifndef HWXCORE_SCHEMA_ICIMELEMENT_H
#define HWXCORE_SCHEMA_ICIMELEMENT_H

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// What a reference can lead to: the common first base of classes and instances.
///
/// Thread-safety: the provider's business.
class HWX_EXPORT ICIMElement {
 public:
  // Contract: slot-order.
  virtual ~ICIMElement();
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_ICIMELEMENT_H
