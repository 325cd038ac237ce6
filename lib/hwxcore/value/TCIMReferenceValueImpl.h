#ifndef HWXCORE_VALUE_TCIMREFERENCEVALUEIMPL_H
#define HWXCORE_VALUE_TCIMREFERENCEVALUEIMPL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValueImpl.h"

namespace NQORHWX20 {

/// The body of references: a `TCIMReference` behind the interface of bodies.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMReferenceValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMReferenceValueImpl(const TCIMReference& value);
  TCIMReferenceValueImpl(const TCIMReferenceValueImpl&) = default;
  ~TCIMReferenceValueImpl() override;

  operator TCIMReference() const override;  // NOLINT(google-explicit-constructor)

  /// The reference itself, to be filled in before a value takes the body.
  TCIMReference& GetReference() { return fValue; }

  /// The reference that `value` holds, without a copy; null if it holds none. Valid as long as
  /// `value` isn't changed.
  static const TCIMReference* In(const TCIMValue& value);

  /// The path, whatever the base.
  std::string ToString(unsigned char base) const override;

  /// False for another type, else what `TCIMReference` says or throws.
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  TCIMReference fValue;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMREFERENCEVALUEIMPL_H
