#ifndef HWXCORE_VALUE_TCIMNUMERICVALUEIMPL_H
#define HWXCORE_VALUE_TCIMNUMERICVALUEIMPL_H

#include <string>

#include "hwxbase/Export.h"
#include "hwxcore/value/TCIMValueImpl.h"

namespace NQORHWX20 {

/// The body of booleans, integers and reals. No number is ever converted to another number.
///
/// Thread-safety: none; a body belongs to one handle.
class HWX_EXPORT TCIMNumericValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMNumericValueImpl(bool value);
  explicit TCIMNumericValueImpl(unsigned char value);
  explicit TCIMNumericValueImpl(signed char value);
  explicit TCIMNumericValueImpl(unsigned short value);
  explicit TCIMNumericValueImpl(short value);
  explicit TCIMNumericValueImpl(unsigned int value);
  explicit TCIMNumericValueImpl(int value);
  explicit TCIMNumericValueImpl(unsigned long value);
  explicit TCIMNumericValueImpl(long value);
  explicit TCIMNumericValueImpl(float value);
  explicit TCIMNumericValueImpl(double value);
  TCIMNumericValueImpl(const TCIMNumericValueImpl&) = default;
  ~TCIMNumericValueImpl() override;

  /// Each throws `kHWXStatusTypeMismatch` unless the body is of exactly that type.
  // NOLINTBEGIN(google-explicit-constructor)
  operator bool() const override;
  operator unsigned char() const override;
  operator signed char() const override;
  operator unsigned short() const override;
  operator short() const override;
  operator unsigned int() const override;
  operator int() const override;
  operator unsigned long() const override;
  operator long() const override;
  operator float() const override;
  operator double() const override;
  // NOLINTEND(google-explicit-constructor)

  /// Base 10 for all; 16 (upper case, padded with zeros to the type's width) and 8 (no padding) for
  /// unsigned types; booleans are words in each of the three. Throws `kHWXStatusNotSupported`
  /// otherwise, also for a boolean in another base.
  std::string ToString(unsigned char base) const override;

  /// False for another type; a NaN is neither equal to nor less than anything.
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 protected:
  TCIMValue::TCIMType fType;
  union {
    bool fBoolean;
    unsigned char fUInt8;
    signed char fSInt8;
    unsigned short fUInt16;
    short fSInt16;
    unsigned int fUInt32;
    int fSInt32;
    unsigned long fUInt64;
    long fSInt64;
    float fReal32;
    double fReal64;
  } fValue;

 private:
  template <typename Compare>  // inline: not exported
  inline bool CompareWith(const TCIMValue& other, Compare compare) const;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_VALUE_TCIMNUMERICVALUEIMPL_H
