#ifndef HWXCORE_VALUE_TCIMCHAR16VALUEIMPL_H
#define HWXCORE_VALUE_TCIMCHAR16VALUEIMPL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMChar16.h"
#include "hwxcore/value/TCIMValueImpl.h"

namespace NQORHWX20 {

/// The body of characters: a `TCIMChar16` behind the interface of bodies.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMChar16ValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMChar16ValueImpl(const TCIMChar16& value) : fValue(value) {}
  TCIMChar16ValueImpl(const TCIMChar16ValueImpl&) = default;
  ~TCIMChar16ValueImpl() override;

  operator TCIMChar16() const override;  // NOLINT(google-explicit-constructor)

  /// What `TCIMChar16` prints, whatever the base.
  std::string ToString(unsigned char base) const override;

  /// False for another type, else what `TCIMChar16` says or throws.
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  TCIMChar16 fValue;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMCHAR16VALUEIMPL_H
