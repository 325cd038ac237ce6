#ifndef HWXCORE_VALUE_TCIMDATETIMEVALUEIMPL_H
#define HWXCORE_VALUE_TCIMDATETIMEVALUEIMPL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMDateTime.h"
#include "hwxcore/value/TCIMValueImpl.h"

namespace NQORHWX20 {

/// The body of date-times: a `TCIMDateTime` behind the interface of bodies.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMDateTimeValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMDateTimeValueImpl(const TCIMDateTime& value) : fValue(value) {}
  TCIMDateTimeValueImpl(const TCIMDateTimeValueImpl&) = default;
  ~TCIMDateTimeValueImpl() override;

  operator TCIMDateTime() const override;  // NOLINT(google-explicit-constructor)

  /// What `TCIMDateTime` prints, whatever the base.
  std::string ToString(unsigned char base) const override;

  /// False for another type, else what `TCIMDateTime` says or throws.
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  TCIMDateTime fValue;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMDATETIMEVALUEIMPL_H
