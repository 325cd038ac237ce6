#ifndef HWXCORE_VALUE_TCIMSTRINGVALUEIMPL_H
#define HWXCORE_VALUE_TCIMSTRINGVALUEIMPL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMValueImpl.h"

namespace NQORHWX20 {

/// The body of strings: bytes, compared as unsigned bytes.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMStringValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMStringValueImpl(const std::string& value) : fValue(value) {}
  /// `value` may not be null: `std::logic_error`.
  explicit TCIMStringValueImpl(const char* value) : fValue(value) {}
  TCIMStringValueImpl(const TCIMStringValueImpl&) = default;
  ~TCIMStringValueImpl() override;

  operator std::string() const override;  // NOLINT(google-explicit-constructor)

  /// The text itself, whatever the base.
  std::string ToString(unsigned char base) const override;

  /// False for another type.
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  std::string fValue;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMSTRINGVALUEIMPL_H
