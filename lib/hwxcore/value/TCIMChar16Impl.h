#ifndef HWXCORE_VALUE_TCIMCHAR16IMPL_H
#define HWXCORE_VALUE_TCIMCHAR16IMPL_H

#include <string>

#include "hwxbase/Export.h"

namespace NQORHWX20 {

/// The body of `TCIMChar16`, which documents the operations.
class HWX_EXPORT TCIMChar16Impl {
 public:
  TCIMChar16Impl() : TCIMChar16Impl(0) {}
  explicit TCIMChar16Impl(unsigned short value) : fIsNull(false), fValue(value) {}
  explicit TCIMChar16Impl(const std::string& text);

  bool IsNull() const { return fIsNull; }
  unsigned short GetValue() const { return fValue; }
  std::string ToString() const;

  bool operator<(const TCIMChar16Impl& other) const;
  bool operator==(const TCIMChar16Impl& other) const;

 private:
  bool fIsNull;
  unsigned short fValue;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMCHAR16IMPL_H
